#include "SheetPlan.h"

namespace host {

namespace {

constexpr SheetState ownStates[] = {
    { .name = "Fresh", .everyPage = true },
    { .name = "Switched on",
        .everyPage = true,
        .toggle = true,
        .statusBar = true,
        .preferences
        = "<key>enabled</key><true/><key>enableIcon</key><true/>"
          "<key>buttonColor</key><string>#3A7BD5</string><key>colorPickerType</key><integer>0</integer>"
          "<key>preferColorPicker</key><true/>" },
    { .name = "Suppressed",
        .preferences = "<key>enabled</key><true/>"
                       "<key>disarmedUntil</key><date>2014-01-05T18:17:42Z</date>" },
    { .name = "Alert", .script = "row 1 0\ntap \"#FF0000\"\n" },
    { .name = "Text being edited", .script = "row 1 1\nclear\ntype \"Later\"\nselect 1 3\n" },
    { .name = "Saturation picker",
        .preferences = "<key>buttonColor</key><string>#20C060</string>"
                       "<key>colorPickerType</key><integer>1</integer>",
        .script = "row 1 0\n" },
    { .name = "Brightness picker",
        .preferences = "<key>buttonColor</key><string>#20C060</string>"
                       "<key>colorPickerType</key><integer>2</integer>",
        .script = "row 1 0\n" },
    { .name = "Sliders first", .preferences = "<key>preferColorPicker</key><false/>", .script = "row 1 0\n" },
    { .name = "Broken colour",
        .preferences = "<key>buttonColor</key><string>no colour</string>",
        .script = "row 1 0\n" },
};

}

std::string textOfSize(platform::CGSize size)
{
    return std::to_string(static_cast<int>(size.width)) + "x" + std::to_string(static_cast<int>(size.height));
}

std::vector<SheetPlan::Job> SheetPlan::jobs() const
{
    std::vector<Job> all;
    for (std::size_t state = 0; state < states.size(); ++state) {
        for (std::size_t phone = 0; phone < phones.size(); ++phone) {
            for (std::size_t scale = 0; scale < scales.size(); ++scale) {
                for (std::size_t locale = 0; locale < locales.size(); ++locale)
                    all.push_back({ state, phone, scale, locale });
            }
        }
    }
    return all;
}

std::string SheetPlan::textOf(std::size_t job) const
{
    const auto [state, phone, scale, locale] = jobs().at(job);
    return std::string(states[state].name) + ", " + textOfSize(phones[phone]) + " at "
        + std::to_string(scales[scale]) + "x, " + locales[locale];
}

std::string SheetPlan::textOfBeginning()
{
    return "Before the first page";
}

std::vector<platform::CGSize> SheetPlan::usualPhones()
{
    return { { 320, 480 }, { 320, 568 }, { 360, 640 }, { 375, 667 }, { 375, 812 }, { 390, 844 }, { 414, 736 },
        { 414, 896 } };
}

std::vector<std::string> SheetPlan::usualLocales()
{
    return { "en_US", "de_DE", "fr_FR", "ru_RU", "ja_JP", "ar_EG" };
}

std::vector<SheetState> SheetPlan::usualStates(bool ownPane)
{
    return ownPane ? std::vector<SheetState>(std::begin(ownStates), std::end(ownStates))
                   : std::vector<SheetState> { ownStates[0] };
}

}

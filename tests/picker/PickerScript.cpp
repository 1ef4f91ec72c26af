#include "PickerScript.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <sstream>

namespace vekora::test {

const std::vector<TypedText>& typedTexts()
{
    static const std::vector<TypedText> all {
        { "", 0 },
        { "0", 0 },
        { "1", 1 },
        { "33", 33 },
        { "50", 50 },
        { "99.5", 99.5f },
        { "100", 100 },
        { "359", 359 },
        { "360", 360 },
        { "720", 720 },
        { "-20", -20 },
        { "12.3", 12.3f },
        { "abc", 0 },
        { "1e99", HUGE_VALF },
        { "99999999999", 99999999999.0f },
    };
    return all;
}

Script Scripts::next(std::size_t length)
{
    Script script;
    for (std::size_t i = 0; i < length; ++i)
        script.push_back(event());
    return script;
}

long Scripts::below(long limit)
{
    return static_cast<long>(_random() % static_cast<std::uint64_t>(limit));
}

// On the grid of eighths, in and around a picker, and often where something begins or ends.
double Scripts::coordinate(std::initializer_list<double> edges)
{
    if (below(4) == 0)
        return *(edges.begin() + below(static_cast<long>(edges.size())))
            + (static_cast<double>(below(5)) - 2) / 8;
    return static_cast<double>(below(4400)) / 8 - 20;
}

CGPoint Scripts::point()
{
    if (below(2) == 0) // Where even the narrowest picker has its field.
        return { scriptedPickerOrigin.x + 10 + static_cast<double>(below(1120)) / 8,
            scriptedPickerOrigin.y + 44 + static_cast<double>(below(1200)) / 8 };
    return { scriptedPickerOrigin.x + coordinate({ 10, 148, 160, 266, 310, 336 }),
        scriptedPickerOrigin.y + coordinate({ 10, 30, 40, 300, 310, 330, 334, 374, 70, 444 }) };
}

UIColor Scripts::color()
{
    const auto share = [this] { return static_cast<double>(below(257)) / 256; };
    const std::array parts { share(), share(), share(), share() }; // In this order.
    switch (below(4)) {
    case 0:
        return UIColor::colorWithWhiteAlpha(parts[0], parts[3]);
    case 1:
        return UIColor::colorWithHueSaturationBrightnessAlpha(parts[0], parts[1], parts[2], 1);
    default:
        return UIColor::colorWithRedGreenBlueAlpha(parts[0], parts[1], parts[2], parts[3]);
    }
}

Event Scripts::event()
{
    static constexpr std::pair<Deed, int> odds[]
        = { { Deed::Touch, 200 }, { Deed::Move, 560 }, { Deed::Lift, 180 }, { Deed::Cancel, 10 },
              { Deed::Show, 20 }, { Deed::Commit, 10 }, { Deed::Ask, 10 }, { Deed::Resize, 10 } };
    auto drawn = below(1000);
    auto deed = Deed::Touch;
    for (const auto& [candidate, share] : odds) {
        deed = candidate;
        drawn -= share;
        if (drawn < 0)
            break;
    }
    return { .deed = deed,
        .point = point(),
        .color = color(),
        .size = { static_cast<double>(160L << below(3)), 240 + static_cast<double>(below(800)) / 4 },
        .tag = 3026 + below(3),
        .typed = static_cast<std::size_t>(below(static_cast<long>(typedTexts().size()))),
        .confirms = below(3) != 0 };
}

std::string written(const Event& event)
{
    std::ostringstream out;
    const auto at = [&](const char* deed) { out << deed << " " << testing::PrintToString(event.point); };
    switch (event.deed) {
    case Deed::Touch:
        at("touch");
        break;
    case Deed::Move:
        at("move");
        break;
    case Deed::Lift:
        at("lift");
        break;
    case Deed::Cancel:
        out << "cancel";
        break;
    case Deed::Show:
        out << "show " << testing::PrintToString(event.color);
        break;
    case Deed::Commit:
        out << "commit " << testing::PrintToString(event.color);
        break;
    case Deed::Ask:
        out << "ask " << event.tag;
        break;
    case Deed::Resize:
        out << "resize to " << event.size.width << " x " << event.size.height;
        break;
    }
    out << "  (a dialog gets \"" << typedTexts().at(event.typed).text << "\", "
        << (event.confirms ? "OK" : "Cancel") << ")";
    return out.str();
}

}

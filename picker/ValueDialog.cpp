#include "ValueDialog.h"

#include "ReadOut.h"

#include "platform/NSString.h"

using namespace platform;

namespace vekora {

namespace {

struct Dialog {
    Component component;
    const char* action; ///< Of the button that opens it.
    long tag;
    const char* messageFormat;
};

constexpr Dialog dialogs[] = {
    { Component::Hue, "askUserForHue", 3026,
        "Please enter a Hue value between 0° and 360°\n current value is: %d°" },
    { Component::Brightness, "askUserForBrightness", 3027,
        "Please enter a Brightness value between 0%% and 100%%\n current value is: %d%%" },
    { Component::Saturation, "askUserForSaturation", 3028,
        "Please enter a Saturation value between 0%% and 100%%\n current value is: %d%%" },
};

const Dialog& dialogFor(Component component)
{
    const auto* dialog = dialogs;
    while (dialog->component != component)
        ++dialog;
    return *dialog;
}

}

std::string_view valueDialogAction(Component component)
{
    return dialogFor(component).action;
}

Ref<UIAlertView> makeValueDialog(Component component, CGFloat currentValue, UIAlertViewDelegate* delegate)
{
    const auto& dialog = dialogFor(component);
    auto alert = UIAlertView::make({
        .message = stringWithFormat(dialog.messageFormat, wholeUnits(component, currentValue)),
        .delegate = delegate,
        .cancelButtonTitle = "Cancel",
        .otherButtonTitles = { "OK" },
    });
    alert->setAlertViewStyle(UIAlertViewStyle::PlainTextInput);
    alert->setTag(dialog.tag);
    alert->textFieldAtIndex(0)->setKeyboardType(UIKeyboardType::NumberPad);
    return alert;
}

std::optional<TypedValue> typedValue(UIAlertView& alert)
{
    for (const auto& dialog : dialogs) {
        if (alert.tag() != dialog.tag)
            continue;
        const auto* field = alert.textFieldAtIndex(0);
        const double typed = field ? floatValue(field->text()) : 0;
        return TypedValue { dialog.component, typed / unitsOf(dialog.component) };
    }
    return std::nullopt;
}

}

#include "VKColorCell.h"

#include "platform/NSString.h"
#include "platform/Truncation.h"
#include "platform/UISlider.h"

namespace vekora {

using namespace platform;

namespace {

constexpr long hexAlertTag = 2629;
constexpr long saveButton = 1;

}

void VKColorCell::askUserForInputR()
{
    askForChannel(channels[0]);
}

void VKColorCell::askUserForInputG()
{
    askForChannel(channels[1]);
}

void VKColorCell::askUserForInputB()
{
    askForChannel(channels[2]);
}

void VKColorCell::askForChannel(const Channel& channel)
{
    // Looked up once for each half of the message.
    const auto lowest = unit();
    const auto highest = unit();
    const auto alert
        = showQuestion(stringWithFormat("Please enter a value for %s between\n%i%s and %i%s", channel.name,
                           truncatedInteger(min), lowest.c_str(), truncatedInteger(max), highest.c_str()),
            channel.alertTag);
    auto* field = alert->textFieldAtIndex(0);
    // The number pad has no minus key.
    if (min < 0)
        field->setText("-");
    field->setKeyboardType(UIKeyboardType::NumberPad);
}

void VKColorCell::askUserForInputHex()
{
    showQuestion(
        "Please enter a hex value between\n#000000 and #FFFFFF\nCurrent value is: " + hexColorField->text(),
        hexAlertTag);
}

Ref<UIAlertView> VKColorCell::showQuestion(std::string message, long tag)
{
    auto alert = UIAlertView::make({
        .message = std::move(message),
        .delegate = this,
        .cancelButtonTitle = "Cancel",
        .otherButtonTitles = { "Save" },
    });
    alert->setAlertViewStyle(UIAlertViewStyle::PlainTextInput);
    alert->setTag(tag);
    alert->show();
    return alert;
}

void VKColorCell::alertViewClickedButtonAtIndex(UIAlertView& alert, long buttonIndex)
{
    if (buttonIndex != saveButton)
        return;
    for (const auto& channel : channels) {
        if (alert.tag() == channel.alertTag)
            takeNumber(channel, alert.textFieldAtIndex(0)->text());
    }
    if (alert.tag() == hexAlertTag)
        takeHex(alert.textFieldAtIndex(0)->text());
}

/// The slider brings the number into its range.
void VKColorCell::takeNumber(const Channel& channel, std::string_view text)
{
    auto* slider = (this->*channel.slider).get();
    slider->setValue(floatValue(text));
    sliderValueChangedAction(slider);
    sliderTouchUpInsideOutsideAction(slider);
}

void VKColorCell::takeHex(std::string_view text)
{
    setSliders(readColorString(text));
    setColors(true);
    sliderTouchUpInsideOutsideAction(sliderB.get());
}

/// What numbers are counted in, for the dialogs.
std::string VKColorCell::unit() const
{
    const auto* type = property("type");
    return type && type->string() ? *type->string() : std::string();
}

}

#include "VKColorCell.h"

#include "picker/VKColorPickerView_B.h"
#include "picker/VKColorPickerView_H.h"
#include "picker/VKColorPickerView_S.h"

#include "platform/CFNotificationCenter.h"
#include "platform/NSMutableDictionary.h"
#include "platform/NSString.h"
#include "platform/Truncation.h"
#include "platform/UISlider.h"

namespace vekora {

using namespace platform;

namespace {

const auto registration
    = registerClass<VKColorCell>("VKColorCell")
          .initialiser<long, std::string, Ref<PSSpecifier>>()
          .method("askUserForInputHex", &VKColorCell::askUserForInputHex)
          .method("askUserForInputR", &VKColorCell::askUserForInputR)
          .method("askUserForInputG", &VKColorCell::askUserForInputG)
          .method("askUserForInputB", &VKColorCell::askUserForInputB)
          .method("useWhiteFont:withGreen:withBlue:withOpacity:",
              &VKColorCell::useWhiteFontWithGreenWithBlueWithOpacity)
          .method("setColors:", &VKColorCell::setColors)
          .method("sliderTouchUpInsideOutsideAction:", &VKColorCell::sliderTouchUpInsideOutsideAction)
          .method("sliderValueChangedAction:", &VKColorCell::sliderValueChangedAction);

std::optional<std::string> textOf(const PropertyValue* value)
{
    return value && value->string() ? std::optional(*value->string()) : std::nullopt;
}

float numberOf(const PropertyValue* value)
{
    return value ? value->floatValue() : 0;
}

/// Without any colour, white; one that is no text has no digits either.
std::string colorTextOf(const PropertyValue* value)
{
    return value ? textOf(value).value_or("") : writtenColorString({ 255, 255, 255 });
}

}

constinit const std::array<VKColorCell::Channel, 3> VKColorCell::channels { {
    { "Red", &ColorChannels::red, &VKColorCell::titleR, &VKColorCell::valueR, &VKColorCell::sliderR,
        "askUserForInputR", 2626 },
    { "Green", &ColorChannels::green, &VKColorCell::titleG, &VKColorCell::valueG, &VKColorCell::sliderG,
        "askUserForInputG", 2627 },
    { "Blue", &ColorChannels::blue, &VKColorCell::titleB, &VKColorCell::valueB, &VKColorCell::sliderB,
        "askUserForInputB", 2628 },
} };

VKColorCell::VKColorCell(long /* style */, std::string reuseIdentifier, Ref<PSSpecifier> row)
    : PSTableCell(
        static_cast<long>(UITableViewCellStyle::Default), std::move(reuseIdentifier), std::move(row))
{
    const auto* preferColorPicker = property("preferColorPicker");
    const bool pickerIsPreferred = !preferColorPicker || preferColorPicker->boolValue();
    specifierObject = textOf(property("key"));
    defaults = textOf(property("defaults"));
    PostNotification = textOf(property("PostNotification"));
    min = numberOf(property("min"));
    max = numberOf(property("max"));

    const ColorCellLayout layout { frame().width,
        pickerIsPreferred ? PickerPlace::Above : PickerPlace::Below };
    setBackgroundColor(UIColor::whiteColor());
    makeViews(layout);
    formatter.setNumberStyle(NSNumberFormatterStyle::Decimal);
    formatter.setMaximumFractionDigits(0);

    const auto color = showStoredColor(readPreferences());
    addViews();
    makePicker(layout.picker(), colorWithChannels(color, 1));
    makeHelp(layout.help());
}

VKColorCell::~VKColorCell()
{
    UIAlertView::delegateIsGone(this);
}

const PropertyValue* VKColorCell::property(std::string_view key) const
{
    return specifier() ? specifier()->propertyForKey(key) : nullptr;
}

/// The colour's text: the stored one, else the row's own.
std::string VKColorCell::readPreferences()
{
    auto color = colorTextOf(property("default"));
    const auto preferences
        = defaults ? NSMutableDictionary::dictionaryWithContentsOfFile(preferencesPath()) : std::nullopt;
    if (!preferences)
        return color;
    if (const auto* stored = specifierObject ? preferences->objectForKey(*specifierObject) : nullptr)
        color = colorTextOf(stored);
    if (const auto* percent = preferences->objectForKey("buttonAlphaLevel"))
        buttonAlphaLevel = percent->floatValue() / 100;
    if (const auto* type = preferences->objectForKey("colorPickerType"))
        colorPickerType = type->intValue();
    return color;
}

ColorChannels VKColorCell::showStoredColor(std::string_view text)
{
    const auto digits = stringByTrimmingCharactersInSet(text, "#");
    const auto color = readColorString(digits);
    hexColorField->setText(uppercaseString("#" + digits));
    buttonColorField->setBackgroundColor(colorWithChannels(color, buttonAlphaLevel));
    showSampleText(color);
    setSliders(color);
    return color;
}

bool VKColorCell::useWhiteFontWithGreenWithBlueWithOpacity(
    std::int32_t red, std::int32_t green, std::int32_t blue, float opacity) const
{
    return needsWhiteText({ red, green, blue }, opacity);
}

void VKColorCell::setColors(bool updatePicker)
{
    const auto color = colorOfSliders();
    showSampleAndHex(color);
    if (updatePicker) {
        const auto show = [opaque = colorWithChannels(color, 1)](const auto& picker) {
            if (picker)
                picker->setColor(opaque);
        };
        show(colorPickerView_B);
        show(colorPickerView_S);
        show(colorPickerView_H);
    }
    showSampleText(color);
}

void VKColorCell::sliderValueChangedAction(UISlider* sender)
{
    for (const auto& channel : channels) {
        if ((this->*channel.slider).get() == sender)
            showNumber(channel);
    }
    setColors(true);
}

void VKColorCell::sliderTouchUpInsideOutsideAction(UISlider* /* sender */)
{
    showSampleAndHex(colorOfSliders());
    saveChanges();
}

void VKColorCell::colorsHaveChanged(const UIColor& color)
{
    const auto components = color.cgColor().rgba();
    for (std::size_t i = 0; i < channels.size(); ++i) {
        (this->*channels[i].slider)->setValue(sliderValueForComponent(components[i]));
        showNumber(channels[i]);
    }
    // The picker shows the colour already.
    setColors(false);
}

ColorChannels VKColorCell::colorOfSliders() const
{
    ColorChannels color;
    for (const auto& channel : channels)
        color.*channel.number = truncatedInteger((this->*channel.slider)->value());
    return color;
}

/// The sliders and their read-outs; these in plain digits, whatever the locale.
void VKColorCell::setSliders(ColorChannels color)
{
    for (const auto& channel : channels) {
        const auto number = color.*channel.number;
        (this->*channel.slider)->setValue(static_cast<float>(number));
        (this->*channel.value)->setText(std::to_string(number));
    }
}

void VKColorCell::showNumber(const Channel& channel)
{
    const auto number = readOutNumber((this->*channel.slider)->value());
    (this->*channel.value)->setText(formatter.stringFromNumber(number));
}

void VKColorCell::showSampleAndHex(ColorChannels color)
{
    buttonColorField->setBackgroundColor(colorWithChannels(color, buttonAlphaLevel));
    hexColorField->setText(writtenColorString(color));
}

void VKColorCell::showSampleText(ColorChannels color)
{
    const bool white
        = useWhiteFontWithGreenWithBlueWithOpacity(color.red, color.green, color.blue, buttonAlphaLevel);
    buttonColorField->setTextColor(white ? UIColor::whiteColor() : UIColor::blackColor());
}

std::string VKColorCell::preferencesPath() const
{
    return "/var/mobile/Library/Preferences/" + *defaults + ".plist";
}

void VKColorCell::saveChanges()
{
    if (defaults && specifierObject) {
        const auto path = preferencesPath();
        // Others write the file too, so it is read anew. One that is not there is not made.
        if (auto preferences = NSMutableDictionary::dictionaryWithContentsOfFile(path)) {
            preferences->setObjectForKey(hexColorField->text(), *specifierObject);
            static_cast<void>(preferences->writeToFileAtomically(path, true));
        }
    }
    if (PostNotification) {
        CFNotificationCenterPostNotification(
            CFNotificationCenterGetDarwinNotifyCenter(), *PostNotification, nullptr, nullptr, true);
    }
}

}

#include "VKColorCell.h"

#include "picker/VKColorPickerView_B.h"
#include "picker/VKColorPickerView_H.h"
#include "picker/VKColorPickerView_S.h"

#include "platform/UIButton.h"
#include "platform/UISlider.h"

namespace vekora {

using namespace platform;

namespace {

constexpr unsigned sides = UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin;
constexpr unsigned widthAndSides = sides | UIViewAutoresizingFlexibleWidth;

constexpr CGFloat cornerRadius = 5;

constexpr const char* helpText
    = "-- Tap once on a color gradient to select a color.\n"
      "-- Tap, hold and drag on a color gradient to scroll through different colors.\n"
      "-- Tap once on a number value to bring up a keyboard and enter a value directly.\n"
      "-- Tap once on the hex value to bring up a keyboard and enter a value directly.";

struct LabelSettings {
    CGRect frame;
    const char* text;
    UIColor textColor = UIColor::blackColor();
    NSTextAlignment alignment = NSTextAlignment::Left;
    unsigned mask = UIViewAutoresizingNone;
};

Ref<UILabel> makeLabel(const LabelSettings& settings)
{
    auto label = std::make_shared<UILabel>(settings.frame);
    label->setNumberOfLines(1);
    label->setText(settings.text);
    label->setTextColor(settings.textColor);
    label->setBackgroundColor(UIColor::clearColor());
    label->setTextAlignment(settings.alignment);
    label->setAutoresizingMask(settings.mask);
    return label;
}

/// One character more than a colour has, so that the read-out has some room.
CGSize sizeOfWidestHex(CGFloat width)
{
    UILabel measure({ 15, 10, width - 30, 40 });
    measure.setNumberOfLines(1);
    measure.setText("#FFFFFFF");
    measure.sizeToFit();
    return measure.frame().size();
}

/// A faint button that lies over a read-out, and as it does.
Ref<UIButton> makeEntryButton(const UILabel& readOut, NSObject* target, std::string_view action)
{
    auto button = UIButton::buttonWithType(UIButtonType::RoundedRect);
    button->setFrame(readOut.frame());
    button->setTitleForState("", UIControlState::Normal);
    button->addTargetActionForControlEvents(target, action, UIControlEventTouchUpInside);
    button->layer().setCornerRadius(cornerRadius);
    button->setBackgroundColor(UIColor::colorWithRedGreenBlueAlpha(0, 0, 0, 0.04));
    button->setAutoresizingMask(readOut.autoresizingMask());
    return button;
}

}

void VKColorCell::makeViews(const ColorCellLayout& layout)
{
    hexColorField = makeLabel({
        .frame = layout.hexReadOut(sizeOfWidestHex(layout.width)),
        .text = "",
        .textColor = UIColor::blueColor(),
        .alignment = NSTextAlignment::Center,
        .mask = widthAndSides,
    });
    buttonColorField = makeLabel({
        .frame = layout.sample(),
        .text = "Button",
        .alignment = NSTextAlignment::Center,
        .mask = widthAndSides,
    });
    auto& sampleLayer = buttonColorField->layer();
    sampleLayer.setBorderColor(UIColor::blackColor().cgColor());
    sampleLayer.setBorderWidth(1);
    sampleLayer.setCornerRadius(cornerRadius);
    sampleLayer.setMasksToBounds(true);

    for (int i = 0; i < static_cast<int>(channels.size()); ++i) {
        const auto& channel = channels[i];
        this->*channel.title = makeLabel({ .frame = layout.title(i), .text = channel.name });
        this->*channel.value = makeLabel({
            .frame = layout.value(i),
            .text = "0",
            .textColor = UIColor::blueColor(),
            .alignment = NSTextAlignment::Right,
            .mask = sides,
        });
        this->*channel.slider = makeSlider(layout.slider(i));
    }
}

Ref<UISlider> VKColorCell::makeSlider(CGRect frame)
{
    auto slider = std::make_shared<UISlider>(frame);
    slider->setMinimumValue(min);
    slider->setMaximumValue(max);
    slider->setContinuous(true);
    slider->addTargetActionForControlEvents(this, "sliderValueChangedAction:", UIControlEventValueChanged);
    slider->addTargetActionForControlEvents(this,
        "sliderTouchUpInsideOutsideAction:", UIControlEventTouchUpInside | UIControlEventTouchUpOutside);
    slider->setAutoresizingMask(widthAndSides);
    return slider;
}

/// Later views lie above earlier ones. Labels take no touches, so a tap on a read-out reaches its button.
void VKColorCell::addViews()
{
    auto& content = contentView();
    content.addSubview(hexColorField);
    content.addSubview(buttonColorField);
    for (const auto& channel : channels)
        content.addSubview(this->*channel.title);
    for (const auto& channel : channels)
        content.addSubview(makeEntryButton(*(this->*channel.value), this, channel.askAction));
    for (const auto& channel : channels)
        content.addSubview(this->*channel.slider);
    for (const auto& channel : channels)
        content.addSubview(this->*channel.value);
    content.addSubview(makeEntryButton(*hexColorField, this, "askUserForInputHex"));
}

void VKColorCell::makePicker(CGRect frame, const UIColor& color)
{
    // The cell holds its picker, so the picker only looks at the cell: it may be held by others for longer.
    const auto make = [&]<typename Picker>(Ref<Picker>& picker) {
        const WeakObject me(this);
        const auto cell = [me] { return static_cast<VKColorCell*>(me.get()); };
        picker = std::make_shared<Picker>(
            frame, color,
            [cell](const UIColor& changed) {
                if (auto* self = cell())
                    self->colorsHaveChanged(changed);
            },
            [cell](const UIColor& /* saved */) {
                if (auto* self = cell())
                    self->saveChanges();
            });
        picker->setAutoresizingMask(widthAndSides);
        contentView().addSubview(picker);
    };
    if (colorPickerType == 2)
        make(colorPickerView_B);
    else if (colorPickerType == 1)
        make(colorPickerView_S);
    else
        make(colorPickerView_H);
}

void VKColorCell::makeHelp(CGRect frame)
{
    auto help = std::make_shared<UILabel>(frame);
    help->setNumberOfLines(0);
    help->setText(helpText);
    help->setTextColor(UIColor::blackColor());
    help->setTextAlignment(NSTextAlignment::Left);
    help->sizeToFit();
    help->setAutoresizingMask(widthAndSides);
    contentView().addSubview(help);
}

}

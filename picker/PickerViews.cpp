#include "PickerViews.h"

using namespace platform;

namespace vekora {

namespace {

constexpr auto markerImage = "/Library/PreferenceBundles/Vekora.bundle/Selector.png";

constexpr unsigned labelMask = UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleWidth
    | UIViewAutoresizingFlexibleRightMargin | UIViewAutoresizingFlexibleTopMargin;
constexpr unsigned gradientMask = UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleTopMargin;

}

Ref<UILabel> makePickerLabel(CGRect frame, const char* text, NSTextAlignment alignment)
{
    auto label = std::make_shared<UILabel>(frame);
    label->setNumberOfLines(1);
    label->setText(text);
    label->setTextAlignment(alignment);
    label->setTextColor(UIColor::blueColor());
    label->setBackgroundColor(UIColor::clearColor());
    label->setAutoresizingMask(labelMask);
    return label;
}

CGFloat measuredLabelHeight(CGFloat pickerWidth)
{
    UILabel label({ 10, 10, pickerWidth * 0.5 - 20, 40 });
    label.setNumberOfLines(1);
    label.setText("Brightness:");
    label.sizeToFit();
    return label.frame().height;
}

Ref<UIButton> makeValueButton(CGRect frame, NSObject* target, std::string_view action)
{
    auto button = UIButton::buttonWithType(UIButtonType::RoundedRect);
    button->setFrame(frame);
    button->setTitleForState("", UIControlState::Normal);
    button->addTargetActionForControlEvents(target, action, UIControlEventTouchUpInside);
    button->layer().setCornerRadius(5);
    button->setBackgroundColor(UIColor::colorWithRedGreenBlueAlpha(0, 0, 0, 0.04));
    button->setAutoresizingMask(labelMask);
    return button;
}

Ref<UIButton> makeTouchEater(CGRect frame, NSObject* target)
{
    auto button = UIButton::buttonWithType(UIButtonType::RoundedRect);
    button->setFrame(frame);
    button->setAlpha(1);
    button->addTargetActionForControlEvents(
        target, "touchesMovedButton:withEvent:", UIControlEventTouchDragInside);
    button->addTargetActionForControlEvents(
        target, "touchesEndedButton:withEvent:", UIControlEventTouchUpInside | UIControlEventTouchUpOutside);
    return button;
}

void frameGradientView(UIView& view, CGRect frame)
{
    view.setFrame(frame);
    view.setAutoresizingMask(gradientMask);
    auto& layer = view.layer();
    layer.setBorderWidth(1);
    layer.setCornerRadius(6);
    layer.setBorderColor(UIColor::blackColor().cgColor());
    layer.setMasksToBounds(true);
}

Ref<UIView> makeCrossHairs(CGRect frame)
{
    auto crossHairs = std::make_shared<UIView>(frame);
    crossHairs->setAutoresizingMask(UIViewAutoresizingNone);
    auto& layer = crossHairs->layer();
    layer.setCornerRadius(10); // Half its width: a circle.
    layer.setBorderColor(UIColor::colorWithWhiteAlpha(1, 0.5).cgColor());
    layer.setBorderWidth(1);
    layer.setShadowColor(UIColor::blackColor().cgColor());
    layer.setShadowOffset({});
    layer.setShadowRadius(1);
    layer.setShadowOpacity(1);
    return crossHairs;
}

Ref<UIImageView> makeBarSelector(CGRect frame)
{
    auto selector = std::make_shared<UIImageView>(frame);
    selector->setImage(UIImage::imageNamed(markerImage));
    selector->setBackgroundColor(UIColor::clearColor());
    selector->setAutoresizingMask(UIViewAutoresizingNone);
    return selector;
}

}

#include "UISwitch.h"
#include "Style.h"
#include "UIEvent.h"

namespace platform {

namespace {

constexpr CGSize switchSize { 51, 31 };
constexpr CGFloat knobInset = 2;
constexpr CGFloat knobSize = switchSize.height - 2 * knobInset;
constexpr CGFloat disabledAlpha = 0.5;
// A finger that went this far sideways has pushed the knob; less is a tap.
constexpr CGFloat pushDistance = (switchSize.width - switchSize.height) / 2;

}

UISwitch::UISwitch()
    : UIControl({ 0, 0, switchSize.width, switchSize.height })
    , _track(std::make_shared<UIView>())
    , _knob(std::make_shared<UIView>())
{
    _track->layer().setCornerRadius(switchSize.height / 2);
    _knob->setBackgroundColor(UIColor::whiteColor());
    auto& knob = _knob->layer();
    knob.setCornerRadius(knobSize / 2);
    knob.setShadowOpacity(0.2F);
    knob.setShadowOffset({ 0, 2 });
    knob.setShadowRadius(2);
    for (const auto& part : { _track, _knob }) {
        part->setUserInteractionEnabled(false);
        addSubview(part);
    }
}

void UISwitch::setOn(bool on)
{
    if (on == _on)
        return;
    _on = on;
    setNeedsLayout();
}

void UISwitch::setEnabled(bool enabled)
{
    UIControl::setEnabled(enabled);
    _track->setAlpha(enabled ? 1 : disabledAlpha);
}

CGSize UISwitch::sizeThatFits(CGSize) const
{
    return switchSize;
}

void UISwitch::layoutSubviews()
{
    _track->setFrame({ 0, 0, switchSize.width, switchSize.height });
    _track->setBackgroundColor(_on ? style::switchOn() : style::trackGray());
    const auto x = _on ? switchSize.width - knobInset - knobSize : knobInset;
    _knob->setFrame({ x, knobInset, knobSize, knobSize });
}

bool UISwitch::beginTrackingWithTouch(UITouch& touch, UIEvent&)
{
    _touchBeganAt = touch.locationInView(this).x;
    return true;
}

void UISwitch::endTrackingWithTouch(UITouch& touch, UIEvent& event)
{
    if (!isHighlighted())
        return;
    const auto distance = touch.locationInView(this).x - _touchBeganAt;
    const auto isTap = distance < pushDistance && distance > -pushDistance;
    const auto on = isTap ? !_on : distance > 0;
    if (on == _on)
        return;
    setOn(on);
    sendActionsForControlEvents(UIControlEventValueChanged, &event);
}

}

#include "UISlider.h"
#include "Style.h"
#include "UIEvent.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr CGFloat knobSize = 28; // What is seen of the thumb.
constexpr CGFloat trackHeight = 2;
constexpr CGFloat trackInset = 2;
constexpr CGFloat disabledAlpha = 0.5;

}

UISlider::UISlider()
    : UISlider(CGRect {})
{
}

UISlider::UISlider(CGRect frame)
    : UIControl(frame)
    , _minimumTrack(std::make_shared<UIView>())
    , _maximumTrack(std::make_shared<UIView>())
    , _thumb(std::make_shared<UIView>())
{
    _minimumTrack->setBackgroundColor(style::tint());
    _maximumTrack->setBackgroundColor(style::rgb(0xB7B7B7));
    _thumb->setBackgroundColor(UIColor::whiteColor());
    for (const auto& track : { _minimumTrack, _maximumTrack })
        track->layer().setCornerRadius(trackHeight / 2);
    auto& thumb = _thumb->layer();
    thumb.setCornerRadius(knobSize / 2);
    thumb.setBorderWidth(0.5);
    thumb.setBorderColor(UIColor::colorWithWhiteAlpha(0, 0.06).cgColor());
    thumb.setShadowOpacity(0.25F);
    thumb.setShadowOffset({ 0, 2 });
    thumb.setShadowRadius(2);
    for (const auto& part : { _maximumTrack, _minimumTrack, _thumb }) {
        part->setUserInteractionEnabled(false);
        addSubview(part);
    }
}

void UISlider::setValue(float value)
{
    // Written so that NaN ends at the minimum.
    const auto pinned = value > _minimumValue ? std::min(value, _maximumValue) : _minimumValue;
    if (pinned == _value)
        return;
    _value = pinned;
    setNeedsLayout();
}

void UISlider::setMinimumValue(float minimum)
{
    if (std::isnan(minimum))
        return;
    _minimumValue = minimum;
    _maximumValue = std::max(_maximumValue, minimum);
    setValue(_value);
    setNeedsLayout();
}

void UISlider::setMaximumValue(float maximum)
{
    if (std::isnan(maximum))
        return;
    _maximumValue = maximum;
    _minimumValue = std::min(_minimumValue, maximum);
    setValue(_value);
    setNeedsLayout();
}

CGRect UISlider::thumbRect() const
{
    const auto size = bounds().size();
    const auto travel = std::max(size.width - thumbSize, 0.0);
    const auto range = static_cast<double>(_maximumValue) - _minimumValue;
    const auto fraction = (static_cast<double>(_value) - _minimumValue) / range;
    return { std::isfinite(fraction) ? fraction * travel : 0, (size.height - thumbSize) / 2, thumbSize,
        thumbSize };
}

void UISlider::setEnabled(bool enabled)
{
    UIControl::setEnabled(enabled);
    for (const auto& track : { _minimumTrack, _maximumTrack })
        track->setAlpha(enabled ? 1 : disabledAlpha);
}

void UISlider::layoutSubviews()
{
    const auto thumb = thumbRect();
    const auto y = (bounds().height - trackHeight) / 2;
    const auto end = std::max(bounds().width - trackInset, thumb.midX());
    _minimumTrack->setFrame({ trackInset, y, thumb.midX() - trackInset, trackHeight });
    _maximumTrack->setFrame({ thumb.midX(), y, end - thumb.midX(), trackHeight });
    const auto margin = (thumbSize - knobSize) / 2;
    _thumb->setFrame(CGRectInset(thumb, margin, margin));
}

bool UISlider::beginTrackingWithTouch(UITouch& touch, UIEvent&)
{
    const auto location = touch.locationInView(this);
    if (!CGRectContainsPoint(thumbRect(), location))
        return false;
    _grip = location.x - thumbRect().midX();
    _valueAtGrip = _value;
    return true;
}

void UISlider::continueTrackingWithTouch(UITouch& touch, UIEvent& event)
{
    const auto travel = bounds().width - thumbSize;
    if (!(travel > 0))
        return;
    const auto center = touch.locationInView(this).x - _grip;
    const auto fraction = std::clamp((center - thumbSize / 2) / travel, 0.0, 1.0);
    const auto range = static_cast<double>(_maximumValue) - _minimumValue;
    const auto before = _value;
    setValue(static_cast<float>(_minimumValue + fraction * range));
    if (_continuous && _value != before)
        sendActionsForControlEvents(UIControlEventValueChanged, &event);
}

void UISlider::endTrackingWithTouch(UITouch&, UIEvent& event)
{
    if (!_continuous && _value != _valueAtGrip)
        sendActionsForControlEvents(UIControlEventValueChanged, &event);
}

}

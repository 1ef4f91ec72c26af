#pragma once

#include "UIControl.h"

namespace platform {

/// A continuous value picked by dragging a thumb. A touch beside the thumb is refused.
class UISlider : public UIControl {
public:
    /// Width and height of the thumb, in points.
    static constexpr CGFloat thumbSize = 31;

    UISlider();
    explicit UISlider(CGRect frame);

    /// Setters pin to the range; NaN becomes the minimum. Setting the value sends no event.
    float value() const { return _value; }
    void setValue(float);
    float minimumValue() const { return _minimumValue; } ///< 0 at first.
    /// Above the maximum, it raises the maximum too.
    void setMinimumValue(float);
    float maximumValue() const { return _maximumValue; } ///< 1 at first.
    /// Below the minimum, it lowers the minimum too.
    void setMaximumValue(float);
    /// On at first: every movement that changes the value sends value-changed. Off: once, at the release.
    bool isContinuous() const { return _continuous; }
    void setContinuous(bool continuous) { _continuous = continuous; }

    /// In the slider's coordinates: centred, as high as wide, travelling from edge to edge.
    CGRect thumbRect() const;

    void setEnabled(bool) override;
    void layoutSubviews() override;

protected:
    bool beginTrackingWithTouch(UITouch&, UIEvent&) override;
    void continueTrackingWithTouch(UITouch&, UIEvent&) override;
    void endTrackingWithTouch(UITouch&, UIEvent&) override;

private:
    float _value = 0;
    float _minimumValue = 0;
    float _maximumValue = 1;
    bool _continuous = true;
    CGFloat _grip = 0; ///< From the thumb's centre to the finger that holds it.
    float _valueAtGrip = 0;
    Ref<UIView> _minimumTrack, _maximumTrack, _thumb;
};

}

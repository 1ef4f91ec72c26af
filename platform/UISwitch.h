#pragma once

#include "UIControl.h"

namespace platform {

/// On or off; a tap anywhere on it changes it and sends value-changed, and so does pushing the knob to its
/// other side. 51 by 31 points.
class UISwitch final : public UIControl {
public:
    UISwitch();

    bool isOn() const { return _on; }
    void setOn(bool); ///< Sends no event.
    void setEnabled(bool) override;
    CGSize sizeThatFits(CGSize) const override;
    void layoutSubviews() override;

protected:
    bool beginTrackingWithTouch(UITouch&, UIEvent&) override;
    void endTrackingWithTouch(UITouch&, UIEvent&) override;

private:
    bool _on = false;
    CGFloat _touchBeganAt = 0; ///< x of the finger that is down.
    Ref<UIView> _track, _knob;
};

}

#pragma once

#include "UIControl.h"

namespace platform {

/// On or off; a tap anywhere on it changes it and sends value-changed. 51 by 31 points.
class UISwitch final : public UIControl {
public:
    UISwitch();

    bool isOn() const { return _on; }
    void setOn(bool); ///< Sends no event.
    void setEnabled(bool) override;
    void layoutSubviews() override;

protected:
    void endTrackingWithTouch(UITouch&, UIEvent&) override;

private:
    bool _on = false;
    Ref<UIView> _track, _knob;
};

}

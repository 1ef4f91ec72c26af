#pragma once

#include "UIView.h"

#include <string>
#include <string_view>
#include <vector>

namespace platform {

class UITouch;

/// Bits; one registration may name several.
enum UIControlEvents : unsigned {
    UIControlEventTouchDown = 1,
    UIControlEventTouchDragInside = 4,
    UIControlEventTouchDragOutside = 8,
    UIControlEventTouchDragEnter = 16,
    UIControlEventTouchDragExit = 32,
    UIControlEventTouchUpInside = 64,
    UIControlEventTouchUpOutside = 128,
    UIControlEventTouchCancel = 256,
    UIControlEventValueChanged = 4096,
    UIControlEventEditingDidBegin = 65536,
    UIControlEventEditingChanged = 131072,
    UIControlEventEditingDidEnd = 262144,
};

/// How far beyond its bounds a control still counts a tracked touch as inside, on each side, in points.
inline constexpr CGFloat controlTrackingMargin = 70;

/// A view that tracks one touch and tells its targets. A touch begins within the bounds; afterwards "inside"
/// reaches `controlTrackingMargin` further.
class UIControl : public UIView {
public:
    UIControl();
    explicit UIControl(CGRect frame);

    /// The target is sent the selector with the control and the event; it is not kept alive, and one that has
    /// gone is passed over. The same registration made twice counts once.
    void addTargetActionForControlEvents(NSObject* target, std::string_view action, unsigned events);
    /// The selectors that are registered, for any event: for a host that wants to know what a touch may lead to.
    std::vector<std::string> allActions() const;
    void sendActionsForControlEvents(unsigned events, UIEvent* = nullptr);
    /// The events that somebody is told of.
    unsigned allControlEvents() const;

    bool isEnabled() const;
    virtual void setEnabled(bool);
    bool isTracking() const;
    bool isHighlighted() const; ///< Tracking with the finger inside.

    void touchesBeganWithEvent(UIEvent&) override;
    void touchesMovedWithEvent(UIEvent&) override;
    void touchesEndedWithEvent(UIEvent&) override;
    void touchesCancelledWithEvent(UIEvent&) override;

protected:
    UIControl(CGRect frame, std::unique_ptr<Impl>);
    struct ControlImpl;

    /// False refuses the touch, which is then the superview's.
    virtual bool beginTrackingWithTouch(UITouch&, UIEvent&) { return true; }
    virtual void continueTrackingWithTouch(UITouch&, UIEvent&) { }
    virtual void endTrackingWithTouch(UITouch&, UIEvent&) { }
    virtual void highlightedDidChange() { }
};

}

#pragma once

#include "Runtime.h"
#include "UIView.h"

#include <memory>
#include <vector>

namespace platform {

enum class UITouchPhase { Began, Moved, Ended, Cancelled };

/// One finger. It belongs to the view in which it began, wherever it is now.
class UITouch : public NSObject {
public:
    UITouch(Ref<UIView> view, CGPoint locationInWindow);

    UIView* view() const { return _view.get(); }
    UITouchPhase phase() const { return _phase; }
    /// In the view's coordinates, which may be negative or beyond its bounds; null is the window.
    CGPoint locationInView(const UIView*) const;
    double timestamp() const
    {
        return _timestamp;
    } ///< Seconds from any origin; 0 when nobody times the touch.

    /// For the window that delivers the touch.
    void update(UITouchPhase, CGPoint locationInWindow, double timestamp);

private:
    Ref<UIView> _view;
    UITouchPhase _phase = UITouchPhase::Began;
    CGPoint _location;
    double _timestamp = 0;
};

class UIEvent : public NSObject {
public:
    explicit UIEvent(Ref<UITouch> touch);

    UITouch& touch() const { return *_touch; }
    /// The touches that began in this view, wherever they are now.
    std::vector<UITouch*> touchesForView(const UIView*) const;

private:
    Ref<UITouch> _touch;
};

}

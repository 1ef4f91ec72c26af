#pragma once

#include "Element.h"

#include <functional>

namespace platform {
class UIWindow;
}

namespace host {

/// Uses elements as a finger does: each action scrolls its place into sight and touches it there. Whatever
/// lies over the place, or a disabled element, refuses: then nothing is touched, and the answer is false.
/// Elements whose view has gone are refused as well.
class ElementActions {
public:
    /// The window must outlive the actions. `settle` finishes layout.
    ElementActions(platform::UIWindow&, std::function<void()> settle);

    /// Scrolls as little as it takes; what is higher than its scroller is shown from its top.
    void show(const Element&);
    /// A tap: pushes a button, changes a switch, opens a row, begins editing a field, chooses a segment.
    bool press(const Element&);
    /// Of a slider, an axis or a bar: puts the thumb or handle where it means this value, pinned to the
    /// range.
    bool setValue(const Element&, double value);
    /// As many of its steps on; the ends of the range stop it.
    bool step(const Element&, double steps);
    /// Chooses another segment: `index` is pinned to what there is.
    bool chooseSegment(const Element& segments, long index);

private:
    bool touch(platform::UIView& target, platform::CGPoint from, platform::CGPoint to);
    bool reach(platform::UIView& target, platform::CGPoint inView, platform::CGPoint& inWindow);
    bool setSurfaceValue(const Element&, double value);
    bool setSliderValue(const Element&, double value);

    platform::UIWindow& _window;
    std::function<void()> _settle;
};

}

#include "UIEvent.h"

namespace platform {

UITouch::UITouch(Ref<UIView> view, CGPoint locationInWindow)
    : _view(std::move(view))
    , _location(locationInWindow)
{
}

CGPoint UITouch::locationInView(const UIView* view) const
{
    return view ? view->convertPointFromView(_location, nullptr) : _location;
}

void UITouch::update(UITouchPhase phase, CGPoint locationInWindow, double timestamp)
{
    _phase = phase;
    _location = locationInWindow;
    _timestamp = timestamp;
}

UIEvent::UIEvent(Ref<UITouch> touch)
    : _touch(std::move(touch))
{
}

std::vector<UITouch*> UIEvent::touchesForView(const UIView* view) const
{
    if (!view || _touch->view() != view)
        return {};
    return { _touch.get() };
}

}

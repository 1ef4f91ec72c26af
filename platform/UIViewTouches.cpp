#include "UIViewImpl.h"

namespace platform {

namespace {

constexpr CGFloat invisibleAlpha = 0.01; // Below it a view takes no touches.

}

CGPoint UIView::convertPointToView(CGPoint point, const UIView* other) const
{
    const auto toTop = [](CGPoint p, const UIView* view) {
        for (; view && view->superview(); view = view->superview()) {
            p.x += view->_impl->origin.x - view->_impl->bounds.x;
            p.y += view->_impl->origin.y - view->_impl->bounds.y;
        }
        return p;
    };
    const auto inWindow = toTop(point, this);
    const auto origin = toTop({}, other);
    return { inWindow.x - origin.x, inWindow.y - origin.y };
}

CGPoint UIView::convertPointFromView(CGPoint point, const UIView* other) const
{
    const auto origin = convertPointToView({}, other);
    return { point.x - origin.x, point.y - origin.y };
}

CGRect UIView::convertRectToView(CGRect rect, const UIView* other) const
{
    const auto origin = convertPointToView(rect.origin(), other);
    return { origin.x, origin.y, rect.width, rect.height };
}

UIView* UIView::hitTestWithEvent(CGPoint point, UIEvent* event)
{
    if (_impl->hidden || !_impl->userInteractionEnabled || _impl->alpha < invisibleAlpha
        || !pointInsideWithEvent(point, event))
        return nullptr;
    for (auto subview = _impl->subviews.rbegin(); subview != _impl->subviews.rend(); ++subview) {
        const auto& impl = (*subview)->impl();
        const CGPoint inSubview { point.x - impl.origin.x + impl.bounds.x,
            point.y - impl.origin.y + impl.bounds.y };
        if (auto* hit = (*subview)->hitTestWithEvent(inSubview, event))
            return hit;
    }
    return this;
}

bool UIView::pointInsideWithEvent(CGPoint point, UIEvent*) const
{
    return CGRectContainsPoint(_impl->bounds, point);
}

void UIView::touchesBeganWithEvent(UIEvent& event)
{
    if (auto* parent = _impl->superview)
        parent->touchesBeganWithEvent(event);
}

void UIView::touchesMovedWithEvent(UIEvent& event)
{
    if (auto* parent = _impl->superview)
        parent->touchesMovedWithEvent(event);
}

void UIView::touchesEndedWithEvent(UIEvent& event)
{
    if (auto* parent = _impl->superview)
        parent->touchesEndedWithEvent(event);
}

void UIView::touchesCancelledWithEvent(UIEvent& event)
{
    if (auto* parent = _impl->superview)
        parent->touchesCancelledWithEvent(event);
}

}

#include "UIViewImpl.h"
#include "UIWindow.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

CGFloat length(CGFloat value)
{
    return value > 0 && std::isfinite(value) ? value : 0;
}
CGFloat place(CGFloat value)
{
    return std::isfinite(value) ? value : 0;
}

}

UIView::Impl::Impl(UIView& view)
    : owner(view)
    , layer(view)
{
}

void UIView::Impl::damage()
{
    if (!window || hidden)
        return;
    window->_markDamage(owner.convertRectToView(coverage(), nullptr));
}

void UIView::Impl::damageOwn()
{
    if (window && !hidden)
        window->_markDamage(owner.convertRectToView(bounds, nullptr));
}

CGRect UIView::Impl::coverage() const
{
    auto covered = bounds;
    if (layer.masksToBounds())
        return covered;
    if (layer.shadowOpacity() > 0) {
        const auto reach = layer.shadowRadius() * 3;
        covered = CGRectUnion(covered,
            CGRectInset(CGRectOffset(bounds, layer.shadowOffset().width, layer.shadowOffset().height), -reach,
                -reach));
    }
    for (const auto& subview : subviews) {
        const auto& impl = subview->impl();
        if (impl.hidden)
            continue;
        const auto frame = subview->frame();
        covered = CGRectUnion(
            covered, CGRectOffset(impl.coverage(), frame.x - impl.bounds.x, frame.y - impl.bounds.y));
    }
    return covered;
}

UIView::UIView()
    : UIView(CGRect {})
{
}

UIView::UIView(CGRect frame)
    : UIView(frame, std::make_unique<Impl>(*this))
{
}

UIView::UIView(CGRect frame, std::unique_ptr<Impl> impl)
    : _impl(std::move(impl))
{
    _impl->bounds = { 0, 0, length(frame.width), length(frame.height) };
    _impl->origin = { place(frame.x), place(frame.y) };
    _impl->center = { _impl->origin.x + _impl->bounds.width / 2, _impl->origin.y + _impl->bounds.height / 2 };
}

UIView::~UIView()
{
    for (const auto& subview : _impl->subviews) {
        subview->_impl->superview = nullptr;
        subview->moveToWindow(nullptr);
    }
    if (_impl->window && _impl->window != this)
        _impl->window->_viewIsGone(this);
}

CGRect UIView::frame() const
{
    return { _impl->origin.x, _impl->origin.y, _impl->bounds.width, _impl->bounds.height };
}

void UIView::setFrame(CGRect frame)
{
    const CGSize size { length(frame.width), length(frame.height) };
    const CGPoint origin { place(frame.x), place(frame.y) };
    if (origin == _impl->origin && size == _impl->bounds.size())
        return;
    _impl->damage();
    _impl->origin = origin;
    _impl->center = { origin.x + size.width / 2, origin.y + size.height / 2 };
    resize(size);
    _impl->damage();
}

CGRect UIView::bounds() const
{
    return _impl->bounds;
}

void UIView::setBounds(CGRect bounds)
{
    const CGSize size { length(bounds.width), length(bounds.height) };
    const CGPoint origin { place(bounds.x), place(bounds.y) };
    if (_impl->bounds == CGRect { origin.x, origin.y, size.width, size.height })
        return;
    _impl->damage();
    _impl->bounds.x = origin.x;
    _impl->bounds.y = origin.y;
    _impl->origin = { _impl->center.x - size.width / 2, _impl->center.y - size.height / 2 };
    resize(size);
    _impl->damage();
}

CGPoint UIView::center() const
{
    return _impl->center;
}

void UIView::setCenter(CGPoint center)
{
    center = { place(center.x), place(center.y) };
    if (center == _impl->center)
        return;
    _impl->damage();
    _impl->center = center;
    _impl->origin = { center.x - _impl->bounds.width / 2, center.y - _impl->bounds.height / 2 };
    _impl->damage();
}

CALayer& UIView::layer()
{
    return _impl->layer;
}
const CALayer& UIView::layer() const
{
    return _impl->layer;
}

void UIView::setBackgroundColor(const std::optional<UIColor>& color)
{
    layer().setBackgroundColor(color ? std::optional(color->cgColor()) : std::nullopt);
}

CGFloat UIView::alpha() const
{
    return _impl->alpha;
}

void UIView::setAlpha(CGFloat alpha)
{
    alpha = alpha > 0 ? std::min(alpha, 1.0) : 0.0;
    if (alpha == _impl->alpha)
        return;
    _impl->alpha = alpha;
    _impl->damage();
}

bool UIView::isHidden() const
{
    return _impl->hidden;
}

void UIView::setHidden(bool hidden)
{
    if (hidden == _impl->hidden)
        return;
    _impl->damage();
    _impl->hidden = hidden;
    _impl->damage();
    _impl->pendingBelow = false;
    _impl->markPending(); // Marks made while it was hidden are due when it shows.
}

UIViewContentMode UIView::contentMode() const
{
    return _impl->contentMode;
}
void UIView::setContentMode(UIViewContentMode mode)
{
    _impl->contentMode = mode;
}
bool UIView::isUserInteractionEnabled() const
{
    return _impl->userInteractionEnabled;
}
void UIView::setUserInteractionEnabled(bool enabled)
{
    _impl->userInteractionEnabled = enabled;
}
long UIView::tag() const
{
    return _impl->tag;
}
void UIView::setTag(long tag)
{
    _impl->tag = tag;
}

void UIView::drawRect(CGRect)
{
    _impl->draws = false;
}
void UIView::didMoveToWindow() { }

}

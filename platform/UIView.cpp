#include "Autoresizing.h"
#include "UIViewImpl.h"
#include "UIWindow.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr CGFloat invisibleAlpha = 0.01; // Below it a view takes no touches.

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

void UIView::Impl::markPending()
{
    for (auto* impl = this; !impl->pendingBelow; impl = &impl->superview->impl()) {
        impl->pendingBelow = true;
        if (!impl->superview)
            break;
    }
    if (window)
        window->_markPending();
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

void UIView::resize(CGSize size)
{
    const auto old = _impl->bounds.size();
    if (size == old)
        return;
    _impl->bounds.width = size.width;
    _impl->bounds.height = size.height;
    setNeedsLayout();
    if (_impl->superview)
        _impl->superview->setNeedsLayout();
    if (_impl->contentMode == UIViewContentMode::Redraw)
        setNeedsDisplay();
    if (_impl->needsDisplay)
        _impl->markPending(); // What was empty is not drawn until it has a size.
    if (!_impl->autoresizesSubviews)
        return;
    for (std::size_t index = 0; index < _impl->subviews.size(); ++index) {
        const auto subview = _impl->subviews[index];
        if (subview->autoresizingMask() != UIViewAutoresizingNone)
            subview->setFrame(autoresizedFrame(subview->frame(), subview->autoresizingMask(), old, size));
    }
}

unsigned UIView::autoresizingMask() const
{
    return _impl->autoresizingMask;
}
void UIView::setAutoresizingMask(unsigned mask)
{
    _impl->autoresizingMask = mask;
}
bool UIView::autoresizesSubviews() const
{
    return _impl->autoresizesSubviews;
}
void UIView::setAutoresizesSubviews(bool resizes)
{
    _impl->autoresizesSubviews = resizes;
}

void UIView::addSubview(const Ref<UIView>& view)
{
    insertSubviewAtIndex(view, _impl->subviews.size());
}

void UIView::insertSubviewAtIndex(const Ref<UIView>& view, std::size_t index)
{
    if (!view || isDescendantOfView(*view))
        return;
    const auto kept = view;
    kept->removeFromSuperview();
    index = std::min(index, _impl->subviews.size());
    _impl->subviews.insert(_impl->subviews.begin() + static_cast<std::ptrdiff_t>(index), kept);
    kept->_impl->superview = this;
    kept->moveToWindow(_impl->window);
    setNeedsLayout();
    // The newcomer brings its own marks along.
    _impl->pendingBelow = false;
    _impl->markPending();
    kept->_impl->damage();
}

void UIView::removeFromSuperview()
{
    auto* const parent = _impl->superview;
    if (!parent)
        return;
    _impl->damage();
    auto& siblings = parent->_impl->subviews;
    const auto found = std::find_if(
        siblings.begin(), siblings.end(), [&](const auto& sibling) { return sibling.get() == this; });
    const auto kept = *found;
    siblings.erase(found);
    _impl->superview = nullptr;
    moveToWindow(nullptr);
    parent->setNeedsLayout();
}

void UIView::moveToWindow(UIWindow* window)
{
    if (_impl->window == window)
        return;
    if (_impl->window)
        _impl->window->_viewIsGone(this);
    _impl->window = window;
    for (std::size_t index = 0; index < _impl->subviews.size(); ++index) {
        const auto subview = _impl->subviews[index];
        subview->moveToWindow(window);
    }
    didMoveToWindow();
}

const std::vector<Ref<UIView>>& UIView::subviews() const
{
    return _impl->subviews;
}
UIView* UIView::superview() const
{
    return _impl->superview;
}
UIWindow* UIView::window() const
{
    return _impl->window;
}

bool UIView::isDescendantOfView(const UIView& ancestor) const
{
    for (const auto* view = this; view; view = view->superview()) {
        if (view == &ancestor)
            return true;
    }
    return false;
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

void UIView::setNeedsDisplay()
{
    _impl->needsDisplay = true;
    _impl->draws = true;
    _impl->markPending();
}

void UIView::setNeedsLayout()
{
    _impl->needsLayout = true;
    _impl->markPending();
}

void UIView::layoutIfNeeded()
{
    // Somewhere above, a layout that is due may change this view's size first.
    if (_impl->superview)
        _impl->superview->layoutOwnIfNeeded();
    layoutTree();
}

void UIView::layoutOwnIfNeeded()
{
    if (_impl->superview)
        _impl->superview->layoutOwnIfNeeded();
    layoutIfMarked();
}

void UIView::layoutIfMarked()
{
    if (!_impl->needsLayout)
        return;
    _impl->needsLayout = false;
    layoutSubviews();
    // Placing its own subviews marked it again; that is done already.
    _impl->needsLayout = false;
}

void UIView::layoutTree()
{
    if (!_impl->pendingBelow && !_impl->needsLayout)
        return;
    layoutIfMarked();
    for (std::size_t index = 0; index < _impl->subviews.size(); ++index) {
        const auto subview = _impl->subviews[index];
        subview->layoutTree();
    }
}

CGSize UIView::sizeThatFits(CGSize) const
{
    return _impl->bounds.size();
}

void UIView::sizeToFit()
{
    const auto size = sizeThatFits(_impl->bounds.size());
    setFrame({ _impl->origin.x, _impl->origin.y, size.width, size.height });
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

void UIView::layoutSubviews() { }
void UIView::drawRect(CGRect)
{
    _impl->draws = false;
}
void UIView::didMoveToWindow() { }

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

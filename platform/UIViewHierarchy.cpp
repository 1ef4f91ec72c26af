#include "UIViewImpl.h"
#include "UIWindow.h"

#include <algorithm>

namespace platform {

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

}

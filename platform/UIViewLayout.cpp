// What views owe: marks, layout passes, and the sizes that follow from another's.

#include "Autoresizing.h"
#include "UIViewImpl.h"
#include "UIWindow.h"

namespace platform {

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

void UIView::layoutSubviews() { }

}

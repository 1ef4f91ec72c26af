#pragma once

#include "CGContextImpl.h"
#include "UIView.h"

namespace platform {

/// The state of a view. The layer's own views that need more derive from it and hand theirs to the base.
struct UIView::Impl {
    explicit Impl(UIView& owner);
    virtual ~Impl() = default;

    UIView& owner;
    CALayer layer;
    // Both are kept, so that whichever was set reads back to the last bit.
    CGPoint center;
    CGPoint origin;
    CGRect bounds;
    unsigned autoresizingMask = 0;
    bool autoresizesSubviews = true;
    bool hidden = false;
    bool userInteractionEnabled = true;
    bool needsDisplay = true;
    bool needsLayout = true;
    bool pendingBelow = true; ///< Something in the subtree needs layout or display.
    UIViewContentMode contentMode = UIViewContentMode::ScaleToFill;
    CGFloat alpha = 1;
    long tag = 0;
    UIView* superview = nullptr;
    UIWindow* window = nullptr;
    std::vector<Ref<UIView>> subviews;
    /// What the last `drawRect` painted, or what a view that does not draw shows; null for nothing.
    std::shared_ptr<const LayerContents> contents;
    bool draws = true; ///< Until the default `drawRect` turns out to be the one that runs.
    bool contentsAreSet = false; ///< `contents` come from outside and `drawRect` is never called.

    /// Marks what the view and its subviews cover to be composed anew.
    void damage();
    void damageOwn(); ///< The view's bounds alone.
    void markPending();
    /// The rectangle that the view with its shadow and everything in it covers, in its own coordinates.
    CGRect coverage() const;
};

}

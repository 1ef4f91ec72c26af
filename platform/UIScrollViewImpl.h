#pragma once

#include "UIScrollView.h"
#include "UIViewImpl.h"

namespace platform {

struct UIScrollView::ScrollImpl : UIView::Impl {
    using Impl::Impl;

    /// Where the finger was when; for the speed at which it leaves.
    struct Sample {
        double time = 0;
        CGFloat y = 0;
    };

    CGSize contentSize;
    bool tracking = false;
    bool dragging = false;
    bool wandered = false; ///< The finger has moved too far for a tap.
    CGPoint touchStart; ///< In the window.
    CGFloat dragStart = 0; ///< Of the finger, once the content follows it.
    CGFloat offsetAtDragStart = 0;
    std::vector<Sample> samples;
    CGFloat velocity = 0; ///< Of the offset, in points a second; 0 at rest.
    CGFloat glide = 0; ///< The offset while gliding, before it is brought to whole pixels.
};

}

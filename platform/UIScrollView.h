#pragma once

#include "UIView.h"

namespace platform {

/// How far a finger may stray before it pans, in points; a tap strays no further.
inline constexpr CGFloat panThreshold = 10;

/// A window onto content that may be larger than it. It follows a finger that began on nothing that wants the
/// touch, and glides on when the finger is lifted in motion, as long as somebody drives `advance`.
class UIScrollView : public UIView {
public:
    explicit UIScrollView(CGRect frame);

    CGPoint contentOffset() const { return bounds().origin(); }
    /// Pinned to what there is to show.
    void setContentOffset(CGPoint);
    CGSize contentSize() const;
    void setContentSize(CGSize);
    CGFloat maximumOffset() const; ///< Of y; 0 when everything fits.

    /// One step of gliding. False when it has come to rest.
    bool advance(double seconds);
    bool isDecelerating() const;
    bool isDragging() const;

    void touchesBeganWithEvent(UIEvent&) override;
    void touchesMovedWithEvent(UIEvent&) override;
    void touchesEndedWithEvent(UIEvent&) override;
    void touchesCancelledWithEvent(UIEvent&) override;

protected:
    UIScrollView(CGRect frame, std::unique_ptr<Impl>);
    struct ScrollImpl;

private:
    ScrollImpl& scroll() const;
    void scrollTo(CGPoint);
};

}

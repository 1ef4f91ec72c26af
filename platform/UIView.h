#pragma once

#include "CALayer.h"
#include "Runtime.h"

#include <memory>
#include <optional>
#include <vector>

namespace platform {

class UIEvent;
class UIWindow;

/// Bits of an autoresizing mask: what may stretch when the superview's size changes.
enum UIViewAutoresizing : unsigned {
    UIViewAutoresizingNone = 0,
    UIViewAutoresizingFlexibleLeftMargin = 1,
    UIViewAutoresizingFlexibleWidth = 2,
    UIViewAutoresizingFlexibleRightMargin = 4,
    UIViewAutoresizingFlexibleTopMargin = 8,
    UIViewAutoresizingFlexibleHeight = 16,
    UIViewAutoresizingFlexibleBottomMargin = 32,
};

enum class UIViewContentMode { ScaleToFill = 0, Redraw = 3 };

/// A rectangle on the screen: a picture of its own, kept in its layer, with its subviews on top.
///
/// `drawRect` runs on the first display and after `setNeedsDisplay`, once a display pass however often it was
/// marked. Moving, hiding or covering a view, or moving its neighbours, repaints nothing.
class UIView : public NSObject {
public:
    UIView();
    explicit UIView(CGRect frame);
    ~UIView() override;

    /// In the superview, in points. Setting it keeps the bounds' origin; a negative or undefined size counts
    /// as 0.
    CGRect frame() const;
    void setFrame(CGRect);
    CGRect bounds() const;
    void setBounds(CGRect);
    CGPoint center() const;
    void setCenter(CGPoint);

    /// Follows a change of the superview's size, subviews first to last and before layout, by the bits above.
    unsigned autoresizingMask() const;
    void setAutoresizingMask(unsigned);
    bool autoresizesSubviews() const;
    void setAutoresizesSubviews(bool);

    /// Later subviews lie above earlier ones and are touched first. Adding a subview again brings it to the
    /// front; adding a view to itself or to one of its own subviews does nothing.
    void addSubview(const Ref<UIView>&);
    void insertSubviewAtIndex(const Ref<UIView>&, std::size_t index);
    void removeFromSuperview();
    const std::vector<Ref<UIView>>& subviews() const;
    UIView* superview() const;
    UIWindow* window() const; ///< Null outside a window.
    bool isDescendantOfView(const UIView&) const;

    CALayer& layer();
    const CALayer& layer() const;
    /// The layer's background colour.
    void setBackgroundColor(const std::optional<UIColor>&);
    CGFloat alpha() const; ///< 0..1, for the view and all it holds.
    void setAlpha(CGFloat);
    bool isHidden() const;
    void setHidden(bool);
    bool clipsToBounds() const { return layer().masksToBounds(); }
    void setClipsToBounds(bool clips) { layer().setMasksToBounds(clips); }
    UIViewContentMode contentMode() const;
    void setContentMode(UIViewContentMode);

    bool isUserInteractionEnabled() const;
    void setUserInteractionEnabled(bool);
    long tag() const;
    void setTag(long);

    void setNeedsDisplay();
    void setNeedsLayout();
    void layoutIfNeeded();
    /// The size that suits the view best, given one; by default its present size.
    virtual CGSize sizeThatFits(CGSize) const;
    void sizeToFit(); ///< Keeps the origin.

    /// Points are in this view; a null view is the window.
    CGPoint convertPointToView(CGPoint, const UIView*) const;
    CGPoint convertPointFromView(CGPoint, const UIView*) const;
    CGRect convertRectToView(CGRect, const UIView*) const;

    /// The foremost view at the point that takes touches, or null.
    virtual UIView* hitTestWithEvent(CGPoint, UIEvent*);
    virtual bool pointInsideWithEvent(CGPoint, UIEvent*) const;

    virtual void layoutSubviews();
    /// Paints into `UIGraphicsGetCurrentContext()`, in points from the view's top left. Paints nothing by
    /// default.
    virtual void drawRect(CGRect);

    /// A touch that began in this view. By default it is handed to the superview.
    virtual void touchesBeganWithEvent(UIEvent&);
    virtual void touchesMovedWithEvent(UIEvent&);
    virtual void touchesEndedWithEvent(UIEvent&);
    virtual void touchesCancelledWithEvent(UIEvent&);

    virtual void didMoveToWindow();

    /// For the layer's own classes.
    struct Impl;
    Impl& impl() { return *_impl; }
    const Impl& impl() const { return *_impl; }

protected:
    UIView(CGRect frame, std::unique_ptr<Impl>);

private:
    friend class UIWindow;
    void resize(CGSize);
    void moveToWindow(UIWindow*);
    void layoutOwnIfNeeded();
    void layoutTree();
    void layoutIfMarked();

    std::unique_ptr<Impl> _impl;
};

}

#pragma once

#include "UIAlertView.h"
#include "UIButton.h"
#include "UILabel.h"
#include "UIScrollView.h"
#include "UIViewImpl.h"

namespace platform {

inline constexpr CGFloat alertButtonMargin = 10; ///< Around a button's title.

/// The parts of an alert, and where they lie (UIAlertViewLayout.cpp).
struct UIAlertView::AlertImpl : UIView::Impl {
    AlertImpl(UIAlertView&, Settings);

    void layOut(CGSize area, double scale);
    CGFloat layOutBody(CGFloat width, CGFloat hairline); ///< Returns its height.
    bool buttonsFitSideBySide(CGFloat width) const;
    CGFloat heightOfButton(std::size_t index, CGFloat width) const;
    /// Returns their height.
    CGFloat layOutButtons(CGFloat top, CGFloat width, CGFloat hairline);

    Settings settings;
    UIAlertViewStyle style = UIAlertViewStyle::Default;
    bool answered = false;

    Ref<UIView> box;
    Ref<UIScrollView> body; ///< Texts and field; scrolls when they are higher than the window.
    Ref<UILabel> title;
    Ref<UILabel> message;
    Ref<UIView> fieldFrame;
    Ref<UITextField> field; ///< Null without one.
    std::vector<Ref<UIButton>> buttons; ///< In index order.
    std::vector<Ref<UIView>> hairlines; ///< One per button: above it, or to the left of a right-hand one.
};

}

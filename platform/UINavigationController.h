#pragma once

#include "UIViewController.h"

#include <vector>

namespace platform {

class UIButton;
class UILabel;

/// A stack of pages below a bar with the page's title and the way back.
class UINavigationController final : public NSObject {
public:
    /// Height of the status area above the bar, and of the bar, in points.
    static constexpr CGFloat statusHeight = 20;
    static constexpr CGFloat barHeight = 44;

    explicit UINavigationController(CGSize);
    /// Ends the editing of a text field on the top page, as going back does.
    ~UINavigationController() override;

    UIView& view() { return *_view; }
    const Ref<UIView>& viewRef() const { return _view; }
    /// Size of a page: what the bar leaves.
    CGSize contentSize() const;

    void pushViewController(Ref<UIViewController>);
    /// Goes back one page; false on the first.
    bool popViewController();
    void setRoot(Ref<UIViewController>); ///< Drops every page.
    const std::vector<Ref<UIViewController>>& viewControllers() const { return _pages; }
    UIViewController* topViewController() const { return _pages.empty() ? nullptr : _pages.back().get(); }

    void setSize(CGSize);
    /// Of a page: the bar shows it when it is the top page's or the one's before.
    void titleDidChange();

    /// The button in the bar; hidden on the first page.
    UIButton& backButton() { return *_backButton; }

    // Internal: the back button's action.
    void _goBack();

private:
    class StackView;

    void show(UIViewController&, bool animated);
    void hide(UIViewController&, bool animated);
    void layout();
    void layoutTitles();

    Ref<StackView> _stackView;
    Ref<UIView> _view, _bar, _hairline, _container;
    Ref<UILabel> _title;
    Ref<UIButton> _backButton;
    std::vector<Ref<UIViewController>> _pages;
    /// Pages that were left while one of their own callbacks may still be running; let go at the next layout.
    std::vector<Ref<UIViewController>> _leftPages;
};

}

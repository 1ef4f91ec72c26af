#include "UINavigationController.h"

#include "Device.h"
#include "Editing.h"
#include "Style.h"
#include "UIButton.h"
#include "UILabel.h"
#include "UIWindow.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

constexpr CGFloat titleGap = 8; ///< Around the back button's text and beside the title.
/// A page before with a longer title than this part of the bar is called "Back".
constexpr CGFloat longestBackTitle = 0.45;

const auto registration = registerClass<UINavigationController>("UINavigationController")
                              .method("_goBack", &UINavigationController::_goBack);

CGRect mirroredIn(CGFloat width, CGRect rect)
{
    if (Device::current().rightToLeft)
        rect.x = width - rect.maxX();
    return rect;
}

/// Right to left, the mark at the front makes the whole text run that way, and the arrow turns with it.
std::string backText(const std::string& title)
{
    return (Device::current().rightToLeft ? "\u200F\u2039 " : "\u2039 ") + title;
}

}

/// What the stack is seen in. Its layout is the moment at which no page's callback can be running any more.
class UINavigationController::StackView final : public UIView {
public:
    StackView(CGRect frame, UINavigationController& controller)
        : UIView(frame)
        , _controller(&controller)
    {
    }

    void controllerIsGone() { _controller = nullptr; }

    void layoutSubviews() override
    {
        if (!_controller)
            return;
        _controller->layout();
        const auto left = std::exchange(_controller->_leftPages, {});
    }

private:
    UINavigationController* _controller;
};

UINavigationController::UINavigationController(CGSize size)
    : _stackView(std::make_shared<StackView>(CGRect { 0, 0, size.width, size.height }, *this))
    , _view(_stackView)
    , _bar(std::make_shared<UIView>())
    , _hairline(std::make_shared<UIView>())
    , _container(std::make_shared<UIView>())
    , _title(std::make_shared<UILabel>())
    , _backButton(UIButton::buttonWithType(UIButtonType::RoundedRect))
{
    _view->setBackgroundColor(style::pageBackground());
    _bar->setBackgroundColor(style::barBackground());
    _hairline->setBackgroundColor(style::hairline());
    _container->setClipsToBounds(true);
    _title->setFont({ labelFontSize, UIFontWeight::Semibold });
    _title->setTextAlignment(NSTextAlignment::Center);
    _backButton->addTargetActionForControlEvents(this, "_goBack", UIControlEventTouchUpInside);
    _bar->addSubview(_title);
    _bar->addSubview(_backButton);
    _bar->addSubview(_hairline);
    _view->addSubview(_container);
    _view->addSubview(_bar);
    layout();
}

UINavigationController::~UINavigationController()
{
    if (!_pages.empty())
        hide(*_pages.back(), false);
    _stackView->controllerIsGone();
    _view->removeFromSuperview();
    for (const auto* pages : { &_pages, &_leftPages }) {
        for (const auto& page : *pages)
            page->setNavigationController(nullptr);
    }
    // The last page first: a page may look at the one that opened it.
    while (!_pages.empty())
        _pages.pop_back();
}

CGSize UINavigationController::contentSize() const
{
    const CGSize size = _view->bounds().size();
    return { size.width, std::max(0.0, size.height - statusHeight - barHeight) };
}

void UINavigationController::show(UIViewController& page, bool animated)
{
    page.setNavigationController(this);
    UIView& view = page.view();
    const CGSize size = contentSize();
    view.setFrame({ 0, 0, size.width, size.height });
    view.setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    page.viewWillAppear(animated);
    // A page that was left while it was about to appear is not shown.
    if (topViewController() == &page)
        _container->addSubview(std::static_pointer_cast<UIView>(view.shared_from_this()));
    titleDidChange();
}

void UINavigationController::hide(UIViewController& page, bool animated)
{
    if (!page.isViewLoaded())
        return;
    const auto keep = page.weak_from_this().lock();
    endEditingInView(page.view());
    page.viewWillDisappear(animated);
    page.view().removeFromSuperview();
}

void UINavigationController::pushViewController(Ref<UIViewController> page)
{
    if (!page || std::find(_pages.begin(), _pages.end(), page) != _pages.end())
        return;
    if (!_pages.empty())
        hide(*_pages.back(), true);
    _pages.push_back(page);
    show(*page, true);
}

bool UINavigationController::popViewController()
{
    if (_pages.size() < 2)
        return false;
    const auto page = _pages.back();
    hide(*page, true);
    // Storing an edited value may have gone back already.
    if (_pages.size() < 2 || _pages.back() != page)
        return true;
    _pages.pop_back();
    page->setNavigationController(nullptr);
    _leftPages.push_back(page);
    _view->setNeedsLayout();
    show(*_pages.back(), true);
    return true;
}

void UINavigationController::setRoot(Ref<UIViewController> page)
{
    if (!_pages.empty())
        hide(*_pages.back(), false);
    while (!_pages.empty()) {
        _pages.back()->setNavigationController(nullptr);
        _leftPages.push_back(std::move(_pages.back()));
        _pages.pop_back();
    }
    _view->setNeedsLayout();
    if (page) {
        _pages.push_back(page);
        show(*page, false);
    } else {
        titleDidChange();
    }
}

void UINavigationController::setSize(CGSize size)
{
    _view->setFrame({ _view->frame().x, _view->frame().y, size.width, size.height });
    layout();
}

void UINavigationController::titleDidChange()
{
    layoutTitles();
}

void UINavigationController::layout()
{
    const CGFloat width = _view->bounds().width;
    const CGSize content = contentSize();
    const double scale = _view->window() ? _view->window()->scale() : Device::current().scale;
    const CGFloat line = style::hairlineHeight / scale;
    _bar->setFrame({ 0, 0, width, statusHeight + barHeight });
    _hairline->setFrame({ 0, statusHeight + barHeight - line, width, line });
    _container->setFrame({ 0, statusHeight + barHeight, content.width, content.height });
    layoutTitles();
}

void UINavigationController::layoutTitles()
{
    const CGFloat width = _view->bounds().width;
    _title->setText(_pages.empty() ? std::string() : _pages.back()->title());
    const CGFloat titleWidth = _title->sizeThatFits({ width, barHeight }).width;

    CGFloat backWidth = 0;
    _backButton->setHidden(_pages.size() < 2);
    if (_pages.size() >= 2) {
        const auto setBack = [&](const std::string& title) {
            _backButton->setTitleForState(backText(title), UIControlState::Normal);
            backWidth = _backButton->titleLabel().sizeThatFits({ width, barHeight }).width + 2 * titleGap;
        };
        const std::string& before = _pages[_pages.size() - 2]->title();
        setBack(before.empty() ? "Back" : before);
        if (backWidth > width * longestBackTitle || backWidth + titleWidth + 2 * titleGap > width)
            setBack("Back");
        _backButton->setFrame(mirroredIn(width, { 0, statusHeight, backWidth, barHeight }));
    }

    // In the middle when it fits there, else in what the button leaves.
    const CGFloat left = backWidth + (backWidth > 0 ? 0 : titleGap);
    const CGFloat room = std::max(0.0, width - left - titleGap);
    const CGFloat shown = std::min(titleWidth, room);
    const CGFloat x = std::clamp((width - shown) / 2, left, std::max(left, width - titleGap - shown));
    _title->setFrame(mirroredIn(width, { x, statusHeight, shown, barHeight }));
}

void UINavigationController::_goBack()
{
    popViewController();
}

}

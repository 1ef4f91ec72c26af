#include "UIAlertView.h"
#include "Style.h"
#include "UIAlertViewImpl.h"
#include "UIWindow.h"

#include <algorithm>

namespace platform {

namespace {

const auto registration
    = registerClass<UIAlertView>("UIAlertView").method("_buttonTapped:", &UIAlertView::_buttonTapped);

constexpr double dimmingAlpha = 0.4;
constexpr CGFloat boxCornerRadius = 13;
constexpr CGFloat fieldCornerRadius = 5;
constexpr double fieldFontSize = 15;

std::vector<UIAlertView*>& allAlerts()
{
    // An alert may outlive whatever is taken down at the end of the process.
    static auto* const alerts = new std::vector<UIAlertView*>;
    return *alerts;
}

/// Its whole ground shows the touch, and its title keeps a margin.
class AlertButton final : public UIButton {
public:
    void layoutSubviews() override
    {
        titleLabel().setFrame(CGRectInset({ 0, 0, bounds().width, bounds().height }, alertButtonMargin, 0));
    }

protected:
    void highlightedDidChange() override
    {
        setBackgroundColor(isHighlighted() ? std::optional(style::cellHighlight()) : std::nullopt);
    }
};

Ref<UILabel> makeLabel(std::string text, UIFont font)
{
    auto label = std::make_shared<UILabel>();
    label->setHidden(text.empty());
    label->setText(std::move(text));
    label->setFont(font);
    label->setTextAlignment(NSTextAlignment::Center);
    label->setNumberOfLines(0);
    return label;
}

Ref<UIButton> makeButton(const std::string& title, UIFontWeight weight)
{
    const auto button = std::make_shared<AlertButton>();
    button->setTitleForState(title, UIControlState::Normal);
    button->titleLabel().setFont({ labelFontSize, weight });
    button->titleLabel().setNumberOfLines(0);
    return button;
}

std::vector<std::string> buttonTitles(const UIAlertView::Settings& settings)
{
    auto titles = settings.otherButtonTitles;
    if (settings.cancelButtonTitle)
        titles.insert(titles.begin(), *settings.cancelButtonTitle);
    return titles;
}

}

UIAlertView::AlertImpl::AlertImpl(UIAlertView& view, Settings given)
    : Impl(view)
    , settings(std::move(given))
    , box(std::make_shared<UIView>())
    , body(std::make_shared<UIScrollView>(CGRect {}))
    , title(makeLabel(settings.title.value_or(""), { labelFontSize, UIFontWeight::Semibold }))
    , message(makeLabel(settings.message, UIFont::systemFontOfSize(style::smallFontSize)))
    , fieldFrame(std::make_shared<UIView>())
{
    box->setBackgroundColor(style::barBackground());
    box->layer().setCornerRadius(boxCornerRadius);
    box->layer().setMasksToBounds(true);
    fieldFrame->setBackgroundColor(UIColor::whiteColor());
    fieldFrame->layer().setCornerRadius(fieldCornerRadius);
    fieldFrame->layer().setBorderColor(style::hairline().cgColor());
    fieldFrame->setHidden(true);
    for (const auto& part : { Ref<UIView>(title), Ref<UIView>(message), fieldFrame })
        body->addSubview(part);
    box->addSubview(body);

    const auto titles = buttonTitles(settings);
    for (std::size_t index = 0; index < titles.size(); ++index) {
        const auto isDefault = index + 1 == titles.size();
        buttons.push_back(
            makeButton(titles[index], isDefault ? UIFontWeight::Semibold : UIFontWeight::Regular));
        box->addSubview(buttons.back());
    }
    for (std::size_t index = 0; index < titles.size(); ++index) {
        hairlines.push_back(std::make_shared<UIView>());
        hairlines.back()->setBackgroundColor(style::hairline());
        hairlines.back()->setUserInteractionEnabled(false);
        box->addSubview(hairlines.back());
    }
}

Ref<UIAlertView> UIAlertView::make(Settings settings)
{
    return std::make_shared<UIAlertView>(std::move(settings));
}

UIAlertView::UIAlertView(Settings settings)
    : UIView({}, std::make_unique<AlertImpl>(*this, std::move(settings)))
{
    setBackgroundColor(UIColor::colorWithWhiteAlpha(0, dimmingAlpha));
    setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    addSubview(alert().box);
    for (const auto& button : alert().buttons)
        button->addTargetActionForControlEvents(this, "_buttonTapped:", UIControlEventTouchUpInside);
    allAlerts().push_back(this);
}

UIAlertView::~UIAlertView()
{
    std::erase(allAlerts(), this);
}

UIAlertView::AlertImpl& UIAlertView::alert() const
{
    return static_cast<AlertImpl&>(const_cast<UIAlertView&>(*this).impl());
}

UIAlertViewStyle UIAlertView::alertViewStyle() const
{
    return alert().style;
}

void UIAlertView::setAlertViewStyle(UIAlertViewStyle style)
{
    auto& own = alert();
    own.style = style;
    const auto hasField = style != UIAlertViewStyle::Default;
    own.fieldFrame->setHidden(!hasField);
    setNeedsLayout();
    if (!hasField) {
        if (own.field)
            own.field->removeFromSuperview();
        own.field = nullptr;
        return;
    }
    if (!own.field) {
        own.field = std::make_shared<UITextField>();
        own.field->setFont(UIFont::systemFontOfSize(fieldFontSize));
        own.fieldFrame->addSubview(own.field);
    }
    own.field->setSecureTextEntry(style == UIAlertViewStyle::SecureTextInput);
    if (topmost() == this)
        takeKeys();
}

UITextField* UIAlertView::textFieldAtIndex(long index)
{
    return index == 0 ? alert().field.get() : nullptr;
}

const std::optional<std::string>& UIAlertView::title() const
{
    return alert().settings.title;
}

const std::string& UIAlertView::message() const
{
    return alert().settings.message;
}

long UIAlertView::numberOfButtons() const
{
    return static_cast<long>(alert().buttons.size());
}

std::string UIAlertView::buttonTitleAtIndex(long index) const
{
    return index >= 0 && index < numberOfButtons()
        ? alert().buttons[static_cast<std::size_t>(index)]->currentTitle()
        : std::string();
}

void UIAlertView::show()
{
    auto* const window = UIWindow::keyWindow();
    const auto self = std::static_pointer_cast<UIView>(weak_from_this().lock());
    if (!window || !self || isVisible())
        return;
    if (auto* const former = window->firstResponder())
        former->resignFirstResponder();
    if (auto* const covered = topmost())
        covered->setHidden(true);
    alert().answered = false;
    setHidden(false);
    setFrame(window->bounds());
    window->addSubview(self);
    takeKeys();
}

bool UIAlertView::isVisible() const
{
    return superview() != nullptr;
}

UIAlertView* UIAlertView::topmost()
{
    const auto* const window = UIWindow::keyWindow();
    if (!window)
        return nullptr;
    const auto& views = window->subviews();
    for (auto view = views.rbegin(); view != views.rend(); ++view) {
        if (auto* const alert = dynamic_cast<UIAlertView*>(view->get()))
            return alert;
    }
    return nullptr;
}

void UIAlertView::takeKeys()
{
    if (const auto field = alert().field)
        field->becomeFirstResponder();
}

void UIAlertView::pressDefaultButton()
{
    press(numberOfButtons() - 1);
}

void UIAlertView::pressCancelButton()
{
    if (alert().settings.cancelButtonTitle)
        press(0);
}

void UIAlertView::_buttonTapped(UIView* button)
{
    const auto& buttons = alert().buttons;
    const auto found = std::find_if(
        buttons.begin(), buttons.end(), [&](const auto& candidate) { return candidate.get() == button; });
    press(found - buttons.begin());
}

void UIAlertView::press(long index)
{
    auto& own = alert();
    if (index < 0 || index >= numberOfButtons() || own.answered || !isVisible())
        return;
    // The delegate may go, take the page or the window along, or show the next alert.
    const auto kept = weak_from_this().lock();
    own.answered = true;
    // What an input method has not committed yet counts as typed.
    if (const auto field = own.field)
        field->resignFirstResponder();
    if (auto* const delegate = own.settings.delegate)
        delegate->alertViewClickedButtonAtIndex(*this, index);
    removeFromSuperview();
    if (auto* const uncovered = topmost()) {
        uncovered->setHidden(false);
        uncovered->takeKeys();
    }
}

void UIAlertView::delegateIsGone(const UIAlertViewDelegate* delegate)
{
    for (auto* alert : allAlerts()) {
        if (alert->alert().settings.delegate == delegate)
            alert->alert().settings.delegate = nullptr;
    }
}

void UIAlertView::layoutSubviews()
{
    alert().layOut(bounds().size(), window() ? window()->scale() : 1);
}

}

#include "UIButton.h"
#include "Style.h"

namespace platform {

namespace {

constexpr CGFloat highlightedAlpha = 0.25;
constexpr CGFloat disabledAlpha = 0.5;

}

UIButton::UIButton(UIButtonType)
    : _titleLabel(std::make_shared<UILabel>())
{
    _titleLabel->setTextAlignment(NSTextAlignment::Center);
    _titleLabel->setTextColor(style::tint());
    _titleLabel->setHidden(true);
    addSubview(_titleLabel);
}

Ref<UIButton> UIButton::buttonWithType(UIButtonType type)
{
    return std::make_shared<UIButton>(type);
}

void UIButton::setTitleForState(const std::string& title, UIControlState)
{
    _titleLabel->setText(title);
    _titleLabel->setHidden(title.empty());
}

std::string UIButton::currentTitle() const
{
    return _titleLabel->text();
}

UILabel& UIButton::titleLabel()
{
    return *_titleLabel;
}

void UIButton::setEnabled(bool enabled)
{
    UIControl::setEnabled(enabled);
    highlightedDidChange();
}

void UIButton::layoutSubviews()
{
    _titleLabel->setFrame({ 0, 0, bounds().width, bounds().height });
}

void UIButton::highlightedDidChange()
{
    _titleLabel->setAlpha(!isEnabled() ? disabledAlpha : isHighlighted() ? highlightedAlpha : 1);
}

}

#include "UILabel.h"
#include "Device.h"
#include "TextEngine.h"
#include "UIViewImpl.h"

#include <cmath>

namespace platform {

struct UILabel::LabelImpl : UIView::Impl {
    using Impl::Impl;

    static LabelImpl& of(const UILabel& label)
    {
        return static_cast<LabelImpl&>(const_cast<UILabel&>(label).impl());
    }

    template <typename T> void set(T& member, T value)
    {
        if (member == value)
            return;
        member = std::move(value);
        owner.setNeedsDisplay();
    }
    TextStyle style() const { return { font, alignment, numberOfLines }; }

    std::string text;
    UIFont font;
    UIColor textColor = UIColor::blackColor();
    NSTextAlignment alignment = NSTextAlignment::Left;
    long numberOfLines = 1;
};

UILabel::UILabel()
    : UILabel(CGRect {})
{
}

UILabel::UILabel(CGRect frame)
    : UILabel(frame, std::make_unique<LabelImpl>(*this))
{
}

UILabel::UILabel(CGRect frame, std::unique_ptr<Impl> impl)
    : UIView(frame, std::move(impl))
{
    setUserInteractionEnabled(false);
    setContentMode(UIViewContentMode::Redraw);
}

const std::string& UILabel::text() const
{
    return LabelImpl::of(*this).text;
}
void UILabel::setText(std::string text)
{
    LabelImpl::of(*this).set(LabelImpl::of(*this).text, std::move(text));
}
const UIFont& UILabel::font() const
{
    return LabelImpl::of(*this).font;
}
void UILabel::setFont(UIFont font)
{
    LabelImpl::of(*this).set(LabelImpl::of(*this).font, font);
}
const UIColor& UILabel::textColor() const
{
    return LabelImpl::of(*this).textColor;
}
void UILabel::setTextColor(UIColor color)
{
    LabelImpl::of(*this).set(LabelImpl::of(*this).textColor, color);
}
NSTextAlignment UILabel::textAlignment() const
{
    return LabelImpl::of(*this).alignment;
}

void UILabel::setTextAlignment(NSTextAlignment alignment)
{
    LabelImpl::of(*this).set(LabelImpl::of(*this).alignment, alignment);
}

long UILabel::numberOfLines() const
{
    return LabelImpl::of(*this).numberOfLines;
}
void UILabel::setNumberOfLines(long lines)
{
    LabelImpl::of(*this).set(LabelImpl::of(*this).numberOfLines, lines);
}

CGSize UILabel::sizeThatFits(CGSize size) const
{
    const auto& label = LabelImpl::of(*this);
    const auto measured = measureText(label.text, label.style(), size.width);
    const auto scale = Device::current().scale;
    const auto roundedUp = [scale](CGFloat length) { return std::ceil(length * scale) / scale; };
    return { roundedUp(measured.width), roundedUp(measured.height) };
}

void UILabel::drawRect(CGRect)
{
    const auto& label = LabelImpl::of(*this);
    auto* const context = UIGraphicsGetCurrentContext();
    if (!context || label.text.empty())
        return;
    drawText(context->bitmap(), context->scale(), label.text, label.style(), label.textColor.cgColor(),
        bounds().size());
}

}

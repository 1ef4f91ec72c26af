#include "UISegmentedControl.h"
#include "Style.h"
#include "UIEvent.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr CGFloat controlHeight = 29;
constexpr CGFloat titleMargin = 10; // On each side of a title, at least.
constexpr CGFloat cornerRadius = 4;
constexpr CGFloat disabledAlpha = 0.5;

}

UISegmentedControl::UISegmentedControl(std::vector<std::string> titles)
    : _selection(std::make_shared<UIView>())
{
    layer().setCornerRadius(cornerRadius);
    layer().setBorderWidth(1);
    layer().setBorderColor(style::tint().cgColor());
    layer().setMasksToBounds(true);
    _selection->setBackgroundColor(style::tint());
    _selection->setUserInteractionEnabled(false);
    addSubview(_selection);
    for (auto& title : titles) {
        const auto label = std::make_shared<UILabel>();
        label->setText(std::move(title));
        label->setFont(UIFont::systemFontOfSize(style::smallFontSize));
        label->setTextAlignment(NSTextAlignment::Center);
        addSubview(label);
        _labels.push_back(label);
    }
    for (std::size_t index = 1; index < _labels.size(); ++index) {
        const auto separator = std::make_shared<UIView>();
        separator->setBackgroundColor(style::tint());
        separator->setUserInteractionEnabled(false);
        addSubview(separator);
        _separators.push_back(separator);
    }
    sizeToFit();
}

void UISegmentedControl::setSelectedSegmentIndex(long index)
{
    const auto selected = index >= 0 && index < numberOfSegments() ? index : -1;
    if (selected == _selected)
        return;
    _selected = selected;
    setNeedsLayout();
}

void UISegmentedControl::setEnabled(bool enabled)
{
    UIControl::setEnabled(enabled);
    setAlpha(enabled ? 1 : disabledAlpha);
}

CGSize UISegmentedControl::sizeThatFits(CGSize) const
{
    CGFloat widest = 0;
    for (const auto& label : _labels)
        widest = std::max(widest, label->sizeThatFits({}).width);
    return { std::ceil(widest + 2 * titleMargin) * static_cast<CGFloat>(_labels.size()), controlHeight };
}

void UISegmentedControl::layoutSubviews()
{
    const auto width = bounds().width / std::max<CGFloat>(1, static_cast<CGFloat>(_labels.size()));
    const auto height = bounds().height;
    for (std::size_t index = 0; index < _labels.size(); ++index) {
        const auto x = width * static_cast<CGFloat>(index);
        const auto selected = static_cast<long>(index) == _selected;
        _labels[index]->setFrame({ x, 0, width, height });
        _labels[index]->setTextColor(selected ? UIColor::whiteColor() : style::tint());
        if (index > 0)
            _separators[index - 1]->setFrame({ x - 0.5, 0, 1, height });
    }
    _selection->setHidden(_selected < 0);
    _selection->setFrame({ width * static_cast<CGFloat>(std::max(_selected, 0L)), 0, width, height });
}

void UISegmentedControl::endTrackingWithTouch(UITouch& touch, UIEvent& event)
{
    const auto x = touch.locationInView(this).x;
    if (!isHighlighted() || x < 0 || x >= bounds().width || _labels.empty())
        return;
    const auto width = bounds().width / static_cast<CGFloat>(_labels.size());
    const auto index = std::min(static_cast<long>(x / width), numberOfSegments() - 1);
    if (index == _selected)
        return;
    setSelectedSegmentIndex(index);
    sendActionsForControlEvents(UIControlEventValueChanged, &event);
}

}

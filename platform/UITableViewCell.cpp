#include "UITableViewCell.h"

#include "Device.h"
#include "Style.h"
#include "UIWindow.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr CGFloat firstWidth = 320; ///< Of every cell, whatever the screen.
constexpr CGFloat iconGap = 15;
constexpr CGFloat accessoryGap = 10;
constexpr CGFloat valueGap = 8;
/// A title keeps this much beside the longest value.
constexpr CGFloat shortestTitle = 80;
constexpr UIFont chevronFont { 24, UIFontWeight::Regular };
constexpr UIFont checkmarkFont { 17, UIFontWeight::Semibold };

const auto registration = registerClass<UITableViewCell>("UITableViewCell");

}

UITableViewCell::UITableViewCell(UITableViewCellStyle style, std::string reuseIdentifier)
    : UIView({ 0, 0, firstWidth, defaultHeight })
    , _style(style)
    , _reuseIdentifier(std::move(reuseIdentifier))
    , _contentView(std::make_shared<UIView>(bounds()))
    , _imageView(std::make_shared<UIImageView>())
    , _textLabel(std::make_shared<UILabel>())
    , _detailTextLabel(std::make_shared<UILabel>())
    , _accessoryGlyph(std::make_shared<UILabel>())
{
    setBackgroundColor(style::cellBackground());
    _detailTextLabel->setTextColor(style::valueText());
    _contentView->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    addSubview(_contentView);
}

void UITableViewCell::setAccessoryType(UITableViewCellAccessory accessory)
{
    if (accessory == _accessory)
        return;
    _accessory = accessory;
    setNeedsLayout();
}

void UITableViewCell::setAccessoryView(Ref<UIView> view)
{
    if (view == _accessoryView)
        return;
    if (_accessoryView)
        _accessoryView->removeFromSuperview();
    _accessoryView = std::move(view);
    if (_accessoryView)
        addSubview(_accessoryView);
    setNeedsLayout();
}

void UITableViewCell::setHighlighted(bool highlighted)
{
    highlighted = highlighted && _selectionStyle != UITableViewCellSelectionStyle::None;
    if (highlighted == isHighlighted())
        return;
    if (!highlighted) {
        _highlight->removeFromSuperview();
        _highlight = nullptr;
        return;
    }
    _highlight = std::make_shared<UIView>(bounds());
    _highlight->setBackgroundColor(style::cellHighlight());
    _highlight->setUserInteractionEnabled(false);
    _highlight->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    insertSubviewAtIndex(_highlight, 0);
}

void UITableViewCell::_setSeparatorShown(bool shown)
{
    if (shown == (_separator != nullptr))
        return;
    if (!shown) {
        _separator->removeFromSuperview();
        _separator = nullptr;
        return;
    }
    _separator = std::make_shared<UIView>();
    _separator->setBackgroundColor(style::hairline());
    _separator->setUserInteractionEnabled(false);
    addSubview(_separator);
}

CGRect UITableViewCell::mirrored(CGRect rect) const
{
    if (Device::current().rightToLeft)
        rect.x = bounds().width - rect.maxX();
    return rect;
}

void UITableViewCell::place(UIView& view, CGFloat start, CGFloat width)
{
    view.setFrame(mirrored({ start, 0, std::max(0.0, width), bounds().height }));
}

void UITableViewCell::placeCentered(UIView& view, CGFloat start, CGSize size)
{
    view.setFrame(
        mirrored({ start, std::floor((bounds().height - size.height) / 2), size.width, size.height }));
}

void UITableViewCell::showInContent(const Ref<UIView>& view, bool shown)
{
    if (shown == (view->superview() == _contentView.get()))
        return;
    if (shown)
        _contentView->insertSubviewAtIndex(view, 0);
    else
        view->removeFromSuperview();
}

UITableViewCell::Room UITableViewCell::layoutEnds()
{
    Room room { style::margin, bounds().width - style::margin };

    const auto& image = _imageView->image();
    showInContent(_imageView, image.has_value());
    if (image) {
        placeCentered(*_imageView, room.start, image->size());
        room.start += image->size().width + iconGap;
    }

    const bool hasGlyph = !_accessoryView && _accessory != UITableViewCellAccessory::None;
    if (_accessoryView) {
        const CGSize size = _accessoryView->bounds().size();
        placeCentered(*_accessoryView, room.end - size.width, size);
        room.end -= size.width + accessoryGap;
    } else if (hasGlyph) {
        const bool check = _accessory == UITableViewCellAccessory::Checkmark;
        const bool mirror = Device::current().rightToLeft;
        _accessoryGlyph->setText(check ? "\u2713" : mirror ? "\u2039" : "\u203A");
        _accessoryGlyph->setFont(check ? checkmarkFont : chevronFont);
        _accessoryGlyph->setTextColor(check ? style::tint() : style::chevron());
        const CGFloat width = _accessoryGlyph->sizeThatFits(bounds().size()).width;
        place(*_accessoryGlyph, room.end - width, width);
        room.end -= width + accessoryGap;
    }
    if (hasGlyph && !_accessoryGlyph->superview())
        addSubview(_accessoryGlyph);
    else if (!hasGlyph)
        _accessoryGlyph->removeFromSuperview();
    return room;
}

void UITableViewCell::layoutSubviews()
{
    const auto room = layoutEnds();
    const bool mirror = Device::current().rightToLeft;
    const auto towardsStart = mirror ? NSTextAlignment::Right : NSTextAlignment::Left;
    const auto towardsEnd = mirror ? NSTextAlignment::Left : NSTextAlignment::Right;

    const bool hasValue = _style == UITableViewCellStyle::Value1 && !_detailTextLabel->text().empty();
    const bool hasText = !_textLabel->text().empty();
    showInContent(_detailTextLabel, hasValue);
    showInContent(_textLabel, hasText);

    CGFloat textEnd = room.end;
    if (hasValue) {
        const CGFloat title = hasText ? _textLabel->sizeThatFits(bounds().size()).width : 0;
        const CGFloat kept = hasText ? std::min(title, shortestTitle) + valueGap : 0;
        const CGFloat value = std::min(
            _detailTextLabel->sizeThatFits(bounds().size()).width, std::max(0.0, room.width() - kept));
        place(*_detailTextLabel, room.end - value, value);
        _detailTextLabel->setTextAlignment(towardsEnd);
        textEnd -= value + valueGap;
    }
    place(*_textLabel, room.start, textEnd - room.start);
    _textLabel->setTextAlignment(towardsStart);

    if (_separator) {
        const double scale = window() ? window()->scale() : Device::current().scale;
        const CGFloat line = style::hairlineHeight / scale;
        _separator->setFrame(
            mirrored({ room.start, bounds().height - line, bounds().width - room.start, line }));
    }
    if (_highlight)
        _highlight->setFrame({ 0, 0, bounds().width, bounds().height });
}

}

#include "WrappingLayout.h"

#include <algorithm>
#include <limits>
#include <QSpacerItem>
#include <QStyle>
#include <QWidget>

namespace host {

namespace {

bool wantsToExpand(const QLayoutItem& item)
{
    return item.expandingDirections() & Qt::Horizontal;
}

}

WrappingLayout::WrappingLayout(QWidget* owner)
    : QLayout(owner)
{
    setContentsMargins(0, 0, 0, 0);
}

WrappingLayout::~WrappingLayout() = default;

void WrappingLayout::addStretch()
{
    addItem(std::make_unique<QSpacerItem>(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum).release());
}

void WrappingLayout::addItem(QLayoutItem* item)
{
    _items.emplace_back(item);
    invalidate();
}

int WrappingLayout::count() const
{
    return static_cast<int>(_items.size());
}

QLayoutItem* WrappingLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? _items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* WrappingLayout::takeAt(int index)
{
    if (!itemAt(index))
        return nullptr;
    auto* const taken = _items[static_cast<std::size_t>(index)].release();
    _items.erase(_items.begin() + index);
    invalidate();
    return taken; // Whoever takes it owns it.
}

std::vector<WrappingLayout::Line> WrappingLayout::linesFor(int width) const
{
    std::vector<Line> lines;
    for (const auto& item : _items) {
        if (item->isEmpty() && !item->spacerItem())
            continue; // Hidden.
        const auto size = item->sizeHint().expandedTo(item->minimumSize());
        const bool fits = !lines.empty() && lines.back().width + spacing() + size.width() <= width;
        if (!fits)
            lines.emplace_back();
        auto& line = lines.back();
        line.width += (line.items.empty() ? 0 : spacing()) + size.width();
        line.height = std::max(line.height, size.height());
        line.items.push_back(item.get());
    }
    return lines;
}

void WrappingLayout::place(const Line& line, QPoint from, int width) const
{
    auto room = std::max(0, width - line.width);
    auto sharers = std::count_if(
        line.items.begin(), line.items.end(), [](const auto* item) { return wantsToExpand(*item); });
    auto x = from.x();
    for (auto* const item : line.items) {
        auto size = item->sizeHint().expandedTo(item->minimumSize());
        if (wantsToExpand(*item)) {
            const auto share = room / static_cast<int>(sharers--);
            room -= share;
            size.rwidth() += share;
        }
        size.setWidth(std::min(size.width(), width));
        const QRect rect(QPoint(x, from.y() + (line.height - size.height()) / 2), size);
        item->setGeometry(QStyle::visualRect(parentWidget()->layoutDirection(), geometry(), rect));
        x += size.width() + spacing();
    }
}

int WrappingLayout::heightOf(const std::vector<Line>& lines) const
{
    int height = 0;
    for (const auto& line : lines)
        height += line.height + (height == 0 ? 0 : spacing());
    return height;
}

int WrappingLayout::heightForWidth(int width) const
{
    return heightOf(linesFor(width));
}

QSize WrappingLayout::sizeHint() const
{
    const auto lines = linesFor(std::numeric_limits<int>::max());
    return lines.empty() ? QSize(0, 0) : QSize(lines.front().width, lines.front().height);
}

QSize WrappingLayout::minimumSize() const
{
    QSize size;
    for (const auto& item : _items)
        size = size.expandedTo(item->minimumSize());
    return size;
}

void WrappingLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    auto y = rect.top();
    for (const auto& line : linesFor(rect.width())) {
        place(line, { rect.left(), y }, rect.width());
        y += line.height + spacing();
    }
}

}

#include "PlainDelegate.h"

#include <memory>
#include <QPainter>

namespace host {

namespace {

constexpr int mostTexts = 2000;
constexpr int margin = 4; // Logical pixels at either side.
constexpr int patchSide = 10;

}

PlainDelegate::PlainDelegate(QObject* parent)
    : QAbstractItemDelegate(parent)
    , _texts(mostTexts)
{
}

QStaticText PlainDelegate::laidOut(const QString& text, int width, const QStyleOptionViewItem& option) const
{
    const Key key { text, width };
    if (const auto* const known = _texts.object(key))
        return *known;
    QStaticText layout(option.fontMetrics.elidedText(text, Qt::ElideRight, width));
    layout.setTextFormat(Qt::PlainText);
    layout.prepare({}, option.font);
    _texts.insert(key, std::make_unique<QStaticText>(layout).release()); // It takes it over, kept or not.
    return layout;
}

void PlainDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const bool isSelected = option.state & QStyle::State_Selected;
    const auto group = option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
    if (isSelected)
        painter->fillRect(option.rect, option.palette.brush(group, QPalette::Highlight));
    auto room = option.rect.adjusted(margin, 0, -margin, 0);
    if (const auto color = index.data(Qt::DecorationRole); color.isValid()) {
        const QRect patch(room.left(), room.center().y() - patchSide / 2, patchSide, patchSide);
        painter->fillRect(patch, color.value<QColor>());
        painter->setPen(option.palette.color(QPalette::Mid)); // Else white would be lost on white.
        painter->drawRect(patch.adjusted(0, 0, -1, -1));
        room.setLeft(patch.right() + 1 + margin);
    }
    const auto text = index.data().toString();
    if (text.isEmpty() || room.width() <= 0)
        return;
    const auto layout = laidOut(text, room.width(), option);
    const auto ink = index.data(Qt::ForegroundRole);
    painter->setPen(isSelected ? option.palette.color(group, QPalette::HighlightedText)
            : ink.isValid()    ? ink.value<QColor>()
                               : option.palette.color(group, QPalette::Text));
    painter->setFont(option.font);
    const auto alignment = index.data(Qt::TextAlignmentRole).toInt();
    const auto x = alignment & Qt::AlignRight ? room.right() + 1 - qCeil(layout.size().width()) : room.left();
    const auto height = option.fontMetrics.height();
    painter->drawStaticText(x, room.top() + (room.height() - height) / 2, layout);
}

QSize PlainDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const
{
    return { 2 * margin, option.fontMetrics.height() + 4 };
}

}

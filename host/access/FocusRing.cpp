#include "FocusRing.h"

#include <QPainter>
#include <QWidget>

#include <algorithm>

namespace host {

namespace {

// Logical pixels.
constexpr qreal lineWidth = 2.5;
constexpr qreal haloWidth = 5.5;
constexpr qreal distance = 2; ///< Between the outline and the middle of the line.
constexpr qreal cornerRadius = 6;
constexpr QColor lineColor(11, 87, 208);
constexpr QColor haloColor(255, 255, 255, 230);

}

void FocusRing::show(QWidget& widget, QRectF outline, QRectF visible)
{
    auto ring = visible.isEmpty() ? QRectF() : outline.adjusted(-distance, -distance, distance, distance);
    // A row is as wide as the screen, and a button may end where its alert does: there the line lies within.
    // An edge that is scrolled away stays away.
    const auto margin = haloWidth / 2;
    ring.setLeft(std::max(ring.left(), visible.left() + margin));
    ring.setRight(std::min(ring.right(), visible.right() - margin));
    if (outline.top() >= visible.top())
        ring.setTop(std::max(ring.top(), visible.top() + margin));
    if (outline.bottom() <= visible.bottom())
        ring.setBottom(std::min(ring.bottom(), visible.bottom() - margin));
    if (ring == _ring && visible == _visible)
        return;
    widget.update(covered().toAlignedRect());
    _ring = ring;
    _visible = visible;
    widget.update(covered().toAlignedRect());
}

QRectF FocusRing::covered() const
{
    return _visible.isEmpty()
        ? QRectF()
        : _ring.adjusted(-haloWidth, -haloWidth, haloWidth, haloWidth).intersected(_visible);
}

void FocusRing::paint(QPainter& painter) const
{
    if (_visible.isEmpty())
        return;
    painter.save();
    painter.setClipRect(_visible, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    for (const auto& [color, width] : { std::pair(haloColor, haloWidth), std::pair(lineColor, lineWidth) }) {
        painter.setPen(QPen(color, width));
        painter.drawRoundedRect(_ring, cornerRadius, cornerRadius);
    }
    painter.restore();
}

}

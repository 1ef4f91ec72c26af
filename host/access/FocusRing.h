#pragma once

#include <QRectF>

class QPainter;
class QWidget;

namespace host {

/// The ring around what the keyboard is at, drawn over the phone's picture and never into it: a coloured line
/// with a white one on either side, which shows on any ground.
class FocusRing {
public:
    /// The widget is told what to draw anew, if anything. The outline and what of it may be seen are in its
    /// coordinates; an empty `visible` hides the ring.
    void show(QWidget&, QRectF outline, QRectF visible);
    void hide(QWidget& widget) { show(widget, {}, {}); }

    void paint(QPainter&) const;

private:
    QRectF covered() const;

    QRectF _ring; ///< The middle of the line.
    QRectF _visible;
};

}

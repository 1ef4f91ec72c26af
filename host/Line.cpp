#include "Line.h"

#include "ToolTip.h"

#include <QPainter>

namespace host {

Line::Line(QWidget* parent, Qt::TextElideMode elideMode)
    : QWidget(parent)
    , _elideMode(elideMode)
{
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(12);
    setFont(font);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void Line::setText(const QString& text)
{
    if (text == _text)
        return;
    _text = text;
    setToolTip(toolTipFor(text));
    setAccessibleName(text);
    update();
}

QSize Line::sizeHint() const
{
    return { fontMetrics().horizontalAdvance(_text), fontMetrics().height() + 2 };
}

void Line::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawText(rect(), Qt::AlignVCenter, fontMetrics().elidedText(_text, _elideMode, width()));
}

}

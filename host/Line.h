#pragma once

#include <QWidget>

namespace host {

/// A line of text that ends in an ellipsis where there is no room for it. The whole text is its tool tip.
class Line final : public QWidget {
public:
    explicit Line(QWidget* parent, Qt::TextElideMode = Qt::ElideMiddle);

    void setText(const QString&);
    const QString& text() const { return _text; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QString _text;
    Qt::TextElideMode _elideMode;
};

}

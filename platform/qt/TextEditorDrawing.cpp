#include "platform/Device.h"
#include "platform/Style.h"
#include "platform/TextEngine.h"
#include "TextEditor.h"
#include "TextEngine.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr CGFloat caretWidth = 2;
constexpr double selectionAlpha = 0.25;
constexpr double disabledAlpha = 0.5;
constexpr QChar bullet(0x2022);
constexpr qsizetype mostShown = 4096; // UTF-16 units; what follows ends in the ellipsis anyway.

QColor toQColor(const UIColor& color, double alpha = 1)
{
    const auto rgba = color.cgColor().rgba();
    return QColor::fromRgbF(static_cast<float>(rgba[0]), static_cast<float>(rgba[1]),
        static_cast<float>(rgba[2]), static_cast<float>(rgba[3] * alpha));
}

UIColor withAlpha(const UIColor& color, double alpha)
{
    const auto rgba = color.cgColor().rgba();
    return UIColor::colorWithRedGreenBlueAlpha(rgba[0], rgba[1], rgba[2], rgba[3] * alpha);
}

}

/// The shown text laid out for one scale. Lengths are device pixels.
struct UITextField::Editor::Line {
    QTextLayout layout;
    QTextLine line;
    double scale = 1;
    double fieldWidth = 0;
    double fieldHeight = 0;
    double caretWidth = 0;
    double lineHeight = 0;
    double caretInText = 0; ///< From the text's start.
    double overflow = 0; ///< What of the text with the caret behind it does not fit; 0 when it does.
    double left = 0; ///< Where the text starts in the field.

    double top() const { return std::floor((fieldHeight - lineHeight) / 2 + 0.5); }
    double caretLeft() const
    {
        return std::clamp(
            std::floor(left + caretInText + 0.5), 0.0, std::max(0.0, std::floor(fieldWidth - caretWidth)));
    }
};

QString UITextField::Editor::shownText() const
{
    auto shown = oneLine(text());
    if (secure)
        shown.fill(bullet);
    if (lineEdit && !_composition.isEmpty())
        shown.insert(
            lineEdit->cursorPosition(), secure ? QString(_composition.size(), bullet) : _composition);
    return shown;
}

std::unique_ptr<UITextField::Editor::Line> UITextField::Editor::layOut(double scale) const
{
    auto result = std::make_unique<Line>();
    const auto qfont = fontFor(font, scale);
    const QFontMetricsF metrics(qfont);
    result->scale = scale;
    result->fieldWidth = field.bounds().width * scale;
    result->fieldHeight = field.bounds().height * scale;
    result->caretWidth = std::max(1.0, std::floor(caretWidth * scale + 0.5));
    result->lineHeight = metrics.ascent() + metrics.descent();

    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setUseDesignMetrics(true);
    option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    result->layout.setFont(qfont);
    result->layout.setText(shownText());
    result->layout.setTextOption(option);
    result->layout.beginLayout();
    result->line = result->layout.createLine();
    result->line.setLineWidth(1e7); // No line gets as long.
    result->layout.endLayout();

    auto caret = lineEdit ? lineEdit->cursorPosition() : 0;
    if (!_composition.isEmpty())
        caret += _compositionCaret;
    result->caretInText = result->line.cursorToX(caret);
    const auto textWidth = result->line.naturalTextWidth();
    result->overflow = std::max(0.0, textWidth + result->caretWidth - result->fieldWidth);
    const auto spare = result->fieldWidth - textWidth;
    if (result->overflow > 0)
        result->left = -std::clamp(std::floor(_offset * scale + 0.5), 0.0, result->overflow);
    else if (alignment == NSTextAlignment::Center)
        result->left = std::floor(spare / 2 + 0.5);
    else if (alignment == NSTextAlignment::Right
        || (alignment == NSTextAlignment::Natural && result->layout.text().isRightToLeft()))
        result->left = std::floor(spare + 0.5);
    return result;
}

void UITextField::Editor::caretMoved()
{
    field.setNeedsDisplay();
    if (!lineEdit)
        return;
    const auto line = layOut(Device::current().scale);
    const auto caret = line->caretInText / line->scale;
    const auto furthest = line->overflow / line->scale;
    _offset = std::min(_offset, caret);
    _offset = std::max(_offset, caret + caretWidth - field.bounds().width);
    _offset = std::clamp(_offset, 0.0, furthest);
}

CGRect UITextField::Editor::caretRect() const
{
    const auto line = layOut(Device::current().scale);
    return { line->caretLeft() / line->scale, line->top() / line->scale, line->caretWidth / line->scale,
        line->lineHeight / line->scale };
}

int UITextField::Editor::indexAt(CGFloat x) const
{
    const auto line = layOut(Device::current().scale);
    return std::clamp(line->line.xToCursor(x * line->scale - line->left), 0, static_cast<int>(text().size()));
}

void UITextField::Editor::draw(Bitmap& target, double scale) const
{
    const auto shown = shownText();
    const auto visible = field.isEnabled() ? 1 : disabledAlpha;
    const auto size = field.bounds().size();
    const TextStyle style { font, alignment, 1 };
    if (shown.isEmpty())
        drawText(target, scale, placeholder, style, withAlpha(style::chevron(), visible).cgColor(), size);
    if (!lineEdit) {
        drawText(target, scale, shown.left(mostShown).toStdString(), style,
            withAlpha(textColor, visible).cgColor(), size);
        return;
    }

    const auto line = layOut(scale);
    QList<QTextLayout::FormatRange> ranges;
    if (lineEdit->hasSelectedText()) {
        QTextCharFormat selected;
        selected.setBackground(toQColor(style::tint(), selectionAlpha));
        ranges.append({ lineEdit->selectionStart(), lineEdit->selectionLength(), selected });
    }
    if (!_composition.isEmpty()) {
        QTextCharFormat composed;
        composed.setFontUnderline(true);
        ranges.append({ lineEdit->cursorPosition(), static_cast<int>(_composition.size()), composed });
    }
    auto image = imageFor(target);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setPen(toQColor(textColor));
    line->layout.draw(&painter, { line->left, line->top() }, ranges);
    if (!lineEdit->hasSelectedText())
        painter.fillRect(
            QRectF(line->caretLeft(), line->top(), line->caretWidth, std::ceil(line->lineHeight)),
            toQColor(style::tint()));
}

}

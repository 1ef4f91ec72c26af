#include "TextEngine.h"
#include "platform/Blending.h"
#include "platform/Device.h"
#include "platform/TextEngine.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>
#include <QString>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

namespace platform {

namespace {

constexpr double unlimited = 1e7; // Pixels; no line gets as long.

QString textFrom(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

// Line breaks of ours are line breaks of a text layout.
QString layoutText(std::string_view utf8)
{
    auto text = textFrom(utf8);
    text.replace(QLatin1Char('\n'), QChar::LineSeparator);
    return text;
}

QTextOption optionFor(bool wraps)
{
    QTextOption option;
    option.setWrapMode(wraps ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    option.setUseDesignMetrics(true);
    option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    return option;
}

QSizeF layOut(QTextLayout& layout, double lineWidth, long mostLines, double lineHeight)
{
    QSizeF size(0, 0); // A default one is invalid: -1 by -1.
    layout.beginLayout();
    for (long count = 0; mostLines <= 0 || count < mostLines; ++count) {
        auto line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(lineWidth);
        line.setPosition({ 0, size.height() });
        size = { std::max(size.width(), line.naturalTextWidth()), size.height() + lineHeight };
    }
    layout.endLayout();
    return size;
}

double pixelLineHeight(const QFont& font)
{
    const QFontMetricsF metrics(font);
    return metrics.ascent() + metrics.descent();
}

// From this size on in pixels, the toolkit fills outlines and keeps no pictures of glyphs.
constexpr double largeGlyph = 64;

/// Fills the outlines of a line as the font has them, in whole units. The toolkit's own, which are cut to the
/// font's size, differ in their last bits with what else was drawn before.
void drawOutlines(QPainter& painter, const QTextLine& line, QPointF origin)
{
    for (const auto& run : line.glyphRuns()) {
        auto font = run.rawFont();
        const auto size = font.pixelSize();
        const auto units = font.unitsPerEm();
        if (units <= 0) { // Of pictures.
            painter.drawGlyphRun(origin, run);
            continue;
        }
        font.setPixelSize(units);
        const auto glyphs = run.glyphIndexes();
        const auto positions = run.positions();
        QPainterPath outlines;
        for (qsizetype index = 0; index < glyphs.size(); ++index) {
            const auto& position = positions[index];
            const auto place = QTransform::fromTranslate(origin.x() + position.x(), origin.y() + position.y())
                                   .scale(size / units, size / units);
            outlines.addPath(place.map(font.pathForGlyph(glyphs[index])));
        }
        outlines.setFillRule(Qt::WindingFill);
        painter.fillPath(outlines, painter.pen().brush());
    }
}

}

QFont fontFor(const UIFont& font, double scale)
{
    using Key = std::tuple<double, UIFontWeight, double>;
    static std::map<Key, QFont> made;
    const Key key { font.pointSize, font.weight, scale };
    if (const auto found = made.find(key); found != made.end())
        return found->second;
    QFont result(QStringList { QStringLiteral("Inter"), QStringLiteral("DejaVu Sans") });
    result.setPixelSize(std::max(1, static_cast<int>(std::lround(font.pointSize * scale))));
    result.setWeight(font.weight == UIFontWeight::Semibold ? QFont::DemiBold
            : font.weight == UIFontWeight::Medium          ? QFont::Medium
                                                           : QFont::Normal);
    result.setHintingPreference(QFont::PreferNoHinting);
    result.setStyleStrategy(
        static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    return made[key] = result;
}

QImage imageFor(Bitmap& bitmap)
{
    return QImage(reinterpret_cast<uchar*>(bitmap.pixels.get()), bitmap.width, bitmap.height,
        bitmap.width * 4, QImage::Format_ARGB32_Premultiplied);
}

CGFloat lineHeight(const UIFont& font)
{
    const auto scale = Device::current().scale;
    return pixelLineHeight(fontFor(font, scale)) / scale;
}

CGSize measureText(std::string_view utf8, const TextStyle& style, CGFloat width)
{
    const auto scale = Device::current().scale;
    const auto font = fontFor(style.font, scale);
    if (utf8.empty())
        return { 0, pixelLineHeight(font) / scale };
    QTextLayout layout(layoutText(utf8), font);
    const auto wraps = style.numberOfLines != 1;
    layout.setTextOption(optionFor(wraps));
    const auto lineWidth = wraps && width > 0 ? std::min(width * scale, unlimited) : unlimited;
    const auto size = layOut(layout, lineWidth, style.numberOfLines, pixelLineHeight(font));
    return { size.width() / scale, size.height() / scale };
}

void drawText(Bitmap& target, double scale, std::string_view utf8, const TextStyle& style,
    const CGColor& color, CGSize size)
{
    if (utf8.empty() || target.isEmpty())
        return;
    const auto font = fontFor(style.font, scale);
    const auto width = size.width * scale;
    auto text = layoutText(utf8);
    const auto wraps = style.numberOfLines != 1;
    QTextLayout layout(text, font);
    layout.setTextOption(optionFor(wraps));
    const auto lineHeight = pixelLineHeight(font);
    auto laidOut = layOut(layout, wraps ? width : unlimited, style.numberOfLines, lineHeight);
    if (!wraps && laidOut.width() > width + 0.01) {
        layout.setText(QFontMetricsF(font).elidedText(text, Qt::ElideRight, width));
        laidOut = layOut(layout, unlimited, 1, lineHeight);
    }

    auto image = imageFor(target);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const auto rgba = color.rgba();
    painter.setPen(QColor::fromRgbF(static_cast<float>(rgba[0]), static_cast<float>(rgba[1]),
        static_cast<float>(rgba[2]), static_cast<float>(rgba[3])));
    // Lines stand on whole pixels, wherever the middle is.
    const auto top = std::floor((size.height * scale - laidOut.height()) / 2 + 0.5);
    const auto rightToLeft = style.alignment == NSTextAlignment::Natural && text.isRightToLeft();
    for (int index = 0; index < layout.lineCount(); ++index) {
        const auto line = layout.lineAt(index);
        const auto spare = width - line.naturalTextWidth();
        double left = 0;
        if (style.alignment == NSTextAlignment::Center)
            left = std::floor(spare / 2 + 0.5);
        else if (style.alignment == NSTextAlignment::Right || rightToLeft)
            left = std::floor(spare + 0.5);
        if (font.pixelSize() < largeGlyph)
            line.draw(&painter, { left, top });
        else
            drawOutlines(painter, line, { left, top });
    }
}

}

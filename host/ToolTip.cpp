#include "ToolTip.h"

#include <QTextDocument>

namespace host {

namespace {

constexpr qsizetype longestLine = 80; // Characters; what is shorter is left in one line.
constexpr qsizetype longestTip = 1000;
constexpr qsizetype longestWord = 20; // Of longer ones, a line may end inside.

QString withPlacesToBreak(const QString& text)
{
    static constexpr QChar zeroWidthSpace(0x200B);
    QString result;
    qsizetype word = 0;
    for (const auto character : text) {
        word = character.isSpace() ? 0 : word + 1;
        if (word > longestWord && !character.isLowSurrogate()) {
            result += zeroWidthSpace;
            word = 1;
        }
        result += character;
    }
    return result;
}

}

QString toolTipFor(const QString& text)
{
    if (text.size() <= longestLine && !Qt::mightBeRichText(text))
        return text;
    auto shown = text.left(longestTip);
    if (!shown.isEmpty() && shown.back().isHighSurrogate())
        shown.chop(1);
    if (shown.size() < text.size())
        shown += QChar(0x2026); // An ellipsis.
    return QStringLiteral("<p style=\"white-space:pre-wrap\">%1</p>")
        .arg(withPlacesToBreak(shown).toHtmlEscaped());
}

}

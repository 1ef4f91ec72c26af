#include "ViewWords.h"

#include "platform/UIView.h"

#include <cmath>
#include <QStringList>

namespace host {

using namespace platform;

QString numberWords(double number)
{
    // Rounded first: else a little below 0 would be shown as "-0".
    const auto rounded = std::round(number * 100) / 100;
    return QString::number(rounded == 0 ? 0 : rounded, 'g', 10);
}

QString rectWords(CGRect rect)
{
    return QStringLiteral("%1, %2, %3 × %4")
        .arg(numberWords(rect.x), numberWords(rect.y), numberWords(rect.width), numberWords(rect.height));
}

QString maskWords(unsigned mask)
{
    struct Part {
        unsigned bit;
        const char* word;
    };
    constexpr Part parts[] = {
        { UIViewAutoresizingFlexibleWidth, "width" },
        { UIViewAutoresizingFlexibleHeight, "height" },
        { UIViewAutoresizingFlexibleLeftMargin, "left margin" },
        { UIViewAutoresizingFlexibleRightMargin, "right margin" },
        { UIViewAutoresizingFlexibleTopMargin, "top margin" },
        { UIViewAutoresizingFlexibleBottomMargin, "bottom margin" },
    };
    QStringList words;
    for (const auto& part : parts) {
        if (mask & part.bit)
            words += QString::fromLatin1(part.word);
    }
    return words.isEmpty() ? QStringLiteral("nothing") : words.join(QStringLiteral(", "));
}

QString colorWords(const std::optional<CGColor>& color)
{
    if (!color)
        return {};
    const auto hex = QString::fromStdString(hexDescription(*color));
    const auto alpha = color->rgba()[3];
    if (alpha == 0)
        return QStringLiteral("clear");
    return alpha == 1 ? hex.left(7) : QStringLiteral("%1 %2%").arg(hex.left(7)).arg(std::lround(alpha * 100));
}

QString contentWords(const ViewFacts& facts)
{
    if (facts.isOn)
        return *facts.isOn ? QStringLiteral("on") : QStringLiteral("off");
    if (facts.value && facts.minimum && facts.maximum)
        return QStringLiteral("%1 of %2 to %3")
            .arg(numberWords(*facts.value), numberWords(*facts.minimum), numberWords(*facts.maximum));
    if (facts.value)
        return numberWords(*facts.value);
    constexpr std::size_t longest = 1000; // Bytes; more than any screen shows.
    return QString::fromStdString(facts.text.value_or(std::string()).substr(0, longest)).simplified();
}

QString visibilityWords(const ViewFacts& facts)
{
    if (facts.isHidden)
        return QStringLiteral("hidden");
    return facts.alpha == 1 ? QString() : numberWords(facts.alpha);
}

}

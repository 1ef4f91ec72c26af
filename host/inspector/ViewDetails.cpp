#include "ViewDetails.h"

#include "ViewWords.h"

#include <QGridLayout>
#include <QLabel>

namespace host {

using namespace platform;

namespace {

QString yesOrNo(bool isSo)
{
    return isSo ? QStringLiteral("yes") : QStringLiteral("no");
}

QString textOf(const std::optional<std::string>& text)
{
    constexpr qsizetype longest = 300; // Characters; more is told by the tool tip of the tree.
    return text ? QString::fromStdString(*text).simplified().left(longest) : QString();
}

/// With a patch of it, as rich text.
QString swatch(const std::optional<CGColor>& color)
{
    if (!color)
        return QStringLiteral("none");
    if (color->rgba()[3] == 0)
        return colorWords(color);
    const auto hex = QString::fromStdString(hexDescription(*color)).left(7);
    return QStringLiteral("<span style=\"background-color:%1\">&nbsp;&nbsp;&nbsp;&nbsp;</span> %2")
        .arg(hex, colorWords(color));
}

QString border(const ViewFacts& facts)
{
    return facts.borderColor
        ? QStringLiteral("%1 pt %2").arg(numberWords(facts.borderWidth), swatch(facts.borderColor))
        : QStringLiteral("none");
}

QString alignment(const ViewFacts& facts)
{
    static constexpr std::array words { "left", "centre", "right" };
    if (!facts.alignment || *facts.alignment < 0 || *facts.alignment >= static_cast<int>(words.size()))
        return {};
    const auto word = QString::fromLatin1(words.at(static_cast<std::size_t>(*facts.alignment)));
    if (!facts.lines)
        return word;
    return *facts.lines == 0 ? word + QStringLiteral(", any number of lines")
                             : QStringLiteral("%1, %2 line%3 at most")
                                   .arg(word)
                                   .arg(*facts.lines)
                                   .arg(*facts.lines == 1 ? QString() : QStringLiteral("s"));
}

/// A line of the details; those that go over both columns have a row to themselves.
struct Detail {
    const char* name;
    bool isWide;
    QString (*words)(const ViewFacts&);
    Qt::TextFormat format = Qt::PlainText; ///< Plain wherever a pane has a say in the words.
};

constexpr Detail details[] = {
    { "Class", true, [](const ViewFacts& facts) { return textOf(facts.className); } },
    { "Text", true, [](const ViewFacts& facts) { return textOf(facts.text); } },
    { "Frame", false, [](const ViewFacts& facts) { return rectWords(facts.frame); } },
    { "On screen", false, [](const ViewFacts& facts) { return rectWords(facts.onScreen); } },
    { "Stretches", true, [](const ViewFacts& facts) { return maskWords(facts.mask); } },
    { "Background", false, [](const ViewFacts& facts) { return swatch(facts.background); }, Qt::RichText },
    { "Text colour", false,
        [](const ViewFacts& facts) { return facts.textColor ? swatch(facts.textColor) : QString(); },
        Qt::RichText },
    { "Border", false, border, Qt::RichText },
    { "Corner radius", false, [](const ViewFacts& facts) { return numberWords(facts.cornerRadius); } },
    { "Alpha", false,
        [](const ViewFacts& facts) {
            return numberWords(facts.alpha) + (facts.isHidden ? QStringLiteral(", hidden") : QString());
        } },
    { "Clips", false, [](const ViewFacts& facts) { return yesOrNo(facts.masksToBounds); } },
    { "Alignment", false, alignment },
    { "Value", false,
        [](const ViewFacts& facts) { return facts.value || facts.isOn ? contentWords(facts) : QString(); } },
    { "Tag", false, [](const ViewFacts& facts) { return QString::number(facts.tag); } },
    { "Enabled", false,
        [](const ViewFacts& facts) { return facts.isEnabled ? yesOrNo(*facts.isEnabled) : QString(); } },
};

}

ViewDetails::ViewDetails(QWidget* parent)
    : QWidget(parent)
{
    static_assert(std::size(details) == count);
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(3);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    int row = 0;
    int column = 0;
    for (std::size_t index = 0; index < count; ++index) {
        const auto& detail = details[index];
        if (detail.isWide && column > 0) {
            ++row;
            column = 0;
        }
        auto* const name = new QLabel(QString::fromLatin1(detail.name), this);
        name->setForegroundRole(QPalette::PlaceholderText);
        auto* const value = new QLabel(this);
        value->setObjectName(QString::fromLatin1(detail.name));
        value->setAccessibleDescription(QString::fromLatin1(detail.name));
        value->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        value->setMinimumHeight(value->fontMetrics().height());
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        value->setTextFormat(detail.format);
        value->setWordWrap(true);
        grid->addWidget(name, row, column);
        grid->addWidget(value, row, column + 1, 1, detail.isWide ? 3 : 1);
        _values.at(index) = value;
        column = detail.isWide ? 0 : (column + 2) % 4;
        if (column == 0)
            ++row;
    }
}

void ViewDetails::show(const std::optional<ViewFacts>& facts)
{
    for (std::size_t index = 0; index < count; ++index) {
        const auto words = facts ? details[index].words(*facts) : QString();
        if (auto& value = *_values.at(index); value.text() != words)
            value.setText(words);
    }
}

}

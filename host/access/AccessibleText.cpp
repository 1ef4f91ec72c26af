#include "AccessibleElement.h"
#include "AccessibleScreen.h"
#include "FieldText.h"
#include "host/PhoneView.h"

#include <algorithm>

namespace host {

QString AccessibleElement::fieldText() const
{
    const auto* const own = element();
    return own ? QString::fromStdString(own->text) : QString();
}

void AccessibleElement::selection(int index, int* begin, int* end) const
{
    const auto* const own = element();
    const auto selected = own && index == 0 ? selectionOf(*own) : TextSelection {};
    *begin = selected.begin;
    *end = selected.end;
}

int AccessibleElement::selectionCount() const
{
    const auto* const own = element();
    const auto selected = own ? selectionOf(*own) : TextSelection {};
    return selected.begin == selected.end ? 0 : 1;
}

void AccessibleElement::addSelection(int begin, int end)
{
    setSelection(0, begin, end);
}

void AccessibleElement::removeSelection(int index)
{
    if (index == 0)
        setCursorPosition(cursorPosition());
}

void AccessibleElement::setSelection(int index, int begin, int end)
{
    if (const auto* const own = element(); own && index == 0)
        selectText(*own, { begin, end });
}

int AccessibleElement::cursorPosition() const
{
    const auto* const own = element();
    return own ? caretOf(*own) : 0;
}

void AccessibleElement::setCursorPosition(int position)
{
    setSelection(0, position, position);
}

QString AccessibleElement::text(int begin, int end) const
{
    const auto all = fieldText();
    const auto length = static_cast<int>(all.size());
    begin = std::clamp(begin, 0, length);
    end = end < 0 ? length : std::clamp(end, begin, length);
    return all.mid(begin, end - begin);
}

int AccessibleElement::characterCount() const
{
    return static_cast<int>(fieldText().size());
}

/// The field's: characters have no places of their own here.
QRect AccessibleElement::characterRect(int offset) const
{
    return offset >= 0 && offset < characterCount() ? rect() : QRect();
}

int AccessibleElement::offsetAtPoint(const QPoint& point) const
{
    return rect().contains(point) ? cursorPosition() : -1;
}

void AccessibleElement::scrollToSubstring(int, int)
{
    if (const auto* const own = element())
        screen()->screen().actions().show(Element(*own));
}

QString AccessibleElement::attributes(int, int* begin, int* end) const
{
    *begin = 0;
    *end = characterCount();
    return {};
}

void AccessibleElement::deleteText(int begin, int end)
{
    replaceText(begin, end, {});
}

void AccessibleElement::insertText(int offset, const QString& text)
{
    replaceText(offset, offset, text);
}

void AccessibleElement::replaceText(int begin, int end, const QString& text)
{
    const auto* const own = element();
    if (!own)
        return;
    const auto length = characterCount();
    const TextSelection place { std::clamp(begin, 0, length), end < 0 ? length : std::clamp(end, 0, length) };
    host::replaceText(screen()->screen(), Element(*own), place, text);
}

}

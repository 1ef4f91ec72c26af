#include "TextEditor.h"
#include "platform/InputObserver.h"
#include "platform/UIWindow.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr double doubleClickSeconds = 0.4;
constexpr CGFloat doubleClickDistance = 10;
constexpr CGFloat dragSlop = 4; // A finger that moved less has not begun to select.

}

UITextField::Editor::Editor(UITextField& owner)
    : field(owner)
{
}

void UITextField::Editor::begin()
{
    lineEdit = std::make_unique<QLineEdit>();
    setText(idleText);
    configure();
    caretMoved();
}

bool UITextField::Editor::end()
{
    commitComposition();
    // Whoever was told of the committed text may have ended the editing.
    if (!lineEdit)
        return false;
    idleText = lineEdit->text();
    lineEdit = nullptr;
    _offset = 0;
    _dragging = false;
    field.setNeedsDisplay();
    return true;
}

void UITextField::Editor::setText(const QString& text)
{
    idleText = text;
    if (lineEdit) {
        _composition.clear();
        lineEdit->setMaxLength(std::max(maximumLength, static_cast<int>(text.size())));
        lineEdit->setText(text);
    }
    caretMoved();
}

void UITextField::Editor::setKeyboardType(UIKeyboardType type)
{
    keyboard = type;
    configure();
}

void UITextField::Editor::setSecure(bool is)
{
    secure = is;
    configure();
    caretMoved();
}

QString UITextField::Editor::oneLine(QString text)
{
    for (auto& character : text) {
        const auto category = character.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line
            || category == QChar::Separator_Paragraph)
            character = QLatin1Char(' ');
    }
    return text;
}

bool UITextField::Editor::edit(const std::function<void()>& change)
{
    if (!lineEdit)
        return false;
    const auto kept = field.weak_from_this().lock();
    const InputSpan input(field.window() ? field.window()->inputObserver() : nullptr);
    if (input)
        input->textWillChange(field);
    const auto before = lineEdit->text();
    change();
    caretMoved();
    if (input)
        input->textChanged(field);
    if (lineEdit->text() != before)
        field.sendActionsForControlEvents(UIControlEventEditingChanged);
    return true;
}

bool UITextField::Editor::paste(const std::string& utf8)
{
    if (!lineEdit)
        return false;
    const auto kept = field.weak_from_this().lock();
    commitComposition();
    return edit([&] {
        auto text = oneLine(QString::fromStdString(utf8).replace(QLatin1String("\r\n"), QLatin1String("\n")));
        const auto others = lineEdit->text().size() - lineEdit->selectedText().size();
        const auto room = std::max<qsizetype>(0, lineEdit->maxLength() - others);
        if (text.size() > room)
            text.truncate(room > 0 && text.at(room - 1).isHighSurrogate() ? room - 1 : room);
        lineEdit->insert(text);
    });
}

bool UITextField::Editor::pasteFromClipboard()
{
    const auto* const clipboard = QGuiApplication::clipboard();
    return clipboard && paste(clipboard->text().toStdString());
}

bool UITextField::Editor::clear()
{
    return edit([&] {
        _composition.clear();
        lineEdit->clear();
    });
}

bool UITextField::Editor::select(int anchor, int caret)
{
    return edit([&] { selectBetween(anchor, caret); });
}

bool UITextField::Editor::replace(const std::string& utf8, int anchor, int caret)
{
    return edit([&] {
        _composition.clear();
        lineEdit->setText(oneLine(QString::fromStdString(utf8)));
        selectBetween(anchor, caret);
    });
}

void UITextField::Editor::selectBetween(int anchor, int caret)
{
    const auto length = static_cast<int>(lineEdit->text().size());
    anchor = std::clamp(anchor, 0, length);
    caret = std::clamp(caret, 0, length);
    lineEdit->setCursorPosition(caret);
    if (caret != anchor)
        lineEdit->setSelection(anchor, caret - anchor);
}

bool UITextField::Editor::continuesPress(CGFloat x, double timestamp) const
{
    return timestamp > 0 && timestamp - _pressTime < doubleClickSeconds
        && std::abs(x - _pressX) < doubleClickDistance;
}

void UITextField::Editor::rememberPress(CGFloat x, double timestamp)
{
    _pressX = x;
    _pressTime = timestamp;
}

void UITextField::Editor::pressAt(CGFloat x, double timestamp, Press press)
{
    const auto kept = field.weak_from_this().lock();
    commitComposition();
    if (!lineEdit)
        return;
    const auto again = continuesPress(x, timestamp);
    rememberPress(x, timestamp);
    _anchor = indexAt(x);
    _dragging = false;
    if (again)
        selectWordAt(_anchor);
    else if (press == Press::PlacesCaret)
        lineEdit->setCursorPosition(_anchor);
    caretMoved();
}

void UITextField::Editor::dragTo(CGFloat x)
{
    if (!lineEdit || (!_dragging && std::abs(x - _pressX) < dragSlop))
        return;
    _dragging = true;
    const auto index = indexAt(x);
    lineEdit->setCursorPosition(index);
    if (index != _anchor)
        lineEdit->setSelection(_anchor, index - _anchor);
    caretMoved();
}

void UITextField::Editor::selectWordAt(int index)
{
    if (secure) {
        lineEdit->selectAll(); // Where its words end is part of the secret.
        return;
    }
    const auto text = lineEdit->text();
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, text);
    finder.setPosition(index);
    const auto end = index < text.size() ? finder.toNextBoundary() : text.size();
    finder.setPosition(end);
    const auto start = std::max<qsizetype>(0, finder.toPreviousBoundary());
    lineEdit->setSelection(static_cast<int>(start), static_cast<int>(end - start));
}

}

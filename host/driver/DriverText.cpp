#include "DriverCommands.h"

#include "Json.h"
#include "platform/qt/TextEditor.h"
#include "platform/UIAlertView.h"
#include "ScriptParser.h"
#include "ViewSearch.h"

#include <array>
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>

namespace host {

using namespace platform;

namespace {

UITextField& focusedField(Driver& driver)
{
    auto* field = driver.window().firstResponder();
    if (!field)
        throw CommandFailure("No text field is focused; tap one first.");
    return *field;
}

QJsonObject textOf(UITextField& field)
{
    return { { "text", jsonFromText(shownText(field).value_or("")) } };
}

QJsonObject type(Driver& driver, Words words)
{
    auto& field = focusedField(driver);
    const auto& text = words[0];
    std::vector<char32_t> characters;
    if (!readCharacters(text, characters))
        throw CommandFailure("The text is not UTF-8.");
    for (const auto character : characters) {
        if (!keyboardHasCharacter(field.keyboardType(), character))
            throw CommandFailure("The field's keyboard has no key for "
                + quoted(QString::fromUcs4(&character, 1).toStdString()) + ".");
    }
    const auto length = QString::fromStdString(field.text() + text).size();
    if (length > UITextField::Editor::maximumLength)
        throw CommandFailure("The field holds no more than "
            + std::to_string(UITextField::Editor::maximumLength) + " characters.");
    // Whoever is told of a key may take the field away.
    const auto kept = field.weak_from_this().lock();
    if (!field.editor().typeText(text))
        throw CommandFailure("The editing ended before all of the text was typed.");
    return textOf(field);
}

QJsonObject paste(Driver& driver, Words words)
{
    auto& field = focusedField(driver);
    const auto kept = field.weak_from_this().lock();
    QGuiApplication::clipboard()->setText(QString::fromStdString(words[0]));
    field.editor().pasteFromClipboard();
    return textOf(field);
}

QJsonObject clear(Driver& driver, Words)
{
    auto& field = focusedField(driver);
    const auto kept = field.weak_from_this().lock();
    field.editor().clear();
    return textOf(field);
}

int placeFromWord(const std::string& word)
{
    long place = 0;
    if (!readCount(word, place) || place > UITextField::Editor::maximumLength)
        throw CommandFailure(quoted(word) + " is no place in a text.");
    return static_cast<int>(place);
}

QJsonObject select(Driver& driver, Words words)
{
    auto& field = focusedField(driver);
    field.editor().select(placeFromWord(words[0]), placeFromWord(words[1]));
    return textOf(field);
}

QJsonObject edit(Driver& driver, Words words)
{
    auto& field = focusedField(driver);
    const auto kept = field.weak_from_this().lock();
    field.editor().replace(words[0], placeFromWord(words[1]), placeFromWord(words[2]));
    return textOf(field);
}

QJsonObject compose(Driver& driver, Words words)
{
    auto& field = focusedField(driver);
    const auto caret = placeFromWord(words[1]);
    QInputMethodEvent event(QString::fromStdString(words[0]),
        { QInputMethodEvent::Attribute(QInputMethodEvent::Cursor, caret, 1) });
    if (words.size() > 2)
        event.setCommitString(QString::fromStdString(words[2]));
    const auto kept = field.weak_from_this().lock();
    field.editor().inputMethod(event);
    return textOf(field);
}

QJsonObject done(Driver& driver, Words)
{
    focusedField(driver);
    driver.phone().endEditing();
    return {};
}

constexpr std::array<std::pair<std::string_view, Qt::Key>, 4> keys { {
    { "Return", Qt::Key_Return },
    { "Escape", Qt::Key_Escape },
    { "Backspace", Qt::Key_Backspace },
    { "Tab", Qt::Key_Tab },
} };

QJsonObject key(Driver& driver, Words words)
{
    for (const auto& [name, code] : keys) {
        if (name != words[0])
            continue;
        // An alert is answered by keys even when it has no field.
        if (!UIAlertView::topmost())
            focusedField(driver);
        QKeyEvent event(QEvent::KeyPress, code, Qt::NoModifier);
        sendKeyToWindow(driver.window(), event);
        return {};
    }
    throw CommandFailure(
        "There is no key " + quoted(words[0]) + "; there are Return, Escape, Backspace and Tab.");
}

constexpr DriverCommand commands[] = {
    { "type", 1, 1, "one text, in quotation marks when it has blanks", type },
    { "paste", 1, 1, "one text, in quotation marks when it has blanks", paste },
    { "clear", 0, 0, "", clear },
    { "key", 1, 1, "one NAME", key },
    { "select", 2, 2, "FROM and TO", select },
    { "edit", 3, 3, "one text, in quotation marks when it has blanks, FROM and TO", edit },
    { "compose", 2, 3, "one text, in quotation marks when it has blanks, CARET and perhaps another text",
        compose },
    { "done", 0, 0, "", done },
};

}

std::span<const DriverCommand> textCommands()
{
    return commands;
}

}

#include "TextChange.h"

#include "platform/qt/TextEditor.h"
#include "ScriptText.h"

namespace host {

using namespace platform;

namespace {

/// What a field shows after text was put in place of the selection.
FieldState afterInserting(const FieldState& before, const QString& text)
{
    auto result = before.text;
    result.replace(before.selectionStart(), before.selectionEnd() - before.selectionStart(), text);
    const auto caret = before.selectionStart() + static_cast<int>(text.size());
    return { result, caret, caret };
}

FieldState afterBackspace(const FieldState& before)
{
    if (before.hasSelection())
        return afterInserting(before, {});
    auto start = std::max(0, before.caret - 1);
    if (start > 0 && before.text.at(start).isLowSurrogate() && before.text.at(start - 1).isHighSurrogate())
        --start;
    auto text = before.text;
    text.remove(start, before.caret - start);
    return { text, start, start };
}

/// What was put in place of the selection, if that alone happened.
std::optional<QString> insertedText(const FieldState& before, const FieldState& after)
{
    const auto length = after.caret - before.selectionStart();
    if (length <= 0)
        return std::nullopt;
    const auto text = after.text.mid(before.selectionStart(), length);
    return afterInserting(before, text) == after ? std::optional(text) : std::nullopt;
}

TextCommand inserting(const QString& text, qsizetype length, UIKeyboardType keyboard)
{
    const auto utf8 = text.toStdString();
    const auto characters = text.toUcs4();
    const bool isKey = characters.size() == 1 && keyboardHasCharacter(keyboard, characters.first())
        && length + text.size() <= UITextField::Editor::maximumLength;
    return { (isKey ? "type " : "paste ") + scriptWord(utf8) + '\n', isKey ? utf8 : std::string() };
}

/// What an input method did. It also takes the selection away, as its command does.
TextCommand composing(const FieldState& before, const FieldState& after, UIKeyboardType keyboard)
{
    const auto command = [](const FieldState& state) {
        return "compose " + scriptWord(state.composition.toStdString()) + ' '
            + std::to_string(state.compositionCaret);
    };
    const FieldState textBefore { before.text, before.anchor, before.caret };
    const FieldState textAfter { after.text, after.anchor, after.caret };
    if (textAfter == textBefore || textAfter == afterInserting(textBefore, {}))
        return { command(after) + '\n', {} };
    if (const auto text = insertedText(textBefore, textAfter); text && fitsInScript(text->toStdString()))
        return { command(after) + ' ' + scriptWord(text->toStdString()) + '\n', {} };
    const auto rest = commandFor(textBefore, textAfter, keyboard).line;
    return { command({}) + '\n' + rest + (after.composition.isEmpty() ? "" : command(after) + '\n'), {} };
}

}

FieldState FieldState::of(UITextField& field)
{
    const auto& editor = field.editor();
    const auto& edit = editor.lineEdit;
    if (!edit)
        return {};
    const auto caret = edit->cursorPosition();
    const auto anchor = !edit->hasSelectedText() ? caret
        : caret == edit->selectionStart()        ? edit->selectionEnd()
                                                 : edit->selectionStart();
    return { edit->text(), anchor, caret, editor.composition(), editor.compositionCaret() };
}

TextCommand commandFor(const FieldState& before, const FieldState& after, UIKeyboardType keyboard)
{
    if (after == before)
        return {};
    if (!before.composition.isEmpty() || !after.composition.isEmpty())
        return composing(before, after, keyboard);
    if (const auto text = insertedText(before, after); text && fitsInScript(text->toStdString()))
        return inserting(*text, before.text.size(), keyboard);
    if (after == afterBackspace(before))
        return { "key Backspace\n", {} };
    const auto places = ' ' + std::to_string(after.anchor) + ' ' + std::to_string(after.caret) + '\n';
    if (after.text == before.text)
        return { "select" + places, {} };
    if (after == FieldState {})
        return { "clear\n", {} };
    const auto text = after.text.toStdString();
    if (!fitsInScript(text))
        return { "# The text holds what a script can't.\n", {} };
    return { "edit " + scriptWord(text) + places, {} };
}

}

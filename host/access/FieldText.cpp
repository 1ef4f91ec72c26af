#include "FieldText.h"

#include "platform/qt/TextEditor.h"
#include "platform/UIAlertView.h"
#include "platform/UITextField.h"

namespace host {

using namespace platform;

namespace {

UITextField* fieldOf(const Element& element)
{
    return element.id.role == ElementRole::TextField ? dynamic_cast<UITextField*>(element.id.get()) : nullptr;
}

QLineEdit* editedIn(const Element& element)
{
    auto* const field = fieldOf(element);
    return field ? field->editor().lineEdit.get() : nullptr;
}

}

int caretOf(const Element& element)
{
    const auto* const edited = editedIn(element);
    return edited ? edited->cursorPosition() : static_cast<int>(QString::fromStdString(element.text).size());
}

TextSelection selectionOf(const Element& element)
{
    const auto* const edited = editedIn(element);
    return edited && edited->hasSelectedText()
        ? TextSelection { edited->selectionStart(), edited->selectionEnd() }
        : TextSelection {};
}

bool selectText(const Element& element, TextSelection selection)
{
    auto* const field = fieldOf(element);
    return field && field->editor().select(selection.begin, selection.end);
}

bool replaceText(Screen& screen, const Element& element, TextSelection selection, const QString& text)
{
    auto* const field = fieldOf(element);
    if (!field || !element.enabled)
        return false;
    const auto kept = field->weak_from_this().lock();
    const bool isOwnEdit = !editedIn(element);
    if (isOwnEdit && (!screen.actions().press(element) || !editedIn(element)))
        return false;
    selectText(element, selection);
    field->editor().paste(text.toStdString());
    if (isOwnEdit && !UIAlertView::topmost())
        screen.phone().endEditing();
    screen.phone().settle();
    return true;
}

}

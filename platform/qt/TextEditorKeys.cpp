#include "platform/InputObserver.h"
#include "platform/UIAlertView.h"
#include "platform/UIWindow.h"
#include "TextEditor.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QStringDecoder>

#include <algorithm>
#include <array>

namespace platform {

namespace {

bool isReturn(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

// Held keys would answer one alert after the other.
bool answerAlert(UIAlertView& alert, const QKeyEvent& event)
{
    const auto answers = isReturn(event.key()) || event.key() == Qt::Key_Escape;
    if (!answers || event.isAutoRepeat())
        return false;
    const InputSpan input(alert.window() ? alert.window()->inputObserver() : nullptr);
    if (input)
        input->keyArrives(isReturn(event.key()) ? "Return" : "Escape");
    if (isReturn(event.key()))
        alert.pressDefaultButton();
    else
        alert.pressCancelButton();
    return true;
}

UIAlertView* alertAround(const UIView& view)
{
    for (auto* ancestor = view.superview(); ancestor; ancestor = ancestor->superview()) {
        if (auto* alert = dynamic_cast<UIAlertView*>(ancestor))
            return alert;
    }
    return nullptr;
}

bool keyboardHasText(UIKeyboardType keyboard, const QString& text)
{
    const auto characters = text.toUcs4();
    return std::all_of(characters.begin(), characters.end(),
        [&](uint character) { return keyboardHasCharacter(keyboard, character); });
}

// Commands come with control characters or with Ctrl; Ctrl and Alt together are how some keyboards reach
// their third characters.
bool typesText(const QKeyEvent& event)
{
    const auto text = event.text();
    if (text.isEmpty() || text.at(0).category() == QChar::Other_Control)
        return false;
    const auto modifiers = event.modifiers();
    return !modifiers.testFlag(Qt::ControlModifier) || modifiers.testFlag(Qt::AltModifier);
}

Qt::InputMethodHints hintsFor(UIKeyboardType keyboard, bool secure)
{
    static constexpr std::array<std::pair<UIKeyboardType, Qt::InputMethodHint>, 6> hints { {
        { UIKeyboardType::ASCIICapable, Qt::ImhLatinOnly },
        { UIKeyboardType::NumbersAndPunctuation, Qt::ImhPreferNumbers },
        { UIKeyboardType::URL, Qt::ImhUrlCharactersOnly },
        { UIKeyboardType::NumberPad, Qt::ImhDigitsOnly },
        { UIKeyboardType::PhonePad, Qt::ImhDialableCharactersOnly },
        { UIKeyboardType::DecimalPad, Qt::ImhFormattedNumbersOnly },
    } };
    const auto* const found
        = std::find_if(hints.begin(), hints.end(), [&](const auto& hint) { return hint.first == keyboard; });
    Qt::InputMethodHints result = found == hints.end() ? Qt::ImhNone : found->second;
    if (secure)
        result |= Qt::ImhHiddenText | Qt::ImhSensitiveData | Qt::ImhNoPredictiveText;
    return result;
}

}

bool sendKeyToWindow(UIWindow& window, QKeyEvent& event)
{
    if (auto* const alert = UIAlertView::topmost();
        alert && alert->window() == &window && answerAlert(*alert, event))
        return true;
    auto* const field = window.firstResponder();
    return field && field->editor().keyPress(event);
}

void UITextField::Editor::configure()
{
    if (!lineEdit)
        return;
    lineEdit->setEchoMode(secure ? QLineEdit::Password : QLineEdit::Normal);
    lineEdit->setInputMethodHints(hintsFor(keyboard, secure));
}

bool UITextField::Editor::typeText(std::string_view utf8)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(QByteArrayView(utf8.data(), static_cast<qsizetype>(utf8.size())));
    if (decoder.hasError() || !lineEdit || !keyboardHasText(keyboard, text))
        return false;
    const auto kept = field.weak_from_this().lock();
    const auto characters = text.toUcs4();
    return std::all_of(
        characters.begin(), characters.end(), [&](uint character) { return typeCharacter(character); });
}

bool UITextField::Editor::typeCharacter(char32_t character)
{
    if (!keyboardHasCharacter(keyboard, character))
        return false;
    const auto kept = field.weak_from_this().lock();
    commitComposition();
    return edit([&] { lineEdit->insert(QString::fromUcs4(&character, 1)); });
}

bool UITextField::Editor::keyPress(QKeyEvent& event)
{
    if (!lineEdit)
        return false;
    if (auto* const alert = alertAround(field); alert && answerAlert(*alert, event))
        return true;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return returnKey();
    case Qt::Key_Escape:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return false;
    default:
        break;
    }
    if (event.matches(QKeySequence::Paste))
        return pasteFromClipboard();
    if (typesText(event) && !keyboardHasText(keyboard, event.text()))
        return false;
    return edit([&] { lineEdit->event(&event); }) && event.isAccepted();
}

bool UITextField::Editor::returnKey()
{
    static constexpr std::array pads { UIKeyboardType::NumberPad, UIKeyboardType::PhonePad,
        UIKeyboardType::DecimalPad };
    if (std::find(pads.begin(), pads.end(), keyboard) != pads.end())
        return false;
    const InputSpan input(field.window() ? field.window()->inputObserver() : nullptr);
    if (input)
        input->editingEnds();
    field.resignFirstResponder();
    return true;
}

bool UITextField::Editor::key(std::string_view name)
{
    static constexpr std::array<std::pair<std::string_view, Qt::Key>, 4> keys { {
        { "Return", Qt::Key_Return },
        { "Escape", Qt::Key_Escape },
        { "Backspace", Qt::Key_Backspace },
        { "Tab", Qt::Key_Tab },
    } };
    const auto* const found
        = std::find_if(keys.begin(), keys.end(), [&](const auto& known) { return known.first == name; });
    if (found == keys.end())
        return false;
    QKeyEvent event(QEvent::KeyPress, found->second, Qt::NoModifier);
    return keyPress(event);
}

bool UITextField::Editor::inputMethod(QInputMethodEvent& event)
{
    if (!lineEdit)
        return false;
    if (!keyboardHasText(keyboard, event.commitString())) {
        QInputMethodEvent nothing;
        inputMethod(nothing);
        return false;
    }
    return edit([&] {
        _composition = oneLine(event.preeditString());
        _compositionCaret = static_cast<int>(_composition.size());
        for (const auto& attribute : event.attributes()) {
            if (attribute.type == QInputMethodEvent::Cursor)
                _compositionCaret = std::clamp(attribute.start, 0, _compositionCaret);
        }
        lineEdit->event(&event);
    });
}

void UITextField::Editor::commitComposition()
{
    if (_composition.isEmpty() || !lineEdit)
        return;
    QInputMethodEvent event;
    event.setCommitString(_composition);
    inputMethod(event);
}

QVariant UITextField::Editor::inputMethodQuery(Qt::InputMethodQuery query) const
{
    const auto rect = [](CGRect r) { return QRectF(r.x, r.y, r.width, r.height); };
    switch (query) {
    case Qt::ImEnabled:
        return lineEdit != nullptr;
    case Qt::ImCursorRectangle:
    case Qt::ImAnchorRectangle:
        return rect(caretRect());
    case Qt::ImInputItemClipRectangle:
        return rect(field.bounds());
    default:
        return lineEdit ? lineEdit->inputMethodQuery(query) : QVariant();
    }
}

}

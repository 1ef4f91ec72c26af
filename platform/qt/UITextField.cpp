#include "platform/UITextField.h"
#include "platform/CGContextImpl.h"
#include "platform/Device.h"
#include "platform/UIEvent.h"
#include "platform/UIWindow.h"
#include "TextEditor.h"

#include <QLocale>

namespace platform {

namespace {

bool isText(char32_t character)
{
    const auto isControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
    const auto isSurrogate = character >= 0xD800 && character < 0xE000;
    const auto isLineBreak = character == 0x2028 || character == 0x2029;
    return !isControl && !isSurrogate && !isLineBreak && character <= 0x10FFFF;
}

bool isOneOf(std::string_view characters, char32_t character)
{
    return character < 0x80 && characters.find(static_cast<char>(character)) != std::string_view::npos;
}

bool isDecimalSeparator(char32_t character)
{
    const auto separator = QLocale(QString::fromStdString(Device::current().locale)).decimalPoint().toUcs4();
    return separator.size() == 1 && separator.first() == character;
}

}

bool keyboardHasCharacter(UIKeyboardType keyboard, char32_t character)
{
    switch (keyboard) {
    case UIKeyboardType::ASCIICapable:
        return isText(character) && character < 0x80;
    case UIKeyboardType::URL:
        return isText(character) && character < 0x80 && character != ' ';
    case UIKeyboardType::NumberPad:
        return isOneOf("0123456789", character);
    case UIKeyboardType::PhonePad:
        return isOneOf("0123456789+*#,;", character);
    case UIKeyboardType::DecimalPad:
        return isOneOf("0123456789", character) || isDecimalSeparator(character);
    case UIKeyboardType::Default:
    case UIKeyboardType::NumbersAndPunctuation: // It begins with digits, and has all the others a key away.
        break;
    }
    return isText(character);
}

UITextField::UITextField()
    : UITextField(CGRect {})
{
}

UITextField::UITextField(CGRect frame)
    : UIControl(frame)
    , _editor(std::make_unique<Editor>(*this))
{
    setContentMode(UIViewContentMode::Redraw);
}

UITextField::~UITextField() = default;

std::string UITextField::text() const
{
    return _editor->text().toStdString();
}

void UITextField::setText(const std::string& utf8)
{
    // Setting what is there leaves the caret alone.
    if (const auto text = QString::fromStdString(utf8); text != _editor->text())
        _editor->setText(text);
}

const std::string& UITextField::placeholder() const
{
    return _editor->placeholder;
}

void UITextField::setPlaceholder(std::string placeholder)
{
    _editor->placeholder = std::move(placeholder);
    setNeedsDisplay();
}

UIKeyboardType UITextField::keyboardType() const
{
    return _editor->keyboard;
}

void UITextField::setKeyboardType(UIKeyboardType type)
{
    _editor->setKeyboardType(type);
}

bool UITextField::isSecureTextEntry() const
{
    return _editor->secure;
}

void UITextField::setSecureTextEntry(bool secure)
{
    _editor->setSecure(secure);
}

void UITextField::setFont(UIFont font)
{
    _editor->font = font;
    setNeedsDisplay();
}

void UITextField::setTextColor(UIColor color)
{
    _editor->textColor = color;
    setNeedsDisplay();
}

UIColor UITextField::textColor() const
{
    return _editor->textColor;
}

void UITextField::setTextAlignment(NSTextAlignment alignment)
{
    _editor->alignment = alignment;
    setNeedsDisplay();
}

NSTextAlignment UITextField::textAlignment() const
{
    return _editor->alignment;
}

void UITextField::becomeFirstResponder()
{
    if (isFirstResponder() || !isEnabled() || !window())
        return;
    const auto kept = weak_from_this().lock();
    if (auto* const former = window()->firstResponder(); former && former != this)
        former->resignFirstResponder();
    // Whoever was told of the end may have taken this field away, or called upon another.
    if (isFirstResponder() || !isEnabled() || !window() || window()->firstResponder())
        return;
    window()->setFirstResponder(this);
    _editor->begin();
    sendActionsForControlEvents(UIControlEventEditingDidBegin);
}

void UITextField::resignFirstResponder()
{
    if (!isFirstResponder())
        return;
    const auto kept = weak_from_this().lock();
    if (!_editor->end())
        return;
    if (window() && window()->firstResponder() == this)
        window()->setFirstResponder(nullptr);
    sendActionsForControlEvents(UIControlEventEditingDidEnd);
}

bool UITextField::isFirstResponder() const
{
    return _editor->isEditing();
}

void UITextField::setEnabled(bool enabled)
{
    UIControl::setEnabled(enabled);
    if (!enabled)
        resignFirstResponder();
    setNeedsDisplay();
}

void UITextField::drawRect(CGRect)
{
    auto* const context = UIGraphicsGetCurrentContext();
    if (context && (isFirstResponder() || !_editor->idleText.isEmpty() || !_editor->placeholder.empty()))
        _editor->draw(context->bitmap(), context->scale());
}

void UITextField::didMoveToWindow()
{
    // A window that it left has let go of it already.
    if (!window() || window()->firstResponder() != this)
        resignFirstResponder();
}

void UITextField::touchesBeganWithEvent(UIEvent& event)
{
    const auto kept = weak_from_this().lock();
    UIControl::touchesBeganWithEvent(event);
    if (!isTracking())
        return;
    // The touch that begins the editing leaves the caret behind the text, where typing goes on.
    const auto press = isFirstResponder() ? Editor::Press::PlacesCaret : Editor::Press::BeginsEditing;
    becomeFirstResponder();
    if (isFirstResponder())
        _editor->pressAt(event.touch().locationInView(this).x, event.touch().timestamp(), press);
}

void UITextField::touchesMovedWithEvent(UIEvent& event)
{
    const auto kept = weak_from_this().lock();
    UIControl::touchesMovedWithEvent(event);
    if (isTracking() && isFirstResponder())
        _editor->dragTo(event.touch().locationInView(this).x);
}

}

#include "PhoneView.h"

#include "access/AccessibleScreen.h"
#include "access/ElementTree.h"
#include "platform/qt/TextEditor.h"
#include "platform/UIAlertView.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

// The phone by keys, input methods and assistive technologies.

namespace host {

using namespace platform;

Screen& PhoneView::screen()
{
    if (!_screen)
        _screen = std::make_unique<Screen>(_phone);
    return *_screen;
}

KeyboardFocus& PhoneView::keyboardFocus()
{
    if (!_focus)
        _focus = std::make_unique<KeyboardFocus>(screen());
    return *_focus;
}

AccessibleScreen& PhoneView::accessibleScreen()
{
    if (!_accessibleScreen)
        _accessibleScreen = std::make_unique<AccessibleScreen>(*this);
    return *_accessibleScreen;
}

void PhoneView::focusElement(const ElementId& id)
{
    setFocus();
    keyboardFocus().moveTo(id);
    placeRing();
    _refresh.start(0); // Who asked for it may not be told of changes before it is done.
}

void PhoneView::followChanges()
{
    if (_focus) {
        _focus->follow();
        placeRing();
    }
    if (_accessibleScreen && QAccessible::isActive())
        _accessibleScreen->tellChanges();
}

void PhoneView::placeRing()
{
    if (!_focus)
        return;
    const auto* const element = _isLeft ? nullptr : _focus->element();
    if (element)
        _ring.show(*this, rectFor(currentRect(*element)), rectFor(clipAround(*element)));
    else
        _ring.hide(*this);
}

void PhoneView::keyPressEvent(QKeyEvent* event)
{
    _glide.stop();
    _isLeft = false; // Keys may come without the focus where nobody manages windows.
    const bool isUsed = keyboardFocus().keyPress(*event);
    if (isUsed)
        followChanges();
    if (isUsed || sendKeyToWindow(_phone.window(), *event))
        return;
    if (event->key() == Qt::Key_Escape && !UIAlertView::topmost()) {
        if (!_phone.endEditing())
            _phone.goBack();
        return;
    }
    QWidget::keyPressEvent(event);
}

void PhoneView::inputMethodEvent(QInputMethodEvent* event)
{
    if (auto* const field = _phone.window().firstResponder())
        field->editor().inputMethod(*event);
    else
        event->ignore();
}

QVariant PhoneView::inputMethodQuery(Qt::InputMethodQuery query) const
{
    auto* const field = _phone.window().firstResponder();
    if (!field)
        return query == Qt::ImEnabled ? QVariant(false) : QWidget::inputMethodQuery(query);
    auto answer = field->editor().inputMethodQuery(query);
    if (answer.typeId() != QMetaType::QRectF && answer.typeId() != QMetaType::QRect)
        return answer;
    // Rectangles come in the field's points.
    const auto inField = answer.toRectF();
    const auto inWindow
        = field->convertRectToView({ inField.x(), inField.y(), inField.width(), inField.height() }, nullptr);
    return rectFor(inWindow);
}

void PhoneView::focusInEvent(QFocusEvent* event)
{
    _isLeft = false;
    placeRing();
    QWidget::focusInEvent(event);
}

void PhoneView::focusOutEvent(QFocusEvent* event)
{
    _isLeft = true;
    placeRing();
    QWidget::focusOutEvent(event);
}

}

#include "KeyboardFocus.h"

#include "AdjustmentKeys.h"
#include "ElementTree.h"
#include "platform/UIAlertView.h"
#include "platform/UITextField.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <cmath>

namespace host {

using namespace platform;

namespace {

bool isActivation(int key)
{
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Select;
}

}

KeyboardFocus::KeyboardFocus(Screen& screen)
    : _screen(screen)
{
}

const Element* KeyboardFocus::keysGoTo()
{
    return _screen.phone().window().firstResponder() ? current() : element();
}

void KeyboardFocus::hide(CGPoint touched)
{
    _isShown = false;
    _touchedContext = WeakObject(_screen.context());
    _touchedPoint = touched;
}

/// What the mouse touched last, if it is still there.
const Element* KeyboardFocus::touched()
{
    auto* const context = _screen.context();
    if (!context || _touchedContext.get() != context)
        return nullptr;
    const auto stops = focusableElements(_screen.root());
    const auto found = std::find_if(stops.begin(), stops.end(),
        [&](const auto* stop) { return CGRectContainsPoint(stop->rect, _touchedPoint); });
    return found == stops.end() ? nullptr : *found;
}

/// What it is at in the present context, shown or not; null when nothing has been yet, or nothing is left.
const Element* KeyboardFocus::current()
{
    auto* const context = _screen.context();
    // The field that is being edited has the keys, however that began.
    if (auto* const field = _screen.phone().window().firstResponder()) {
        if (const auto* found = findElement(_screen.root(), { WeakObject(field), ElementRole::TextField, 0 }))
            return found;
    }
    if (!_isShown) {
        if (const auto* const found = touched())
            return found;
    }
    for (const auto& place : _places) {
        if (!context || place.context.get() != context)
            continue;
        const auto* const found = findElement(_screen.root(), place.id);
        return found && takesKeyboardFocus(*found) ? found : nearest(place);
    }
    return nullptr;
}

const Element* KeyboardFocus::first()
{
    const auto stops = focusableElements(_screen.root());
    if (stops.empty())
        return nullptr;
    if (UIAlertView::topmost()) {
        const auto field = std::find_if(stops.begin(), stops.end(),
            [](const auto* stop) { return stop->id.role == ElementRole::TextField; });
        return field == stops.end() ? stops.back() : *field; // The last button stands out.
    }
    // The bar's way back comes first in order, but the page is what one has come for.
    const auto& bar = _screen.root().children.front();
    const auto inPage = std::find_if(
        stops.begin(), stops.end(), [&](const auto* stop) { return !findElement(bar, stop->id); });
    return inPage == stops.end() ? stops.front() : *inPage;
}

const Element* KeyboardFocus::nearest(const Place& place)
{
    const auto stops = focusableElements(_screen.root());
    const auto distance = [&](const Element* stop) {
        return std::hypot(stop->rect.midX() - place.rect.midX(), stop->rect.midY() - place.rect.midY());
    };
    const auto found = std::min_element(
        stops.begin(), stops.end(), [&](const auto* a, const auto* b) { return distance(a) < distance(b); });
    return found == stops.end() ? nullptr : *found;
}

bool KeyboardFocus::goTo(const Element* element)
{
    _isShown = true;
    if (!element) {
        _at.reset();
        return true;
    }
    auto* const context = _screen.context();
    const auto id = element->id;
    std::erase_if(
        _places, [&](const auto& place) { return !place.context.get() || place.context.get() == context; });
    _places.push_back({ WeakObject(context), id, element->rect });
    _screen.actions().show(Element(*element));
    // Where an alert asks for a text, one goes on typing.
    if (id.role == ElementRole::TextField && UIAlertView::topmost() == context) {
        const auto* const field = findElement(_screen.root(), id);
        if (field && _screen.phone().window().firstResponder() != id.get())
            _screen.actions().press(Element(*field));
    }
    _context = WeakObject(context);
    _at.reset();
    if (const auto* const found = findElement(_screen.root(), id)) {
        _at = *found;
        _at->children.clear();
        _places.back().rect = found->rect;
    }
    return true;
}

void KeyboardFocus::moveTo(const ElementId& id)
{
    const auto* const found = findElement(_screen.root(), id);
    if (!found || !takesKeyboardFocus(*found))
        return;
    if (auto* const field = _screen.phone().window().firstResponder(); field && field != id.get()) {
        _screen.phone().endEditing();
        _screen.invalidate();
    }
    goTo(findElement(_screen.root(), id));
}

void KeyboardFocus::follow()
{
    if (!_isShown)
        return;
    auto* const context = _screen.context();
    const auto* const view = _at && _context.get() == context ? _at->id.get() : nullptr;
    if (view && view->window())
        return;
    const auto* const now = current();
    goTo(now ? now : first());
}

bool KeyboardFocus::activate(const Element& element)
{
    _screen.actions().press(Element(element));
    follow();
    return true;
}

bool KeyboardFocus::adjust(const Element& element, const QKeyEvent& event)
{
    const auto adjustment = adjustmentFor(element, event.key(), event.modifiers());
    if (!adjustment)
        return false;
    const auto& target = adjustment->target;
    if (target.id.role == ElementRole::Segments)
        _screen.actions().chooseSegment(target, static_cast<long>(adjustment->value));
    else if (adjustment->value != target.value.value)
        _screen.actions().setValue(target, adjustment->value);
    follow();
    return true;
}

bool KeyboardFocus::keyPress(const QKeyEvent& event)
{
    const auto key = event.key();
    const bool isTab = key == Qt::Key_Tab || key == Qt::Key_Backtab;
    if (isTab && !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))) {
        const bool isBack = key == Qt::Key_Backtab || event.modifiers().testFlag(Qt::ShiftModifier);
        return moveAlongOrder(isBack ? -1 : 1);
    }
    if (isTab || _screen.phone().window().firstResponder())
        return false;
    if (key == Qt::Key_Up || key == Qt::Key_Down || _isShown) {
        const auto* const now = _isShown ? current() : nullptr;
        if (now && isActivation(key))
            return event.isAutoRepeat() || activate(*now); // A held key counts once.
        if (now && adjust(*now, event))
            return true;
        switch (key) {
        case Qt::Key_Up:
        case Qt::Key_Down:
            return moveToNeighbour(key == Qt::Key_Down ? 1 : -1);
        case Qt::Key_Home:
        case Qt::Key_End:
            return moveToEnd(key == Qt::Key_End ? 1 : -1);
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            return movePage(key == Qt::Key_PageDown ? 1 : -1);
        default:
            break;
        }
    }
    return false;
}

}

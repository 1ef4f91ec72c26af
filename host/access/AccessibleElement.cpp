#include "AccessibleElement.h"

#include "AccessibleChildren.h"
#include "AccessibleScreen.h"
#include "ElementTree.h"
#include "FieldText.h"
#include "host/PhoneView.h"

#include <QWindow>

#include <algorithm>

namespace host {

namespace {

struct RoleRule {
    ElementRole role;
    QAccessible::Role accessible;
    const QString& (*action)(); ///< What a press is called; null when it can't be pressed.
};

const QString& press()
{
    return QAccessibleActionInterface::pressAction();
}

const QString& toggle()
{
    return QAccessibleActionInterface::toggleAction();
}

constexpr RoleRule roleRules[] = {
    { ElementRole::Alert, QAccessible::AlertMessage, nullptr },
    { ElementRole::Bar, QAccessible::ToolBar, nullptr },
    { ElementRole::Page, QAccessible::List, nullptr },
    { ElementRole::Group, QAccessible::Grouping, nullptr },
    { ElementRole::Heading, QAccessible::Heading, nullptr },
    { ElementRole::Text, QAccessible::StaticText, nullptr },
    { ElementRole::Picture, QAccessible::Graphic, nullptr },
    { ElementRole::Button, QAccessible::Button, press },
    { ElementRole::Link, QAccessible::ListItem, press },
    { ElementRole::Choice, QAccessible::RadioButton, press },
    { ElementRole::Switch, QAccessible::CheckBox, toggle },
    { ElementRole::Slider, QAccessible::Slider, nullptr },
    { ElementRole::Segments, QAccessible::Grouping, nullptr },
    { ElementRole::Segment, QAccessible::RadioButton, press },
    { ElementRole::TextField, QAccessible::EditableText, press },
    { ElementRole::Field, QAccessible::Grouping, nullptr },
    { ElementRole::Axis, QAccessible::Slider, nullptr },
    { ElementRole::ColorBar, QAccessible::Slider, nullptr },
};

const RoleRule& ruleFor(ElementRole role)
{
    return *std::find_if(
        std::begin(roleRules), std::end(roleRules), [&](const auto& rule) { return rule.role == role; });
}

bool isOneOfChoices(ElementRole role)
{
    return role == ElementRole::Choice || role == ElementRole::Segment;
}

}

AccessibleElement::AccessibleElement(PhoneView& view, ElementId id)
    : _view(&view)
    , _id(std::move(id))
{
}

AccessibleScreen* AccessibleElement::screen() const
{
    return _view ? &_view->accessibleScreen() : nullptr;
}

const Element* AccessibleElement::element() const
{
    return _view && _id.get() ? screen()->screen().find(_id) : nullptr;
}

bool AccessibleElement::isValid() const
{
    return _goingFrom || element();
}

QWindow* AccessibleElement::window() const
{
    return _view ? _view->window()->windowHandle() : nullptr;
}

/// The two values of a field belong together: each tells of the field, and the field of both.
QVector<QPair<QAccessibleInterface*, QAccessible::Relation>> AccessibleElement::relations(
    QAccessible::Relation match) const
{
    QVector<QPair<QAccessibleInterface*, QAccessible::Relation>> found;
    if (_id.role == ElementRole::Axis && (match & QAccessible::Controlled)) {
        if (auto* const field = parent())
            found.append({ field, QAccessible::Controlled });
    }
    if (_id.role == ElementRole::Field && (match & QAccessible::Controller)) {
        for (int index = 0; index < childCount(); ++index)
            found.append({ child(index), QAccessible::Controller });
    }
    return found;
}

QAccessibleInterface* AccessibleElement::parent() const
{
    if (_goingFrom)
        return _goingFrom;
    return element() ? screen()->parentOf(_id) : nullptr;
}

QAccessibleInterface* AccessibleElement::child(int index) const
{
    const auto* const own = element();
    if (!own || index < 0 || index >= std::ssize(own->children))
        return nullptr;
    return screen()->interfaceFor(ElementId(own->children[static_cast<std::size_t>(index)].id));
}

int AccessibleElement::childCount() const
{
    const auto* const own = element();
    return own ? static_cast<int>(own->children.size()) : 0;
}

int AccessibleElement::indexOfChild(const QAccessibleInterface* wanted) const
{
    return indexAmongChildren(*this, wanted);
}

QAccessibleInterface* AccessibleElement::childAt(int x, int y) const
{
    return firstChildAt(*this, x, y);
}

QAccessibleInterface* AccessibleElement::focusChild() const
{
    const auto* const own = element();
    const auto* const focused = own ? screen()->focused() : nullptr;
    if (!focused || focused->id == _id || !findElement(*own, focused->id))
        return nullptr;
    return screen()->interfaceFor(ElementId(focused->id));
}

QString AccessibleElement::text(QAccessible::Text kind) const
{
    const auto* const own = element();
    if (!own)
        return {};
    switch (kind) {
    case QAccessible::Name:
        return QString::fromStdString(own->name);
    case QAccessible::Description:
        return QString::fromStdString(own->description);
    case QAccessible::Value:
        return QString::fromStdString(own->id.role == ElementRole::TextField ? own->text : own->description);
    default:
        return {};
    }
}

void AccessibleElement::setText(QAccessible::Text kind, const QString& text)
{
    if (kind == QAccessible::Value && _id.role == ElementRole::TextField)
        replaceText(0, characterCount(), text);
}

QRect AccessibleElement::rect() const
{
    const auto* const own = element();
    if (!own)
        return {};
    const auto inView = _view->rectFor(currentRect(*own)).toAlignedRect();
    return { _view->mapToGlobal(inView.topLeft()), inView.size() };
}

QAccessible::Role AccessibleElement::role() const
{
    return ruleFor(_id.role).accessible;
}

QAccessible::State AccessibleElement::state() const
{
    QAccessible::State state;
    const auto* const own = element();
    if (!own) {
        state.invalid = true;
        return state;
    }
    const auto* const focused = screen()->focused();
    state.focusable = takesKeyboardFocus(*own);
    state.focused = focused && focused->id == _id;
    state.disabled = !own->enabled;
    state.offscreen = !own->inSight;
    state.checkable = _id.role == ElementRole::Switch || isOneOfChoices(_id.role);
    state.checked = state.checkable && own->chosen;
    state.selectable = isOneOfChoices(_id.role);
    state.selected = state.selectable && own->chosen;
    state.editable = _id.role == ElementRole::TextField && own->enabled;
    state.passwordEdit = own->secret;
    state.modal = _id.role == ElementRole::Alert;
    return state;
}

void* AccessibleElement::interface_cast(QAccessible::InterfaceType type)
{
    const bool isField = _id.role == ElementRole::TextField;
    switch (type) {
    case QAccessible::ActionInterface:
        return actionNames().isEmpty() ? nullptr : static_cast<QAccessibleActionInterface*>(this);
    case QAccessible::ValueInterface:
        return hasValue(_id.role) ? static_cast<QAccessibleValueInterface*>(this) : nullptr;
    case QAccessible::TextInterface:
        return isField ? static_cast<QAccessibleTextInterface*>(this) : nullptr;
    case QAccessible::EditableTextInterface:
        return isField ? static_cast<QAccessibleEditableTextInterface*>(this) : nullptr;
    default:
        return nullptr;
    }
}

QStringList AccessibleElement::actionNames() const
{
    const auto* const own = element();
    if (!own || !own->enabled)
        return {};
    QStringList names;
    if (const auto& rule = ruleFor(_id.role); rule.action)
        names << rule.action();
    if (hasValue(_id.role))
        names << increaseAction() << decreaseAction();
    if (takesKeyboardFocus(*own))
        names << setFocusAction();
    return names;
}

void AccessibleElement::doAction(const QString& name)
{
    const auto* const own = element();
    if (!own || !actionNames().contains(name))
        return;
    const auto target = *own; // The touches change what is shown.
    auto& actions = screen()->screen().actions();
    if (name == increaseAction())
        actions.step(target, 1);
    else if (name == decreaseAction())
        actions.step(target, -1);
    else if (name == setFocusAction())
        _view->focusElement(target.id);
    else
        actions.press(target);
}

QVariant AccessibleElement::currentValue() const
{
    const auto* const own = element();
    return own ? own->value.value : 0;
}

void AccessibleElement::setCurrentValue(const QVariant& value)
{
    bool isNumber = false;
    const auto wanted = value.toDouble(&isNumber);
    if (const auto* const own = element(); own && isNumber)
        screen()->screen().actions().setValue(Element(*own), wanted);
}

QVariant AccessibleElement::maximumValue() const
{
    const auto* const own = element();
    return own ? own->value.most : 0;
}

QVariant AccessibleElement::minimumValue() const
{
    const auto* const own = element();
    return own ? own->value.least : 0;
}

QVariant AccessibleElement::minimumStepSize() const
{
    const auto* const own = element();
    return own ? own->value.step : 0;
}

}

#include "AccessibleScreen.h"

#include "AccessibleElement.h"
#include "AccessiblePhone.h"
#include "AccessibleScrollArea.h"
#include "FieldText.h"
#include "host/PhoneView.h"
#include "Screen.h"

#include <algorithm>

namespace host {

namespace {

QAccessibleInterface* makeInterface(const QString&, QObject* object)
{
    auto* const view = qobject_cast<QWidget*>(object) ? dynamic_cast<PhoneView*>(object) : nullptr;
    return view ? new AccessiblePhone(*view) : nullptr; // The toolkit owns it.
}

void tell(QAccessibleInterface& interface, QAccessible::Event what)
{
    QAccessibleEvent event(&interface, what);
    QAccessible::updateAccessibility(&event);
}

Element withoutChildren(Element element)
{
    element.children.clear();
    return element;
}

}

void AccessibleScreen::install()
{
    QAccessible::installFactory(makeInterface);
    QAccessible::installFactory(makeAccessibleScrollArea);
}

AccessibleScreen::AccessibleScreen(PhoneView& view)
    : _view(view)
{
}

AccessibleScreen::~AccessibleScreen()
{
    for (const auto& known : _known)
        QAccessible::deleteAccessibleInterface(known.number);
}

Screen& AccessibleScreen::screen()
{
    return _view.screen();
}

const Element& AccessibleScreen::root()
{
    return screen().root();
}

AccessibleScreen::Known* AccessibleScreen::known(const ElementId& id)
{
    const auto found = _knownByKey.find(ElementKey(id));
    // Where one has gone and is still known, another may lie now.
    return found == _knownByKey.end() || !(found->second->id == id) ? nullptr : found->second;
}

AccessibleScreen::Known& AccessibleScreen::makeKnown(const Element& element, const Element* parent)
{
    auto& made = _known.emplace_back();
    made.id = element.id;
    // The toolkit owns it from now on, which the linter can't see.
    made.number = QAccessible::registerAccessibleInterface(new AccessibleElement(_view, element.id));
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
    if (parent)
        made.parent = parent->id;
    made.told = withoutChildren(element);
    made.caret = caretOf(element);
    _knownByKey.insert_or_assign(ElementKey(element.id), &made);
    return made;
}

QAccessibleInterface* AccessibleScreen::interfaceFor(const ElementId& id)
{
    const auto* const place = screen().place(id);
    if (!place)
        return nullptr;
    const auto* entry = known(id);
    return QAccessible::accessibleInterface(
        entry ? entry->number : makeKnown(*place->element, place->parent).number);
}

QAccessibleInterface* AccessibleScreen::parentOf(const ElementId& id)
{
    const auto* const place = screen().place(id);
    if (!place || !place->parent)
        return nullptr;
    return place->parent == &root() ? QAccessible::queryAccessibleInterface(&_view)
                                    : interfaceFor(place->parent->id);
}

const Element* AccessibleScreen::focused()
{
    const auto* const element = _view.hasFocus() ? _view.keyboardFocus().keysGoTo() : nullptr;
    return element ? screen().find(element->id) : nullptr;
}

void AccessibleScreen::noticeNew(const Element& element)
{
    for (const auto& child : element.children) {
        if (!known(child.id))
            makeKnown(child, &element).isNew = true;
        noticeNew(child);
    }
}

void AccessibleScreen::tellText(QAccessibleInterface& interface, Known& known, const Element& now)
{
    const auto before = QString::fromStdString(known.told.text);
    const auto after = QString::fromStdString(now.text);
    if (before != after) {
        qsizetype same = 0;
        while (same < before.size() && same < after.size() && before.at(same) == after.at(same))
            ++same;
        QAccessibleTextUpdateEvent event(
            &interface, static_cast<int>(same), before.mid(same), after.mid(same));
        QAccessible::updateAccessibility(&event);
    }
    if (const auto caret = caretOf(now); caret != known.caret) {
        known.caret = caret;
        QAccessibleTextCursorEvent event(&interface, caret);
        QAccessible::updateAccessibility(&event);
    }
}

void AccessibleScreen::tellOne(Known& known, const Element& now)
{
    auto* const interface = QAccessible::accessibleInterface(known.number);
    if (!interface)
        return;
    const auto before = std::exchange(known.told, withoutChildren(now));
    if (std::exchange(known.isNew, false)) {
        tell(*interface, QAccessible::ObjectCreated);
        return;
    }
    if (before.name != now.name)
        tell(*interface, QAccessible::NameChanged);
    if (before.description != now.description)
        tell(*interface, QAccessible::DescriptionChanged);
    if (before.value.value != now.value.value) {
        QAccessibleValueChangeEvent event(interface, now.value.value);
        QAccessible::updateAccessibility(&event);
    }
    QAccessible::State changed;
    changed.checked = before.chosen != now.chosen;
    changed.disabled = before.enabled != now.enabled;
    if (changed.checked || changed.disabled) {
        QAccessibleStateChangeEvent event(interface, changed);
        QAccessible::updateAccessibility(&event);
    }
    if (now.id.role == ElementRole::TextField) {
        known.told.text = before.text;
        tellText(*interface, known, now);
        known.told.text = now.text;
    }
}

void AccessibleScreen::forgetGone(const ElementIndex& shown)
{
    const auto gone = std::stable_partition(
        _known.begin(), _known.end(), [&](const auto& known) { return shown.find(known.id) != nullptr; });
    if (gone == _known.end())
        return;
    const std::deque<Known> going(std::make_move_iterator(gone), std::make_move_iterator(_known.end()));
    _known.erase(gone, _known.end());
    _knownByKey.clear();
    for (auto& known : _known)
        _knownByKey.emplace(ElementKey(known.id), &known);
    for (const auto& known : going)
        tellGone(known);
    for (const auto& known : going)
        QAccessible::deleteAccessibleInterface(known.number);
}

/// What goes together with what holds it needs no word of its own.
void AccessibleScreen::tellGone(const Known& gone)
{
    auto* const interface = dynamic_cast<AccessibleElement*>(QAccessible::accessibleInterface(gone.number));
    const bool wasInPhone = gone.parent == root().id;
    const auto* const holder = known(gone.parent);
    auto* const parent = holder ? QAccessible::accessibleInterface(holder->number)
        : wasInPhone            ? QAccessible::queryAccessibleInterface(&_view)
                                : nullptr;
    if (!interface || !parent)
        return;
    interface->announceGoing(parent);
    tell(*interface, QAccessible::ObjectDestroyed);
}

void AccessibleScreen::tellFocus()
{
    const auto* const now = focused();
    if (!now || now->id == _focused) {
        if (!now)
            _focused = {};
        return;
    }
    _focused = now->id;
    if (auto* const interface = interfaceFor(now->id))
        tell(*interface, QAccessible::Focus);
}

void AccessibleScreen::tellChanges()
{
    const auto tree = root(); // Whoever hears of a change may ask for more, which reads the screen anew.
    const ElementIndex shown(tree);
    forgetGone(shown);
    noticeNew(tree);
    for (std::size_t index = 0; index < _known.size(); ++index) {
        if (const auto* now = shown.find(_known[index].id))
            tellOne(_known[index], *now->element);
    }
    if (auto* const context = screen().context(); _context.get() != context) {
        _context = platform::WeakObject(context);
        if (auto* const phone = QAccessible::queryAccessibleInterface(&_view))
            tell(*phone, QAccessible::DescriptionChanged);
        const auto isAlert = !tree.children.empty() && tree.children.front().id.role == ElementRole::Alert;
        if (auto* const alert = isAlert ? interfaceFor(tree.children.front().id) : nullptr)
            tell(*alert, QAccessible::Alert);
    }
    tellFocus();
}

}

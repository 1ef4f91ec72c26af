#include "AccessiblePhone.h"

#include "AccessibleChildren.h"
#include "AccessibleScreen.h"
#include "host/PhoneView.h"

namespace host {

AccessiblePhone::AccessiblePhone(PhoneView& view)
    : QAccessibleWidget(&view, QAccessible::Grouping, QStringLiteral("Phone"))
{
}

PhoneView* AccessiblePhone::view() const
{
    return static_cast<PhoneView*>(object());
}

int AccessiblePhone::childCount() const
{
    return view() ? static_cast<int>(view()->accessibleScreen().root().children.size()) : 0;
}

QAccessibleInterface* AccessiblePhone::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    auto& screen = view()->accessibleScreen();
    return screen.interfaceFor(screen.root().children[static_cast<std::size_t>(index)].id);
}

int AccessiblePhone::indexOfChild(const QAccessibleInterface* wanted) const
{
    return indexAmongChildren(*this, wanted);
}

QAccessibleInterface* AccessiblePhone::childAt(int x, int y) const
{
    return firstChildAt(*this, x, y);
}

QAccessibleInterface* AccessiblePhone::focusChild() const
{
    const auto* const focused = view() ? view()->accessibleScreen().focused() : nullptr;
    return focused ? view()->accessibleScreen().interfaceFor(focused->id) : nullptr;
}

QString AccessiblePhone::text(QAccessible::Text kind) const
{
    if (kind != QAccessible::Description || !view())
        return QAccessibleWidget::text(kind);
    const auto& children = view()->accessibleScreen().root().children;
    return children.empty() ? QString() : QString::fromStdString(children.back().name);
}

}

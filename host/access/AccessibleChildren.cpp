#include "AccessibleChildren.h"

#include <QAccessibleInterface>

namespace host {

int indexAmongChildren(const QAccessibleInterface& parent, const QAccessibleInterface* wanted)
{
    for (int index = 0; index < parent.childCount(); ++index) {
        if (parent.child(index) == wanted)
            return index;
    }
    return -1;
}

QAccessibleInterface* firstChildAt(const QAccessibleInterface& parent, int x, int y)
{
    for (int index = 0; index < parent.childCount(); ++index) {
        auto* const part = parent.child(index);
        if (part && part->rect().contains(x, y))
            return part;
    }
    return nullptr;
}

}

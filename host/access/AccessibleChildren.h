#pragma once

class QAccessibleInterface;

namespace host {

// What an object on the accessibility bus answers by asking its children in their order.

/// −1 for one that is no child.
int indexAmongChildren(const QAccessibleInterface& parent, const QAccessibleInterface* wanted);

/// The first that has this place of the screen, in pixels; null for none.
QAccessibleInterface* firstChildAt(const QAccessibleInterface& parent, int x, int y);

}

#pragma once

class QAccessibleInterface;
class QObject;
class QString;

namespace host {

/// What scrolls other controls, for assistive technologies. The toolkit's own takes every index that it is
/// asked for to be one of its children's, and crashes when the child has gone since; a scroll bar comes and
/// goes with the window's size. Null for anything else than a QScrollArea.
QAccessibleInterface* makeAccessibleScrollArea(const QString& className, QObject*);

}

#include "AccessibleScrollArea.h"

#include <QAccessibleWidget>
#include <QScrollArea>

namespace host {

QAccessibleInterface* makeAccessibleScrollArea(const QString& className, QObject* object)
{
    // The toolkit asks for the class and then for those that it is derived from.
    if (className != QLatin1String("QScrollArea"))
        return nullptr;
    auto* const area = qobject_cast<QScrollArea*>(object);
    return area ? new QAccessibleWidget(area, QAccessible::Client) : nullptr; // The toolkit owns it.
}

}

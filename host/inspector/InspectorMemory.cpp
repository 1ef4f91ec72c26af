#include "InspectorMemory.h"

#include <QSettings>
#include <QStandardPaths>

namespace host {

namespace {

constexpr int largestWidth = 4096;

constexpr auto shownKey = "shown";
constexpr auto widthKey = "width";
constexpr auto pageKey = "page";

// Asked for each time, as the environment says where it is.
QString file()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/vekora/inspector.ini");
}

}

InspectorMemory InspectorMemory::load()
{
    const QSettings settings(file(), QSettings::IniFormat);
    InspectorMemory memory;
    memory.isShown = settings.value(QLatin1String(shownKey)).toBool();
    const auto width = settings.value(QLatin1String(widthKey)).toInt();
    if (width >= Inspector::smallestWidth && width <= largestWidth)
        memory.width = width;
    memory.page = settings.value(QLatin1String(pageKey)).toString();
    return memory;
}

void InspectorMemory::save() const
{
    QSettings settings(file(), QSettings::IniFormat);
    settings.setValue(QLatin1String(shownKey), isShown);
    settings.setValue(QLatin1String(widthKey), width);
    settings.setValue(QLatin1String(pageKey), page);
}

}

#pragma once

#include <QColor>

/// Tints behind rows of the inspector, clear enough for light desktops and dark ones.
namespace host {

inline QColor addedTint()
{
    return { 52, 199, 89, 60 };
}
inline QColor changedTint()
{
    return { 255, 204, 0, 70 };
}
inline QColor removedTint()
{
    return { 255, 59, 48, 50 };
}

}

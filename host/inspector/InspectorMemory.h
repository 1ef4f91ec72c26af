#pragma once

#include "Inspector.h"

namespace host {

/// How the inspector was left, from one run to the next: kept in vekora/inspector.ini in the user's
/// configuration folder ($XDG_CONFIG_HOME, else ~/.config). What cannot be read or makes no sense is as at
/// the first run; what cannot be written is forgotten.
struct InspectorMemory {
    bool isShown = false;
    int width = Inspector::usualWidth; ///< Logical pixels.
    QString page;

    static InspectorMemory load();
    void save() const;
};

}

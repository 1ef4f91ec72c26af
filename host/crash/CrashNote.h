#pragma once

#include "host/PagePath.h"
#include "host/Phone.h"

#include <optional>
#include <QByteArray>
#include <string_view>

namespace host {

/// What a window is to come back to after a crash.
struct CrashNote {
    PhoneOptions options; ///< As the environment was; root and bundle come from the command line.
    PagePath pages;
    QByteArray geometry; ///< Of the window, as the toolkit saves it.
    std::string folderState; ///< Of the bundle's folder when the bundle was loaded.
};

std::string textFromCrashNote(const CrashNote&);
/// Nothing for a text that is none.
std::optional<CrashNote> crashNoteFromText(std::string_view, const PhoneOptions& given);

}

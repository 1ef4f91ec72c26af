#pragma once

#include "crash/CrashReport.h"
#include "Phone.h"

namespace host {

enum class Scale { AsGiven, OfTheScreen };

/// Opens the Settings application's window and runs it until it is closed; without a display it writes
/// pictures of every page instead. `recording` is a script to write what is done in it to, empty for none.
/// Returns the process's exit status; when the phone cannot be set up, or not all can be recorded, one
/// sentence on standard error says why. After a crash of a former window it comes back to where that was, but
/// with an error page, and without the bundle until that has changed; a recording has ended with the crash.
int runWindow(int argc, char** argv, PhoneOptions, Scale, const std::string& recording = {},
    const std::optional<CrashReport>& = {});

}

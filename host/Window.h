#pragma once

#include "Phone.h"

namespace host {

enum class Scale { AsGiven, OfTheScreen };

/// Opens the Settings application's window and runs it until it is closed; without a display it writes
/// pictures of every page instead. `recording` is a script to write what is done in it to, empty for none.
/// Returns the process's exit status. Throws std::runtime_error with one sentence when the phone cannot be
/// set up, or nothing can be recorded.
int runWindow(int argc, char** argv, PhoneOptions, Scale, const std::string& recording = {});

}

#pragma once

#include "Phone.h"

namespace host {

enum class Scale { AsGiven, OfTheScreen };

/// Opens the Settings application's window and runs it until it is closed; without a display it writes
/// pictures of every page instead. Returns the process's exit status. Throws std::runtime_error with one
/// sentence when the phone cannot be set up.
int runWindow(int argc, char** argv, PhoneOptions, Scale);

}

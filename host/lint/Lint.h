#pragma once

#include "host/Options.h"

namespace host {

/// Checks the bundle that the options name, and prints what is wrong with it. Returns the process's exit
/// status: 0 when nothing is, 1 when something is. Throws std::runtime_error with one sentence when it cannot
/// be checked.
int runLint(const Options&);

}

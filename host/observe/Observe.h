#pragma once

#include "host/Options.h"

namespace host {

/// `observe`: prints a line for each notification on the session bus, with what changed in the preference
/// file below the root, until it is interrupted. Returns the process's exit status. Throws std::runtime_error
/// with one sentence when there is no session bus.
int runObserve(const Options&);

}

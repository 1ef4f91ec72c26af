#pragma once

#include "host/Options.h"

namespace host {

/// `drive`: lets a script drive the pane without a window, as docs/driver.md says. Returns the process's exit
/// status: 0 when every command succeeded, 1 when one failed. Throws std::runtime_error with one sentence
/// when the script cannot be read or the phone cannot be set up.
int runDrive(const Options&);

}

#pragma once

#include "host/Options.h"

namespace host {

/// `sheet`: renders every page on many phones into one HTML file, and compares it with an earlier one if
/// asked to. Returns the process's exit status: 0 when the sheet was written, whatever changed. Throws
/// std::runtime_error with one sentence when it could not be. A signal that interrupts it ends the process,
/// once nothing is left behind.
int runSheet(const Options&);

}

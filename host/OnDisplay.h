#pragma once

#include <QApplication>

#include <memory>

namespace host {

/// Whether the environment names a display.
bool hasDisplay();

/// The toolkit's application for a run in a window. Where the display that the environment names cannot be
/// reached, the process ends with one sentence on standard error and the given status: the toolkit itself
/// would only abort. `argc` and `argv` must outlive it.
std::unique_ptr<QApplication> applicationOnDisplay(int& argc, char** argv, int statusWithoutOne);

}

#pragma once

#include <QApplication>

#include <filesystem>
#include <memory>

namespace host {

/// The toolkit's application for a run that draws in memory alone, whatever displays there are. It says
/// nothing of displays or folders that it looked for in vain, and makes none of these folders.
std::unique_ptr<QApplication> applicationWithoutDisplay();

}

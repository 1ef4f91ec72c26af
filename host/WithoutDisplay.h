#pragma once

#include <QApplication>

#include <filesystem>
#include <memory>

namespace host {

/// The toolkit's application for a run that draws in memory alone, whatever displays there are. It says
/// nothing of displays or folders that it looked for in vain. Where the environment names no folder for
/// sockets, the one that the device has below its root stands in, as the toolkit would make one of its own
/// elsewhere.
std::unique_ptr<QApplication> applicationWithoutDisplay(const std::filesystem::path& root);

}

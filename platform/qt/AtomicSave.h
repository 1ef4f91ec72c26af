#pragma once

#include "DeviceFiles.h"

namespace platform {

/// Replaces what is at a place by a regular file with these contents, in one step: a reader, or whoever
/// starts after a loss of power, finds the old or the new. A link is itself replaced. An old file's mode is
/// kept; a new file has the usual one.
///
/// False, with the reason in `errno`, leaves the old file as it was and nothing beside it. A process that is
/// killed meanwhile leaves at most two hidden files, which the next save of the same file takes away. Any
/// number of processes may save at once; the last one wins.
///
/// Where the file system can neither exchange two names nor give a file a second one, or another process is
/// saving the same file in the same moment, a folder that fails to sync is reported but keeps the new file.
bool replaceFile(const DevicePlace&, std::string_view contents);

}

#pragma once

#include "FileCalls.h"

#include <optional>
#include <string>
#include <string_view>

/// The device's file system, which lies below `Device::root` on this machine. Every step of a path is taken
/// inside it: an absolute link leads to the root, ".." stops there, and what lies outside cannot be reached.
/// Functions that fail leave the reason in `errno`.
namespace platform {

/// A name in a folder that has been found and is held open. The name is "." where the path names a folder in
/// such a way ("/", "a/", "a/..") that it has no name of its own.
struct DevicePlace {
    FileDescriptor folder;
    std::string name;
    std::string devicePath; ///< Absolute, without links, "." and "..".
};

enum class FinalLink { Follow, Keep };

/// Finds where a path leads. There need be nothing of the last name yet, but every folder before it must be
/// there. With `Follow`, the name found is none of a link.
std::optional<DevicePlace> findPlace(std::string_view devicePath, FinalLink);

/// Follows links; true for folders too.
bool fileExists(std::string_view devicePath);

/// The whole of a regular file of at most 512 MiB.
std::optional<std::string> contentsOfFile(std::string_view devicePath);

/// Where the file or folder lies on this machine, free of links, for libraries that open files by name.
std::optional<std::string> hostPath(std::string_view devicePath);

/// How a path is reported: below /private/var where the device keeps it there.
std::string reportedPath(std::string_view devicePath);

}

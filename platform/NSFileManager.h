#pragma once

#include <string_view>

namespace platform {

/// Questions about the device's files. Every path is the device's own, absolute, and is looked up below its
/// root.
class NSFileManager {
public:
    static NSFileManager& defaultManager();

    /// Follows links; true for folders too.
    bool fileExistsAtPath(std::string_view devicePath) const;
};

}

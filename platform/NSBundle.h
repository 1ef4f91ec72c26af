#pragma once

#include "Runtime.h"

#include <string>
#include <string_view>

namespace platform {

/// A folder below the device's root with an Info.plist, a loadable module and resources.
class NSBundle {
public:
    /// Reads Info.plist and loads the module, once for each folder. On failure `error` holds one sentence
    /// with the true reason (no such file, no Info.plist, no such principal class, unresolved symbol NAME).
    static std::shared_ptr<NSBundle> loadBundleAtPath(std::string_view devicePath, std::string& error);

    const std::string& path() const { return _path; } ///< The device's.
    const PropertyList& infoDictionary() const { return _info; }
    /// Never null in a loaded bundle.
    const Class* principalClass() const { return _principalClass; }

    ~NSBundle();

private:
    NSBundle() = default;

    std::string _path;
    PropertyList _info;
    const Class* _principalClass = nullptr;
    void* _module = nullptr;
};

}

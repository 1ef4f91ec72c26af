#pragma once

#include "Runtime.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// A folder below the device's root with an Info.plist, a loadable module and resources.
class NSBundle {
public:
    /// Reads Info.plist and loads the module, once for each folder while somebody holds the bundle. The last
    /// one to let go of it unloads the module, so objects of its classes have to go before, and whatever
    /// knows them weakly; a module that still has some stays in memory for as long, but its classes are not
    /// found any more. On failure `error` holds one sentence with the true reason (no such file, no
    /// Info.plist, no such principal class, unresolved symbol NAME). Another build loaded afterwards, from
    /// the same path too, shares nothing with this one.
    static std::shared_ptr<NSBundle> loadBundleAtPath(std::string_view devicePath, std::string& error);

    const std::string& path() const { return _path; } ///< The device's.
    const PropertyList& infoDictionary() const { return _info; }
    /// Never null in a loaded bundle.
    const Class* principalClass() const { return _principalClass; }

    /// Whether module and Info.plist are still the files that were loaded.
    bool isUpToDate() const;
    /// For each object that is alive and whose class lies in the module, the class's name.
    std::vector<std::string> classesOfLiveObjects() const;
    /// Where the module's code lies in memory; empty in a bundle that failed to load.
    struct CodeRange {
        std::uintptr_t begin = 0;
        std::uintptr_t end = 0;
    };
    CodeRange codeRange() const;
    /// The module's file on this machine.
    const std::string& modulePath() const;

    ~NSBundle();

    NSBundle(const NSBundle&) = delete;
    NSBundle& operator=(const NSBundle&) = delete;

private:
    NSBundle();

    std::string _path;
    PropertyList _info;
    const Class* _principalClass = nullptr;
    void* _module = nullptr;
    struct Files;
    std::unique_ptr<const Files> _files;
};

/// Loads a library for the classes that it registers, for as long as the process runs. What was loaded from
/// the same path before, below another root or in an earlier state, is let go first. False when there is none
/// or it cannot be loaded; then its classes are simply not there.
bool loadPlugIn(std::string_view devicePath);

}

#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace host {

/// The toggle framework's library on the device.
inline constexpr std::string_view toggleLibraryPath
    = "/Library/MobileSubstrate/DynamicLibraries/Flipswitch.dylib";

/// Where the parts that get installed lie on this machine.
struct InstallationSources {
    std::filesystem::path bundle; ///< The folder Vekora.bundle.
    std::filesystem::path loaderEntry; ///< Its entry in the list of settings.
    std::filesystem::path toggle; ///< The stand-in toggle framework's module.
    std::filesystem::path gallery {}; ///< The folder Gallery.bundle.

    /// As they lie around the running program: installed, or as the build lays them out.
    static InstallationSources ofThisBuild();
};

/// What a bundle's folder is called on the device, whatever it is called here: NAME.bundle.
std::string nameOfInstalled(const std::filesystem::path& folder);

/// A folder that stands for a device's file system, and what is installed in it. Everything may be done again
/// at any time, and by several processes at once: only what is missing or has changed is written, each file
/// as one step. Whatever fails throws std::runtime_error with one sentence.
class Installation {
public:
    /// Makes the root, with what a device always has, as far as it is missing.
    explicit Installation(const std::filesystem::path& root);

    /// Copies the pane's bundle and its loader entry. Returns the bundle's device path.
    std::string installPane(const InstallationSources&) const;
    /// Copies any folder NAME.bundle (".bundle" is added to another name). What an earlier one had and this
    /// one has not is removed. Returns its device path.
    std::string installBundle(const std::filesystem::path& folder) const;

    /// The toggle framework's library, and the add-on's own switch.
    void installToggle(const InstallationSources&) const;
    void removeToggle() const;

    /// Only whether the library's file is there matters.
    void installStatusBarLibrary() const;
    void removeStatusBarLibrary() const;

    const std::filesystem::path& root() const { return _root; }

private:
    std::filesystem::path _root;
};

}

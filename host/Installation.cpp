#include "Installation.h"

#include "InstalledFile.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <vector>

namespace host {

namespace fs = std::filesystem;

namespace {

constexpr std::array deviceFolders {
    "private/var/mobile/Library/Preferences",
    "private/var/tmp",
    "Library/MobileSubstrate/DynamicLibraries",
    "Library/PreferenceBundles",
    "Library/PreferenceLoader/Preferences",
    "Library/Switches",
};
constexpr auto toggleLibrary = toggleLibraryPath.substr(1);
constexpr auto toggleSwitchFolder = "Library/Switches/VekoraFS.bundle";
constexpr auto toggleSwitch = "Library/Switches/VekoraFS.bundle/VekoraFS";
constexpr auto statusBarLibrary = "Library/MobileSubstrate/DynamicLibraries/libstatusbar.dylib";

fs::path existingFolder(const fs::path& path)
{
    std::error_code error;
    auto result = fs::canonical(path, error);
    if (error || !fs::is_directory(result, error))
        throw std::runtime_error("There is no folder " + path.string() + ".");
    return result;
}

/// Files and folders below a bundle's place that its source has not, the innermost first. Hidden ones are of
/// installations under way.
std::vector<fs::path> leftovers(const fs::path& source, const fs::path& target, std::error_code& error)
{
    std::vector<fs::path> found;
    auto entries = fs::recursive_directory_iterator(target, error);
    for (const fs::recursive_directory_iterator end; !error && entries != end; entries.increment(error)) {
        const auto inside = entries->path().lexically_relative(target);
        std::error_code ignored;
        if (!inside.filename().string().starts_with('.') && !fs::exists(source / inside, ignored))
            found.push_back(inside);
    }
    std::reverse(found.begin(), found.end());
    return found;
}

/// A file takes no folder's place by itself, nor a folder a file's.
void removeOtherKind(const fs::path& root, const fs::path& place, bool isFolder)
{
    std::error_code error;
    const auto type = fs::symlink_status(root / place, error).type();
    if (type == (isFolder ? fs::file_type::regular : fs::file_type::directory))
        removeTree(root, place);
}

}

InstallationSources InstallationSources::ofThisBuild()
{
    std::error_code error;
    const auto program = fs::read_symlink("/proc/self/exe", error);
    if (error)
        throw std::runtime_error("The running program's folder cannot be found: " + error.message() + ".");
    // Installed, or as the build lays it out.
    auto folder = (program.parent_path() / VEKORA_PRIVATE_FOLDER).lexically_normal();
    if (!fs::exists(folder / "Vekora.bundle", error))
        folder = program.parent_path().parent_path();
    return {
        .bundle = folder / "Vekora.bundle",
        .loaderEntry = folder / "loader/Vekora.plist",
        .toggle = folder / "lib/Flipswitch.dylib",
        .gallery = folder / "Gallery.bundle",
    };
}

std::string nameOfInstalled(const fs::path& folder)
{
    const auto plain = folder.lexically_normal();
    return (plain.has_filename() ? plain : plain.parent_path()).stem().string() + ".bundle";
}

Installation::Installation(const fs::path& root)
{
    std::error_code error;
    fs::create_directories(root, error);
    _root = existingFolder(root);
    for (const auto* folder : deviceFolders)
        makeFolder(_root, folder);
    // Relative, so that the whole root can be moved.
    if (fs::symlink_status(_root / "var", error).type() == fs::file_type::not_found) {
        fs::create_directory_symlink("private/var", _root / "var", error);
        if (error && error != std::errc::file_exists)
            throw std::runtime_error((_root / "var").string() + " cannot be made: " + error.message() + ".");
    }
}

std::string Installation::installPane(const InstallationSources& sources) const
{
    auto path = installBundle(sources.bundle);
    installFile(sources.loaderEntry, _root, "Library/PreferenceLoader/Preferences/Vekora.plist");
    return path;
}

std::string Installation::installBundle(const fs::path& folder) const
{
    const auto source = existingFolder(folder);
    const auto place = fs::path("Library/PreferenceBundles") / nameOfInstalled(source);
    makeFolder(_root, place);
    if (fs::equivalent(source, _root / place))
        return "/" + place.string();

    std::error_code error;
    auto entries = fs::recursive_directory_iterator(source, error);
    for (const fs::recursive_directory_iterator end; !error && entries != end; entries.increment(error)) {
        const auto target = place / entries->path().lexically_relative(source);
        std::error_code ignored; // A link that leads nowhere, or round, is neither.
        const bool isFolder = entries->is_directory(ignored) && !entries->is_symlink(ignored);
        if (!isFolder && !entries->is_regular_file(ignored))
            continue;
        removeOtherKind(_root, target, isFolder);
        if (isFolder)
            makeFolder(_root, target);
        else
            installFile(entries->path(), _root, target);
    }
    if (error)
        throw std::runtime_error(source.string() + " cannot be read: " + error.message() + ".");
    for (const auto& file : leftovers(source, _root / place, error))
        removeFile(_root, place / file);
    return "/" + place.string();
}

void Installation::installToggle(const InstallationSources& sources) const
{
    makeFolder(_root, toggleSwitchFolder);
    installEmptyFile(_root, toggleSwitch);
    installFile(sources.toggle, _root, toggleLibrary);
}

void Installation::removeToggle() const
{
    removeFile(_root, toggleLibrary);
    removeFile(_root, toggleSwitch);
}

void Installation::installStatusBarLibrary() const
{
    installEmptyFile(_root, statusBarLibrary);
}

void Installation::removeStatusBarLibrary() const
{
    removeFile(_root, statusBarLibrary);
}

}

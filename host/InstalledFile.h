#pragma once

#include <filesystem>
#include <string_view>

/// Files and folders below a device's root, made only when they are missing or differ. `place` is relative to
/// the root. A link that leads out of the root is not followed. Failures throw std::runtime_error with one
/// sentence.
namespace host {

/// With the folders around it.
void makeFolder(const std::filesystem::path& root, const std::filesystem::path& place);

/// A copy with the source's mode and time of change, by which a later call sees that nothing has changed. It
/// takes the old file's place as one step. Its folder must be there.
void installFile(const std::filesystem::path& source, const std::filesystem::path& root,
    const std::filesystem::path& place);

/// The whole content, which takes the old file's place as one step. Its folder must be there.
void writeFile(
    std::string_view content, const std::filesystem::path& root, const std::filesystem::path& place);

/// What is already there, whatever it is, stays.
void installEmptyFile(const std::filesystem::path& root, const std::filesystem::path& place);

/// With everything in it, if it is a folder.
void removeTree(const std::filesystem::path& root, const std::filesystem::path& place);

/// A missing file is as good as a removed one.
void removeFile(const std::filesystem::path& root, const std::filesystem::path& place);

}

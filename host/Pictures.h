#pragma once

#include "Phone.h"

#include <filesystem>
#include <vector>

namespace host {

/// Writes the phone's window as a PNG at its scale. False when it could not be written.
[[nodiscard]] bool writePicture(const platform::UIWindow&, const std::filesystem::path&);

/// Writes a picture of every page that taps on rows lead to, each as long as its content, into a folder that
/// is made when it is missing. Returns the files in the order they were written; throws std::runtime_error
/// with one sentence.
std::vector<std::filesystem::path> writePicturesOfEveryPage(Phone&, const std::filesystem::path& folder);

}

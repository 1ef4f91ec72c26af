#pragma once

#include "Phone.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace host {

/// Writes the phone's window as a PNG at its scale. False when it could not be written.
[[nodiscard]] bool writePicture(const platform::UIWindow&, const std::filesystem::path&);

/// Calls with the number, from 1, and the title of every page that taps on rows lead to, while it is shown as
/// long as its content and the phone's picture is up to date. The phone is on the page then that it was on.
void visitEveryPage(Phone&, const std::function<void(std::size_t number, const std::string& title)>&);

/// Writes a picture of every page that taps on rows lead to, each as long as its content, into a folder that
/// is made when it is missing. Returns the files in the order they were written; throws std::runtime_error
/// with one sentence.
std::vector<std::filesystem::path> writePicturesOfEveryPage(Phone&, const std::filesystem::path& folder);

}

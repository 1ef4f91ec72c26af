#pragma once

#include <string>

namespace host {

/// What lies in a bundle's folder, hidden files left out, as one short text, however much it is: another one
/// whenever a file in it was written, replaced, added or removed. Empty without a folder.
std::string stateOfFolder(const std::string& folder);

/// Whether everything that belongs to a bundle seems to be there, and to be written to its end. A linker that
/// is at work, or tools that copy one file after the other, are given time; what has stayed like this is a
/// mistake, and loading the bundle tells what is wrong.
bool isComplete(const std::string& folder);

}

#pragma once

#include <string>

/// What is installed beside the program for those who use it from a shell, from the same tables as `--help`.
namespace host {

/// For man(1), section 1.
std::string manualPage();

std::string bashCompletion();
std::string zshCompletion();
std::string fishCompletion();

}

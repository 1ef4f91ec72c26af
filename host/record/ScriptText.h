#pragma once

#include "host/Phone.h"

#include <string>
#include <string_view>

/// The driver's script as text, so that reading it gives the very same words and numbers.
namespace host {

/// Whether a line can hold it: UTF-8 without control characters.
bool fitsInScript(std::string_view text);
/// In double quotation marks.
std::string scriptWord(std::string_view text);
/// As many digits as it takes to read the same number again.
std::string scriptNumber(double);
/// COMMAND X Y, with the line's end.
std::string scriptLine(std::string_view command, platform::CGPoint);

/// The comment that a recording begins with: how to replay it.
std::string recordingHeader(const PhoneOptions&, const std::string& file);

}

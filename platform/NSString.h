#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// How the platform's strings read as numbers: leading ASCII white space is passed over, then the longest
/// number is read, and what follows is ignored. No locale has a part in it.
namespace platform {

/// Digits with "." and an optional exponent. No number is 0; too large is an infinity of its sign. The words
/// "inf" and "nan", hexadecimal and a dangling exponent ("1e") read as 0.
double doubleValue(std::string_view);
float floatValue(std::string_view);

/// Sign and digits, pinned to 32 bits; no number is 0.
std::int32_t intValue(std::string_view);

/// After blanks, one sign and zeros: on for a leading Y, y, T, t or 1 to 9. A sign before a letter is off.
bool boolValue(std::string_view);

/// ASCII letters in upper case; all else as it is.
std::string uppercaseString(std::string_view);

/// Every one of the characters is taken off both ends.
std::string stringByTrimmingCharactersInSet(std::string_view, std::string_view characters);

/// As C's snprintf, into a string of whatever length is needed.
[[gnu::format(printf, 1, 2)]] std::string stringWithFormat(const char* format, ...);

}

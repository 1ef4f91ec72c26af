#pragma once

#include "../PropertyValue.h"

namespace platform {

/// Reads a list in the form older than XML: a dictionary in braces, or the bare entries of a file of strings.
///
///     { key = "value"; list = ( a, b ); data = <0fbd 77>; inner = { }; }
///     /* A comment. */ "key" = "value"; // And another.
///
/// Every value is a text, or data, or holds such; `key;` alone stands for `key = key;`. A text goes without
/// quotes when it is all ASCII letters, digits and `_ $ / : . -`. In quotes (`"` or `'`) stand the escapes of
/// C, octal ones for ASCII alone, and \U with up to four hexadecimal digits for a UTF-16 unit.
///
/// Nothing when anything in it is malformed, is no UTF-8 or is nested too deeply. Such lists are only read.
std::optional<PropertyValue> parseOldStylePropertyList(std::string_view file);

}

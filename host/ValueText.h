#pragma once

#include "platform/PropertyValue.h"

#include <span>
#include <string>
#include <string_view>
#include <variant>

/// A preference's value as a line of text that can be read and edited, and back.
namespace host {

/// As the tables call it: "boolean", "integer", "real", "string", "date", "data", "array", "dictionary".
std::string_view typeName(const platform::PropertyValue&);
/// All of them, in that order.
std::span<const std::string_view> typeNames();

/// Booleans as true and false, dates in ISO 8601 as the device's wall time with its offset, data as
/// hexadecimal digits, arrays and dictionaries as the elements of an XML property list.
std::string textFromValue(const platform::PropertyValue&);

/// A text in quotation marks, for a sentence: of a long one the beginning.
std::string quotedInSentence(std::string_view);

/// Reads such a text as a value of the type; blanks around it count in strings only. Else one sentence that
/// says what the text should have been. Also taken: yes, no, on, off, 1 and 0 for booleans, dates in every
/// form of Instant.h, blanks between the digits of data.
std::variant<platform::PropertyValue, std::string> valueFromText(
    std::string_view typeName, std::string_view text);

}

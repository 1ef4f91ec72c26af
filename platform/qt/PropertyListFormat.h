#pragma once

#include "../PropertyValue.h"

/// The formats of property-list files. Reading is all or nothing: one malformed element spoils the whole
/// list.
namespace platform {

/// Containers within containers, the root included. Deeper lists are neither read nor written.
constexpr int deepestNesting = 512;

/// A binary list, told by how it begins, else an XML list, else one of the old style. An empty or blank file
/// is an empty dictionary.
///
/// Integers past the signed 64 bits are read as reals, and a keyed archive's UID as the dictionary
/// { "CF$UID": number } that stands for one in XML.
std::optional<PropertyValue> parsePropertyList(std::string_view file);

std::optional<PropertyValue> parseXmlPropertyList(std::string_view file);
std::optional<PropertyValue> parseBinaryPropertyList(std::string_view file);

/// A whole XML file. Dates lose their fraction of a second. Nothing for what XML cannot hold: texts that are
/// no UTF-8 or have control characters, dates that are not in the years 0 to 9999.
std::optional<std::string> xmlFromPropertyList(const PropertyList&);

/// Whether a binary list is whole, every value in it well-formed, and no larger in memory than its file
/// suggests: a small file can name one container so often that it would fill any memory.
bool binaryPropertyListIsSound(std::string_view file);

}

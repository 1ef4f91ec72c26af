#pragma once

#include "PropertyValue.h"

namespace platform {

/// A property-list dictionary that is read from and written to files below the device's root.
class NSMutableDictionary {
public:
    NSMutableDictionary() = default;
    NSMutableDictionary(PropertyList entries)
        : _entries(std::move(entries))
    {
    }

    /// Reads an XML, binary or old-style property list, or a file of strings; the latter two hold texts where
    /// others hold numbers. Nothing when there is no such file, or it cannot be read, is malformed anywhere,
    /// or its root is no dictionary. An empty or blank file is an empty dictionary.
    static std::optional<NSMutableDictionary> dictionaryWithContentsOfFile(std::string_view devicePath);

    /// Null when there is none.
    const PropertyValue* objectForKey(std::string_view key) const;
    void setObjectForKey(PropertyValue, std::string_view key);
    /// Nothing removes the key.
    void setValueForKey(std::optional<PropertyValue>, std::string_view key);
    void removeObjectForKey(std::string_view key);

    /// Writes XML. The file is replaced as one step or left as it was, here also without `atomically`; an
    /// existing file's mode is kept, and a link is itself replaced. False when it could not be written, or
    /// holds what XML cannot: control characters, texts that are no UTF-8, dates outside the years 0 to 9999.
    /// The old file is then still there, whole.
    bool writeToFileAtomically(std::string_view devicePath, bool atomically) const;

    const PropertyList& entries() const { return _entries; }

private:
    PropertyList _entries;
};

}

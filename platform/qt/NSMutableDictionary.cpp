#include "../NSMutableDictionary.h"

#include "../Journal.h"
#include "AtomicSave.h"
#include "PropertyListFormat.h"

namespace platform {

std::optional<NSMutableDictionary> NSMutableDictionary::dictionaryWithContentsOfFile(
    std::string_view devicePath)
{
    const auto file = contentsOfFile(devicePath);
    if (!file)
        return std::nullopt;
    auto root = parsePropertyList(*file);
    if (!root || !root->dictionary())
        return std::nullopt;
    return NSMutableDictionary(*root->dictionary());
}

const PropertyValue* NSMutableDictionary::objectForKey(std::string_view key) const
{
    const auto found = _entries.find(key);
    return found == _entries.end() ? nullptr : &found->second;
}

void NSMutableDictionary::setObjectForKey(PropertyValue value, std::string_view key)
{
    _entries.insert_or_assign(std::string(key), std::move(value));
}

void NSMutableDictionary::setValueForKey(std::optional<PropertyValue> value, std::string_view key)
{
    if (value)
        setObjectForKey(std::move(*value), key);
    else
        removeObjectForKey(key);
}

void NSMutableDictionary::removeObjectForKey(std::string_view key)
{
    if (const auto found = _entries.find(key); found != _entries.end())
        _entries.erase(found);
}

bool NSMutableDictionary::writeToFileAtomically(std::string_view devicePath, bool) const
{
    bool succeeded = false;
    // The whole list is looked at before any file is touched.
    if (const auto xml = xmlFromPropertyList(_entries)) {
        const auto place = findPlace(devicePath, FinalLink::Keep);
        succeeded = place && replaceFile(*place, *xml);
    }
    if (const auto& journal = Journal::shared(); journal.isHeard()) {
        journal.record({
            .kind = JournalEntry::Kind::Write,
            .name = reportedPath(devicePath),
            .succeeded = succeeded,
        });
    }
    return succeeded;
}

}

#include "LoaderEntry.h"

#include "platform/NSFileManager.h"
#include "platform/NSMutableDictionary.h"

namespace host {

namespace {

std::string textUnder(const platform::PropertyList& list, std::string_view key)
{
    const auto found = list.find(key);
    const auto* text = found == list.end() ? nullptr : found->second.string();
    return text ? *text : std::string();
}

}

std::optional<LoaderEntry> loaderEntryNamed(std::string_view name)
{
    const auto file = platform::NSMutableDictionary::dictionaryWithContentsOfFile(
        "/Library/PreferenceLoader/Preferences/" + std::string(name) + ".plist");
    const auto* value = file ? file->objectForKey("entry") : nullptr;
    const auto* entry = value ? value->dictionary() : nullptr;
    if (!entry)
        return std::nullopt;
    const auto bundle = textUnder(*entry, "bundle");
    for (const auto& path :
        { textUnder(*entry, "bundlePath"), "/Library/PreferenceBundles/" + bundle + ".bundle",
            "/System/Library/PreferenceBundles/" + bundle + ".bundle" }) {
        if (!path.empty() && platform::NSFileManager::defaultManager().fileExistsAtPath(path))
            return LoaderEntry { path, textUnder(*entry, "label") };
    }
    return std::nullopt;
}

}

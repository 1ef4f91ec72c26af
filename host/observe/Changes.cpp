#include "Changes.h"

#include "host/driver/Json.h"

#include <algorithm>
#include <set>

namespace host {

using namespace platform;

namespace {

const PropertyValue* valueOf(const PropertyList& list, const std::string& key)
{
    const auto found = list.find(key);
    return found == list.end() ? nullptr : &found->second;
}

std::string describe(const PropertyValue* value)
{
    return value ? textFromJson(jsonFromValue(*value)) : "absent";
}

}

std::string describeChanges(const PropertyList& before, const PropertyList& after)
{
    std::set<std::string> keys;
    for (const auto* list : { &before, &after }) {
        for (const auto& [key, value] : *list)
            keys.insert(key);
    }
    std::string text;
    for (const auto& key : keys) {
        const auto* old = valueOf(before, key);
        const auto* now = valueOf(after, key);
        if (old && now && *old == *now)
            continue;
        text += (text.empty() ? "" : ", ") + textFromJson(jsonFromText(key)) + ": " + describe(old) + " -> "
            + describe(now);
    }
    return text.empty() ? "no change" : text;
}

std::string observationLine(
    std::string_view time, std::string_view name, const PropertyList& before, const PropertyList& after)
{
    std::string word(name);
    std::replace_if(
        word.begin(), word.end(), [](unsigned char byte) { return byte <= ' ' || byte == 127; }, '?');
    return std::string(time) + " " + word + " " + describeChanges(before, after) + "\n";
}

}

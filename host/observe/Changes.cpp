#include "Changes.h"

#include "host/driver/Json.h"

#include <algorithm>

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

std::vector<std::string> changedKeys(const PropertyList& before, const PropertyList& after)
{
    std::vector<std::string> keys;
    for (auto old = before.begin(), now = after.begin(); old != before.end() || now != after.end();) {
        const bool isGone = now == after.end() || (old != before.end() && old->first < now->first);
        const bool isNew = old == before.end() || (now != after.end() && now->first < old->first);
        if (isGone || isNew || !(old->second == now->second))
            keys.push_back(isNew ? now->first : old->first);
        if (!isNew)
            ++old;
        if (!isGone)
            ++now;
    }
    return keys;
}

std::string describeChanges(const PropertyList& before, const PropertyList& after)
{
    std::string text;
    for (const auto& key : changedKeys(before, after)) {
        text += (text.empty() ? "" : ", ") + textFromJson(jsonFromText(key)) + ": "
            + describe(valueOf(before, key)) + " -> " + describe(valueOf(after, key));
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

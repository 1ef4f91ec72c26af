#include "PreferenceState.h"

#include "platform/CFNotificationCenter.h"
#include "platform/NSMutableDictionary.h"
#include "platform/qt/DeviceFiles.h"
#include "platform/qt/PropertyListFormat.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace host {

using namespace platform;

namespace {

std::string reasonOf(int error)
{
    return std::generic_category().message(error);
}

void postChange(std::string_view devicePath)
{
    const auto name = std::filesystem::path(devicePath).stem().string() + "/preferences";
    CFNotificationCenterPostNotification(
        CFNotificationCenterGetDarwinNotifyCenter(), name, nullptr, nullptr, true);
}

}

PreferenceState PreferenceState::ofFile(std::string_view devicePath)
{
    errno = 0;
    const auto contents = contentsOfFile(devicePath);
    if (!contents && errno == ENOENT)
        return {};
    if (!contents)
        return { .kind = Kind::Unreadable, .reason = errno ? reasonOf(errno) : "It is no regular file" };
    const auto root = parsePropertyList(*contents);
    if (!root || !root->dictionary())
        return { .kind = Kind::Broken };
    return { .kind = Kind::Whole, .entries = *root->dictionary() };
}

std::string PreferenceState::description() const
{
    switch (kind) {
    case Kind::Missing:
        return "There is no file; the pane takes it for an empty one.";
    case Kind::Unreadable:
        return "The file cannot be read (" + reason + "); the pane takes it for an empty one.";
    case Kind::Broken:
        return "The file is no whole property list with a dictionary; the pane takes it for an empty one.";
    case Kind::Whole:
        break;
    }
    if (entries.empty())
        return "The file is there, and empty.";
    return std::to_string(entries.size()) + (entries.size() == 1 ? " key." : " keys.");
}

std::string storePreference(
    std::string_view devicePath, const std::string& key, std::optional<PropertyValue> value)
{
    auto state = PreferenceState::ofFile(devicePath);
    if (state.kind == PreferenceState::Kind::Unreadable || state.kind == PreferenceState::Kind::Broken)
        return "The file cannot be read and was left as it is; Reset deletes it.";
    NSMutableDictionary dictionary(std::move(state.entries));
    dictionary.setValueForKey(std::move(value), key);
    if (!dictionary.writeToFileAtomically(devicePath, true))
        return "The file could not be written and is as it was.";
    postChange(devicePath);
    return {};
}

std::string deletePreferences(std::string_view devicePath)
{
    const auto place = findPlace(devicePath, FinalLink::Keep);
    if (place && removeIn(place->folder, place->name)) {
        postChange(devicePath);
        return {};
    }
    return errno == ENOENT ? std::string() : "The file could not be deleted (" + reasonOf(errno) + ").";
}

}

#include "PreferenceFile.h"

#include "platform/NSBundle.h"
#include "platform/PSListController.h"

namespace host {

using namespace platform;

namespace {

constexpr std::string_view ownDomain = "net.morvane.vekora";

std::string pathOf(std::string_view domain)
{
    return "/private/var/mobile/Library/Preferences/" + std::string(domain) + ".plist";
}

std::string& path()
{
    static auto path = pathOf(ownDomain);
    return path;
}

}

const std::string& preferenceFile()
{
    return path();
}

void setPreferenceDomain(std::string_view domain)
{
    path() = pathOf(domain.empty() ? ownDomain : domain);
}

std::string preferenceDomainOf(const NSBundle& bundle, PSListController* firstPage)
{
    if (firstPage) {
        for (const auto& row : firstPage->specifiers()) {
            if (auto domain = row ? row->textForKey("defaults") : std::string(); !domain.empty())
                return domain;
        }
    }
    const auto& info = bundle.infoDictionary();
    const auto identifier = info.find("CFBundleIdentifier");
    const auto* const text = identifier == info.end() ? nullptr : identifier->second.string();
    return text ? *text : std::string();
}

}

#pragma once

#include <string_view>

namespace host {

/// The device's path of the file that the driver shows and the observer watches.
inline constexpr std::string_view preferenceFile
    = "/private/var/mobile/Library/Preferences/net.morvane.vekora.plist";

}

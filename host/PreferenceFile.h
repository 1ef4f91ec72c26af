#pragma once

#include <string>
#include <string_view>

namespace platform {
class NSBundle;
class PSListController;
}

namespace host {

/// The device's path of the preference file that is looked at: `prefs`, the inspector, faults, the observer.
/// The project's own pane's until something else is said. One for the process, as there is one device.
const std::string& preferenceFile();

/// Looks at another file from now on, by its domain as rows' "defaults" name it; at the own pane's for an
/// empty one.
void setPreferenceDomain(std::string_view domain);

/// Where a bundle most likely keeps its values: the first "defaults" among the rows of its first page (null
/// for a page without rows), else the bundle's identifier.
std::string preferenceDomainOf(const platform::NSBundle&, platform::PSListController* firstPage);

}

#pragma once

#include "CallHooks.h"
#include "DeviceFixture.h"
#include "platform/PropertyValue.h"

#include <iosfwd>
#include <optional>
#include <set>
#include <string>
#include <sys/stat.h>

namespace platform::tests {

/// What stands under the name before a save.
enum class Before { Nothing, File, Link };

std::ostream& operator<<(std::ostream&, Before);

/// A preference file, or none, and saves into its place.
class AtomicSave : public DeviceTest {
protected:
    static constexpr const char* path = "/var/mobile/Library/Preferences/test.plist";
    const PropertyList oldList { { "state", "old" } };
    const PropertyList newList { { "state", "new" }, { "more", std::string(20000, 'x') } };

    std::filesystem::path file() const { return preferences() / "test.plist"; }
    std::filesystem::path target() const { return preferences() / "target.plist"; }

    /// The file holds the old list, as does what a link leads to.
    void prepare(Before);
    static bool save(const PropertyList&);
    static std::optional<PropertyList> load();
    /// Of all that lies in the file's folder.
    std::set<std::string> names() const;
    mode_t mode() const;

    /// Everything is as it was prepared.
    void expectUntouched(Before) const;
    /// The new list is there, and nothing else that was not there before.
    void expectSaved(Before) const;
    /// Every call of a save fails in turn, with every error; then the same once more with the next call.
    void failEachCallInTurn();
};

}

#pragma once

#include "host/Phone.h"

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// A way to bring a fresh phone to what is to be seen.
struct SheetState {
    std::string_view name;
    bool everyPage = false; ///< Every page that rows lead to from there; otherwise the one that is shown.
    bool toggle = false;
    bool statusBar = false;
    std::string_view preferences = {}; ///< The preference file's dictionary, in XML; empty for no file.
    std::string_view script = {}; ///< Commands of the driver, one a line.
};

/// What a sheet shows: every state on each phone, scale and locale.
struct SheetPlan {
    std::vector<platform::CGSize> phones;
    std::vector<int> scales;
    std::vector<std::string> locales;
    std::vector<SheetState> states;
    std::string bundle; ///< A folder on this machine; empty for the project's own.

    /// One phone to render.
    struct Job {
        std::size_t state, phone, scale, locale; ///< Indexes of the above.
    };
    std::vector<Job> jobs() const;
    /// A job by its index, as "Fresh, 320x480 at 2x, en_US", for a sentence about it.
    std::string textOf(std::size_t job) const;
    static std::string textOfBeginning(); ///< Before there is one.

    static std::vector<platform::CGSize> usualPhones();
    static std::vector<std::string> usualLocales();
    /// Of the project's own pane; another bundle has those that need no knowledge of it.
    static std::vector<SheetState> usualStates(bool ownPane);
};

/// As "320x480".
std::string textOfSize(platform::CGSize);

}

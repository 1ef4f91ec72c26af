#pragma once

#include "CrashReport.h"

namespace host {

/// A crash as it is told to people.
struct CrashStory {
    bool isBundles = false; ///< Else it is the host's own.
    bool isEndless = false; ///< Nothing broke, but it had to be stopped.
    std::string who; ///< "Pane.bundle", or "Settings" for the host itself.
    /// What went wrong and during what, as the end of a sentence that begins with "it".
    std::string reason;
    /// The functions that were being called, the innermost first: "in a::b()", "called by c::d()". Without
    /// those of the system and its toolkit; of others than the bundle's, the library is told.
    std::vector<std::string> places;
    std::size_t mainPlaces = 0; ///< How many of them, from the first, say most.

    /// "Pane.bundle crashed", or that it was stopped.
    std::string heading() const;
    /// One sentence with the main places.
    std::string sentence() const;
};

/// `root` is the folder that stands for the device's file system: what is loaded from it is a bundle's. A
/// crash is the bundle's when one of its functions was being called, whichever function it called; and when
/// the bundle of this name was being loaded, as the fault is its file's then.
CrashStory tellCrash(const CrashReport&, const std::string& root, const std::string& bundle);

}

#pragma once

#include "platform/PropertyValue.h"

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// The keys that only one of two states has or that have another value in each, in their order. Values differ
/// when their kinds do: true and 1 are two values.
std::vector<std::string> changedKeys(
    const platform::PropertyList& before, const platform::PropertyList& after);

/// Which keys differ between two states of a dictionary and from what to what, as
/// `"KEY": OLD -> NEW, "KEY": OLD -> NEW` in the order of the keys: values in JSON, with the word `absent`
/// for none; `no change` when nothing differs.
std::string describeChanges(const platform::PropertyList& before, const platform::PropertyList& after);

/// The observer's line for a notification: its time, its name and the changes, with the line's end. Blanks
/// and control characters in the name are shown as "?", so that it stays one word.
std::string observationLine(std::string_view time, std::string_view name,
    const platform::PropertyList& before, const platform::PropertyList& after);

}

#pragma once

#include "Apart.h"
#include "BundleContents.h"

#include <set>

namespace host {

/// What the walk is about to do, told beforehand: if nothing follows, it went wrong there.
struct WalkStep {
    std::string name; ///< Its own; by it a later walk passes it over.
    std::string file;
    std::string place;
    std::string doing; ///< As "its page was opened".
};

/// Loads the bundle below the root, opens every page that its rows lead to, and tells what it sees as records
/// that `BundleFacts` takes in. Steps whose names are in `skipped` are passed over.
void walkPages(const BundleContents&, const std::filesystem::path& root, const std::set<std::string>& skipped,
    const RecordWriter& tell);

}

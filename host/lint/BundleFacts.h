#pragma once

#include "BundleContents.h"

#include <map>
#include <set>

namespace host {

/// What a row of a resource was seen to be, on the page that shows it.
struct RowFacts {
    std::string target; ///< The class that is asked for its value and carries out its action.
    std::map<std::string, bool>
        answers; ///< By the row's key that names a selector: whether the target has it.
    std::set<std::string> givenInCode; ///< What the page adds: "action", "detail", "key", "name", "values".
    bool storesNothing = false; ///< It has a key and no "defaults", and its page takes no care of it.
};

/// What is found out about a bundle by loading its module and opening its pages.
struct BundleFacts {
    bool moduleIsLoaded = false;
    std::set<std::string> classes; ///< Those named in the resources that there are.
    std::set<std::string> selectors; ///< Those named in the resources that any class has.
    std::map<std::pair<std::size_t, std::size_t>, RowFacts> rows; ///< By resource and row.
    /// Width and height in pixels of each image; both 0 for one that cannot be decoded.
    std::map<std::string, std::pair<int, int>> images;
    Findings findings; ///< Of what could not be loaded, opened or made.
};

/// Names of classes and selectors that a row may hold, by its keys.
inline constexpr std::string_view classKeys[]
    = { "cellClass", "detail", "footerCellClass", "headerCellClass" };
inline constexpr std::string_view selectorKeys[]
    = { "action", "get", "set", "titlesDataSource", "valuesDataSource" };

/// Loads and opens the bundle in child processes, below a scratch root that is gone afterwards.
BundleFacts inspectBundle(const BundleContents&);

}

#pragma once

#include "Finding.h"
#include "platform/PropertyValue.h"

#include <filesystem>
#include <optional>

namespace host {

/// A property list of a bundle that describes rows.
struct RowResource {
    std::string file; ///< Relative to the bundle's folder.
    platform::PropertyList root;

    /// The rows' places in "items" begin at 0; what is no dictionary there is no row.
    std::size_t size() const;
    const platform::PropertyList* row(std::size_t index) const;
};

/// What lies in a bundle's folder, read without carrying any of it out.
struct BundleContents {
    std::filesystem::path folder; ///< Absolute.
    std::optional<platform::PropertyList> info; ///< Nothing when Info.plist cannot be read.
    std::vector<RowResource> resources; ///< By name.
    std::vector<std::string> images; ///< Relative to the folder, by name.
    Findings unreadable; ///< Files that hold nothing of what their names promise.

    /// Throws std::runtime_error with one sentence when there is no such folder.
    explicit BundleContents(const std::filesystem::path& folder);

    /// Of Info.plist; empty when there is none, or it is no text.
    std::string infoText(std::string_view key) const;
};

/// Null when there is none, or it is of another kind.
const std::string* textUnder(const platform::PropertyList&, std::string_view key);
const platform::PropertyArray* arrayUnder(const platform::PropertyList&, std::string_view key);

/// `row 2 "Volume" (PSSliderCell)`: its number counted from 1, its label, identifier or key where it has one,
/// and its cell.
std::string placeOfRow(const RowResource&, std::size_t index);

}

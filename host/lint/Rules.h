#pragma once

#include "BundleFacts.h"
#include "platform/PSCellName.h"

#include <functional>
#include <span>

namespace host {

/// A row and all that is known about it.
struct RowCase {
    const BundleContents& contents;
    const BundleFacts& bundle;
    const RowResource& resource;
    const platform::PropertyList& item;
    const RowFacts& facts; ///< Empty when no page was seen to show it.
    const platform::PSCellName* cell; ///< Null when it names none that is known.

    bool has(std::string_view key) const { return item.contains(key); }
    /// In the resource, or added by its page.
    bool isGiven(std::string_view key) const;
    /// The page draws and uses such a row as it likes.
    bool isOfItsOwnClass() const { return has("cellClass"); }
    bool is(std::initializer_list<platform::PSCellType>) const;
};

/// Takes a finding's reason, without a full stop.
class RowReport {
public:
    using Take = std::function<void(std::string reason, Finding::Weight)>;

    explicit RowReport(Take take)
        : _take(std::move(take))
    {
    }
    void wrong(std::string reason) const { _take(std::move(reason), Finding::Weight::Wrong); }
    void remark(std::string reason) const { _take(std::move(reason), Finding::Weight::Remark); }

private:
    Take _take;
};

using RowRule = void (*)(const RowCase&, const RowReport&);

/// What is asked of each row by itself, in this order.
std::span<const RowRule> keyRules(); ///< That keys hold what is read from them.
std::span<const RowRule> nameRules(); ///< That cells, classes and selectors are there.
std::span<const RowRule> valueRules(); ///< That a value can be shown, chosen and stored.
std::span<const RowRule> iconRules(); ///< That icons are there and fit their rows.

/// What is asked of rows together: identifiers and keys that two of them share.
void checkSharedNames(const BundleContents&, const RowResource&, Findings&);
void checkInfo(const BundleContents&, Findings&);
void checkImages(const BundleContents&, const BundleFacts&, Findings&);

/// Whether a text begins with a number, as a slider's bounds may.
bool readsAsNumber(const std::string&);

/// In quotation marks.
std::string inQuotes(std::string_view);

}

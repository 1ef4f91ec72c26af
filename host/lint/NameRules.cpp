#include "Rules.h"

#include <algorithm>
#include <map>

namespace host {

using namespace platform;

namespace {

/// Registered by the toggle's library where that is installed; a pane may count on it and do without.
constexpr std::string_view optionalClasses[] = { "FSSwitchPanel" };

/// Kinds whose look the layer does not have.
constexpr PSCellType shownAsText[] = { PSCellType::GiantIcon, PSCellType::Giant, PSCellType::Spinner };

struct NameKey {
    std::string_view key;
    std::string_view called;
};

constexpr NameKey classNames[] = {
    { "cellClass", "cell class" },
    { "detail", "detail class" },
    { "footerCellClass", "footer's cell class" },
    { "headerCellClass", "header's cell class" },
};

constexpr NameKey selectorNames[] = {
    { "action", "action" },
    { "get", "getter" },
    { "set", "setter" },
    { "titlesDataSource", "source of titles" },
    { "valuesDataSource", "source of values" },
};

void checkCell(const RowCase& row, const RowReport& report)
{
    const auto* cell = textUnder(row.item, "cell");
    if (row.cell) {
        const bool asText = std::find(std::begin(shownAsText), std::end(shownAsText), row.cell->type)
            != std::end(shownAsText);
        if (asText && !row.isOfItsOwnClass())
            report.remark("a " + *cell + " is shown as a row of text here");
    } else if (cell) {
        report.wrong("there is no cell " + inQuotes(*cell) + "; it is shown as a row of text");
    } else if (!row.has("cell")) {
        report.wrong("has no \"cell\"; it is shown as a row of text");
    }
}

void checkClasses(const RowCase& row, const RowReport& report)
{
    for (const auto& [key, called] : classNames) {
        const auto* name = textUnder(row.item, key);
        const bool isOptional = name
            && std::find(std::begin(optionalClasses), std::end(optionalClasses), *name)
                != std::end(optionalClasses);
        if (row.bundle.moduleIsLoaded && name && !isOptional && !row.bundle.classes.contains(*name))
            report.wrong("names the " + std::string(called) + ' ' + inQuotes(*name)
                + ", which the module does not have");
    }
}

void checkSelectors(const RowCase& row, const RowReport& report)
{
    for (const auto& [key, called] : selectorNames) {
        const auto* selector = textUnder(row.item, key);
        if (!selector || !row.bundle.moduleIsLoaded)
            continue;
        const auto seen = row.facts.answers.find(std::string(key));
        if (seen == row.facts.answers.end() && !row.bundle.selectors.contains(*selector))
            report.wrong("names the " + std::string(called) + ' ' + inQuotes(*selector)
                + ", which no class of the module has");
        else if (seen != row.facts.answers.end() && !seen->second)
            report.wrong("names the " + std::string(called) + ' ' + inQuotes(*selector) + ", which "
                + row.facts.target + " does not have");
    }
}

void checkTap(const RowCase& row, const RowReport& report)
{
    if (row.isOfItsOwnClass())
        return;
    if (row.is({ PSCellType::Button }) && !row.isGiven("action"))
        report.wrong("has no \"action\": a tap does nothing");
    if (row.is({ PSCellType::Link }) && !row.isGiven("action") && !row.isGiven("detail"))
        report.wrong("has no \"detail\": a tap opens nothing");
    if (row.is({ PSCellType::Button, PSCellType::Link, PSCellType::LinkList }) && !row.has("label")
        && !row.facts.givenInCode.contains("name"))
        report.wrong("has no \"label\": the row is blank");
}

constexpr RowRule rules[] = { checkCell, checkTap, checkClasses, checkSelectors };

/// What rows are looked up by, as `PSSpecifier::identifier` has it; labels alone are nobody's key.
const std::string* identifierOf(const PropertyList& row)
{
    const auto* id = textUnder(row, "id");
    return id ? id : textUnder(row, "key");
}

}

std::span<const RowRule> nameRules()
{
    return rules;
}

bool RowCase::isGiven(std::string_view key) const
{
    const auto* text = textUnder(item, key);
    return (text && !text->empty()) || facts.givenInCode.contains(std::string(key));
}

bool RowCase::is(std::initializer_list<PSCellType> types) const
{
    return cell && std::find(types.begin(), types.end(), cell->type) != types.end();
}

// Of rows with one identifier only the first is found. Rows with one key are allowed, but show old values.
void checkSharedNames(const BundleContents&, const RowResource& resource, Findings& findings)
{
    std::map<std::string, std::size_t> identifiers;
    std::map<std::pair<std::string, std::string>, std::size_t> keys;
    for (std::size_t index = 0; index < resource.size(); ++index) {
        const auto* row = resource.row(index);
        if (!row)
            continue;
        const auto* identifier = identifierOf(*row);
        const auto* key = textUnder(*row, "key");
        const auto* domain = textUnder(*row, "defaults");
        const auto place = placeOfRow(resource, index);
        const auto first = identifier ? identifiers.try_emplace(*identifier, index).first->second : index;
        if (first != index)
            findings.push_back({ resource.file, place,
                "has the identifier " + inQuotes(*identifier) + " of row " + std::to_string(first + 1)
                    + ", which alone is found by it" });
        const auto same = key && !key->empty()
            ? keys.try_emplace({ domain ? *domain : "", *key }, index).first->second
            : index;
        if (same != index && first == index)
            findings.push_back({ resource.file, place,
                "stores under the key " + inQuotes(*key) + " of row " + std::to_string(same + 1),
                Finding::Weight::Remark });
    }
}

}

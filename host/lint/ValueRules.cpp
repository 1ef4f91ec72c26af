#include "Rules.h"

#include <algorithm>
#include <cmath>

namespace host {

using namespace platform;

namespace {

std::string textOf(double number)
{
    return textOfPropertyValue(number);
}

/// How a value reads in a sentence.
std::string shown(const PropertyValue& value)
{
    return value.string() ? inQuotes(*value.string()) : textOfPropertyValue(value);
}

void checkStoring(const RowCase& row, const RowReport& report)
{
    using enum PSCellType;
    if (row.isOfItsOwnClass())
        return;
    const bool hasKey = row.isGiven("key");
    const bool holdsValue
        = row.is({ LinkList, Slider, Switch, Segment, EditText, SecureEditText, EditTextView });
    const bool hasGetter = hasKey || row.has("get");
    const bool hasSetter = hasKey || row.has("set");
    if (holdsValue && !hasGetter && !hasSetter)
        report.wrong("has no \"key\": nothing is stored");
    else if (holdsValue && !hasSetter)
        report.wrong("has neither \"key\" nor \"set\": nothing is stored");
    else if ((holdsValue || row.is({ TitleValue })) && !hasGetter)
        report.wrong("has neither \"key\" nor \"get\": no value is shown");
    if (row.facts.storesNothing && holdsValue)
        report.wrong("has no \"defaults\", and " + row.facts.target + " does not store it either");
}

void checkLengths(const RowCase& row, const RowReport& report)
{
    const auto* values = arrayUnder(row.item, "validValues");
    for (const char* key : { "validTitles", "shortTitles" }) {
        const auto* titles = arrayUnder(row.item, key);
        if (titles && !values && !row.facts.givenInCode.contains("values"))
            report.wrong("has " + inQuotes(key) + " without \"validValues\"");
        else if (titles && values && titles->size() != values->size())
            report.wrong("has " + std::to_string(values->size()) + " \"validValues\" but "
                + std::to_string(titles->size()) + ' ' + inQuotes(key));
    }
    if (const auto* titles = arrayUnder(row.item, "shortTitles")) {
        for (std::size_t index = 0; index < titles->size(); ++index) {
            if (!(*titles)[index].string())
                report.wrong("short title " + std::to_string(index + 1) + " is no text and is not taken");
        }
    }
}

/// The row opens the platform's own page of choices, or shows them itself.
bool offersChoices(const RowCase& row)
{
    const auto* detail = textUnder(row.item, "detail");
    return !row.isOfItsOwnClass()
        && (row.is({ PSCellType::Segment })
            || (row.is({ PSCellType::LinkList }) && (!detail || *detail == "PSListItemsController")));
}

void checkChoices(const RowCase& row, const RowReport& report)
{
    const auto* values = arrayUnder(row.item, "validValues");
    if (offersChoices(row) && !row.facts.givenInCode.contains("values") && (!values || values->empty())) {
        if (row.has("valuesDataSource"))
            report.remark("\"valuesDataSource\" is not read here, and there are no \"validValues\"");
        else
            report.wrong(values ? "\"validValues\" is empty" : "has no \"validValues\"");
    }
    if (!values)
        return;
    for (std::size_t index = 0; index < values->size(); ++index) {
        const auto first = std::find_if(values->begin(), values->end(),
            [&](const auto& value) { return value.isEqual((*values)[index]); });
        const auto place = static_cast<std::size_t>(first - values->begin());
        if (place < index)
            report.wrong("value " + std::to_string(index + 1) + ", " + shown((*values)[index]) + ", is value "
                + std::to_string(place + 1) + " again");
    }
    const auto given = row.item.find("default");
    const bool isChoice = given == row.item.end() || values->empty()
        || std::any_of(
            values->begin(), values->end(), [&](const auto& value) { return value.isEqual(given->second); });
    if (!isChoice)
        report.wrong(
            "has the \"default\" " + shown(given->second) + ", which is none of its \"validValues\"");
}

/// As the slider's cell reads it: texts as numbers too, and what is no finite number not at all.
std::optional<float> finiteNumber(const RowCase& row, std::string_view key)
{
    const auto found = row.item.find(key);
    if (found == row.item.end() || !std::isfinite(found->second.floatValue()))
        return std::nullopt;
    return found->second.floatValue();
}

void checkSlider(const RowCase& row, const RowReport& report)
{
    if (!row.is({ PSCellType::Slider }) || row.isOfItsOwnClass())
        return;
    const float least = finiteNumber(row, "min").value_or(0);
    const float most = finiteNumber(row, "max").value_or(1);
    const auto range = textOf(least) + " to " + textOf(most);
    if (!row.has("min") && !row.has("max"))
        report.wrong("has no \"min\" and no \"max\": it runs from " + range);
    else if (!row.has("min") || !row.has("max"))
        report.wrong("has no " + inQuotes(row.has("min") ? "max" : "min") + ": it runs from " + range);
    const auto given = finiteNumber(row, "default");
    if (!(least < most))
        report.wrong(
            "has a \"min\" of " + textOf(least) + " that is not below its \"max\" of " + textOf(most));
    else if (given && (*given < least || *given > most))
        report.wrong("has the \"default\" " + textOf(*given) + ", which lies outside " + range);
    const auto segmented = row.item.find("isSegmented");
    if (segmented != row.item.end() && segmented->second.boolValue()
        && finiteNumber(row, "segmentCount").value_or(0) < 1)
        report.wrong("is segmented, but has no \"segmentCount\" of 1 or more");
}

void checkDefault(const RowCase& row, const RowReport& report)
{
    const auto given = row.item.find("default");
    if (given == row.item.end() || row.isOfItsOwnClass())
        return;
    const auto* text = given->second.string();
    if (row.is({ PSCellType::Slider }) && (text ? !readsAsNumber(*text) : !given->second.isNumber()))
        report.wrong("has a \"default\" that is no number");
    if (row.is({ PSCellType::Switch }) && !text && !given->second.isNumber())
        report.wrong("has a \"default\" that is neither on nor off");
}

constexpr RowRule rules[] = { checkStoring, checkLengths, checkChoices, checkSlider, checkDefault };

}

std::span<const RowRule> valueRules()
{
    return rules;
}

}

#include "Rules.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <numeric>
#include <utility>

namespace host {

using namespace platform;

namespace {

enum class Kind { Text, Number, Flag, List, Any };

struct KnownKey {
    std::string_view name;
    Kind kind;
};

/// Every key of a row that means something to the platform.
constexpr KnownKey knownKeys[] = {
    { "PostNotification", Kind::Text },
    { "action", Kind::Text },
    { "bundle", Kind::Text },
    { "cell", Kind::Text },
    { "cellClass", Kind::Text },
    { "confirmation", Kind::Any },
    { "default", Kind::Any },
    { "defaults", Kind::Text },
    { "detail", Kind::Text },
    { "enabled", Kind::Flag },
    { "footerCellClass", Kind::Text },
    { "footerText", Kind::Text },
    { "get", Kind::Text },
    { "headerCellClass", Kind::Text },
    { "height", Kind::Number },
    { "icon", Kind::Text },
    { "id", Kind::Text },
    { "isController", Kind::Flag },
    { "isNumeric", Kind::Flag },
    { "isSegmented", Kind::Flag },
    { "key", Kind::Text },
    { "keyboard", Kind::Text },
    { "label", Kind::Text },
    { "max", Kind::Number },
    { "min", Kind::Number },
    { "negate", Kind::Flag },
    { "noAutoCorrect", Kind::Flag },
    { "placeholder", Kind::Text },
    { "requiredCapabilities", Kind::List },
    { "segmentCount", Kind::Number },
    { "set", Kind::Text },
    { "shortTitles", Kind::List },
    { "showValue", Kind::Flag },
    { "titlesDataSource", Kind::Text },
    { "validTitles", Kind::List },
    { "validValues", Kind::List },
    { "valuesDataSource", Kind::Text },
};

/// By the place in PropertyValue::Storage.
constexpr std::string_view kindNames[]
    = { "a boolean", "a number", "a number", "a text", "a date", "data", "a list", "a dictionary" };

const KnownKey* keyNamed(std::string_view name)
{
    const auto* found = std::find_if(
        std::begin(knownKeys), std::end(knownKeys), [&](const auto& key) { return key.name == name; });
    return found == std::end(knownKeys) ? nullptr : found;
}

std::string whatIsWrong(Kind kind, const PropertyValue& value)
{
    const auto what = std::string(kindNames[value.storage().index()]);
    const auto* text = value.string();
    if (kind == Kind::Text && !text)
        return "is " + what + ", not a text, and is not taken";
    if (kind == Kind::List && !value.array())
        return "is " + what + ", not a list, and is not taken";
    if ((kind == Kind::Number || kind == Kind::Flag) && !text && !value.isNumber())
        return "is " + what + ", not a " + (kind == Kind::Number ? "number" : "boolean");
    if (kind == Kind::Number && text && !readsAsNumber(*text))
        return "is the text " + inQuotes(*text) + ", which reads as 0";
    if (kind == Kind::Number && !std::isfinite(value.doubleValue()))
        return "is no finite number and is not taken";
    return {};
}

void checkKinds(const RowCase& row, const RowReport& report)
{
    for (const auto& [key, value] : row.item) {
        const auto* known = keyNamed(key);
        if (const auto wrong = known ? whatIsWrong(known->kind, value) : std::string(); !wrong.empty())
            report.wrong(inQuotes(key) + ' ' + wrong);
    }
    if (const auto height = row.item.find("height");
        height != row.item.end() && height->second.isNumber() && height->second.doubleValue() <= 0)
        report.wrong("\"height\" is not above 0 and is not taken");
}

std::string lowered(std::string_view text)
{
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
        [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return result;
}

/// How many letters are to be changed, added, left out or exchanged with the next.
std::size_t distance(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> before(b.size() + 1), above(b.size() + 1), line(b.size() + 1);
    std::iota(above.begin(), above.end(), 0);
    for (std::size_t i = 1; i <= a.size(); ++i) {
        line[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            line[j] = std::min({ above[j] + 1, line[j - 1] + 1, above[j - 1] + (a[i - 1] != b[j - 1]) });
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                line[j] = std::min(line[j], before[j - 2] + 1);
        }
        before = std::exchange(above, line);
    }
    return above.back();
}

// A key of a page's own is nothing special; one that is nearly the platform's is a slip.
void checkSpelling(const RowCase& row, const RowReport& report)
{
    constexpr std::size_t shortest = 4; // Letters; of fewer, too many are near.
    for (const auto& [key, value] : row.item) {
        if (row.isOfItsOwnClass() || keyNamed(key) || key.size() < shortest || key.size() > 40)
            continue;
        for (const auto& known : knownKeys) {
            if (known.name.size() < shortest || row.has(known.name)
                || distance(lowered(key), lowered(known.name)) > 1)
                continue;
            report.remark(
                "nobody knows the key " + inQuotes(key) + "; is " + inQuotes(known.name) + " meant?");
            break;
        }
    }
}

void checkKeyboard(const RowCase& row, const RowReport& report)
{
    if (const auto* keyboard = textUnder(row.item, "keyboard")) {
        constexpr std::string_view kinds[] = { "numbers", "phone" };
        if (std::find(std::begin(kinds), std::end(kinds), *keyboard) == std::end(kinds))
            report.wrong("there is no keyboard " + inQuotes(*keyboard) + " (numbers, phone)");
        else
            report.remark("\"keyboard\" is not read here; \"isNumeric\" asks for digits");
    }
}

constexpr RowRule rules[] = { checkKinds, checkSpelling, checkKeyboard };

}

std::span<const RowRule> keyRules()
{
    return rules;
}

bool readsAsNumber(const std::string& text)
{
    const auto begin = text.find_first_not_of(" \t\n\r");
    if (begin == std::string::npos)
        return false;
    const auto rest = std::string_view(text).substr(begin);
    const auto digit = rest.find_first_of("0123456789");
    const auto before = rest.substr(0, digit);
    return digit != std::string_view::npos
        && (before.empty() || before == "-" || before == "+" || before == "." || before == "-."
            || before == "+.");
}

std::string inQuotes(std::string_view text)
{
    return '"' + std::string(text) + '"';
}

}

#include "PageRows.h"

#include "BundleFacts.h"
#include "platform/qt/DeviceFiles.h"

#include <algorithm>

namespace host {

using namespace platform;

namespace {

/// Where the trial of a row's setter goes unless the page takes care of it itself.
constexpr std::string_view trialDefaults = "vekora.lint.trial";
constexpr std::string_view trialFile = "/var/mobile/Library/Preferences/vekora.lint.trial.plist";
constexpr std::string_view setter = "setPreferenceValue:specifier:";

/// Pages change rows after they were loaded, but leave what names them.
bool isMadeFrom(const PSSpecifier& specifier, const PropertyList& item)
{
    for (const char* key : { "cell", "id", "label", "action" }) {
        const auto found = item.find(key);
        const auto* property = specifier.propertyForKey(key);
        if ((found == item.end()) != (property == nullptr) || (property && !found->second.isEqual(*property)))
            return false;
    }
    return true;
}

}

PageRows::PageRows(const BundleContents& contents, PSListController& page)
    : _contents(contents)
    , _page(page)
{
    for (const auto& specifier : page.specifiers()) {
        if (specifier)
            _rows.push_back({ specifier, std::nullopt });
    }
    findResource();
}

// The resource that has most of the rows; of those with as many, the one that the page has its identifier
// from.
void PageRows::findResource()
{
    std::size_t most = 0;
    for (std::size_t number = 0; number < _contents.resources.size(); ++number) {
        const auto& resource = _contents.resources[number];
        std::vector<std::optional<std::size_t>> found(_rows.size());
        std::vector<bool> taken(resource.size());
        std::size_t count = 0;
        for (std::size_t row = 0; row < _rows.size(); ++row) {
            for (std::size_t index = 0; index < resource.size() && !found[row]; ++index) {
                const auto* item = resource.row(index);
                if (!item || taken[index] || !isMadeFrom(*_rows[row].specifier, *item))
                    continue;
                found[row] = index;
                taken[index] = true;
                ++count;
            }
        }
        const auto* id = textUnder(resource.root, "id");
        const bool isNamed = id && !id->empty() && *id == _page.identifier();
        if (count == 0 || count < most || (count == most && !isNamed))
            continue;
        most = count;
        _resource = &resource;
        _number = std::to_string(number);
        for (std::size_t row = 0; row < _rows.size(); ++row)
            _rows[row].index = found[row];
    }
}

const PropertyList* PageRows::item(std::size_t index) const
{
    return _rows[index].index ? _resource->row(*_rows[index].index) : nullptr;
}

std::string PageRows::file(std::size_t index, const std::string& otherwise) const
{
    return _rows[index].index ? _resource->file : otherwise;
}

std::string PageRows::place(std::size_t index) const
{
    const auto& row = _rows[index];
    if (row.index)
        return placeOfRow(*_resource, *row.index);
    return "row \"" + row.specifier->name() + "\" of " + _page.className();
}

void PageRows::tell(const RecordWriter& tell, const Step& step) const
{
    if (_rows.empty())
        tell({ "remark", _contents.infoText("CFBundleExecutable"), {},
            "the page " + _page.className() + " has no rows" });
    for (std::size_t index = 0; index < _rows.size(); ++index) {
        if (!item(index))
            continue;
        tellOfSelectors(tell, _rows[index]);
        tellOfCode(tell, _rows[index]);
        tellOfCell(tell, index, step);
    }
    // Last, as it changes what the page has stored.
    for (std::size_t index = 0; index < _rows.size(); ++index) {
        if (item(index))
            tellOfStoring(tell, index, step);
    }
}

void PageRows::tellOfSelectors(const RecordWriter& tell, const Row& row) const
{
    const auto index = std::to_string(*row.index);
    const auto* target = row.specifier->target();
    if (!target)
        return;
    tell({ "target", _number, index, target->className() });
    for (const auto key : selectorKeys) {
        if (const auto* selector = textUnder(*_resource->row(*row.index), key))
            tell({ "answers", _number, index, std::string(key),
                target->respondsToSelector(*selector) ? "yes" : "no" });
    }
}

void PageRows::tellOfCode(const RecordWriter& tell, const Row& row) const
{
    const auto& specifier = *row.specifier;
    const std::pair<const char*, bool> given[] = {
        { "action", !specifier.buttonAction().empty() },
        { "detail", specifier.detailControllerClass() || !specifier.textForKey("detail").empty() },
        { "key", !specifier.textForKey("key").empty() },
        { "name", !specifier.name().empty() },
        { "values", !specifier.values().empty() },
    };
    for (const auto& [what, is] : given) {
        if (is)
            tell({ "code", _number, std::to_string(*row.index), what });
    }
}

void PageRows::tellOfCell(const RecordWriter& tell, std::size_t index, const Step& step) const
{
    const auto& specifier = _rows[index].specifier;
    const auto name = specifier->textForKey("cellClass");
    const auto* cellClass = NSClassFromString(name);
    if (!cellClass || !step("cell", index, "its cell was made"))
        return;
    if (!cellClass->make<PSTableCell>(0L, specifier->identifier(), specifier))
        tell({ "finding", _resource->file, place(index),
            "names the cell class \"" + name + "\", which is no cell" });
}

// A page whose own class registers a setter takes care of its rows. Of any other a copy of the row is stored
// under defaults of the trial's own: where that comes to a file, nothing but "defaults" would have stored it.
void PageRows::tellOfStoring(const RecordWriter& tell, std::size_t index, const Step& step) const
{
    const auto& row = *_rows[index].specifier;
    auto* const target = row.target();
    const auto* const itsClass = target ? Class::ofObject(*target) : nullptr;
    const bool takesCare
        = !itsClass || (itsClass->methodForSelector(setter) && itsClass->name() != "PSListController");
    if (takesCare || row.textForKey("key").empty() || !row.textForKey("defaults").empty()
        || textUnder(*item(index), "set") || !step("store", index, "its value was stored"))
        return;
    const auto copy = std::make_shared<PSSpecifier>(
        row.name(), target, "", "", row.detailControllerClass(), row.cellType());
    for (const auto& [key, value] : row.properties())
        copy->setPropertyForKey(value, key);
    copy->setPropertyForKey(trialDefaults, "defaults");
    const auto* given = row.propertyForKey("default");
    target->performSelector(setter, { given ? *given : PropertyValue(false), copy.get() });
    const auto file = hostPath(trialFile);
    if (file && fileExists(trialFile)) {
        tell({ "stores", _number, std::to_string(*_rows[index].index), "nothing" });
        std::filesystem::remove(*file);
    }
}

}

#include "PSListController.h"

#include "CFNotificationCenter.h"
#include "Editing.h"
#include "NSMutableDictionary.h"
#include "UINavigationController.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

std::string pathOfDefaults(const std::string& domain)
{
    return "/var/mobile/Library/Preferences/" + domain + ".plist";
}

const auto registration
    = registerClass<PSListController>("PSListController")
          .initialiser<CGSize>()
          .method("setPreferenceValue:specifier:", &PSListController::setPreferenceValueSpecifier)
          .method("readPreferenceValue:", &PSListController::readPreferenceValue)
          .method("reload", &PSListController::reload)
          .method("reloadSpecifiers", &PSListController::reloadSpecifiers)
          .method("reloadSpecifier:", &PSListController::reloadSpecifier);

}

/// Where a section's rows stand in the list.
struct PSListController::Place {
    PSSpecifier* group = nullptr;
    std::size_t begin = 0;
    std::size_t end = 0;
};

PSListController::PSListController(CGSize contentSize)
    : _contentSize(contentSize)
{
}

PSListController::~PSListController()
{
    if (_table) {
        _table->removeFromSuperview();
        _table->setDataSource(nullptr);
    }
}

const PSListController::Specifiers& PSListController::specifiers()
{
    if (!_specifiers)
        _specifiers.emplace();
    return *_specifiers;
}

PSSpecifier* PSListController::specifierForID(std::string_view identifier) const
{
    if (!_specifiers)
        return nullptr;
    const auto found = std::find_if(_specifiers->begin(), _specifiers->end(),
        [&](const auto& specifier) { return specifier && specifier->identifier() == identifier; });
    return found == _specifiers->end() ? nullptr : found->get();
}

// The list is the page's own to change, so nothing about it is remembered.
PSListController::Place PSListController::placeOf(long section) const
{
    Place place;
    if (!_specifiers || section < 0)
        return place;
    const auto& list = *_specifiers;
    const auto isGroup
        = [](const auto& specifier) { return specifier && specifier->cellType() == PSCellType::Group; };
    long current = list.empty() || isGroup(list.front()) ? -1 : 0;
    for (std::size_t index = 0; index < list.size(); ++index) {
        if (isGroup(list[index])) {
            if (current == section)
                break;
            ++current;
            if (current == section) {
                place.group = list[index].get();
                place.begin = index + 1;
            }
        }
        if (current == section)
            place.end = index + 1;
    }
    return place;
}

long PSListController::numberOfSectionsInTableView(UITableView&)
{
    long sections = 0;
    bool open = false;
    for (const auto& specifier : specifiers()) {
        const bool isGroup = specifier && specifier->cellType() == PSCellType::Group;
        if (isGroup || !open)
            ++sections;
        open = true;
    }
    return sections;
}

long PSListController::tableViewNumberOfRowsInSection(UITableView&, long section)
{
    const auto place = placeOf(section);
    return static_cast<long>(place.end - place.begin);
}

PSSpecifier* PSListController::groupOfSection(long section) const
{
    return placeOf(section).group;
}

PSSpecifier* PSListController::specifierAtIndexPath(NSIndexPath path) const
{
    const auto place = placeOf(path.section);
    if (path.row < 0 || static_cast<std::size_t>(path.row) >= place.end - place.begin)
        return nullptr;
    return (*_specifiers)[place.begin + static_cast<std::size_t>(path.row)].get();
}

std::optional<NSIndexPath> PSListController::indexPathForSpecifier(const PSSpecifier* sought) const
{
    if (!sought || !_specifiers)
        return std::nullopt;
    NSIndexPath path { -1, 0 };
    for (const auto& specifier : *_specifiers) {
        const bool isGroup = specifier && specifier->cellType() == PSCellType::Group;
        if (isGroup || path.section < 0)
            path = { path.section + 1, 0 };
        if (specifier.get() == sought)
            return isGroup ? std::nullopt : std::optional(path);
        if (!isGroup)
            ++path.row;
    }
    return std::nullopt;
}

UITableView& PSListController::table()
{
    view();
    return *_table;
}

void PSListController::loadView()
{
    _table = std::make_shared<UITableView>(CGRect { 0, 0, _contentSize.width, _contentSize.height }, *this);
    setView(_table);
    specifiers();
    _table->reloadData();
}

void PSListController::reload()
{
    if (!_table)
        return;
    const auto keep = weak_from_this().lock();
    specifiers();
    _table->reloadData();
    _table->layoutIfNeeded();
}

void PSListController::reloadSpecifiers()
{
    const auto keep = weak_from_this().lock();
    // A text that is being edited is stored while its row is still there.
    if (_table)
        endEditingInView(*_table);
    const auto old = std::exchange(_specifiers, std::nullopt);
    const auto oldCells = std::exchange(_cells, {});
    reload();
}

void PSListController::reloadSpecifier(PSSpecifier* specifier)
{
    const auto keep = weak_from_this().lock();
    if (const auto path = _table ? indexPathForSpecifier(specifier) : std::nullopt)
        _table->reloadRowAtIndexPath(*path);
}

void PSListController::setPreferenceValueSpecifier(std::optional<PropertyValue> value, PSSpecifier* specifier)
{
    if (!specifier)
        return;
    const auto domain = specifier->textForKey("defaults");
    const auto key = specifier->textForKey("key");
    if (!domain.empty() && !key.empty()) {
        const auto path = pathOfDefaults(domain);
        auto stored = NSMutableDictionary::dictionaryWithContentsOfFile(path).value_or(NSMutableDictionary());
        stored.setValueForKey(std::move(value), key);
        static_cast<void>(stored.writeToFileAtomically(path, true));
    }
    CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(),
        specifier->textForKey("PostNotification"), nullptr, nullptr, true);
}

std::optional<PropertyValue> PSListController::readPreferenceValue(PSSpecifier* specifier)
{
    if (!specifier)
        return std::nullopt;
    if (const auto domain = specifier->textForKey("defaults"); !domain.empty()) {
        const auto stored = NSMutableDictionary::dictionaryWithContentsOfFile(pathOfDefaults(domain));
        if (const auto* value = stored ? stored->objectForKey(specifier->textForKey("key")) : nullptr)
            return *value;
    }
    const auto* value = specifier->propertyForKey("default");
    return value ? std::optional(*value) : std::nullopt;
}

Ref<UITableViewCell> PSListController::tableViewCellForRowAtIndexPath(UITableView&, NSIndexPath path)
{
    auto* const row = specifierAtIndexPath(path);
    if (!row)
        return nullptr;
    const auto specifier = std::static_pointer_cast<PSSpecifier>(row->shared_from_this());
    auto& kept = _cells[row];
    if (!kept)
        kept = PSTableCell::cellForSpecifier(specifier);
    const auto cell = kept;
    if (cell)
        cell->refreshCellContentsWithSpecifier(*specifier);
    return cell;
}

CGFloat PSListController::tableViewHeightForRowAtIndexPath(UITableView&, NSIndexPath path)
{
    const auto* specifier = specifierAtIndexPath(path);
    const auto* height = specifier ? specifier->propertyForKey("height") : nullptr;
    return height && height->doubleValue() > 0 ? height->doubleValue() : UITableViewCell::defaultHeight;
}

std::string PSListController::tableViewTitleForHeaderInSection(UITableView&, long section)
{
    const auto* group = groupOfSection(section);
    return group ? group->name() : std::string();
}

std::string PSListController::tableViewTitleForFooterInSection(UITableView&, long section)
{
    const auto* group = groupOfSection(section);
    return group ? group->textForKey("footerText") : std::string();
}

void PSListController::tableViewDidSelectRowAtIndexPath(UITableView&, NSIndexPath path)
{
    auto* const row = specifierAtIndexPath(path);
    if (!row || !row->isEnabled())
        return;
    const auto keep = weak_from_this().lock();
    const auto specifier = std::static_pointer_cast<PSSpecifier>(row->shared_from_this());
    if (const auto found = _cells.find(row); found != _cells.end()) {
        const auto cell = found->second;
        cell->cellWasTapped();
    }
    specifier->performAction();
    if (specifier->cellType() == PSCellType::Link || specifier->cellType() == PSCellType::LinkList)
        open(*specifier);
}

void PSListController::open(PSSpecifier& row)
{
    auto* const stack = navigationController();
    const auto* detail = row.detailControllerClass();
    const auto named = row.textForKey("detail");
    if (!detail && !named.empty())
        detail = NSClassFromString(named);
    else if (!detail && row.cellType() == PSCellType::LinkList)
        detail = NSClassFromString("PSListItemsController");
    if (!detail || !stack)
        return;

    auto page = detail->make<UIViewController>(view().bounds().size());
    if (!page)
        page = detail->make<UIViewController>();
    if (!page)
        return;
    if (auto* list = dynamic_cast<PSListController*>(page.get())) {
        list->setRootController(stack);
        list->setParentController(this);
        list->setSpecifier(std::static_pointer_cast<PSSpecifier>(row.shared_from_this()));
    }
    if (page->title().empty())
        page->setTitle(row.name());
    stack->pushViewController(page);
}

}

#include "PSListItemsController.h"

namespace platform {

namespace {

const auto registration = registerClass<PSListItemsController>("PSListItemsController").initialiser<CGSize>();

}

const PSListController::Specifiers& PSListItemsController::specifiers()
{
    if (!_specifiers) {
        _specifiers.emplace();
        const std::vector<std::string> none;
        for (const auto& title : specifier() ? specifier()->titles() : none)
            _specifiers->push_back(PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
                title, this, {}, {}, nullptr, PSCellType::ListItem, nullptr));
    }
    return *_specifiers;
}

Ref<UITableViewCell> PSListItemsController::tableViewCellForRowAtIndexPath(
    UITableView& table, NSIndexPath path)
{
    auto cell = PSListController::tableViewCellForRowAtIndexPath(table, path);
    if (!cell || !specifier())
        return cell;
    const auto& values = specifier()->values();
    const auto row = static_cast<std::size_t>(path.row);
    const auto present = specifier()->performGetter();
    const bool chosen = present && row < values.size() && values[row].isEqual(*present);
    cell->setAccessoryType(chosen ? UITableViewCellAccessory::Checkmark : UITableViewCellAccessory::None);
    return cell;
}

void PSListItemsController::tableViewDidSelectRowAtIndexPath(UITableView&, NSIndexPath path)
{
    const auto keep = weak_from_this().lock();
    const auto opener = specifier();
    const auto openersPage = parentController() ? parentController()->weak_from_this().lock() : nullptr;
    const auto row = static_cast<std::size_t>(path.row);
    if (!opener || row >= opener->values().size())
        return;
    opener->performSetterWithValue(PropertyValue(opener->values()[row]));
    // A page does not reload by itself when it comes back.
    if (openersPage)
        static_cast<PSListController&>(*openersPage).reloadSpecifier(opener.get());
    reload();
}

}

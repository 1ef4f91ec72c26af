#pragma once

#include "PSListController.h"

namespace platform {

/// The page of choices that a link-list row opens: one row a title, a check mark at the present one. A tap
/// hands the value to the opening row's setter, and that row shows it.
class PSListItemsController final : public PSListController {
public:
    using PSListController::PSListController;

    const Specifiers& specifiers() override;
    Ref<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView&, NSIndexPath) override;
    void tableViewDidSelectRowAtIndexPath(UITableView&, NSIndexPath) override;
};

}

#pragma once

#include "UIScrollView.h"
#include "UITableViewCell.h"

#include <string>

namespace platform {

class UITableView;

/// What a table shows, and who is told of taps.
class UITableViewDataSource {
public:
    virtual ~UITableViewDataSource() = default;
    virtual long numberOfSectionsInTableView(UITableView&) = 0;
    virtual long tableViewNumberOfRowsInSection(UITableView&, long section) = 0;
    virtual Ref<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView&, NSIndexPath) = 0;
    virtual CGFloat tableViewHeightForRowAtIndexPath(UITableView&, NSIndexPath) = 0;
    virtual std::string tableViewTitleForHeaderInSection(UITableView&, long section) = 0;
    virtual std::string tableViewTitleForFooterInSection(UITableView&, long section) = 0;
    virtual void tableViewDidSelectRowAtIndexPath(UITableView&, NSIndexPath) = 0;
};

/// Rows in groups with headers and footers, one below the other, scrolling.
class UITableView final : public UIScrollView {
public:
    UITableView(CGRect frame, UITableViewDataSource&);

    /// Asks for everything anew; the scroll position is kept as far as there are rows.
    void reloadData();
    /// Null when there is no such row.
    UITableViewCell* cellForRowAtIndexPath(NSIndexPath) const;
    std::optional<NSIndexPath> indexPathForCell(const UITableViewCell*) const;
    std::optional<NSIndexPath> indexPathForRowAtPoint(CGPoint) const;
    CGRect rectForRowAtIndexPath(NSIndexPath) const; ///< Empty when there is no such row.
    /// Scrolls only as far as it takes to show the row, or its top when it is higher than the table.
    void scrollToRowAtIndexPath(NSIndexPath);

    void layoutSubviews() override;
    void touchesBeganWithEvent(UIEvent&) override;
    void touchesMovedWithEvent(UIEvent&) override;
    void touchesEndedWithEvent(UIEvent&) override;
    void touchesCancelledWithEvent(UIEvent&) override;

private:
    struct Section;
    struct TableImpl;
    TableImpl& tableImpl() const;
};

}

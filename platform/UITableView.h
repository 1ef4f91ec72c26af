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
///
/// A page of the usual length has all its cells from the start; a very long one makes them as they come near
/// the screen or are asked for. Cells are not clipped, and the table scrolls far enough to read what reaches
/// beyond the last.
class UITableView final : public UIScrollView {
public:
    UITableView(CGRect frame, UITableViewDataSource&);
    ~UITableView() override;

    /// For a source that goes before the table does: null leaves an empty table.
    void setDataSource(UITableViewDataSource*);

    /// Asks for everything anew; the scroll position is kept as far as there are rows. Cells are asked for at
    /// the next layout, or when one is looked at. A call from within a call to the source does nothing.
    void reloadData();
    /// Asks for the cell of one row again.
    void reloadRowAtIndexPath(NSIndexPath);
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
    struct Row;
    struct Section;
    struct TableImpl;
    TableImpl& tableImpl() const;
    Row* rowAt(NSIndexPath) const;
    void askForRows();
    UITableViewCell* makeCell(NSIndexPath);
    void makeCells();
    void dropOldCells();
    void placeSections();
    void placeDecorations(Section&);
    void setSelectedRow(std::optional<NSIndexPath>);
};

}

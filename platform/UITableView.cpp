#include "UITableView.h"

#include "Editing.h"
#include "UIEvent.h"
#include "UITableViewImpl.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>
#include <utility>

namespace platform {

namespace {

/// Up to here all cells are there from the start.
constexpr std::size_t longestCompletePage = 100;

const auto registration = registerClass<UITableView>("UITableView");

/// While the source is being asked, a reload is refused: it would ask for the same again.
class AskingGuard {
public:
    explicit AskingGuard(bool& asking)
        : _asking(asking)
        , _before(asking)
    {
        _asking = true;
    }
    ~AskingGuard() { _asking = _before; }
    AskingGuard(const AskingGuard&) = delete;
    AskingGuard& operator=(const AskingGuard&) = delete;

private:
    bool& _asking;
    bool _before;
};

}

UITableView::UITableView(CGRect frame, UITableViewDataSource& source)
    : UIScrollView(frame, std::make_unique<TableImpl>(*this))
{
    tableImpl().source = &source;
}

UITableView::~UITableView() = default;

UITableView::TableImpl& UITableView::tableImpl() const
{
    return const_cast<TableImpl&>(static_cast<const TableImpl&>(impl()));
}

UITableView::Row* UITableView::rowAt(NSIndexPath path) const
{
    auto& sections = tableImpl().sections;
    if (path.section < 0 || path.section >= static_cast<long>(sections.size()))
        return nullptr;
    auto& rows = sections[static_cast<std::size_t>(path.section)].rows;
    if (path.row < 0 || path.row >= static_cast<long>(rows.size()))
        return nullptr;
    return &rows[static_cast<std::size_t>(path.row)];
}

void UITableView::setDataSource(UITableViewDataSource* source)
{
    tableImpl().source = source;
    reloadData();
}

void UITableView::reloadData()
{
    auto& table = tableImpl();
    if (table.asking)
        return;
    setSelectedRow(std::nullopt);
    for (auto& section : table.sections) {
        for (const auto& row : section.rows) {
            if (row.cell)
                table.oldViews.push_back(row.cell);
        }
        for (const Ref<UIView>& view : std::initializer_list<Ref<UIView>> { section.headerLabel,
                 section.footerLabel, section.paper, section.topLine, section.bottomLine }) {
            if (view)
                table.oldViews.push_back(view);
        }
    }
    table.sections.clear();
    askForRows();
    placeSections();
    setNeedsLayout();
}

void UITableView::askForRows()
{
    auto& table = tableImpl();
    if (!table.source)
        return;
    const AskingGuard guard(table.asking);
    const long sections = table.source->numberOfSectionsInTableView(*this);
    for (long index = 0; index < sections; ++index) {
        Section section;
        section.header = table.source->tableViewTitleForHeaderInSection(*this, index);
        section.footer = table.source->tableViewTitleForFooterInSection(*this, index);
        const long rows = table.source->tableViewNumberOfRowsInSection(*this, index);
        for (long row = 0; row < rows; ++row) {
            const CGFloat height = table.source->tableViewHeightForRowAtIndexPath(*this, { index, row });
            section.rows.push_back({ 0, height > 0 && std::isfinite(height) ? height : 0, nullptr });
        }
        table.sections.push_back(std::move(section));
    }
}

void UITableView::reloadRowAtIndexPath(NSIndexPath path)
{
    if (tableImpl().asking || !rowAt(path))
        return;
    if (auto& cell = rowAt(path)->cell) {
        tableImpl().oldViews.push_back(cell);
        cell = nullptr;
    }
    makeCell(path);
    setNeedsLayout();
}

UITableViewCell* UITableView::makeCell(NSIndexPath path)
{
    auto& table = tableImpl();
    if (rowAt(path)->cell || !table.source || table.asking)
        return rowAt(path)->cell.get();
    Ref<UITableViewCell> cell;
    {
        const AskingGuard guard(table.asking);
        cell = table.source->tableViewCellForRowAtIndexPath(*this, path);
    }
    if (!cell)
        cell = std::make_shared<UITableViewCell>(UITableViewCellStyle::Default, std::string());
    auto& row = *rowAt(path);
    row.cell = cell;
    cell->setFrame({ 0, row.y, bounds().width, row.height });
    const auto& rows = table.sections[static_cast<std::size_t>(path.section)].rows;
    cell->_setSeparatorShown(path.row + 1 < static_cast<long>(rows.size()));
    cell->setNeedsLayout();
    // A cell that is there already keeps its place, and with it the field that is being edited in it.
    if (cell->superview() != this)
        addSubview(cell);
    return cell.get();
}

void UITableView::makeCells()
{
    auto& table = tableImpl();
    std::size_t count = 0;
    for (const auto& section : table.sections)
        count += section.rows.size();
    // A screen more on either side, so that scrolling finds cells that are ready.
    const CGRect near = CGRectInset(bounds(), 0, -bounds().height);
    for (std::size_t section = 0; section < table.sections.size(); ++section) {
        if (count > longestCompletePage
            && (table.sections[section].bottom < near.minY() || table.sections[section].top > near.maxY()))
            continue;
        for (std::size_t row = 0; row < table.sections[section].rows.size(); ++row) {
            const auto& place = table.sections[section].rows[row];
            if (count <= longestCompletePage
                || (place.y + place.height >= near.minY() && place.y <= near.maxY()))
                makeCell({ static_cast<long>(section), static_cast<long>(row) });
        }
    }
}

void UITableView::dropOldCells()
{
    auto& table = tableImpl();
    if (table.oldViews.empty())
        return;
    std::unordered_set<const UIView*> present;
    for (const auto& section : table.sections) {
        for (const auto& row : section.rows)
            present.insert(row.cell.get());
    }
    const auto old = std::exchange(table.oldViews, {});
    for (const auto& view : old) {
        if (!present.contains(view.get()))
            view->removeFromSuperview();
    }
}

UITableViewCell* UITableView::cellForRowAtIndexPath(NSIndexPath path) const
{
    return rowAt(path) ? const_cast<UITableView*>(this)->makeCell(path) : nullptr;
}

std::optional<NSIndexPath> UITableView::indexPathForCell(const UITableViewCell* cell) const
{
    const auto& sections = tableImpl().sections;
    for (std::size_t section = 0; section < sections.size(); ++section) {
        const auto& rows = sections[section].rows;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            if (cell && rows[row].cell.get() == cell)
                return NSIndexPath { static_cast<long>(section), static_cast<long>(row) };
        }
    }
    return std::nullopt;
}

std::optional<NSIndexPath> UITableView::indexPathForRowAtPoint(CGPoint point) const
{
    const auto& sections = tableImpl().sections;
    for (std::size_t section = 0; section < sections.size(); ++section) {
        if (point.y < sections[section].top || point.y >= sections[section].bottom)
            continue;
        const auto& rows = sections[section].rows;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            const NSIndexPath path { static_cast<long>(section), static_cast<long>(row) };
            if (CGRectContainsPoint(rectForRowAtIndexPath(path), point))
                return path;
        }
    }
    return std::nullopt;
}

CGRect UITableView::rectForRowAtIndexPath(NSIndexPath path) const
{
    const auto* row = rowAt(path);
    return row ? CGRect { 0, row->y, bounds().width, row->height } : CGRect {};
}

void UITableView::scrollToRowAtIndexPath(NSIndexPath path)
{
    if (!rowAt(path))
        return;
    const CGRect row = rectForRowAtIndexPath(path);
    const CGRect seen = bounds();
    if (row.minY() < seen.minY() || row.height > seen.height)
        setContentOffset({ seen.x, row.minY() });
    else if (row.maxY() > seen.maxY())
        setContentOffset({ seen.x, row.maxY() - seen.height });
}

void UITableView::setSelectedRow(std::optional<NSIndexPath> path)
{
    auto& table = tableImpl();
    for (const auto& [row, highlighted] : { std::pair(table.selectedRow, false), std::pair(path, true) }) {
        if (auto* place = row ? rowAt(*row) : nullptr; place && place->cell)
            place->cell->setHighlighted(highlighted);
    }
    table.selectedRow = path;
}

void UITableView::touchesBeganWithEvent(UIEvent& event)
{
    UIScrollView::touchesBeganWithEvent(event);
    setSelectedRow(std::nullopt);
    if (tableImpl().wandered)
        return;
    const auto path = indexPathForRowAtPoint(event.touch().locationInView(this));
    const auto* cell = path ? cellForRowAtIndexPath(*path) : nullptr;
    if (cell && cell->selectable())
        setSelectedRow(path);
}

void UITableView::touchesMovedWithEvent(UIEvent& event)
{
    UIScrollView::touchesMovedWithEvent(event);
    if (tableImpl().wandered)
        setSelectedRow(std::nullopt);
}

void UITableView::touchesEndedWithEvent(UIEvent& event)
{
    // The selection may close the page, and with it the table.
    const auto keep = weak_from_this().lock();
    touchesMovedWithEvent(event);
    UIScrollView::touchesEndedWithEvent(event);
    const auto path = tableImpl().selectedRow;
    if (!tableImpl().wandered)
        endEditingInView(*this); // A tap beside the field that is being edited.
    setSelectedRow(std::nullopt);
    if (path && rowAt(*path) && tableImpl().source)
        tableImpl().source->tableViewDidSelectRowAtIndexPath(*this, *path);
}

void UITableView::touchesCancelledWithEvent(UIEvent& event)
{
    UIScrollView::touchesCancelledWithEvent(event);
    setSelectedRow(std::nullopt);
}

}

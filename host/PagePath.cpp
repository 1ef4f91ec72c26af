#include "PagePath.h"

#include "platform/PSListController.h"
#include "platform/UIScrollView.h"

#include <algorithm>
#include <optional>

namespace host {

using namespace platform;

namespace {

void collectScrollViews(UIView& view, std::vector<UIScrollView*>& found)
{
    if (auto* const scroll = dynamic_cast<UIScrollView*>(&view))
        found.push_back(scroll);
    for (const auto& subview : view.subviews())
        collectScrollViews(*subview, found);
}

std::vector<UIScrollView*> scrollViewsOf(UIViewController& page)
{
    std::vector<UIScrollView*> found;
    collectScrollViews(page.view(), found);
    return found;
}

bool opensPage(const PSSpecifier& row)
{
    return row.isEnabled() && (row.cellType() == PSCellType::Link || row.cellType() == PSCellType::LinkList);
}

std::string classOpenedBy(const PSSpecifier& row)
{
    if (const auto* const detail = row.detailControllerClass())
        return detail->name();
    const auto named = row.textForKey("detail");
    return named.empty() && row.cellType() == PSCellType::LinkList ? "PSListItemsController" : named;
}

struct Link {
    const PSSpecifier* row;
    NSIndexPath place;
};

/// In one walk, as there may be thousands of rows, and each touch asks.
std::vector<Link> linksOf(PSListController& page)
{
    std::vector<Link> links;
    NSIndexPath place { -1, 0 };
    for (const auto& row : page.specifiers()) {
        const bool isGroup = row && row->cellType() == PSCellType::Group;
        if (isGroup || place.section < 0)
            place = { place.section + 1, 0 };
        if (row && opensPage(*row))
            links.push_back({ row.get(), place });
        if (!isGroup)
            ++place.row;
    }
    return links;
}

/// A page of rows knows the row that opened it; for any other the row that opens its class is taken.
PagePath::Row rowThatOpened(UIViewController& page, UIViewController& before)
{
    auto* const opener = dynamic_cast<PSListController*>(&before);
    if (!opener)
        return {};
    const auto* const list = dynamic_cast<PSListController*>(&page);
    for (const auto& [row, place] : linksOf(*opener)) {
        if (list ? list->specifier().get() == row : classOpenedBy(*row) == page.className())
            return { row->identifier(), page.className(), place };
    }
    return {};
}

std::optional<NSIndexPath> findRow(PSListController& page, const PagePath::Row& sought)
{
    const auto links = linksOf(page);
    const auto isNamed = [&](const Link& link) { return link.row->identifier() == sought.identifier; };
    const auto isThere = [&](const Link& link) { return link.place == sought.place; };
    const auto there = std::find_if(links.begin(), links.end(), isThere);
    if (there != links.end() && isNamed(*there))
        return there->place;
    // A row of that name elsewhere is meant before a stranger that has taken the place.
    if (const auto named = std::find_if(links.begin(), links.end(), isNamed); named != links.end())
        return named->place;
    if (there != links.end() && classOpenedBy(*there->row) == sought.className)
        return there->place;
    return std::nullopt;
}

void scrollTo(UINavigationController& stack, const std::vector<CGPoint>& offsets)
{
    auto* const page = stack.topViewController();
    if (!page)
        return;
    // How far there is to scroll is known when the page is laid out, of an inner view when the outer is.
    for (std::size_t index = 0; index < offsets.size(); ++index) {
        stack.view().layoutIfNeeded();
        page->view().layoutIfNeeded();
        const auto views = scrollViewsOf(*page);
        if (index < views.size())
            views[index]->setContentOffset(offsets[index]);
    }
}

bool openRow(UINavigationController& stack, const PagePath::Row& sought)
{
    auto* const page = dynamic_cast<PSListController*>(stack.topViewController());
    const auto row = page && !sought.className.empty() ? findRow(*page, sought) : std::nullopt;
    if (!row)
        return false;
    page->tableViewDidSelectRowAtIndexPath(page->table(), *row);
    return stack.topViewController() != page;
}

}

PagePath pagePathOf(const UINavigationController& stack)
{
    PagePath path;
    UIViewController* before = nullptr;
    for (const auto& page : stack.viewControllers()) {
        PagePath::Page known;
        if (before)
            known.openedBy = rowThatOpened(*page, *before);
        for (const auto* const view : scrollViewsOf(*page))
            known.offsets.push_back(view->contentOffset());
        path.pages.push_back(std::move(known));
        before = page.get();
    }
    return path;
}

bool followPagePath(UINavigationController& stack, const PagePath& path)
{
    for (std::size_t index = 0; index < path.pages.size(); ++index) {
        if (index > 0 && !openRow(stack, path.pages[index].openedBy))
            return false;
        scrollTo(stack, path.pages[index].offsets);
    }
    return true;
}

}

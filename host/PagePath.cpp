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

std::vector<NSIndexPath> linksOf(PSListController& page)
{
    std::vector<NSIndexPath> links;
    for (const auto& row : page.specifiers()) {
        const auto place = row && opensPage(*row) ? page.indexPathForSpecifier(row.get()) : std::nullopt;
        if (place)
            links.push_back(*place);
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
    for (const auto& place : linksOf(*opener)) {
        const auto* const row = opener->specifierAtIndexPath(place);
        if (list ? list->specifier().get() == row : classOpenedBy(*row) == page.className())
            return { row->identifier(), page.className(), place };
    }
    return {};
}

std::optional<NSIndexPath> findRow(PSListController& page, const PagePath::Row& sought)
{
    const auto links = linksOf(page);
    const auto isNamed = [&](const NSIndexPath& place) {
        return page.specifierAtIndexPath(place)->identifier() == sought.identifier;
    };
    if (const auto* const row = page.specifierAtIndexPath(sought.place);
        row && opensPage(*row) && (isNamed(sought.place) || classOpenedBy(*row) == sought.className)) {
        // A row of that name elsewhere is meant before a stranger that has taken the place.
        const auto named = std::find_if(links.begin(), links.end(), isNamed);
        return isNamed(sought.place) || named == links.end() ? sought.place : *named;
    }
    const auto named = std::find_if(links.begin(), links.end(), isNamed);
    return named == links.end() ? std::nullopt : std::optional(*named);
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

#include "TapTarget.h"

#include "platform/PSListController.h"
#include "platform/UIButton.h"
#include "ViewSearch.h"

#include <algorithm>

namespace host {

using namespace platform;

namespace {

/// The row that comes into sight with the view, or null.
PSTableCell* rowToShow(UIView& view)
{
    auto* cell = cellAround(&view);
    const auto* table = cell ? cell->superview() : nullptr;
    return table && cell->bounds().height <= table->bounds().height ? cell : nullptr;
}

std::optional<CGPoint> placeInReach(UIWindow& window, const UIView& view)
{
    const auto middle = middleInWindow(view);
    if (!isInSight(view, middle) || isCovered(window, view, middle))
        return std::nullopt;
    return middle;
}

}

UIView& meantBy(UIView& view)
{
    auto* cell = cellAround(&view);
    const bool isTitle = cell && (&view == cell || &view == &cell->textLabel());
    auto* control = isTitle ? cell->control() : nullptr;
    return control ? *control : view;
}

void show(Phone& phone, UIView& view)
{
    if (auto* row = rowToShow(view))
        scrollIntoSight(*row);
    scrollIntoSight(view);
    phone.settle();
}

bool isShownAlready(UIView& view)
{
    auto* row = rowToShow(view);
    return (!row || !needsScrolling(*row)) && !needsScrolling(view);
}

void showRowTitled(Phone& phone, const std::string& title)
{
    auto* page = dynamic_cast<PSListController*>(phone.navigation().topViewController());
    if (!page)
        return;
    for (const auto& specifier : page->specifiers()) {
        if (!specifier || specifier->name() != title)
            continue;
        if (const auto path = page->indexPathForSpecifier(specifier.get())) {
            page->table().scrollToRowAtIndexPath(*path);
            return phone.settle();
        }
    }
}

void bringInSightFirst(std::vector<UIView*>& views)
{
    std::stable_partition(
        views.begin(), views.end(), [](UIView* view) { return isInSight(*view, middleInWindow(*view)); });
}

bool isOutOfReach(UIWindow& window, const UIView& view)
{
    const auto middle = middleInWindow(view);
    return isInSight(view, middle) && isCovered(window, view, middle);
}

std::optional<CGPoint> touchablePlace(Phone& phone, UIView& view)
{
    show(phone, view);
    return placeInReach(phone.window(), view);
}

std::optional<CGPoint> unscrolledPlaceOf(UIWindow& window, UIView& view)
{
    return isShownAlready(view) ? placeInReach(window, view) : std::nullopt;
}

std::optional<CGPoint> unscrolledPlaceOfText(UIWindow& window, const std::string& text)
{
    if (text.empty())
        return std::nullopt;
    auto views = viewsShowing(window, text);
    bringInSightFirst(views);
    for (auto* view : views) {
        if (isOutOfReach(window, *view))
            continue;
        auto& meant = meantBy(*view);
        // It would be scrolled to before the next is considered.
        if (!isShownAlready(meant))
            return std::nullopt;
        if (const auto place = placeInReach(window, meant))
            return place;
    }
    return std::nullopt;
}

UIButton* buttonTitled(UIView& view, std::string_view title)
{
    auto* button = dynamic_cast<UIButton*>(&view);
    if (button && button->currentTitle() == title)
        return button;
    for (const auto& child : view.subviews()) {
        if (auto* found = buttonTitled(*child, title))
            return found;
    }
    return nullptr;
}

}

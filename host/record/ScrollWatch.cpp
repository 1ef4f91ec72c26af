#include "ScrollWatch.h"

#include "host/driver/ViewSearch.h"
#include "platform/PSListController.h"
#include "platform/UIAlertView.h"
#include "ScriptText.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace host {

using namespace platform;

namespace {

void collect(UIView& view, std::vector<std::shared_ptr<UIScrollView>>& found)
{
    if (dynamic_cast<UIScrollView*>(&view)) {
        if (auto scroller = std::dynamic_pointer_cast<UIScrollView>(view.weak_from_this().lock()))
            found.push_back(std::move(scroller));
    }
    for (const auto& child : view.subviews())
        collect(*child, found);
}

std::size_t markOfViews(const UIView& view)
{
    std::size_t mark = view.subviews().size();
    for (const auto& child : view.subviews())
        mark = mark * 31 + std::hash<const UIView*>()(child.get());
    return mark;
}

/// Where a scroller goes that is sent so far; the same arithmetic as its own.
CGFloat destination(const UIScrollView& scroller, double scale, CGFloat from, CGFloat distance)
{
    return std::clamp(std::round((from + distance) * scale) / scale, 0.0, scroller.maximumOffset());
}

/// A distance that ends exactly there.
CGFloat distanceTo(const UIScrollView& scroller, double scale, CGFloat from, CGFloat to)
{
    const auto distance = to - from;
    for (const CGFloat candidate : { distance, distance + 1, distance - 1 }) {
        if (destination(scroller, scale, from, candidate) == to)
            return candidate;
    }
    return distance;
}

UIScrollView* scrollerAt(UIWindow& window, CGPoint point)
{
    for (auto* view = window.hitTestWithEvent(point, nullptr); view; view = view->superview()) {
        if (auto* scroller = dynamic_cast<UIScrollView*>(view))
            return scroller;
    }
    return nullptr;
}

/// A point that a wheel turned there scrolls it from.
std::optional<CGPoint> placeToTurnAt(UIWindow& window, const UIScrollView& scroller)
{
    const auto rect = rectInWindow(scroller);
    constexpr int places = 8; // Across, and down.
    for (int step = 0; step < places * places; ++step) {
        // The middle first, then row by row.
        const double x = step ? (step % places + 0.5) / places : 0.5;
        const double y = step ? (step / places + 0.5) / places : 0.5;
        const CGPoint point { rect.x + rect.width * x, rect.y + rect.height * y };
        if (scrollerAt(window, point) == &scroller)
            return point;
    }
    return std::nullopt;
}

}

ScrollWatch::ScrollWatch(Phone& phone)
    : _phone(phone)
{
    static_cast<void>(look());
}

std::vector<ScrollWatch::Change> ScrollWatch::look()
{
    std::vector<std::shared_ptr<UIScrollView>> present;
    collect(_phone.window(), present);
    std::vector<Change> changes;
    std::vector<Known> known;
    for (const auto& scroller : present) {
        const Known now { scroller, scroller->contentOffset(), markOfViews(*scroller) };
        const auto before = std::find_if(_known.begin(), _known.end(),
            [&](const Known& candidate) { return candidate.scroller.lock() == scroller; });
        if (before != _known.end() && before->offset != now.offset)
            changes.push_back({ scroller, before->offset, now.offset, before->views != now.views });
        known.push_back(now);
    }
    _known = std::move(known);
    return changes;
}

std::string scrollCommand(Phone& phone, const UIScrollView& scroller, CGPoint from, CGPoint to)
{
    const auto distance = scriptNumber(distanceTo(scroller, phone.window().scale(), from.y, to.y));
    auto* const page = dynamic_cast<PSListController*>(phone.navigation().topViewController());
    if (page && &page->table() == &scroller && !UIAlertView::topmost())
        return "scroll " + distance + '\n';
    const auto place = placeToTurnAt(phone.window(), scroller);
    if (!place)
        return "# Something scrolled that nothing reaches.\n";
    auto line = scriptLine("wheel", *place);
    line.pop_back();
    return line + ' ' + distance + '\n';
}

}

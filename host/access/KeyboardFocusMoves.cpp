#include "KeyboardFocus.h"

#include "platform/UIScrollView.h"

#include <algorithm>

namespace host {

using namespace platform;

namespace {

constexpr CGFloat scrollStep = 40; ///< Points, where there is nothing further to move to.

using Found = std::vector<const Element*>;

Found::difference_type indexOf(const Found& elements, const Element* element)
{
    return std::find(elements.begin(), elements.end(), element) - elements.begin();
}

}

/// What the page is in; null for one that does not scroll, and under an alert.
UIScrollView* KeyboardFocus::pageScroller() const
{
    auto* const page = _screen.phone().navigation().topViewController();
    return page && _screen.context() == page ? dynamic_cast<UIScrollView*>(&page->view()) : nullptr;
}

bool KeyboardFocus::moveAlongOrder(int direction)
{
    const auto* now = current();
    if (!now) {
        const auto stops = focusableElements(_screen.root());
        return goTo(direction > 0 || stops.empty() ? first() : stops.back());
    }
    const auto id = now->id;
    // The text is stored with this, which may change the page.
    if (_screen.phone().endEditing()) {
        _screen.invalidate();
        now = findElement(_screen.root(), id);
    }
    auto stops = focusableElements(_screen.root());
    if (stops.empty())
        return true;
    auto index = indexOf(stops, now);
    const auto count = static_cast<Found::difference_type>(stops.size());
    if (index == count)
        return goTo(first());
    index += direction;
    if (index >= 0 && index < count)
        return goTo(stops[static_cast<std::size_t>(index)]);
    // Round the end. A long page has the rows there only once they are in sight.
    if (auto* const scroller = pageScroller()) {
        scroller->setContentOffset({ 0, direction > 0 ? 0 : scroller->maximumOffset() });
        _screen.invalidate();
        stops = focusableElements(_screen.root());
    }
    return goTo(direction > 0 ? stops.front() : stops.back());
}

bool KeyboardFocus::moveToNeighbour(int direction)
{
    const auto* const now = current();
    if (!now && !first())
        scrollBy(direction * scrollStep); // A page that is only read.
    if (!now || !_isShown)
        return goTo(now ? now : first());
    const auto stops = focusableElements(_screen.root());
    const auto here = now->rect;
    for (auto index = indexOf(stops, now) + direction; index >= 0 && index < std::ssize(stops);
         index += direction) {
        const auto* const stop = stops[static_cast<std::size_t>(index)];
        const bool isInOtherLine
            = direction > 0 ? stop->rect.midY() >= here.maxY() : stop->rect.midY() < here.minY();
        if (isInOtherLine)
            return goTo(stop);
    }
    scrollBy(direction * scrollStep);
    return true;
}

bool KeyboardFocus::moveToEnd(int direction)
{
    auto* const scroller = pageScroller();
    if (scroller) {
        scroller->setContentOffset({ 0, direction < 0 ? 0 : scroller->maximumOffset() });
        _screen.invalidate();
    }
    const auto stops = focusableElements(_screen.root());
    if (stops.empty())
        return scroller != nullptr;
    return goTo(direction < 0 ? first() : stops.back());
}

bool KeyboardFocus::movePage(int direction)
{
    const auto* const now = current();
    auto* const scroller = now ? pageScroller() : nullptr;
    if (!scroller)
        return moveToEnd(direction);
    const Place place { WeakObject(), {}, now->rect };
    const auto before = scroller->contentOffset().y;
    scroller->setContentOffset({ 0, before + direction * scroller->bounds().height });
    const auto moved = scroller->contentOffset().y - before;
    _screen.invalidate();
    // What is now where the element was; at the end of the page, its last.
    return moved == 0 ? moveToEnd(direction) : goTo(nearest(place));
}

void KeyboardFocus::scrollBy(CGFloat dy)
{
    if (auto* const scroller = pageScroller()) {
        scroller->setContentOffset({ scroller->contentOffset().x, scroller->contentOffset().y + dy });
        _screen.invalidate();
    }
}

}

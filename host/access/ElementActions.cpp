#include "ElementActions.h"

#include "host/driver/ViewSearch.h"
#include "platform/PSTableCell.h"
#include "platform/UIScrollView.h"
#include "platform/UISegmentedControl.h"
#include "platform/UISlider.h"
#include "platform/UITableView.h"
#include "platform/UIWindow.h"
#include "Surface.h"

#include <algorithm>
#include <cmath>

namespace host {

using namespace platform;

namespace {

constexpr CGFloat roomAround = 8; ///< Points that are kept in sight around a place that is scrolled to.

/// The offset that brings the span into the viewport with the least change; one that is too long is shown
/// from its beginning, unless some of it fills the viewport already.
CGFloat offsetToShow(CGFloat begin, CGFloat end, CGFloat offset, CGFloat viewport)
{
    if (end - begin > viewport)
        return begin <= offset && end >= offset + viewport ? offset : begin;
    if (begin < offset)
        return begin;
    return end > offset + viewport ? end - viewport : offset;
}

/// A finger that meets gliding content only stops it.
void stopGliding(UIView& view)
{
    for (auto* around = &view; around; around = around->superview()) {
        auto* const scroller = dynamic_cast<UIScrollView*>(around);
        if (scroller && scroller->isDecelerating())
            scroller->setContentOffset(scroller->contentOffset());
    }
}

void scrollToShow(UIView& view, CGRect inView)
{
    for (auto* around = view.superview(); around; around = around->superview()) {
        auto* const scroller = dynamic_cast<UIScrollView*>(around);
        if (!scroller)
            continue;
        const auto rect = view.convertRectToView(inView, scroller);
        const auto offset = scroller->contentOffset();
        const auto y = offsetToShow(rect.minY(), rect.maxY(), offset.y, scroller->bounds().height);
        if (y != offset.y)
            scroller->setContentOffset({ offset.x, y });
    }
}

/// A place well inside: what is converted between views is rounded, and the far edges are the neighbours'.
CGPoint inBounds(CGRect bounds, CGPoint point)
{
    constexpr CGFloat margin = 0.25;
    const auto inside
        = CGRectInset(bounds, std::min(margin, bounds.width / 4), std::min(margin, bounds.height / 4));
    return { std::clamp(point.x, inside.minX(), inside.maxX()),
        std::clamp(point.y, inside.minY(), inside.maxY()) };
}

CGPoint middleOf(CGRect rect)
{
    return { rect.midX(), rect.midY() };
}

CGPoint middleOfSegment(const UISegmentedControl& segments, long index)
{
    const auto bounds = segments.bounds();
    const auto width = bounds.width / static_cast<CGFloat>(std::max(1L, segments.numberOfSegments()));
    return { bounds.x + width * (static_cast<CGFloat>(index) + 0.5), bounds.midY() };
}

}

ElementActions::ElementActions(UIWindow& window, std::function<void()> settle)
    : _window(window)
    , _settle(std::move(settle))
{
}

void ElementActions::show(const Element& element)
{
    auto* const frame = static_cast<UIView*>(element.frame.get());
    if (!frame)
        return;
    stopGliding(*frame);
    // The first row comes with its header, and with whatever else is above it.
    const auto* const table = dynamic_cast<UITableView*>(frame->superview());
    auto rect = frame->bounds();
    if (table && table->indexPathForRowAtPoint(frame->frame().origin()) == NSIndexPath {}
        && frame->frame().maxY() <= table->bounds().height)
        rect = { rect.x, rect.y - frame->frame().y, rect.width, rect.height + frame->frame().y };
    scrollToShow(*frame, rect);
    _settle();
}

bool ElementActions::reach(UIView& target, CGPoint inView, CGPoint& inWindow)
{
    const auto kept = target.weak_from_this().lock();
    stopGliding(target);
    const auto place = [&] { return target.convertPointToView(inView, nullptr); };
    if (!isInSight(target, place())) {
        scrollToShow(
            target, { inView.x - roomAround, inView.y - roomAround, 2 * roomAround, 2 * roomAround });
        _settle();
    }
    inWindow = place();
    const auto* const hit = _window.hitTestWithEvent(inWindow, nullptr);
    return target.window() == &_window && isInSight(target, inWindow) && hit
        && hit->isDescendantOfView(target);
}

bool ElementActions::touch(UIView& target, CGPoint from, CGPoint to)
{
    CGPoint begin;
    if (!reach(target, from, begin))
        return false;
    const auto kept = target.weak_from_this().lock();
    _window.touchBegan(begin);
    // Whatever answers the touch may have taken the view away; the finger is lifted all the same.
    const auto end = to == from ? begin : target.convertPointToView(to, nullptr);
    if (to != from)
        _window.touchMoved(end);
    _window.touchEnded(end);
    _settle();
    return true;
}

bool ElementActions::press(const Element& element)
{
    auto* const view = element.id.get();
    if (!view || !element.enabled)
        return false;
    if (element.id.role == ElementRole::Segment || element.id.role == ElementRole::Segments) {
        auto& segments = dynamic_cast<UISegmentedControl&>(*view);
        const auto next = (segments.selectedSegmentIndex() + 1) % std::max(1L, segments.numberOfSegments());
        const auto place
            = middleOfSegment(segments, element.id.role == ElementRole::Segment ? element.id.part : next);
        return touch(*view, place, place);
    }
    if (hasValue(element.id.role) || element.id.role == ElementRole::Field)
        return false; // A tap would change the value.
    show(element);
    const auto place = middleOf(view->bounds());
    return touch(*view, place, place);
}

bool ElementActions::chooseSegment(const Element& element, long index)
{
    auto* const segments = dynamic_cast<UISegmentedControl*>(element.id.get());
    if (!segments || !element.enabled || segments->numberOfSegments() == 0)
        return false;
    const auto place = middleOfSegment(*segments, std::clamp(index, 0L, segments->numberOfSegments() - 1));
    return touch(*segments, place, place);
}

bool ElementActions::setValue(const Element& element, double value)
{
    if (!element.id.get() || !element.enabled || std::isnan(value))
        return false;
    return element.id.role == ElementRole::Slider ? setSliderValue(element, value)
                                                  : setSurfaceValue(element, value);
}

bool ElementActions::setSliderValue(const Element& element, double value)
{
    auto& slider = dynamic_cast<UISlider&>(*element.id.get());
    const double least = slider.minimumValue();
    const double range = slider.maximumValue() - least;
    if (!(range > 0))
        return false;
    const auto thumb = slider.thumbRect();
    const auto travel = slider.bounds().width - thumb.width;
    const auto share = std::clamp((value - least) / range, 0.0, 1.0);
    return touch(slider, middleOf(thumb), { thumb.width / 2 + share * travel, thumb.midY() });
}

bool ElementActions::setSurfaceValue(const Element& element, double value)
{
    auto* const pad = dynamic_cast<UIControl*>(element.id.get());
    const auto surface = pad ? surfaceOf(*pad) : std::nullopt;
    if (!surface || !surface->axis(element.id.part))
        return false;
    const auto place = surface->placeFor(element.id.part, value);
    return touch(*pad, inBounds(pad->bounds(), place), place);
}

bool ElementActions::step(const Element& element, double steps)
{
    const auto& now = element.value;
    const auto wanted = std::clamp(now.value + steps * now.step, now.least, now.most);
    return wanted != now.value && setValue(element, wanted);
}

}

#include "UIScrollView.h"

#include "Device.h"
#include "UIEvent.h"
#include "UIScrollViewImpl.h"
#include "UIWindow.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

/// Of the speed, a second: it falls to 0.998 each millisecond.
constexpr double friction = 2.002;
/// Slower than this, in points a second, the content stands still.
constexpr double restingSpeed = 8;
constexpr double greatestSpeed = 8000;
/// Only what the finger did last counts for the speed, in seconds.
constexpr double flingWindow = 0.1;

const auto registration = registerClass<UIScrollView>("UIScrollView");

}

UIScrollView::UIScrollView(CGRect frame)
    : UIScrollView(frame, std::make_unique<ScrollImpl>(*this))
{
}

UIScrollView::UIScrollView(CGRect frame, std::unique_ptr<Impl> impl)
    : UIView(frame, std::move(impl))
{
    setClipsToBounds(true);
}

UIScrollView::ScrollImpl& UIScrollView::scroll() const
{
    return const_cast<ScrollImpl&>(static_cast<const ScrollImpl&>(impl()));
}

CGSize UIScrollView::contentSize() const
{
    return scroll().contentSize;
}

void UIScrollView::setContentSize(CGSize size)
{
    scroll().contentSize = size;
    scrollTo(contentOffset());
}

CGFloat UIScrollView::maximumOffset() const
{
    return std::max(0.0, contentSize().height - bounds().height);
}

void UIScrollView::setContentOffset(CGPoint offset)
{
    scroll().velocity = 0;
    scrollTo(offset);
}

// Whole device pixels, so that texts and hairlines stay crisp wherever the content comes to rest.
void UIScrollView::scrollTo(CGPoint offset)
{
    const double scale = window() ? window()->scale() : Device::current().scale;
    const auto pinned = [&](CGFloat value, CGFloat greatest) {
        return std::isfinite(value) ? std::clamp(std::round(value * scale) / scale, 0.0, greatest) : 0.0;
    };
    const CGRect old = bounds();
    const CGFloat greatestX = std::max(0.0, contentSize().width - old.width);
    const CGRect moved { pinned(offset.x, greatestX), pinned(offset.y, maximumOffset()), old.width,
        old.height };
    if (moved == old)
        return;
    setBounds(moved);
    setNeedsLayout();
}

bool UIScrollView::isDecelerating() const
{
    return scroll().velocity != 0;
}

bool UIScrollView::isDragging() const
{
    return scroll().dragging;
}

bool UIScrollView::advance(double seconds)
{
    auto& state = scroll();
    if (state.velocity == 0 || !(seconds > 0))
        return state.velocity != 0;
    const double left = std::exp(-friction * seconds);
    state.glide += state.velocity / friction * (1 - left);
    state.velocity *= left;
    const bool atEnd = state.glide <= 0 || state.glide >= maximumOffset();
    if (atEnd || std::abs(state.velocity) < restingSpeed)
        state.velocity = 0;
    scrollTo({ contentOffset().x, state.glide });
    return state.velocity != 0;
}

void UIScrollView::touchesBeganWithEvent(UIEvent& event)
{
    auto& state = scroll();
    state.tracking = true;
    state.dragging = false;
    // A finger that stops the gliding content means nothing else by it.
    state.wandered = isDecelerating();
    state.velocity = 0;
    state.touchStart = event.touch().locationInView(nullptr);
    state.samples.assign(1, { event.touch().timestamp(), state.touchStart.y });
}

void UIScrollView::touchesMovedWithEvent(UIEvent& event)
{
    auto& state = scroll();
    if (!state.tracking)
        return;
    const CGPoint at = event.touch().locationInView(nullptr);
    const CGFloat dx = at.x - state.touchStart.x;
    const CGFloat dy = at.y - state.touchStart.y;
    if (std::hypot(dx, dy) > panThreshold)
        state.wandered = true;
    if (!state.dragging && std::abs(dy) > panThreshold) {
        state.dragging = true;
        // The content sets out from where it is instead of leaping after the finger.
        state.dragStart = state.touchStart.y + std::copysign(panThreshold, dy);
        state.offsetAtDragStart = contentOffset().y;
    }
    state.samples.push_back({ event.touch().timestamp(), at.y });
    const double since = event.touch().timestamp() - flingWindow;
    std::erase_if(state.samples, [&](const auto& sample) { return sample.time < since; });
    if (state.dragging)
        scrollTo({ contentOffset().x, state.offsetAtDragStart - (at.y - state.dragStart) });
}

void UIScrollView::touchesEndedWithEvent(UIEvent& event)
{
    auto& state = scroll();
    if (state.dragging) {
        const CGFloat y = event.touch().locationInView(nullptr).y;
        scrollTo({ contentOffset().x, state.offsetAtDragStart - (y - state.dragStart) });
        const double now = event.touch().timestamp();
        std::erase_if(state.samples, [&](const auto& sample) { return sample.time < now - flingWindow; });
        if (!state.samples.empty()) {
            const double time = now - state.samples.front().time;
            const double speed = time > 0 ? (state.samples.front().y - y) / time : 0;
            state.velocity = std::isfinite(speed) ? std::clamp(speed, -greatestSpeed, greatestSpeed) : 0;
        }
        if (std::abs(state.velocity) < restingSpeed)
            state.velocity = 0;
        state.glide = contentOffset().y;
    }
    state.tracking = false;
    state.dragging = false;
}

void UIScrollView::touchesCancelledWithEvent(UIEvent&)
{
    scroll().tracking = false;
    scroll().dragging = false;
}

}

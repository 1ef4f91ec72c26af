#include "UIControl.h"
#include "Journal.h"
#include "UIEvent.h"
#include "UIViewImpl.h"

#include <algorithm>

namespace platform {

struct UIControl::ControlImpl : UIView::Impl {
    using Impl::Impl;

    struct Registration {
        WeakObject target;
        std::string action;
        unsigned events;
    };

    static ControlImpl& of(const UIControl& control)
    {
        return static_cast<ControlImpl&>(const_cast<UIControl&>(control).impl());
    }

    std::vector<Registration> registrations;
    bool enabled = true;
    bool tracking = false;
    bool inside = false;
};

UIControl::UIControl()
    : UIControl(CGRect {})
{
}

UIControl::UIControl(CGRect frame)
    : UIControl(frame, std::make_unique<ControlImpl>(*this))
{
}

UIControl::UIControl(CGRect frame, std::unique_ptr<Impl> impl)
    : UIView(frame, std::move(impl))
{
}

void UIControl::addTargetActionForControlEvents(NSObject* target, std::string_view action, unsigned events)
{
    auto& registrations = ControlImpl::of(*this).registrations;
    for (auto& known : registrations) {
        if (known.target.get() == target && known.action == action) {
            known.events |= events;
            return;
        }
    }
    registrations.push_back({ WeakObject(target), std::string(action), events });
}

std::vector<std::string> UIControl::allActions() const
{
    std::vector<std::string> actions;
    for (const auto& registration : ControlImpl::of(*this).registrations)
        actions.push_back(registration.action);
    return actions;
}

void UIControl::sendActionsForControlEvents(unsigned events, UIEvent* event)
{
    // An action may take away the control, its targets or its registrations.
    const auto kept = weak_from_this().lock();
    const auto registrations = ControlImpl::of(*this).registrations;
    for (const auto& registration : registrations) {
        if (!(registration.events & events))
            continue;
        auto* const target = registration.target.get();
        if (!target)
            continue;
        if (auto& journal = Journal::shared(); journal.isHeard())
            journal.record({ JournalEntry::Kind::Action, registration.action, target->className() });
        const auto keptTarget = target->weak_from_this().lock();
        target->performSelector(
            registration.action, { static_cast<NSObject*>(this), static_cast<NSObject*>(event) });
    }
}

unsigned UIControl::allControlEvents() const
{
    unsigned events = 0;
    for (const auto& registration : ControlImpl::of(*this).registrations)
        events |= registration.target.get() ? registration.events : 0;
    return events;
}

bool UIControl::isEnabled() const
{
    return ControlImpl::of(*this).enabled;
}
void UIControl::setEnabled(bool enabled)
{
    ControlImpl::of(*this).enabled = enabled;
}
bool UIControl::isTracking() const
{
    return ControlImpl::of(*this).tracking;
}

bool UIControl::isHighlighted() const
{
    const auto& control = ControlImpl::of(*this);
    return control.tracking && control.inside;
}

void UIControl::touchesBeganWithEvent(UIEvent& event)
{
    auto& control = ControlImpl::of(*this);
    if (!control.enabled)
        return; // It keeps the touch from whatever is behind it, and does nothing with it.
    if (!beginTrackingWithTouch(event.touch(), event)) {
        UIView::touchesBeganWithEvent(event);
        return;
    }
    control.tracking = true;
    control.inside = true;
    highlightedDidChange();
    sendActionsForControlEvents(UIControlEventTouchDown, &event);
}

void UIControl::touchesMovedWithEvent(UIEvent& event)
{
    auto& control = ControlImpl::of(*this);
    if (!control.tracking) {
        if (control.enabled)
            UIView::touchesMovedWithEvent(event);
        return;
    }
    const auto kept = weak_from_this().lock();
    const auto reach = CGRectInset(bounds(), -controlTrackingMargin, -controlTrackingMargin);
    const auto wasInside = control.inside;
    control.inside = CGRectContainsPoint(reach, event.touch().locationInView(this));
    if (wasInside != control.inside)
        highlightedDidChange();
    continueTrackingWithTouch(event.touch(), event);
    // The movement that crosses the edge counts as a drag as well.
    sendActionsForControlEvents(
        control.inside ? UIControlEventTouchDragInside : UIControlEventTouchDragOutside, &event);
    if (wasInside != control.inside)
        sendActionsForControlEvents(
            control.inside ? UIControlEventTouchDragEnter : UIControlEventTouchDragExit, &event);
}

void UIControl::touchesEndedWithEvent(UIEvent& event)
{
    auto& control = ControlImpl::of(*this);
    if (!control.tracking) {
        if (control.enabled)
            UIView::touchesEndedWithEvent(event);
        return;
    }
    const auto kept = weak_from_this().lock();
    const auto reach = CGRectInset(bounds(), -controlTrackingMargin, -controlTrackingMargin);
    const auto inside = CGRectContainsPoint(reach, event.touch().locationInView(this));
    control.inside = inside;
    endTrackingWithTouch(event.touch(), event);
    control.tracking = false;
    control.inside = false;
    highlightedDidChange();
    sendActionsForControlEvents(inside ? UIControlEventTouchUpInside : UIControlEventTouchUpOutside, &event);
}

void UIControl::touchesCancelledWithEvent(UIEvent& event)
{
    auto& control = ControlImpl::of(*this);
    if (!control.tracking) {
        if (control.enabled)
            UIView::touchesCancelledWithEvent(event);
        return;
    }
    const auto kept = weak_from_this().lock();
    control.tracking = false;
    control.inside = false;
    highlightedDidChange();
    sendActionsForControlEvents(UIControlEventTouchCancel, &event);
}

}

#pragma once

#include "host/Phone.h"
#include "platform/UITableView.h"

#include <optional>
#include <string>

namespace host {

/// What answers a touch and, of a kind that is known, in the same way wherever it is tapped. Two are equal
/// when a tap on either does the same.
struct Actor {
    enum class Kind { None, Button, Switch, Segment, Field, Row };

    Kind kind = Kind::None;
    platform::UIView* view = nullptr; ///< Of a row, its table; of a segment, its label.
    std::optional<platform::NSIndexPath> row;

    /// Of a tap at the point. `None` where it matters where one taps, and where that is not known.
    static Actor at(platform::UIWindow&, platform::CGPoint);

    explicit operator bool() const { return kind != Kind::None; }
    bool operator==(const Actor&) const = default;
};

/// The command that taps the actor by what a person sees of it, as the driver finds it without scrolling
/// anything: a line, or nothing when no name leads to it.
std::string nameOf(Phone&, const Actor&);

/// The scroller that takes a touch which meets this view, when nothing between the two is interested; null
/// when something may be.
platform::UIScrollView* pannedBy(platform::UIView*);

}

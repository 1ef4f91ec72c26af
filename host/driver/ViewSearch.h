#pragma once

#include "platform/UITextField.h"
#include "platform/UIWindow.h"

#include <optional>
#include <string>
#include <vector>

namespace platform {
class PSTableCell;
}

/// Finds views by what a person sees of them.
namespace host {

/// What a label, a button or a field shows; a field's hidden characters as bullets. Nothing for other views.
std::optional<std::string> shownText(platform::UIView&);

/// The row's cell around the view, or null.
platform::PSTableCell* cellAround(platform::UIView*);

/// The views that show exactly this text, or as a field show it for want of another, front to back; views
/// that are hidden or clear are left out. A button stands for its label.
std::vector<platform::UIView*> viewsShowing(platform::UIView& root, std::string_view text);

/// The first in the window, back to front, of this class; null when there is none.
platform::UIView* firstViewOfClass(platform::UIView& root, std::string_view className);

/// The one that is seen at a point of the window, whether it takes touches or not; null outside the root, and
/// where nothing is shown.
platform::UIView* foremostViewAt(platform::UIView& root, platform::CGPoint);

/// In the window.
platform::CGRect rectInWindow(const platform::UIView&);
platform::CGPoint middleInWindow(const platform::UIView&);

/// True when the window, and every scroller around the view, lets the point be seen.
bool isInSight(const platform::UIView&, platform::CGPoint);

/// Scrolls the scrollers around the view as little as it takes to show it; one that is too high for its
/// scroller is shown around its middle.
void scrollIntoSight(platform::UIView&);
/// Whether that would scroll any of them.
bool needsScrolling(const platform::UIView&);

/// True when a touch at the point meets something that hides the view, or keeps touches from it, rather than
/// the view, something in it, what it lies in, or a see-through control that lies over it to take its
/// touches.
bool isCovered(platform::UIWindow&, const platform::UIView&, platform::CGPoint);

}

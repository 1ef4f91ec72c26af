#pragma once

#include "host/Phone.h"

#include <optional>
#include <string>
#include <vector>

namespace platform {
class UIButton;
}

/// Which view a command means that names what it touches.
namespace host {

/// What a tap on the view is meant for: the control of the row whose title the view is, else the view.
platform::UIView& meantBy(platform::UIView&);

/// Brings the view into sight with the row that it lies in, as far as the row fits.
void show(Phone&, platform::UIView&);
/// Whether that would scroll nothing.
bool isShownAlready(platform::UIView&);
/// A long page has no cells, and so no texts, far from what is in sight.
void showRowTitled(Phone&, const std::string& title);

/// What is in sight comes before what has to be scrolled to; the order stays otherwise.
void bringInSightFirst(std::vector<platform::UIView*>&);
/// In sight, but below something that keeps touches from it.
bool isOutOfReach(platform::UIWindow&, const platform::UIView&);

/// Where to touch the view, scrolled into sight if need be; nothing when it cannot be touched.
std::optional<platform::CGPoint> touchablePlace(Phone&, platform::UIView&);

/// Where `tap "TEXT"` and a tap on a row would touch, as far as nothing has to be scrolled for it: nothing
/// otherwise, and when they would fail. They change nothing.
std::optional<platform::CGPoint> unscrolledPlaceOfText(platform::UIWindow&, const std::string& text);
std::optional<platform::CGPoint> unscrolledPlaceOf(platform::UIWindow&, platform::UIView&);

/// The first in the view, back to front, with this title; null when there is none.
platform::UIButton* buttonTitled(platform::UIView&, std::string_view title);

}

#pragma once

#include <string>
#include <vector>

namespace platform {
class UIButton;
class UILabel;
class UIView;
}

namespace host {

/// False for what is hidden or clear itself, whatever lies around it.
bool isShownItself(const platform::UIView&);

/// A text as it is read out: without the marks that steer the direction of writing, and trimmed.
std::string spokenText(const std::string&);

/// The label's text is what an untitled button beside it, which lies over it, is known by.
bool isCoveredByButton(const platform::UILabel&);

/// The title of a button; of an untitled one what it lies over, read in order, with the label in the same
/// line before it when that alone has no letter; else the name of its class.
std::string nameOfButton(const platform::UIButton&);

/// The nearest label beside the view that begins above the view's middle and that nothing covers; empty when
/// there is none near.
std::string nameFromNearbyLabel(const platform::UIView&);

}

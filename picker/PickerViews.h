#pragma once

#include "platform/UIButton.h"
#include "platform/UIImageView.h"
#include "platform/UILabel.h"

#include <string_view>

namespace vekora {

/// The views that every picker is made of, in their common look.

/// A blue line of text that follows the picker's size.
platform::Ref<platform::UILabel> makePickerLabel(
    platform::CGRect frame, const char* text, platform::NSTextAlignment);

/// The height of a line of such text.
platform::CGFloat measuredLabelHeight(platform::CGFloat pickerWidth);

/// An untitled, faintly tinted button to lie over a label; a tap sends the target the action.
platform::Ref<platform::UIButton> makeValueButton(
    platform::CGRect frame, platform::NSObject* target, std::string_view action);

/// An unseen button to lie over a field or bar; the target is sent "touchesMovedButton:withEvent:" and
/// "touchesEndedButton:withEvent:".
platform::Ref<platform::UIButton> makeTouchEater(platform::CGRect frame, platform::NSObject* target);

/// Places a field or bar and gives it its thin black frame with round corners.
void frameGradientView(platform::UIView&, platform::CGRect frame);

/// A ring with a shadow, to be filled with the picked colour.
platform::Ref<platform::UIView> makeCrossHairs(platform::CGRect frame);

/// Empty when the bundle's marker image is missing.
platform::Ref<platform::UIImageView> makeBarSelector(platform::CGRect frame);

}

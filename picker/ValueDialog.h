#pragma once

#include "Axis.h"

#include "platform/UIAlertView.h"

#include <optional>
#include <string_view>

namespace vekora {

/// An alert that asks for a value in whole units: degrees for hue, percent for the others.
platform::Ref<platform::UIAlertView> makeValueDialog(
    Component, platform::CGFloat currentValue, platform::UIAlertViewDelegate*);

/// The selector, of a picker, that opens such an alert.
std::string_view valueDialogAction(Component);

/// The index of the button that confirms such an alert.
inline constexpr long valueDialogOK = 1;

struct TypedValue {
    Component component;
    platform::CGFloat value; ///< As typed, out of 0..1 too; a text that does not start with a number is 0.

    bool operator==(const TypedValue&) const = default;
};

/// What was typed into an alert; nothing when it is not one of the above.
std::optional<TypedValue> typedValue(platform::UIAlertView&);

}

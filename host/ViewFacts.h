#pragma once

#include "platform/Geometry.h"
#include "platform/UIColor.h"

#include <optional>
#include <string>

namespace platform {
class UIView;
}

namespace host {

/// What can be told of a view, as the driver's tree and the inspector show it. Copied, so that it may outlive
/// the view. Fields that only some views have are absent in others.
struct ViewFacts {
    std::string className; ///< The registered name.
    platform::CGRect frame; ///< In the view around it.
    platform::CGRect onScreen; ///< In the window.
    bool isHidden = false;
    platform::CGFloat alpha = 1;
    unsigned mask = 0; ///< Bits of UIViewAutoresizing.
    long tag = 0;

    std::optional<platform::CGColor> background {}; ///< The layer's.
    platform::CGFloat cornerRadius = 0;
    platform::CGFloat borderWidth = 0;
    std::optional<platform::CGColor> borderColor {}; ///< With a border.
    bool masksToBounds = false;

    std::optional<std::string> text {}; ///< Labels, buttons, text fields: what they show.
    std::optional<platform::CGColor> textColor {}; ///< The same.
    std::optional<int> alignment {}; ///< Labels and text fields: 0 left, 1 centre, 2 right.
    std::optional<long> lines {}; ///< Labels: how many at most; 0 is any number.
    std::optional<double> value {}; ///< Sliders; of segments the chosen one from 0, or −1.
    std::optional<double> minimum {}, maximum {}; ///< Sliders.
    std::optional<bool> isOn {}; ///< Switches.
    std::optional<bool> isEnabled {}; ///< All controls.

    static ViewFacts of(platform::UIView&);

    bool operator==(const ViewFacts&) const = default;
};

}

#pragma once

namespace platform {

enum class UIFontWeight { Regular, Medium, Semibold };

/// The system font (or what stands in for it) at a size in points.
struct UIFont {
    double pointSize = 17;
    UIFontWeight weight = UIFontWeight::Regular;

    static UIFont systemFontOfSize(double size) { return { size, UIFontWeight::Regular }; }

    bool operator==(const UIFont&) const = default;
};

inline constexpr double labelFontSize = 17;

}

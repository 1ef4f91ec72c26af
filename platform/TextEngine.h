#pragma once

#include "Bitmap.h"
#include "Geometry.h"
#include "UIColor.h"
#include "UIFont.h"
#include "UILabel.h"

#include <string>
#include <string_view>

namespace platform {

/// Measures and draws text; the desktop's own text layout is behind it.
struct TextStyle {
    UIFont font;
    NSTextAlignment alignment = NSTextAlignment::Left;
    long numberOfLines = 1; ///< 0: as many as it takes.
};

/// In points, not rounded. One line is not limited by the width; several wrap at it.
CGSize measureText(std::string_view utf8, const TextStyle&, CGFloat width);

/// Height of one line in points, not rounded.
CGFloat lineHeight(const UIFont&);

/// In capitals, by the rules of the device's language.
std::string capitals(std::string_view utf8);

/// Draws into `target`, which is `rect.size()` at `scale` pixels a point; lines stand in its vertical middle,
/// and what does not fit ends in an ellipsis.
void drawText(
    Bitmap& target, double scale, std::string_view utf8, const TextStyle&, const CGColor&, CGSize size);

}

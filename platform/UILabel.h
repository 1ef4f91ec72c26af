#pragma once

#include "UIFont.h"
#include "UIView.h"

#include <string>

namespace platform {

/// The phone's numbers.
enum class NSTextAlignment { Left = 0, Center = 1, Right = 2, Justified = 3, Natural = 4 };

/// Text: 17-point system font, black, left-aligned, one line that ends in an ellipsis when it is too long.
/// Touches pass through it. Repaints itself when its text, its look or its size changes.
class UILabel : public UIView {
public:
    UILabel();
    explicit UILabel(CGRect frame);

    const std::string& text() const; ///< UTF-8.
    void setText(std::string);
    const UIFont& font() const;
    void setFont(UIFont);
    const UIColor& textColor() const;
    void setTextColor(UIColor);
    NSTextAlignment textAlignment() const;
    void setTextAlignment(NSTextAlignment);
    long numberOfLines() const; ///< 0: as many as it takes.
    void setNumberOfLines(long);

    /// One line is not limited by the width given; several wrap at it. Rounded up to whole device pixels. An
    /// empty text is one line high and has no width.
    CGSize sizeThatFits(CGSize) const override;
    void drawRect(CGRect) override;

protected:
    UILabel(CGRect frame, std::unique_ptr<Impl>);
    struct LabelImpl;
};

}

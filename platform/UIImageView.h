#pragma once

#include "UIImage.h"
#include "UIView.h"

namespace platform {

/// Shows an image stretched over its bounds, or nothing. Takes no touches.
class UIImageView : public UIView {
public:
    UIImageView();
    explicit UIImageView(CGRect frame);

    const std::optional<UIImage>& image() const;
    void setImage(std::optional<UIImage>);

protected:
    struct ImageViewImpl;
};

}

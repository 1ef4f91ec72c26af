#pragma once

#include "platform/PSTableCell.h"

namespace gallery {

/// A row with one colour field or bar, as large as the row. Its "view" property is the view's class.
class GalleryGradientCell final : public platform::PSTableCell {
public:
    GalleryGradientCell(long style, std::string reuseIdentifier, platform::Ref<platform::PSSpecifier>);
    ~GalleryGradientCell() override;

    void layoutSubviews() override;

private:
    platform::Ref<platform::UIView> _gradient;
    int _observer = 0;
};

}

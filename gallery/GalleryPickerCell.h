#pragma once

#include "platform/PSTableCell.h"

namespace gallery {

/// A row with one picker. Its "picker" property is the letter of the kind: B, H or S.
class GalleryPickerCell final : public platform::PSTableCell {
public:
    GalleryPickerCell(long style, std::string reuseIdentifier, platform::Ref<platform::PSSpecifier>);
    ~GalleryPickerCell() override;

private:
    template <typename Picker> void show();

    int _observer = 0;
};

}

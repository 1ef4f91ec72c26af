#pragma once

#include "platform/Geometry.h"

namespace vekora {

/// Whether the picker lies above the sliders or below them.
enum class PickerPlace { Above, Below };

/// Where everything lies in a colour cell as wide as this, in points. Channels are counted from 0.
struct ColorCellLayout {
    platform::CGFloat width;
    PickerPlace pickerPlace;

    /// Centred; as large as the text that it has room for.
    platform::CGRect hexReadOut(platform::CGSize text) const;
    platform::CGRect sample() const;
    platform::CGRect title(int channel) const;
    platform::CGRect value(int channel) const;
    platform::CGRect slider(int channel) const;
    platform::CGRect picker() const;
    platform::CGRect help() const;

private:
    platform::CGFloat topOf(int channel) const;
};

}

#pragma once

#include "Geometry.h"

#include <memory>
#include <optional>
#include <string_view>

namespace platform {

struct Bitmap;

/// A picture from a file: as many points wide as its @1x file has pixels.
class UIImage {
public:
    /// An absolute device path, with or without ".png"; the file for the screen's scale (NAME@2x.png,
    /// NAME@3x.png) is taken where there is one. Nothing when no file is there or it holds no image.
    static std::optional<UIImage> imageNamed(std::string_view devicePath);

    CGSize size() const { return _size; } ///< In points.
    double scale() const { return _scale; } ///< Pixels a point.
    const std::shared_ptr<const Bitmap>& bitmap() const { return _bitmap; }

    UIImage(std::shared_ptr<const Bitmap>, double scale);

private:
    std::shared_ptr<const Bitmap> _bitmap;
    CGSize _size;
    double _scale = 1;
};

}

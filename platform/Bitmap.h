#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace platform {

/// A rectangle of whole device pixels.
struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    int right() const { return x + width; }
    int bottom() const { return y + height; }
    bool isEmpty() const { return width <= 0 || height <= 0; }
    PixelRect intersected(PixelRect) const;
    PixelRect united(PixelRect) const; ///< The smallest around both; an empty one adds nothing.

    bool operator==(const PixelRect&) const = default;
};

/// Pixels as 0xAARRGGBB, premultiplied, row by row without gaps.
struct Bitmap {
    int width = 0;
    int height = 0;
    std::unique_ptr<std::uint32_t[]> pixels;

    Bitmap() = default;
    /// Uninitialised pixels; negative lengths count as 0.
    Bitmap(int width, int height);
    static Bitmap cleared(int width, int height); ///< Transparent.

    PixelRect rect() const { return { 0, 0, width, height }; }
    std::uint32_t* row(int y) { return pixels.get() + static_cast<std::ptrdiff_t>(y) * width; }
    const std::uint32_t* row(int y) const { return pixels.get() + static_cast<std::ptrdiff_t>(y) * width; }
    std::uint32_t at(int x, int y) const { return row(y)[x]; }
    bool isEmpty() const { return width <= 0 || height <= 0; }
};

}

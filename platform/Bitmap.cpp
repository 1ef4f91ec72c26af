#include "Bitmap.h"

#include <algorithm>

namespace platform {

PixelRect PixelRect::intersected(PixelRect other) const
{
    const auto left = std::max(x, other.x);
    const auto top = std::max(y, other.y);
    return { left, top, std::max(0, std::min(right(), other.right()) - left),
        std::max(0, std::min(bottom(), other.bottom()) - top) };
}

PixelRect PixelRect::united(PixelRect other) const
{
    if (isEmpty())
        return other;
    if (other.isEmpty())
        return *this;
    const auto left = std::min(x, other.x);
    const auto top = std::min(y, other.y);
    return { left, top, std::max(right(), other.right()) - left, std::max(bottom(), other.bottom()) - top };
}

Bitmap::Bitmap(int width, int height)
    : width(std::max(0, width))
    , height(std::max(0, height))
    , pixels(
          new std::uint32_t[static_cast<std::size_t>(this->width) * static_cast<std::size_t>(this->height)])
{
}

Bitmap Bitmap::cleared(int width, int height)
{
    Bitmap bitmap(width, height);
    std::fill_n(bitmap.pixels.get(), static_cast<std::size_t>(bitmap.width) * bitmap.height, 0U);
    return bitmap;
}

}

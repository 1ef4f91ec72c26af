#include "platform/UIImage.h"
#include "ImageFile.h"
#include "platform/Device.h"
#include "platform/qt/DeviceFiles.h"
#include "TextEngine.h"

#include <QImage>

#include <algorithm>
#include <string>

namespace platform {

namespace {

constexpr std::size_t largestImage = 16U << 20U; // Bytes in the file; no icon or marker is near it.
constexpr int largestSide = 8192; // Pixels.

}

std::shared_ptr<const Bitmap> bitmapFromImageFile(const std::string& devicePath)
{
    const auto bytes = contentsOfFile(devicePath);
    if (!bytes || bytes->size() > largestImage)
        return nullptr;
    auto image
        = QImage::fromData(reinterpret_cast<const uchar*>(bytes->data()), static_cast<int>(bytes->size()));
    if (image.isNull() || image.width() > largestSide || image.height() > largestSide)
        return nullptr;
    image = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    auto bitmap = std::make_shared<Bitmap>(image.width(), image.height());
    for (int y = 0; y < bitmap->height; ++y) {
        const auto* line = reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
        std::copy_n(line, bitmap->width, bitmap->row(y));
    }
    return bitmap;
}

UIImage::UIImage(std::shared_ptr<const Bitmap> bitmap, double scale)
    : _bitmap(std::move(bitmap))
    , _size { _bitmap->width / scale, _bitmap->height / scale }
    , _scale(scale)
{
}

std::optional<UIImage> UIImage::imageNamed(std::string_view devicePath)
{
    constexpr std::string_view extension = ".png";
    auto stem = std::string(devicePath);
    if (stem.ends_with(extension))
        stem.resize(stem.size() - extension.size());
    // The screen's own scale first, then larger ones, then smaller.
    const auto own = static_cast<int>(Device::current().scale);
    for (const auto scale : { own, 3, 2, 1 }) {
        const auto suffix = scale == 1 ? std::string() : "@" + std::to_string(scale) + "x";
        if (auto bitmap = bitmapFromImageFile(stem + suffix + std::string(extension)))
            return UIImage(std::move(bitmap), scale);
    }
    return std::nullopt;
}

}

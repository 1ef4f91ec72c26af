#include "host/sheet/IndexedPng.h"

#include <gtest/gtest.h>
#include <QImage>

using platform::Bitmap;

namespace {

Bitmap pictureWith(int colors)
{
    Bitmap picture(97, 31);
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x)
            picture.row(y)[x]
                = 0xFF000000U | static_cast<std::uint32_t>((y / 3 * 97 + x) % colors) * 0x01F3B7U % 0xFFFFFFU;
    }
    return picture;
}

TEST(IndexedPng, KeepsEveryPixel)
{
    for (const int colors : { 1, 2, 255, 256, 257, 900, 3007 }) {
        const auto picture = pictureWith(colors);
        const auto image
            = QImage::fromData(host::indexedPng(picture), "PNG").convertToFormat(QImage::Format_RGB32);
        ASSERT_EQ(image.size(), QSize(picture.width, picture.height)) << colors;
        for (int y = 0; y < picture.height; ++y) {
            for (int x = 0; x < picture.width; ++x)
                ASSERT_EQ(image.pixel(x, y), picture.at(x, y)) << colors << " colours, " << x << ", " << y;
        }
    }
}

}

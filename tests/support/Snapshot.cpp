#include "Snapshot.h"

#include <QImage>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

using platform::Bitmap;
using platform::PixelRect;

namespace {

constexpr int tolerance = 2; // Of 255, outside the exact parts.

QImage imageOf(const Bitmap& picture)
{
    const QImage look(reinterpret_cast<const uchar*>(picture.pixels.get()), picture.width, picture.height,
        picture.width * 4, QImage::Format_ARGB32_Premultiplied);
    return look.convertToFormat(QImage::Format_RGB32);
}

bool contains(const PixelRect& rect, int x, int y)
{
    return x >= rect.x && x < rect.right() && y >= rect.y && y < rect.bottom();
}

int distance(QRgb a, QRgb b)
{
    return std::max(
        { std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b)) });
}

}

testing::AssertionResult matchesSnapshot(
    const Bitmap& picture, const std::string& name, const std::vector<PixelRect>& exact)
{
    const auto file = std::filesystem::path(VEKORA_SNAPSHOTS) / (name + ".png");
    const auto actual = imageOf(picture);
    if (std::getenv("VEKORA_ACCEPT_SNAPSHOTS")) {
        if (!actual.save(QString::fromStdString(file.string())))
            return testing::AssertionFailure() << file << " can't be written";
        return testing::AssertionSuccess();
    }
    const auto expected = QImage(QString::fromStdString(file.string())).convertToFormat(QImage::Format_RGB32);
    const auto left = std::filesystem::path(VEKORA_SNAPSHOT_FAILURES);
    std::filesystem::create_directories(left);
    const auto keepActual
        = [&] { actual.save(QString::fromStdString((left / (name + ".actual.png")).string())); };
    if (expected.size() != actual.size()) {
        keepActual();
        return testing::AssertionFailure() << name << " is " << actual.width() << "x" << actual.height()
                                           << ", expected " << expected.width() << "x" << expected.height();
    }
    int wrong = 0;
    int worst = 0;
    QImage difference(actual.size(), QImage::Format_RGB32);
    difference.fill(Qt::white);
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            const auto off = distance(actual.pixel(x, y), expected.pixel(x, y));
            const auto isExact = std::any_of(
                exact.begin(), exact.end(), [&](const auto& rect) { return contains(rect, x, y); });
            worst = std::max(worst, off);
            if (off <= (isExact ? 0 : tolerance))
                continue;
            ++wrong;
            difference.setPixel(x, y, qRgb(255, 0, 0));
        }
    }
    if (!wrong)
        return testing::AssertionSuccess();
    keepActual();
    difference.save(QString::fromStdString((left / (name + ".difference.png")).string()));
    return testing::AssertionFailure()
        << wrong << " pixels of " << name << " differ, by " << worst << " at most; see " << left;
}

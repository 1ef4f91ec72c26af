#include "SheetDocument.h"

#include "IndexedPng.h"

#include <QCryptographicHash>
#include <QImage>

#include <algorithm>

namespace host {

using platform::Bitmap;

namespace {

QImage imageOf(const SheetDocument& sheet, const QByteArray& id)
{
    const auto found = sheet.pictures.find(id);
    return found == sheet.pictures.end() ? QImage()
                                         : QImage::fromData(QByteArray::fromBase64(found->second), "PNG")
                                               .convertToFormat(QImage::Format_RGB32);
}

/// What both have alike is pale; what differs, or only one has, is red.
QByteArray differencePicture(const QImage& before, const QImage& after)
{
    constexpr QRgb different = 0xFFE0002B;
    constexpr int paleness = 4;
    Bitmap result(std::max(before.width(), after.width()), std::max(before.height(), after.height()));
    for (int y = 0; y < result.height; ++y) {
        const bool bothReach = y < before.height() && y < after.height();
        const auto* old = bothReach ? reinterpret_cast<const QRgb*>(before.constScanLine(y)) : nullptr;
        const auto* now = bothReach ? reinterpret_cast<const QRgb*>(after.constScanLine(y)) : nullptr;
        const auto common = bothReach ? std::min(before.width(), after.width()) : 0;
        for (int x = 0; x < result.width; ++x) {
            const bool isSame = x < common && old[x] == now[x];
            const auto gray = isSame ? 255 - (255 - qGray(now[x])) / paleness : 0;
            result.row(y)[x] = isSame ? qRgb(gray, gray, gray) : different;
        }
    }
    return indexedPng(result);
}

}

std::string SheetDocument::Entry::key() const
{
    return state + '\n' + std::to_string(page) + '\n' + phone + '\n' + std::to_string(scale) + '\n' + locale;
}

std::string SheetDocument::Comparison::summary() const
{
    return std::to_string(same) + " same, " + std::to_string(changed.size()) + " changed, "
        + std::to_string(added.size()) + " new, " + std::to_string(gone.size()) + " gone";
}

void SheetDocument::compareWith(const SheetDocument& earlier)
{
    std::map<std::string, const Entry*> before;
    for (const auto& entry : earlier.entries)
        before[entry.key()] = &entry;
    Comparison result;
    std::map<std::pair<QByteArray, QByteArray>, QByteArray> differences;
    const auto takeOver = [&](const QByteArray& id) {
        if (const auto found = earlier.pictures.find(id); found != earlier.pictures.end())
            pictures.insert(*found);
    };
    for (const auto& entry : entries) {
        const auto found = before.find(entry.key());
        if (found == before.end()) {
            result.added.push_back(entry);
            continue;
        }
        const auto& old = *found->second;
        before.erase(found);
        if (old.id == entry.id) {
            ++result.same;
            continue;
        }
        auto& difference = differences[{ old.id, entry.id }];
        if (difference.isEmpty()) {
            const auto png = differencePicture(imageOf(earlier, old.id), imageOf(*this, entry.id));
            difference = QCryptographicHash::hash(png, QCryptographicHash::Sha1).toHex().left(20);
            pictures[difference] = png.toBase64();
        }
        takeOver(old.id);
        result.changed.push_back({ old, entry, difference });
    }
    for (const auto& entry : earlier.entries) {
        if (!before.contains(entry.key()))
            continue;
        result.gone.push_back(entry);
        takeOver(entry.id);
    }
    comparison = std::move(result);
}

}

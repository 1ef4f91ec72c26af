#include "SheetDocument.h"

#include "IndexedPng.h"

#include <QCryptographicHash>
#include <QImage>
#include <QImageReader>

#include <algorithm>
#include <atomic>
#include <future>
#include <stdexcept>
#include <thread>

namespace host {

using platform::Bitmap;

namespace {

constexpr int largestPicture = 2048; // Megabytes of one that is read; more than the largest phone's.

/// Of an earlier picture and a later one: where pixels differ, as a PNG; empty where none does.
using Differences = std::map<std::pair<QByteArray, QByteArray>, QByteArray>;

/// Throws std::runtime_error with one sentence.
QImage imageOf(const SheetDocument& sheet, const QByteArray& id)
{
    const auto image = QImage::fromData(QByteArray::fromBase64(sheet.pictures.at(id)), "PNG");
    if (image.isNull())
        throw std::runtime_error("A picture of the earlier sheet can't be read.");
    return image.convertToFormat(QImage::Format_RGB32);
}

/// What both have alike is pale; what differs, or only one has, is red.
QByteArray differencePicture(const QImage& before, const QImage& after)
{
    constexpr QRgb different = 0xFFE0002B;
    constexpr int paleness = 4;
    if (before == after)
        return {};
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

/// Fills in all of them, with every processor. `tick` is called by this thread.
void findDifferences(const SheetDocument& earlier, const SheetDocument& later, Differences& differences,
    const std::function<void(std::size_t done, std::size_t all)>& tick)
{
    std::vector<Differences::value_type*> open;
    for (auto& difference : differences)
        open.push_back(&difference);
    QImageReader::setAllocationLimit(largestPicture);
    std::atomic<std::size_t> next { 0 };
    std::atomic<std::size_t> done { 0 };
    const auto findNext = [&] {
        const auto index = next.fetch_add(1);
        if (index >= open.size())
            return false;
        auto& [ids, picture] = *open[index];
        picture = differencePicture(imageOf(earlier, ids.first), imageOf(later, ids.second));
        ++done;
        return true;
    };
    const auto findAll = [&](const auto& afterEach) {
        try {
            for (afterEach(); findNext(); afterEach()) { }
        } catch (...) {
            next = open.size(); // Nobody goes on.
            throw;
        }
    };
    std::vector<std::future<void>> others;
    for (auto count = std::thread::hardware_concurrency(); count > 1 && others.size() + 1 < open.size();
         --count)
        others.push_back(std::async(std::launch::async, findAll, [] {}));
    findAll([&] { tick(done, open.size()); });
    for (auto& other : others)
        other.get();
    tick(open.size(), open.size());
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

void SheetDocument::compareWith(
    const SheetDocument& earlier, const std::function<void(std::size_t done, std::size_t all)>& tick)
{
    std::map<std::string, const Entry*> before;
    for (const auto& entry : earlier.entries)
        before[entry.key()] = &entry;
    Comparison result;
    Differences differences;
    for (const auto& entry : entries) {
        const auto found = before.find(entry.key());
        if (found == before.end()) {
            result.added.push_back(entry);
            continue;
        }
        if (found->second->id == entry.id) {
            ++result.same;
        } else {
            result.changed.push_back({ *found->second, entry, {} });
            differences[{ found->second->id, entry.id }];
        }
        before.erase(found);
    }
    findDifferences(earlier, *this, differences, tick);

    const auto takeOver = [&](const QByteArray& id) {
        if (const auto found = earlier.pictures.find(id); found != earlier.pictures.end())
            pictures.insert(*found);
    };
    // Of two pictures with different marks every pixel may still be the same.
    result.same += std::erase_if(result.changed, [&](const Change& change) {
        return differences[{ change.before.id, change.after.id }].isEmpty();
    });
    for (auto& change : result.changed) {
        const auto& png = differences[{ change.before.id, change.after.id }];
        change.difference = QCryptographicHash::hash(png, QCryptographicHash::Sha1).toHex().left(20);
        if (!pictures.contains(change.difference))
            pictures[change.difference] = png.toBase64();
        takeOver(change.before.id);
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

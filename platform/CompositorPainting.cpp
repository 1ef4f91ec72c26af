#include "BlendedRows.h"
#include "Blending.h"
#include "Compositor.h"
#include "Shadow.h"
#include "UIViewImpl.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr int mostRowsRead = 64; // At a time: each reading of contents has to set itself up.

Bitmap stretched(const LayerContents& contents, PixelRect rect, PixelRect part)
{
    Bitmap source(contents.width(), contents.height());
    contents.read(source.rect(), source.pixels.get(), source.width);
    Bitmap result(part.width, part.height);
    const auto at = [&](int x, int y) {
        return source.at(std::clamp(x, 0, source.width - 1), std::clamp(y, 0, source.height - 1));
    };
    for (int y = 0; y < part.height; ++y) {
        const auto sy = (part.y - rect.y + y + 0.5) * source.height / rect.height - 0.5;
        const auto top = static_cast<int>(std::floor(sy));
        const auto down = static_cast<std::uint32_t>((sy - top) * 255 + 0.5);
        for (int x = 0; x < part.width; ++x) {
            const auto sx = (part.x - rect.x + x + 0.5) * source.width / rect.width - 0.5;
            const auto left = static_cast<int>(std::floor(sx));
            const auto across = static_cast<std::uint32_t>((sx - left) * 255 + 0.5);
            const auto upper
                = scaledPixel(at(left, top), 255 - across) + scaledPixel(at(left + 1, top), across);
            const auto lower
                = scaledPixel(at(left, top + 1), 255 - across) + scaledPixel(at(left + 1, top + 1), across);
            result.row(y)[x] = scaledPixel(upper, 255 - down) + scaledPixel(lower, down);
        }
    }
    return result;
}

}

void Compositor::paint(const Item& item, PixelRect part)
{
    switch (item.kind) {
    case Kind::Fill: {
        _row.assign(static_cast<std::size_t>(part.width), item.color);
        const auto solid = item.shape.solidBand();
        for (int y = part.y; y < part.bottom(); ++y) {
            const auto plain = y >= solid.y && y < solid.bottom();
            if (plain && isUnmasked({ part.x, y, part.width, 1 }, item.mask))
                fillPixels(targetRow(y, part.x), item.color, part.width);
            else
                blendRow(y, part.x, _row.size(), _row.data(), plain ? nullptr : &item.shape, item.mask);
        }
        return;
    }
    case Kind::Border:
        return paintBorder(item, part);
    case Kind::Contents:
        return paintContents(item, part);
    case Kind::Shadow:
        return paintShadow(item, part);
    case Kind::Group:
        return paintGroup(item, part);
    }
}

void Compositor::blendRow(
    int y, int x, std::size_t count, const std::uint32_t* source, const RoundedRect* shape, int mask)
{
    // Corners leave the middle of a row as it is; only what lies beside it is blended by coverage.
    const auto end = x + static_cast<int>(count);
    PixelRect plain { x, y, end - x, 1 };
    if (shape)
        plain = plain.intersected(shape->solidColumns(y));
    for (auto outer = mask; outer >= 0; outer = _masks[static_cast<std::size_t>(outer)].outer)
        plain = plain.intersected(_masks[static_cast<std::size_t>(outer)].shape.solidColumns(y));
    if (plain.isEmpty())
        return blendCovered(y, x, count, source, shape, mask);
    const auto part = [&](int from, int to) {
        if (from < to)
            blendCovered(y, from, static_cast<std::size_t>(to - from), source + (from - x), shape, mask);
    };
    part(x, plain.x);
    blendPixels(targetRow(y, plain.x), source + (plain.x - x), plain.width);
    part(plain.right(), end);
}

void Compositor::blendCovered(
    int y, int x, std::size_t count, const std::uint32_t* source, const RoundedRect* shape, int mask)
{
    auto* const target = targetRow(y, x);
    _coverage.resize(count);
    if (shape)
        shape->coverageOfRow(y, x, _coverage);
    else
        std::fill(_coverage.begin(), _coverage.end(), std::uint8_t { 255 });
    for (; mask >= 0; mask = _masks[static_cast<std::size_t>(mask)].outer) {
        _maskCoverage.resize(count);
        _masks[static_cast<std::size_t>(mask)].shape.coverageOfRow(y, x, _maskCoverage);
        for (std::size_t index = 0; index < count; ++index)
            _coverage[index]
                = static_cast<std::uint8_t>((_coverage[index] * _maskCoverage[index] + 127) / 255);
    }
    for (std::size_t index = 0; index < count; ++index) {
        if (_coverage[index])
            target[index] = blendedPixel(scaledPixel(source[index], _coverage[index]), target[index]);
    }
}

void Compositor::paintContents(const Item& item, PixelRect part)
{
    const auto& contents = *item.view->impl().contents;
    const auto& rect = item.shape.rect;
    if (contents.width() <= 0 || contents.height() <= 0)
        return;
    if (!fits(contents, rect)) {
        const auto picture = stretched(contents, rect, part);
        for (int y = 0; y < part.height; ++y)
            blendRow(
                part.y + y, part.x, static_cast<std::size_t>(part.width), picture.row(y), nullptr, item.mask);
        return;
    }
    part = part.intersected({ rect.x, rect.y, contents.width(), contents.height() });
    if (part.isEmpty())
        return;
    const auto inContents = [&](PixelRect r) {
        return PixelRect { r.x - rect.x, r.y - rect.y, r.width, r.height };
    };
    auto direct = contents.isOpaque() ? solidPart(part, item.mask) : PixelRect {};
    if (direct.x != part.x || direct.width != part.width)
        direct = {}; // Rows are painted whole, one way or the other.
    if (!direct.isEmpty())
        contents.read(inContents(direct), targetRow(direct.y, direct.x), _target.width);
    const auto blendBand = [&](int top, int bottom) {
        for (int y = top; y < bottom; y += mostRowsRead) {
            const PixelRect band { part.x, y, part.width, std::min(mostRowsRead, bottom - y) };
            _row.resize(static_cast<std::size_t>(band.width) * static_cast<std::size_t>(band.height));
            contents.read(inContents(band), _row.data(), band.width);
            for (int row = 0; row < band.height; ++row)
                blendRow(y + row, band.x, static_cast<std::size_t>(band.width),
                    _row.data() + static_cast<std::ptrdiff_t>(row) * band.width, nullptr, item.mask);
        }
    };
    if (direct.isEmpty())
        return blendBand(part.y, part.bottom());
    blendBand(part.y, direct.y);
    blendBand(direct.bottom(), part.bottom());
}

void Compositor::paintBorder(const Item& item, PixelRect part)
{
    const auto width
        = std::max(1, static_cast<int>(std::floor(item.view->layer().borderWidth() * _scale + 0.5)));
    const auto& outer = item.shape;
    const RoundedRect inner { { outer.rect.x + width, outer.rect.y + width, outer.rect.width - 2 * width,
                                  outer.rect.height - 2 * width },
        std::max(0.0, outer.radius - width) };
    const auto corner = outer.cornerRows();
    const auto solid = outer.solidBand();
    std::vector<std::uint8_t> hole;
    const auto ring = [&](int y, int x, int count) {
        if (count <= 0)
            return;
        _row.resize(static_cast<std::size_t>(count));
        _coverage.resize(_row.size());
        hole.resize(_row.size());
        outer.coverageOfRow(y, x, _coverage);
        inner.coverageOfRow(y, x, hole);
        for (std::size_t index = 0; index < _row.size(); ++index)
            _row[index] = scaledPixel(
                item.color, static_cast<std::uint32_t>(std::max(0, _coverage[index] - hole[index])));
        blendRow(y, x, _row.size(), _row.data(), nullptr, item.mask);
    };
    for (int y = part.y; y < part.bottom(); ++y) {
        // Below the upper edge and above the lower one, only the sides and the corners hold any of it.
        if (inner.rect.isEmpty() || y < inner.rect.y || y >= inner.rect.bottom()) {
            ring(y, part.x, part.width);
            continue;
        }
        const auto side = y >= solid.y && y < solid.bottom() ? width : std::max(width, corner);
        ring(y, part.x, std::min(part.right(), outer.rect.x + side) - part.x);
        const auto right = std::max({ part.x, outer.rect.x + side, outer.rect.right() - side });
        ring(y, right, part.right() - right);
    }
}

void Compositor::paintShadow(const Item& item, PixelRect part)
{
    const auto& shape = item.shape;
    if (shape.rect.isEmpty())
        return;
    const auto mask = shadowMask(
        shape.rect.width, shape.rect.height, shape.radius, item.view->layer().shadowRadius() * _scale);
    const PixelRect place { shape.rect.x - mask->margin, shape.rect.y - mask->margin, mask->width,
        mask->height };
    part = part.intersected(place);
    _row.resize(static_cast<std::size_t>(std::max(0, part.width)));
    for (int y = part.y; y < part.bottom(); ++y) {
        const auto* alpha
            = mask->alpha.data() + static_cast<std::size_t>(y - place.y) * mask->width + (part.x - place.x);
        for (std::size_t index = 0; index < _row.size(); ++index)
            _row[index] = scaledPixel(item.color, alpha[index]);
        blendRow(y, part.x, _row.size(), _row.data(), nullptr, item.mask);
    }
}

void Compositor::paintGroup(const Item& item, PixelRect part)
{
    auto picture = Bitmap::cleared(part.width, part.height);
    Compositor group(picture, part.x, part.y, _scale);
    group.collect(*item.view, item.x, item.y, part, -1, true);
    for (const auto& member : group._items)
        group.paint(member, member.visible);
    const auto alpha = static_cast<std::uint32_t>(item.view->alpha() * 255 + 0.5);
    for (int y = 0; y < part.height; ++y) {
        std::transform(picture.row(y), picture.row(y) + part.width, picture.row(y),
            [alpha](auto pixel) { return scaledPixel(pixel, alpha); });
        blendRow(
            part.y + y, part.x, static_cast<std::size_t>(part.width), picture.row(y), nullptr, item.mask);
    }
}

}

#include "Compositor.h"
#include "Blending.h"
#include "UIViewImpl.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr std::size_t mostPieces
    = 12; // Of what is left of an item under opaque ones; beyond, it is just painted.
constexpr int smallestOccluder = 2048; // Pixels; cutting around less than that does not pay.

// What of `rect` lies outside `hole`: up to four pieces.
void subtract(PixelRect rect, PixelRect hole, std::vector<PixelRect>& pieces)
{
    hole = rect.intersected(hole);
    if (hole.isEmpty()) {
        pieces.push_back(rect);
        return;
    }
    const PixelRect parts[] = {
        { rect.x, rect.y, rect.width, hole.y - rect.y },
        { rect.x, hole.bottom(), rect.width, rect.bottom() - hole.bottom() },
        { rect.x, hole.y, hole.x - rect.x, hole.height },
        { hole.right(), hole.y, rect.right() - hole.right(), hole.height },
    };
    std::copy_if(std::begin(parts), std::end(parts), std::back_inserter(pieces),
        [](const auto& part) { return !part.isEmpty(); });
}

}

Compositor::Compositor(Bitmap& target, int originX, int originY, double scale)
    : _target(target)
    , _originX(originX)
    , _originY(originY)
    , _scale(scale)
{
}

PixelRect Compositor::pixelRect(double x, double y, CGSize size) const
{
    // Far away counts as just outside: screens are small, and a row of pixels is counted in ints.
    const auto pixel = [this](double points) {
        return static_cast<int>(std::clamp(std::floor(points * _scale + 0.5), -1e8, 1e8));
    };
    const auto left = pixel(x);
    const auto top = pixel(y);
    return { left, top, pixel(x + size.width) - left, pixel(y + size.height) - top };
}

void Compositor::compose(const UIView& root, PixelRect damage)
{
    damage = damage.intersected({ _originX, _originY, _target.width, _target.height });
    if (damage.isEmpty())
        return;
    _items.clear();
    _masks.clear();
    collect(root, 0, 0, damage, -1, false);

    std::vector<PixelRect> pieces, remaining;
    for (std::size_t index = 0; index < _items.size(); ++index) {
        pieces.assign(1, _items[index].visible);
        for (auto above = index + 1; above < _items.size() && !pieces.empty() && pieces.size() < mostPieces;
             ++above) {
            const auto& opaque = _items[above].opaque;
            if (opaque.width * opaque.height < smallestOccluder)
                continue;
            remaining.clear();
            for (const auto& piece : pieces)
                subtract(piece, opaque, remaining);
            pieces.swap(remaining);
        }
        for (const auto& piece : pieces)
            paint(_items[index], piece);
    }
}

void Compositor::collect(const UIView& view, double x, double y, PixelRect clip, int mask, bool asGroup)
{
    const auto& impl = view.impl();
    if (impl.hidden || impl.alpha <= 0)
        return;
    const auto& layer = impl.layer;
    const auto rect = pixelRect(x, y, impl.bounds.size());
    const RoundedRect shape { rect, layer.cornerRadius() * _scale };

    if (impl.alpha < 1 && !asGroup) {
        const auto covered = impl.coverage();
        auto visible
            = pixelRect(x + covered.x - impl.bounds.x, y + covered.y - impl.bounds.y, covered.size());
        visible
            = PixelRect { visible.x - 1, visible.y - 1, visible.width + 2, visible.height + 2 }.intersected(
                clip);
        if (!visible.isEmpty())
            _items.push_back({ Kind::Group, &view, shape, visible, 0, mask, x, y });
        return;
    }

    if (layer.shadowOpacity() > 0 && !layer.masksToBounds()) {
        const auto reach = static_cast<int>(std::ceil(layer.shadowRadius() * 3 * _scale)) + 1;
        const auto shifted
            = pixelRect(x + layer.shadowOffset().width, y + layer.shadowOffset().height, impl.bounds.size());
        const PixelRect around { shifted.x - reach, shifted.y - reach, shifted.width + 2 * reach,
            shifted.height + 2 * reach };
        if (const auto visible = around.intersected(clip); !visible.isEmpty())
            _items.push_back({ Kind::Shadow, &view, { shifted, shape.radius }, visible,
                pixelOfColor(layer.shadowColor(), layer.shadowOpacity()), mask });
    }

    const auto own = rect.intersected(clip);
    if (!own.isEmpty()) {
        if (layer.backgroundColor()) {
            Item item { Kind::Fill, &view, shape, own, pixelOfColor(*layer.backgroundColor()), mask };
            if (isOpaque(item.color))
                item.opaque = solidPart(shape.solidBand().intersected(own), mask);
            if (item.color)
                _items.push_back(item);
        }
    }
    auto inner = mask;
    if (layer.masksToBounds() && shape.radius > 0) {
        _masks.push_back({ shape, mask });
        inner = static_cast<int>(_masks.size()) - 1;
    }
    if (!own.isEmpty() && impl.contents) {
        Item item { Kind::Contents, &view, { rect, 0 }, own, 0, inner };
        if (impl.contents->isOpaque() && fits(*impl.contents, rect)) {
            const PixelRect filled { rect.x, rect.y, std::min(rect.width, impl.contents->width()),
                std::min(rect.height, impl.contents->height()) };
            item.opaque = solidPart(filled.intersected(own), inner);
        }
        _items.push_back(item);
    }
    const auto innerClip = layer.masksToBounds() ? own : clip;
    if (!innerClip.isEmpty()) {
        for (const auto& subview : impl.subviews) {
            const auto& below = subview->impl();
            collect(*subview, x + below.origin.x - impl.bounds.x, y + below.origin.y - impl.bounds.y,
                innerClip, inner, false);
        }
    }
    if (layer.borderWidth() > 0 && !own.isEmpty())
        _items.push_back({ Kind::Border, &view, shape, own, pixelOfColor(layer.borderColor()), mask });
}

bool Compositor::fits(const LayerContents& contents, PixelRect rect)
{
    return std::abs(contents.width() - rect.width) <= 1 && std::abs(contents.height() - rect.height) <= 1;
}

PixelRect Compositor::solidPart(PixelRect rect, int mask) const
{
    for (; mask >= 0; mask = _masks[static_cast<std::size_t>(mask)].outer)
        rect = rect.intersected(_masks[static_cast<std::size_t>(mask)].shape.solidBand());
    return rect;
}

bool Compositor::isUnmasked(PixelRect rect, int mask) const
{
    return solidPart(rect, mask) == rect;
}

}

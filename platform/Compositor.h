#pragma once

#include "Bitmap.h"
#include "RoundedRect.h"
#include "UIView.h"

#include <cstdint>
#include <vector>

namespace platform {

class LayerContents;

/// Puts the layers of a tree of views together into one picture: for each view its shadow, background,
/// contents, subviews and border, clipped and rounded as its layer says. What lies wholly under something
/// opaque is not painted.
class Compositor {
public:
    /// Paints into `target`, whose first pixel stands at (originX, originY) of the root view, in device
    /// pixels.
    Compositor(Bitmap& target, int originX, int originY, double scale);

    /// Composes what the root view shows in `damage` (device pixels of the root view).
    void compose(const UIView& root, PixelRect damage);

private:
    struct Mask {
        RoundedRect shape;
        int outer = -1; ///< The mask that holds this one; −1 for none.
    };
    enum class Kind { Fill, Border, Contents, Shadow, Group };
    struct Item {
        Kind kind;
        const UIView* view;
        RoundedRect shape;
        PixelRect visible; ///< What of it may be painted.
        std::uint32_t color = 0;
        int mask = -1;
        double x = 0; ///< Of the view's top left, in points of the root; for groups.
        double y = 0;
        PixelRect opaque {}; ///< What it covers wholly.
    };

    // What is to be painted, from the back to the front.
    void collect(const UIView&, double x, double y, PixelRect clip, int mask, bool asGroup);
    PixelRect pixelRect(double x, double y, CGSize) const;
    /// Contents of nearly the size of what they fill are not stretched: places between pixels round
    /// differently.
    static bool fits(const LayerContents&, PixelRect);
    PixelRect solidPart(PixelRect, int mask) const;
    bool isUnmasked(PixelRect, int mask) const;

    // Painting it.
    void paint(const Item&, PixelRect part);
    void paintContents(const Item&, PixelRect part);
    void paintShadow(const Item&, PixelRect part);
    void paintBorder(const Item&, PixelRect part);
    void paintGroup(const Item&, PixelRect part);
    void blendRow(
        int y, int x, std::size_t count, const std::uint32_t* source, const RoundedRect* shape, int mask);
    void blendCovered(
        int y, int x, std::size_t count, const std::uint32_t* source, const RoundedRect* shape, int mask);
    std::uint32_t* targetRow(int y, int x) { return _target.row(y - _originY) + (x - _originX); }

    Bitmap& _target;
    int _originX;
    int _originY;
    double _scale;
    std::vector<Item> _items;
    std::vector<Mask> _masks;
    std::vector<std::uint32_t> _row;
    std::vector<std::uint8_t> _coverage, _maskCoverage;
};

}

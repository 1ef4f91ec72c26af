#pragma once

#include "Bitmap.h"
#include "CGContext.h"

#include <functional>
#include <memory>

namespace platform {

/// What a view's `drawRect` has drawn, kept in its layer: either recorded gradients, whose exact pixels are
/// worked out wherever and whenever they are needed, or a bitmap.
class LayerContents {
public:
    virtual ~LayerContents() = default;

    /// Of the contents, in device pixels.
    int width() const { return _width; }
    int height() const { return _height; }
    /// True when every pixel is opaque.
    virtual bool isOpaque() const = 0;
    /// Writes the pixels of `part` (within the contents) to `target`, whose first pixel is `part`'s top left
    /// and whose rows are `stride` pixels apart: 0xAARRGGBB, premultiplied.
    virtual void read(PixelRect part, std::uint32_t* target, std::ptrdiff_t stride) const = 0;

protected:
    LayerContents(int width, int height)
        : _width(width)
        , _height(height)
    {
    }

private:
    int _width;
    int _height;
};

/// Contents that are a bitmap.
std::shared_ptr<const LayerContents> contentsFromBitmap(std::shared_ptr<const Bitmap>);

/// Records one `drawRect`.
class CGContext {
public:
    /// `size` in points, `scale` in pixels a point. The contents are `pixelLength(size, scale)` large.
    CGContext(CGSize size, double scale);
    ~CGContext();
    CGContext(const CGContext&) = delete;
    CGContext& operator=(const CGContext&) = delete;

    double scale() const;
    int width() const; ///< Device pixels.
    int height() const;

    /// For the layer's own views: pixels drawn by hand, on top of what is recorded so far.
    /// Stays valid until something else is drawn. Empty when the contents are too large for memory.
    Bitmap& bitmap();

    /// True when anything was drawn, visible or not.
    bool hasDrawn() const;
    /// What was drawn, taken out of the context; null when nothing was.
    std::shared_ptr<const LayerContents> finish();

    struct Impl;
    Impl& impl() { return *_impl; }

private:
    std::unique_ptr<Impl> _impl;
};

/// A length in points as whole device pixels, to the nearest.
int pixelLength(CGFloat points, double scale);

/// Makes a context the current one for the scope.
class CurrentContext {
public:
    explicit CurrentContext(CGContext&);
    ~CurrentContext();
    CurrentContext(const CurrentContext&) = delete;
    CurrentContext& operator=(const CurrentContext&) = delete;
};

}

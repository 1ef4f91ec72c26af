#include "CGContext.h"
#include "CGContextImpl.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

class BitmapContents final : public LayerContents {
public:
    explicit BitmapContents(std::shared_ptr<const Bitmap> bitmap)
        : LayerContents(bitmap->width, bitmap->height)
        , _bitmap(std::move(bitmap))
    {
    }

    bool isOpaque() const override { return false; }
    void read(PixelRect part, std::uint32_t* target, std::ptrdiff_t stride) const override
    {
        for (int y = 0; y < part.height; ++y)
            std::copy_n(_bitmap->row(part.y + y) + part.x, part.width, target + y * stride);
    }

private:
    std::shared_ptr<const Bitmap> _bitmap;
};

CGContext*& current()
{
    static CGContext* context = nullptr;
    return context;
}

}

struct CGContext::Impl {
    int width;
    int height;
    double scale;
    std::shared_ptr<Bitmap> bitmap;
    CGContext* outer = nullptr;
};

std::shared_ptr<const LayerContents> contentsFromBitmap(std::shared_ptr<const Bitmap> bitmap)
{
    return std::make_shared<BitmapContents>(std::move(bitmap));
}

CGContext::CGContext(CGSize size, double scale)
    : _impl(std::make_unique<Impl>())
{
    _impl->width = pixelLength(size.width, scale);
    _impl->height = pixelLength(size.height, scale);
    _impl->scale = scale;
}

CGContext::~CGContext() = default;
double CGContext::scale() const { return _impl->scale; }
int CGContext::width() const { return _impl->width; }
int CGContext::height() const { return _impl->height; }
bool CGContext::hasDrawn() const { return _impl->bitmap != nullptr; }

Bitmap& CGContext::bitmap()
{
    if (!_impl->bitmap)
        _impl->bitmap = std::make_shared<Bitmap>(Bitmap::cleared(_impl->width, _impl->height));
    return *_impl->bitmap;
}

std::shared_ptr<const LayerContents> CGContext::finish()
{
    return _impl->bitmap ? contentsFromBitmap(std::move(_impl->bitmap)) : nullptr;
}

int pixelLength(CGFloat points, double scale)
{
    return static_cast<int>(std::clamp(std::floor(points * scale + 0.5), 0.0, 32767.0));
}

CurrentContext::CurrentContext(CGContext& context)
{
    context.impl().outer = current();
    current() = &context;
}

CurrentContext::~CurrentContext() { current() = current()->impl().outer; }

CGContext* UIGraphicsGetCurrentContext() { return current(); }

}

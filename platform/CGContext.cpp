#include "CGContext.h"

#include "CGContextImpl.h"
#include "GradientContents.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace platform {

namespace {

constexpr int longestPicture = 1 << 24; // Pixels: more than any screen, and far from overflows.
constexpr std::int64_t largestBitmap = std::int64_t(1) << 28; // Pixels.

class BitmapContents final : public LayerContents {
public:
    explicit BitmapContents(std::shared_ptr<const Bitmap> bitmap)
        : LayerContents(bitmap->width, bitmap->height)
        , _bitmap(std::move(bitmap))
    {
        const auto count = static_cast<std::size_t>(width()) * static_cast<std::size_t>(height());
        const auto* pixels = _bitmap->pixels.get();
        _isOpaque = std::all_of(pixels, pixels + count, [](auto pixel) { return pixel >> 24U == 255U; });
    }

    bool isOpaque() const override { return _isOpaque; }

    void read(PixelRect part, std::uint32_t* target, std::ptrdiff_t stride) const override
    {
        if (part.isEmpty())
            return;
        for (int y = part.y; y < part.bottom(); ++y, target += stride) {
            std::memcpy(target, _bitmap->row(y) + part.x,
                static_cast<std::size_t>(part.width) * sizeof(std::uint32_t));
        }
    }

private:
    std::shared_ptr<const Bitmap> _bitmap;
    bool _isOpaque;
};

std::vector<CGContext*>& contexts()
{
    static std::vector<CGContext*> stack;
    return stack;
}

CGFloat finiteLength(CGFloat length)
{
    return std::isfinite(length) && length > 0 ? length : 0;
}

}

struct CGContext::Impl {
    double scale = 1;
    GradientRecording recording;
    std::shared_ptr<Bitmap> bitmap; ///< The recording's base, as long as it may still be drawn to.
    PixelRect clip;
    std::vector<PixelRect> savedClips;
    bool hasDrawn = false;
};

CGContext::CGContext(CGSize size, double scale)
    : _impl(std::make_unique<Impl>())
{
    auto& recording = _impl->recording;
    recording.size = { finiteLength(size.width), finiteLength(size.height) };
    recording.width = pixelLength(recording.size.width, scale);
    recording.height = pixelLength(recording.size.height, scale);
    _impl->scale = scale;
    _impl->clip = recording.rect();
}

CGContext::~CGContext() = default;

double CGContext::scale() const
{
    return _impl->scale;
}

int CGContext::width() const
{
    return _impl->recording.width;
}

int CGContext::height() const
{
    return _impl->recording.height;
}

Bitmap& CGContext::bitmap()
{
    _impl->hasDrawn = true;
    auto& recording = _impl->recording;
    if (_impl->bitmap && recording.operations.empty() && recording.base == _impl->bitmap)
        return *_impl->bitmap;

    auto drawn = std::make_shared<Bitmap>();
    if (static_cast<std::int64_t>(recording.width) * recording.height <= largestBitmap)
        *drawn = Bitmap::cleared(recording.width, recording.height);
    if (!recording.operations.empty() && !drawn->isEmpty())
        contentsFromRecording(std::move(recording))->read(drawn->rect(), drawn->pixels.get(), drawn->width);
    recording.operations.clear();
    recording.base = drawn->isEmpty() ? nullptr : drawn;
    _impl->bitmap = drawn;
    return *drawn;
}

bool CGContext::hasDrawn() const
{
    return _impl->hasDrawn;
}

std::shared_ptr<const LayerContents> CGContext::finish()
{
    auto& recording = _impl->recording;
    if (!_impl->hasDrawn || recording.rect().isEmpty())
        return nullptr;
    if (recording.base && recording.operations.empty())
        return contentsFromBitmap(std::move(recording.base));
    return contentsFromRecording(std::move(recording));
}

std::shared_ptr<const LayerContents> contentsFromBitmap(std::shared_ptr<const Bitmap> bitmap)
{
    return std::make_shared<BitmapContents>(std::move(bitmap));
}

int pixelLength(CGFloat points, double scale)
{
    const auto pixels = std::floor(points * scale + 0.5);
    return pixels > 0 ? static_cast<int>(std::min<double>(pixels, longestPicture)) : 0; // NaN is not above 0.
}

CurrentContext::CurrentContext(CGContext& context)
{
    contexts().push_back(&context);
}

CurrentContext::~CurrentContext()
{
    contexts().pop_back();
}

CGContext* UIGraphicsGetCurrentContext()
{
    return contexts().empty() ? nullptr : contexts().back();
}

CGColorSpace CGColorSpaceCreateDeviceRGB()
{
    return CGColorSpace::DeviceRGB;
}

CGGradient CGGradientCreateWithColors(CGColorSpace, std::span<const UIColor> colors)
{
    CGGradient gradient;
    gradient.stops.reserve(colors.size());
    for (const auto& color : colors)
        gradient.stops.push_back(color.cgColor().rgba());
    return gradient;
}

void CGContextSaveGState(CGContext& context)
{
    context.impl().savedClips.push_back(context.impl().clip);
}

void CGContextRestoreGState(CGContext& context)
{
    auto& impl = context.impl();
    if (impl.savedClips.empty())
        return;
    impl.clip = impl.savedClips.back();
    impl.savedClips.pop_back();
}

void CGContextClipToRect(CGContext& context, CGRect rect)
{
    auto& impl = context.impl();
    impl.clip = impl.clip.intersected(impl.recording.pixelsInside(rect));
}

void CGContextDrawLinearGradient(
    CGContext& context, const CGGradient& gradient, CGPoint start, CGPoint end, unsigned options)
{
    auto& impl = context.impl();
    impl.hasDrawn = true;
    impl.recording.add(gradient, start, end, options, impl.clip);
}

}

#include "GradientContents.h"

#include "GradientPixel.h"
#include "OuterProduct.h"

#include <algorithm>

namespace platform {

namespace {

/// Whatever was recorded, pixel by pixel.
class GradientContents final : public LayerContents {
public:
    explicit GradientContents(GradientRecording recording)
        : LayerContents(recording.width, recording.height)
        , _recording(std::move(recording))
        , _pixel(_recording)
        , _isOpaque(std::any_of(_recording.operations.begin(), _recording.operations.end(),
              [&](const auto& operation) { return operation.hasAlpha(1) && _recording.covers(operation); }))
    {
    }

    bool isOpaque() const override { return _isOpaque; }

    void read(PixelRect part, std::uint32_t* target, std::ptrdiff_t stride) const override
    {
        for (int y = part.y; y < part.bottom(); ++y, target += stride) {
            for (int x = part.x; x < part.right(); ++x)
                target[x - part.x] = _pixel.at(x, y);
        }
    }

private:
    GradientRecording _recording;
    GradientPixel _pixel;
    bool _isOpaque;
};

/// A row and a column multiplied.
class OuterProductContents final : public LayerContents {
public:
    OuterProductContents(GradientRecording recording, OuterProduct product)
        : LayerContents(recording.width, recording.height)
        , _recording(std::move(recording))
        , _product(std::move(product))
    {
    }

    bool isOpaque() const override { return true; }

    void read(PixelRect part, std::uint32_t* target, std::ptrdiff_t stride) const override
    {
        _product.read(_recording, part, target, stride);
    }

private:
    GradientRecording _recording;
    OuterProduct _product;
};

}

std::shared_ptr<const LayerContents> contentsFromRecording(GradientRecording recording)
{
    if (auto product = OuterProduct::of(recording))
        return std::make_shared<OuterProductContents>(std::move(recording), std::move(*product));
    return std::make_shared<GradientContents>(std::move(recording));
}

}

#include "GradientDrawing.h"

#include "platform/CGContext.h"

#include <utility>

namespace vekora {

using namespace platform;

namespace {

UIColor opaque(double red, double green, double blue)
{
    return UIColor::colorWithRedGreenBlueAlpha(red, green, blue, 1);
}

std::pair<CGPoint, CGPoint> endPoints(Run run, CGFloat width, CGFloat height)
{
    switch (run) {
    case Run::LeftToRight:
        return { { 0, 0 }, { width, 0 } };
    case Run::RightToLeft:
        return { { width, 0 }, { 0, 0 } };
    case Run::TopToBottom:
        break;
    }
    return { { 0, 0 }, { 0, height } };
}

}

void drawLayers(const UIView& view, std::initializer_list<GradientLayer> layers)
{
    auto* context = UIGraphicsGetCurrentContext();
    if (!context)
        return;
    const auto space = CGColorSpaceCreateDeviceRGB();
    const auto frame = view.frame();
    CGContextStateGuard guard { *context };
    CGContextClipToRect(*context, { 0, 0, frame.width, frame.height });
    for (const auto& layer : layers) {
        const auto gradient = CGGradientCreateWithColors(space, layer.colors);
        const auto [start, end] = endPoints(layer.run, frame.width, frame.height);
        CGContextDrawLinearGradient(*context, gradient, start, end, kCGGradientDrawsNothingOutside);
    }
}

std::vector<UIColor> risingHues()
{
    return {
        opaque(1, 0, 0),
        opaque(1, 1, 0),
        opaque(0, 1, 0),
        opaque(0, 1, 1),
        opaque(0, 0, 1),
        opaque(1, 0, 1),
        opaque(1, 0, 0),
    };
}

std::vector<UIColor> fallingHues()
{
    return {
        opaque(1, 0, 0),
        opaque(1, 0, 1),
        opaque(0, 0, 1),
        opaque(0, 1, 1),
        opaque(0, 1, 0),
        opaque(1, 1, 0),
        opaque(1, 0, 0),
    };
}

UIColor black(double alpha)
{
    return UIColor::colorWithRedGreenBlueAlpha(0, 0, 0, alpha);
}

UIColor white(double alpha)
{
    return UIColor::colorWithRedGreenBlueAlpha(1, 1, 1, alpha);
}

}

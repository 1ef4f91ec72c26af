#pragma once

#include "platform/CGContext.h"
#include "platform/CGContextImpl.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

/// What the tests of the drawing interface share.
namespace drawingtests {

using namespace platform;

constexpr auto infinity = std::numeric_limits<double>::infinity();
constexpr auto notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr std::uint32_t clear = 0;
constexpr std::uint32_t red = 0xFFFF0000;
constexpr std::uint32_t blue = 0xFF0000FF;
constexpr unsigned bothEnds = kCGGradientDrawsBeforeStartLocation | kCGGradientDrawsAfterEndLocation;

using Pixels = std::vector<std::uint32_t>;

inline CGGradient gradient(const std::vector<UIColor>& colors)
{
    return CGGradientCreateWithColors(CGColorSpaceCreateDeviceRGB(), colors);
}

inline CGGradient plain(const UIColor& color)
{
    return gradient({ color, color });
}

inline void fill(CGContext& context, const UIColor& color)
{
    CGContextDrawLinearGradient(context, plain(color), { 0, 0 }, { 1, 0 }, bothEnds);
}

inline Pixels pixelsOf(const LayerContents& contents)
{
    Pixels pixels(static_cast<std::size_t>(contents.width()) * static_cast<std::size_t>(contents.height()));
    contents.read({ 0, 0, contents.width(), contents.height() }, pixels.data(), contents.width());
    return pixels;
}

inline Pixels pixelsOf(CGContext& context)
{
    const auto contents = context.finish();
    return contents ? pixelsOf(*contents) : Pixels {};
}

}

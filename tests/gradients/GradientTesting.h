#pragma once

#include "ExactPictures.h"

#include "platform/CGContextImpl.h"
#include "platform/GradientRows.h"
#include "platform/UIView.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

/// What the tests of the gradient views share.
namespace gradienttests {

/// What the view's `drawRect` leaves, as a display would keep it; null when it paints nothing.
inline std::shared_ptr<const platform::LayerContents> contentsOf(platform::UIView& view, double scale)
{
    platform::CGContext context(view.bounds().size(), scale);
    {
        platform::CurrentContext current(context);
        view.drawRect({});
    }
    return context.finish();
}

inline exact::Picture pixelsOf(const platform::LayerContents& contents)
{
    exact::Picture picture(
        static_cast<std::size_t>(contents.width()) * static_cast<std::size_t>(contents.height()));
    contents.read({ 0, 0, contents.width(), contents.height() }, picture.data(), contents.width());
    return picture;
}

inline exact::Picture paint(platform::UIView& view, double scale)
{
    const auto contents = contentsOf(view, scale);
    return contents ? pixelsOf(*contents) : exact::Picture {};
}

/// Compares all channels, and names the first difference.
inline testing::AssertionResult equal(
    const exact::Picture& picture, const exact::Picture& expected, int width)
{
    if (picture.size() != expected.size())
        return testing::AssertionFailure() << picture.size() << " pixels instead of " << expected.size();
    for (std::size_t i = 0; i < picture.size(); ++i) {
        if (picture[i] != expected[i])
            return testing::AssertionFailure()
                << std::hex << picture[i] << " instead of " << expected[i] << " at " << std::dec
                << i % static_cast<std::size_t>(width) << ", " << i / static_cast<std::size_t>(width);
    }
    return testing::AssertionSuccess();
}

/// More than two hundred: the ends, what lies beside them, simple fractions, any, and what no caller should
/// hand over.
inline std::vector<double> componentValues()
{
    using Limits = std::numeric_limits<double>;
    std::vector<double> values { 0, 1, -0.0, 0.5, 1.0 / 3, 2.0 / 3, 0.1, 0.7, 0.999, std::nextafter(0.0, 1.0),
        std::nextafter(1.0, 0.0), std::nextafter(0.5, 0.0), std::nextafter(0.5, 1.0), Limits::min(), 1e-300,
        1e-17, 1e-13, 1e-9, 1 - 1e-13, -1, -0.25, 1.5, 2, 720, 1e300, -1e300, Limits::infinity(),
        -Limits::infinity(), Limits::quiet_NaN() };
    for (int i = 1; i < 64; ++i)
        values.push_back(i / 64.0);
    for (int i = 0; i <= 30; ++i)
        values.push_back(i / 30.0);
    for (int i = 0; i < 12; ++i)
        values.push_back(i * 30 / 360.0 + 1 / 1024.0);
    std::mt19937_64 random(20260101);
    while (values.size() < 240)
        values.push_back(static_cast<double>(random() >> 11) * 0x1p-53);
    return values;
}

/// Odd ones, whose pixels are not whole at every scale.
inline platform::CGSize sizeFor(std::size_t index)
{
    static constexpr std::array<platform::CGSize, 12> sizes { { { 7, 5 }, { 31, 17 }, { 64, 48 }, { 1, 1 },
        { 97, 61 }, { 2, 33 }, { 85, 13 }, { 31.4, 17.3 }, { 51, 51 }, { 130, 9 }, { 3, 2 },
        { 20.5, 40.25 } } };
    return sizes[index % sizes.size()];
}

inline const std::vector<double>& scales()
{
    static const std::vector<double> all { 1, 2, 3 };
    return all;
}

/// Makes do with less than the processor has, for the scope.
class InstructionLimit {
public:
    explicit InstructionLimit(platform::GradientInstructions limit) { limitGradientInstructions(limit); }
    ~InstructionLimit() { limitGradientInstructions(platform::GradientInstructions::Avx512); }
    InstructionLimit(const InstructionLimit&) = delete;
    InstructionLimit& operator=(const InstructionLimit&) = delete;
};

}

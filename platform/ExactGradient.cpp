#include "ExactGradient.h"

#include <boost/multiprecision/cpp_int.hpp>

#include <algorithm>
#include <bit>
#include <cmath>

namespace platform {

namespace {

using BigInteger = boost::multiprecision::cpp_int;
__extension__ using MachineInteger = __int128;
constexpr int machineBits = 120; // With room for the factors of the last rounding.

using Stop = GradientOperation::Stop;

// How many binary places after the point a finite number has.
int fractionBits(double value)
{
    if (value == 0)
        return 0;
    int exponent = 0;
    const auto mantissa = static_cast<std::int64_t>(std::ldexp(std::frexp(std::abs(value), &exponent), 53));
    return std::max(0, 53 - exponent - std::countr_zero(static_cast<std::uint64_t>(mantissa)));
}

// value · 2^bits, where that is whole.
template <typename Integer> Integer scaled(double value, int bits)
{
    int exponent = 0;
    const auto mantissa = static_cast<std::int64_t>(std::ldexp(std::frexp(value, &exponent), 53));
    const auto shift = bits + exponent - 53;
    if (mantissa == 0)
        return Integer(0);
    if (shift >= 0)
        return Integer(mantissa) * (Integer(1) << static_cast<unsigned>(shift));
    return Integer(mantissa / (std::int64_t(1) << -shift));
}

// Colour and alpha of a stretch of stops, and which of them change along it.
struct Precision {
    Precision(const Stop* first, const Stop* last)
    {
        for (const auto* stop = first; stop <= last; ++stop) {
            for (int i = 0; i < 3; ++i) {
                colourBits = std::max(colourBits, fractionBits((*stop)[i]));
                colourVaries |= (*stop)[i] != (*first)[i];
            }
            alphaBits = std::max(alphaBits, fractionBits((*stop)[3]));
            alphaVaries |= (*stop)[3] != (*first)[3];
        }
    }

    int colourBits = 0;
    int alphaBits = 0;
    bool colourVaries = false;
    bool alphaVaries = false;
};

// Premultiplied components over one denominator. Nothing is ever reduced: the numbers stay short enough.
template <typename Integer> struct Composite {
    Integer components[4] { 0, 0, 0, 0 };
    Integer denominator = 1;

    void begin(std::uint32_t pixel)
    {
        denominator = 255;
        for (int i = 0; i < 4; ++i)
            components[i] = pixel >> (i == 3 ? 24 : 16 - 8 * i) & 255U;
    }

    // Lays the colour between two stops over what is there.
    void add(const Stop& first, const Stop& second, const Integer& part, const Integer& whole)
    {
        const Stop stops[] { first, second };
        const Precision precision(stops, stops + 1);
        const auto between = [&](int i, int bits, bool varies) {
            const auto from = scaled<Integer>(first[i], bits);
            return varies ? Integer(from * whole + (scaled<Integer>(second[i], bits) - from) * part) : from;
        };
        const auto one = [&](int bits, bool varies) {
            const Integer result = Integer(1) << static_cast<unsigned>(bits);
            return varies ? Integer(result * whole) : result;
        };
        const auto colourOne = one(precision.colourBits, precision.colourVaries);
        const auto alphaOne = one(precision.alphaBits, precision.alphaVaries);
        const auto alpha = between(3, precision.alphaBits, precision.alphaVaries);
        const Integer through = alphaOne - alpha;
        for (int i = 0; i < 4; ++i) {
            const auto colour = i == 3 ? colourOne : between(i, precision.colourBits, precision.colourVaries);
            components[i] = through == 0
                ? colour
                : Integer(components[i] * through * colourOne + denominator * colour * alpha);
        }
        denominator = through == 0 ? colourOne : Integer(denominator * colourOne * alphaOne);
    }

    std::uint32_t pixel() const
    {
        std::uint32_t result = 0;
        for (int i = 0; i < 4; ++i) {
            const Integer byte = (components[i] * 510 + denominator) / (denominator * 2);
            result |= static_cast<std::uint32_t>(byte) << (i == 3 ? 24 : 16 - 8 * i);
        }
        return result;
    }
};

template <typename Integer>
void addBetweenEdges(Composite<Integer>& composite, const GradientOperation& operation, int index, int length)
{
    const auto position = stopPosition(operation, index, length);
    composite.add(operation.stops[position.stop], operation.stops[position.stop + 1],
        Integer(position.numerator), Integer(position.denominator));
}

void addFree(Composite<BigInteger>& composite, const GradientOperation& operation,
    const GradientRecording& recording, int x, int y)
{
    const double lengths[] { operation.start.x, operation.start.y, operation.end.x, operation.end.y,
        recording.size.width, recording.size.height };
    int bits = 0;
    for (const auto length : lengths)
        bits = std::max(bits, fractionBits(length));
    BigInteger whole[6];
    std::transform(std::begin(lengths), std::end(lengths), whole,
        [&](double length) { return scaled<BigInteger>(length, bits); });
    const auto& [startX, startY, endX, endY, width, height] = whole;

    // The pixel's centre lies at (2x + 1) · width / (2 · pixels); everything is taken times twice the pixels
    // of both directions.
    const BigInteger columns = recording.width;
    const BigInteger rows = recording.height;
    const BigInteger unit = 2 * columns * rows;
    const BigInteger alongX = endX - startX;
    const BigInteger alongY = endY - startY;
    const BigInteger distanceX = (2 * BigInteger(x) + 1) * width * rows - startX * unit;
    const BigInteger distanceY = (2 * BigInteger(y) + 1) * height * columns - startY * unit;
    const BigInteger numerator = distanceX * alongX + distanceY * alongY;
    const BigInteger denominator = unit * (alongX * alongX + alongY * alongY);

    const auto& stops = operation.stops;
    if (numerator < 0) {
        if (operation.options & kCGGradientDrawsBeforeStartLocation)
            composite.add(stops.front(), stops.front(), 0, 1);
    } else if (numerator > denominator) {
        if (operation.options & kCGGradientDrawsAfterEndLocation)
            composite.add(stops.back(), stops.back(), 0, 1);
    } else {
        const BigInteger position = numerator * (stops.size() - 1);
        const auto stop
            = std::min(static_cast<std::size_t>(BigInteger(position / denominator)), stops.size() - 2);
        composite.add(stops[stop], stops[stop + 1], position - stop * denominator, denominator);
    }
}

void addFree(Composite<MachineInteger>&, const GradientOperation&, const GradientRecording&, int, int)
{
    // Never: a recording with free gradients does not count as fitting.
}

template <typename Integer> std::uint32_t pixelOf(const GradientRecording& recording, int x, int y)
{
    Composite<Integer> composite;
    if (recording.base)
        composite.begin(recording.base->at(x, y));
    for (const auto& operation : recording.operations) {
        const auto& clip = operation.clip;
        if (x < clip.x || x >= clip.right() || y < clip.y || y >= clip.bottom())
            continue;
        switch (operation.axis) {
        case GradientOperation::Axis::Across:
            addBetweenEdges(composite, operation, x, recording.width);
            break;
        case GradientOperation::Axis::Down:
            addBetweenEdges(composite, operation, y, recording.height);
            break;
        case GradientOperation::Axis::Free:
            addFree(composite, operation, recording, x, y);
            break;
        }
    }
    return composite.pixel();
}

// An upper bound of the length of every number that appears.
bool fitsMachineIntegers(const GradientRecording& recording)
{
    int bits = 8;
    for (const auto& operation : recording.operations) {
        if (operation.axis == GradientOperation::Axis::Free)
            return false;
        const Precision precision(&operation.stops.front(), &operation.stops.back());
        const auto length
            = operation.axis == GradientOperation::Axis::Across ? recording.width : recording.height;
        const auto lengthBits = static_cast<int>(std::bit_width(2U * static_cast<unsigned>(length)));
        bits += precision.colourBits + precision.alphaBits + (precision.colourVaries ? lengthBits : 0)
            + (precision.alphaVaries ? lengthBits : 0) + 2;
        if (bits + 10 > machineBits)
            return false;
    }
    return true;
}

}

ExactGradient::ExactGradient(const GradientRecording& recording)
    : _recording(recording)
    , _fitsMachineIntegers(fitsMachineIntegers(recording))
{
}

std::uint32_t ExactGradient::pixel(int x, int y) const
{
    return _fitsMachineIntegers ? pixelOf<MachineInteger>(_recording, x, y)
                                : pixelOf<BigInteger>(_recording, x, y);
}

bool centreIsBefore(int pixel, CGFloat edge, CGFloat length, int count)
{
    const auto bits = std::max(fractionBits(edge), fractionBits(length));
    return (2 * BigInteger(pixel) + 1) * scaled<BigInteger>(length, bits)
        < 2 * BigInteger(count) * scaled<BigInteger>(edge, bits);
}

}

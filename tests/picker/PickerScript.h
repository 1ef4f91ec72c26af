#pragma once

#include "PickerPrinting.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace vekora::test {

using namespace platform;

enum class Deed { Touch, Move, Lift, Cancel, Show, Commit, Ask, Resize };

/// What fingers or a picker's owner do. Only some of it matters to each deed.
struct Event {
    Deed deed;
    CGPoint point; ///< In the window.
    UIColor color = UIColor::redColor();
    CGSize size;
    long tag = 0; ///< Of the dialog asked for.
    // The answer to a dialog that the event opens.
    std::size_t typed = 0;
    bool confirms = false;
};

using Script = std::vector<Event>;

struct TypedText {
    const char* text;
    float number; ///< That it reads as.
};

/// What events' `typed` is an index into.
const std::vector<TypedText>& typedTexts();

/// Where the picker lies in its window, at first 320 wide and 380 high.
inline constexpr CGPoint scriptedPickerOrigin { 24, 16 };

/// Draws scripts, the same ones for the same seed.
class Scripts {
public:
    explicit Scripts(std::uint64_t seed)
        : _random(seed)
    {
    }

    Script next(std::size_t length);

private:
    long below(long limit);
    double coordinate(std::initializer_list<double> edges);
    CGPoint point();
    UIColor color();
    Event event();

    std::mt19937_64 _random;
};

/// An event in words.
std::string written(const Event&);

}

#pragma once

#include "ExactGradient.h"

#include <optional>

namespace platform {

/// The pictures that are painted all the time: at the bottom an opaque gradient across the view or none, on
/// top of it gradients down the view. Then each channel is A(y) · C(x) + B(y), with C linear between the
/// stops and A the same for all channels: each row is a few stretches of channels that are linear or
/// constant.
///
/// Rows are computed in double precision; where a byte stays open, exactly.
class OuterProduct {
public:
    /// Nothing for a recording of any other kind.
    static std::optional<OuterProduct> of(const GradientRecording&);

    /// See LayerContents. The recording is the one that it was made for; all pixels are opaque.
    void read(const GradientRecording&, PixelRect part, std::uint32_t* target, std::ptrdiff_t stride) const;

    // Internal: for the rows of one reading.

    /// A run of pixels between two stops.
    struct Segment {
        int first;
        int end; ///< The first pixel that is not in it.
        double values[3]; ///< Of red, green and blue in the first pixel, 0..1.
        double slopes[3]; ///< A pixel.
        bool varies[3]; ///< False where both stops have the same value.
    };
    /// What the gradients on top make of the one at the bottom, for components of 0..1: of `rowCount` rows.
    static constexpr int rowCount = 8;
    struct Rows {
        double addends[3][rowCount];
        double factors[rowCount];
    };
    /// From row `y` on; of rows that are not there, anything.
    Rows findRows(int y) const;
    const std::vector<Segment>& segments() const { return _segments; }
    /// How many gradients lie on top.
    std::size_t shadeCount() const { return _shades.size(); }

private:
    /// A gradient on top, from one stop to the next.
    struct Stretch {
        double color[3];
        double colorChange[3];
        double alpha;
        double alphaChange;
        bool isBlack;
    };
    struct Shade {
        std::size_t firstStretch;
        std::int64_t stretchCount;
        bool reversed;
    };

    OuterProduct() = default;
    void addShade(const GradientOperation&);
    template <int count> static void apply(Stretch, const double* parts, Rows&, int first);

    std::vector<Segment> _segments;
    std::vector<Shade> _shades;
    std::vector<Stretch> _stretches; ///< Of all shades.
    std::int64_t _height = 0;
    double _halfPixel = 0; ///< As a part of the height.
};

}

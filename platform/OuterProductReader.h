#pragma once

#include "GradientRows.h"
#include "OuterProduct.h"

#include <vector>

namespace platform {

/// Reads a part of an outer product: what all its rows have in common is prepared once.
class OuterProductReader {
public:
    /// The part is not empty and lies within the picture.
    OuterProductReader(const OuterProduct&, const GradientRecording&, PixelRect part);

    void read(std::uint32_t* target, std::ptrdiff_t stride);

private:
    /// Kept from one reading to the next, as allocating would take a good part of the time.
    struct Memory {
        std::vector<GradientBlock> blocks;
        std::vector<double> slopes;
        std::vector<GradientRows::Offsets> offsets;
        std::vector<GradientRows::Starts> starts;
        std::vector<GradientDoubt> doubts;
    };
    static Memory& emptyMemory();

    void addBlocks(const OuterProduct::Segment&);
    unsigned tableOf(double slope);

    /// As many as are painted at once, or fewer at the end of the part.
    void paintRows(int y, int count, std::uint32_t* target, std::ptrdiff_t stride);
    void settle(const GradientDoubt&, int y);
    std::uint32_t settledByte(double level, int channel, int x, int y);

    const OuterProduct& _product;
    const GradientRecording& _recording;
    const GradientRowsPainter _paint;
    PixelRect _part;
    double _margin; ///< No level computed here is further off than this.
    GradientRows _rows {}; ///< The present ones.
    Memory& _memory;
    std::optional<ExactGradient> _exact; ///< Once it has been needed.
};

}

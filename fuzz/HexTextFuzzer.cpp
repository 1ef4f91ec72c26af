#include "tests/colorcell/HexTextOracle.h"

#include "colorcell/ColorString.h"

#include <cstdlib>

using namespace vekora;

/// A typed or stored colour's text is read as the oracle reads it, and its written form reads the same.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto expected = tests::colorOfHexText(text);
    const auto read = readColorString(text);
    if (static_cast<std::uint32_t>(read.red << 16 | read.green << 8 | read.blue) != expected)
        std::abort();
    if (readColorString(writtenColorString(read)) != read)
        std::abort();
    return 0;
}

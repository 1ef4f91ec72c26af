#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// Reads values off the front of a text, passing over a set of ASCII characters before each.
class NSScanner {
public:
    explicit NSScanner(std::string_view text);

    /// White space and line ends, until it is set.
    void setCharactersToBeSkipped(std::string_view characters) { _skipped = characters; }

    /// An optional "0x", then the longest run of hexadecimal digits of either case; "0x" without a digit
    /// after it reads as 0, and what does not fit into 32 bits as 0xFFFFFFFF. False when there is no digit:
    /// the value and the location are then left as they were.
    [[nodiscard]] bool scanHexInt(std::uint32_t& value);

    std::size_t scanLocation() const { return _location; }

private:
    std::string _text;
    std::string _skipped = " \t\r\n\v\f";
    std::size_t _location = 0;
};

}

#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace platform {

/// A number at the front of a text, and how many bytes of the text it takes up, white space before it
/// included.
template <typename Real> struct NumberText {
    Real value = 0;
    std::size_t length = 0;
};

/// Reads a decimal number (sign, digits with ".", exponent) off the front of a text, whatever the locale. Too
/// large a number is an infinity and too small a one is 0, each with its sign. Nothing when there is no digit
/// or the exponent has none. `Real` is float or double, so that nothing is rounded twice.
template <typename Real> std::optional<NumberText<Real>> scanNumber(std::string_view);

/// How many bytes of ASCII white space stand at the front.
std::size_t leadingWhiteSpace(std::string_view);

}

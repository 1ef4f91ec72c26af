#pragma once

#include "PSSpecifier.h"

#include <span>

namespace platform {

/// How resources call a kind of row.
struct PSCellName {
    std::string_view name;
    PSCellType type;
    bool holdsValue = false; ///< Then a row with a "key" has a setter and a getter.
};

/// In the order of the kinds' numbers.
std::span<const PSCellName> cellNames();

/// Null for a name that nobody knows; such a row is one of text.
const PSCellName* cellNameNamed(std::string_view);

}

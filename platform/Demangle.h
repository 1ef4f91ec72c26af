#pragma once

#include <cstdlib>
#include <cxxabi.h>
#include <memory>
#include <string>

namespace platform {

/// A type or function as people write it, from its name as the compiler writes it; any other text stays as it
/// is.
inline std::string demangled(const std::string& symbol)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(symbol.c_str(), nullptr, nullptr, &status), &std::free);
    return status == 0 ? name.get() : symbol;
}

}

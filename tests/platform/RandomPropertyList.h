#pragma once

#include "platform/PropertyValue.h"

#include <bit>
#include <cmath>
#include <random>

/// Property lists of every kind of value, a different one each time, the same for the same seed.
class RandomPropertyList {
public:
    explicit RandomPropertyList(std::uint64_t seed)
        : _engine(seed)
    {
    }

    platform::PropertyList dictionary(int depth = 4)
    {
        platform::PropertyList result;
        for (auto count = below(8); count > 0; --count)
            result.insert_or_assign(text(), value(depth - 1));
        return result;
    }

    std::uint64_t below(std::uint64_t limit) { return _engine() % limit; }

private:
    platform::PropertyValue value(int depth)
    {
        switch (below(depth > 0 ? 8 : 6)) {
        case 0:
            return below(2) == 1;
        case 1:
            return static_cast<long long>(_engine()) >> below(64);
        case 2:
            return real();
        case 3:
            return text();
        case 4:
            // Whole seconds of the years 0 to 9999, which every format holds.
            return platform::NSDate(static_cast<double>(below(315569520000)) - 63145526400.0);
        case 5:
            return data();
        case 6:
            return array(depth);
        default:
            return dictionary(depth);
        }
    }

    double real()
    {
        for (;;) {
            const auto value = std::bit_cast<double>(_engine());
            if (!std::isnan(value))
                return value;
        }
    }

    std::string text()
    {
        static constexpr const char* pieces[]
            = { "a", "Z", "0", " ", "\n", "\r", "\t", "&", "<", ">", "\"", "]]>", "&amp;", "\xC3\xA4",
                  "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\xEF\xBF\xBD", "\x7F", "key", "\xC2\x85" };
        std::string result;
        for (auto count = below(20); count > 0; --count)
            result += pieces[below(std::size(pieces))];
        return result;
    }

    platform::PropertyData data()
    {
        platform::PropertyData result(below(200));
        for (auto& byte : result)
            byte = static_cast<std::uint8_t>(_engine());
        return result;
    }

    platform::PropertyArray array(int depth)
    {
        platform::PropertyArray result;
        for (auto count = below(6); count > 0; --count)
            result.push_back(value(depth - 1));
        return result;
    }

    std::mt19937_64 _engine;
};

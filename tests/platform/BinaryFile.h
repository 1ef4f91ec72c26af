#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// A binary property list put together object by object; references take one byte.
struct BinaryFile {
    std::vector<std::string> objects;
    std::uint8_t root = 0;

    std::string bytes() const
    {
        std::string file = "bplist00";
        std::string table;
        for (const auto& object : objects) {
            table += bigEndian(file.size(), 4);
            file += object;
        }
        const auto tableOffset = file.size();
        file += table + std::string(6, '\0') + '\x04' + '\x01';
        return file + bigEndian(objects.size(), 8) + bigEndian(root, 8) + bigEndian(tableOffset, 8);
    }

    static std::string bigEndian(std::uint64_t value, int size)
    {
        std::string result;
        for (int shift = (size - 1) * 8; shift >= 0; shift -= 8)
            result += static_cast<char>(value >> shift & 0xFF);
        return result;
    }
};

#include "host/driver/ScriptParser.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

// Whatever a line holds, it is split or refused; its words, each put between single quotes again, are split
// into the same words; and no word reads as a number that is not finite.

namespace {

void check(bool holds)
{
    if (!holds)
        std::abort();
}

std::string quotedAgain(const std::vector<std::string>& words)
{
    std::string line;
    for (const auto& word : words) {
        line += '\'';
        for (const char character : word)
            line += character == '\'' ? "'\\''" : std::string(1, character);
        line += "' ";
    }
    return line;
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto split = host::splitScriptLine({ reinterpret_cast<const char*>(data), size });
    check(split.error.empty() || split.error.back() == '.');
    const auto again = host::splitScriptLine(quotedAgain(split.words));
    check(again.error.empty() && again.words == split.words);
    for (const auto& word : split.words) {
        double number = 0;
        check(!host::readNumber(word, number) || std::isfinite(number));
        long count = 0;
        check(!host::readCount(word, count) || count >= 0);
    }
    return 0;
}

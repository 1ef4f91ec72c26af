#include "Manual.h"

#include <cstdio>
#include <string_view>

namespace {

struct Page {
    std::string_view name;
    std::string (*text)();
};

constexpr Page pages[] = {
    { "bash", host::bashCompletion },
    { "fish", host::fishCompletion },
    { "man", host::manualPage },
    { "zsh", host::zshCompletion },
};

}

/// Used while building: writes the page that its one word names to standard output.
int main(int argc, char** argv)
{
    for (const auto& page : pages) {
        if (argc == 2 && argv[1] == page.name)
            return std::fputs(page.text().c_str(), stdout) < 0 || std::fflush(stdout) != 0;
    }
    std::fputs("Usage: write_manual bash|fish|man|zsh\n", stderr);
    return 2;
}

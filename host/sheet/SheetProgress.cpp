#include "SheetProgress.h"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace host {

namespace {

constexpr std::size_t width = 40; // Characters, the brackets not counted.

bool somebodyLooks()
{
    // A dumb terminal can't take a line back.
    const char* const terminal = std::getenv("TERM");
    return ::isatty(STDERR_FILENO) != 0 && terminal && std::string_view(terminal) != "dumb";
}

}

SheetProgress::SheetProgress()
    : _isSeen(somebodyLooks())
{
}

SheetProgress::~SheetProgress()
{
    clear();
}

void SheetProgress::show(std::string_view deed, std::size_t done, std::size_t all)
{
    const auto part = [&](std::size_t whole) { return all ? done * whole / all : whole; };
    auto number = std::to_string(part(100));
    number.insert(0, 3 - number.size(), ' ');
    std::string bar(part(width), '#');
    bar.resize(width, ' ');
    auto text = std::string(deed) + " [" + bar + "] " + number + " %";
    if (!_isSeen || text == _text)
        return;
    clear();
    _text = std::move(text);
    draw();
}

void SheetProgress::say(const std::string& line)
{
    clear();
    std::fprintf(stderr, "%s\n", line.c_str());
    draw();
}

void SheetProgress::draw() const
{
    std::fputs(_text.c_str(), stderr);
    std::fflush(stderr);
}

void SheetProgress::clear() const
{
    if (!_text.empty())
        std::fputs("\r\x1B[K", stderr);
}

}

#include <cstdlib>

// Modules that can't be loaded, each in its way.

#if defined(NEEDS_SYMBOLS)
namespace elsewhere {
void first();
int second(int);
}

extern "C" int useThem()
{
    elsewhere::first();
    return elsewhere::second(1);
}
#elif defined(CRASHES)
[[maybe_unused]] const int crash = (std::abort(), 0);
#elif defined(EXITS)
[[maybe_unused]] const int end = (std::_Exit(3), 0);
#endif

#include "platform/qt/PropertyListFormat.h"

#include <cstdlib>

using namespace platform;

/// Any file is read or refused; and a list that could be read and written is read as the same list again.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const auto list = parsePropertyList({ reinterpret_cast<const char*>(data), size });
    if (!list || !list->dictionary())
        return 0;
    const auto xml = xmlFromPropertyList(*list->dictionary());
    if (!xml)
        return 0;
    const auto again = parsePropertyList(*xml);
    // By their texts, as dates lose their fraction on the way and a number that is none equals nothing.
    if (!again || !again->dictionary() || xmlFromPropertyList(*again->dictionary()) != xml)
        std::abort();
    return 0;
}

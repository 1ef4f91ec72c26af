#include "platform/qt/PropertyListFormat.h"
#include "RandomPropertyList.h"

#include <gtest/gtest.h>

using namespace platform;

namespace {

/// Another seed each time, or the one of a failure that is to be looked into.
std::uint64_t chooseSeed()
{
    const char* given = std::getenv("VEKORA_SEED");
    return given ? std::strtoull(given, nullptr, 10) : std::random_device {}();
}

TEST(PropertyListRoundTrip, GivesBackWhatWasWritten)
{
    const auto seed = chooseSeed();
    SCOPED_TRACE("VEKORA_SEED=" + std::to_string(seed));
    std::cout << "VEKORA_SEED=" << seed << "\n";
    RandomPropertyList random(seed);
    for (int round = 0; round < 3000; ++round) {
        const auto list = random.dictionary();
        const auto xml = xmlFromPropertyList(list);
        ASSERT_TRUE(xml);
        const auto again = parsePropertyList(*xml);
        ASSERT_TRUE(again) << *xml;
        ASSERT_EQ(*again, PropertyValue(list)) << *xml;
        ASSERT_EQ(xmlFromPropertyList(*again->dictionary()), xml);
    }
}

}

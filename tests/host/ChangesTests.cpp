#include "host/observe/Changes.h"

#include <gtest/gtest.h>

using namespace platform;
using host::describeChanges;
using host::observationLine;

namespace {

TEST(Changes, NamesEachKeyWithWhatItWasAndIs)
{
    const PropertyList before { { "enabled", true }, { "kept", 1 }, { "text", "a" } };
    const PropertyList after { { "enabled", false }, { "kept", 1 }, { "text", "b" } };
    EXPECT_EQ(describeChanges(before, after), R"("enabled": true -> false, "text": "a" -> "b")");
}

TEST(Changes, CallsAMissingValueAbsent)
{
    EXPECT_EQ(describeChanges({}, { { "a", 1 } }), R"("a": absent -> 1)");
    EXPECT_EQ(describeChanges({ { "a", 1 } }, {}), R"("a": 1 -> absent)");
    EXPECT_EQ(describeChanges({ { "a", "absent" } }, {}), R"("a": "absent" -> absent)");
}

TEST(Changes, SaysWhenThereIsNone)
{
    EXPECT_EQ(describeChanges({}, {}), "no change");
    EXPECT_EQ(describeChanges({ { "a", NSDate(0) } }, { { "a", NSDate(0) } }), "no change");
}

TEST(Changes, TellsKindsApart)
{
    EXPECT_EQ(describeChanges({ { "a", true } }, { { "a", 1 } }), R"("a": true -> 1)");
}

TEST(Changes, ShowsEveryKindInJson)
{
    EXPECT_EQ(describeChanges({}, { { "a", NSDate(0.5) } }), R"("a": absent -> "2001-01-01T00:00:00.5Z")");
    EXPECT_EQ(describeChanges({}, { { "a", PropertyData { 1, 2, 3 } } }), R"("a": absent -> "AQID")");
    EXPECT_EQ(describeChanges({}, { { "a", PropertyArray { 1, "x" } } }), R"("a": absent -> [1,"x"])");
    EXPECT_EQ(describeChanges({}, { { "a", PropertyList { { "b", 0.5 } } } }), R"("a": absent -> {"b":0.5})");
}

TEST(Changes, StayOnOneLine)
{
    EXPECT_EQ(describeChanges({}, { { "a\nb", "c\nd\"" } }), R"("a\nb": absent -> "c\nd\"")");
    EXPECT_EQ(observationLine("T", "two words\n", {}, {}), "T two?words? no change\n");
}

TEST(Changes, MakeALineWithTimeAndName)
{
    EXPECT_EQ(observationLine("2014-01-05T10:17:42Z", "net.morvane.vekora/preferences", {}, { { "a", 1 } }),
        "2014-01-05T10:17:42Z net.morvane.vekora/preferences \"a\": absent -> 1\n");
}

}

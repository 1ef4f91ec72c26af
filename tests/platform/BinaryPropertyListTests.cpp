#include "BinaryFile.h"
#include "platform/qt/PropertyListFormat.h"

#include <bit>
#include <gtest/gtest.h>
#include <limits>

using namespace platform;
using namespace std::string_literals;

namespace {

/// A dictionary { "k": object }.
std::optional<PropertyValue> parseInList(const std::string& object)
{
    const auto list = parsePropertyList(BinaryFile { { "\xD1\x01\x02"s, "\x51k"s, object } }.bytes());
    if (!list || !list->dictionary())
        return std::nullopt;
    return list->dictionary()->at("k");
}

std::string date(double seconds)
{
    return '\x33' + BinaryFile::bigEndian(std::bit_cast<std::uint64_t>(seconds), 8);
}

/// A whole list of every kind of value.
std::string sampleFile()
{
    return BinaryFile {
        { "\xD2\x01\x02\x03\x04"s,
            "\x51"
            "a"s,
            "\x51"
            "b"s,
            "\xA3\x05\x06\x07"s, "\x5Ahello text"s, "\x09"s, "\x10\x2A"s, date(1.5) }
    }.bytes();
}

TEST(BinaryPropertyList, ReadsEachKindOfObject)
{
    EXPECT_EQ(parseInList("\x08"s), PropertyValue(false));
    EXPECT_EQ(parseInList("\x09"s), PropertyValue(true));
    EXPECT_EQ(parseInList("\x10\xFF"s), PropertyValue(255));
    EXPECT_EQ(parseInList("\x11\x01\x00"s), PropertyValue(256));
    EXPECT_EQ(parseInList("\x12\xFF\xFF\xFF\xFF"s), PropertyValue(0xFFFFFFFFLL));
    EXPECT_EQ(
        parseInList("\x13" + BinaryFile::bigEndian(static_cast<std::uint64_t>(-5), 8)), PropertyValue(-5));
    EXPECT_EQ(parseInList("\x22\x3F\xC0\x00\x00"s), PropertyValue(1.5));
    EXPECT_EQ(parseInList("\x23" + BinaryFile::bigEndian(std::bit_cast<std::uint64_t>(0.1), 8)),
        PropertyValue(0.1));
    EXPECT_EQ(parseInList("\x53"
                          "abc"s),
        PropertyValue("abc"));
    EXPECT_EQ(parseInList("\x50"s), PropertyValue(""));
    EXPECT_EQ(parseInList("\x5F\x10\x03"
                          "abc"s),
        PropertyValue("abc"));
    EXPECT_EQ(parseInList("\x63\x00\xE4\xD8\x3D\xDE\x00"s), PropertyValue("\xC3\xA4\xF0\x9F\x98\x80"));
    EXPECT_EQ(parseInList("\x43\x00\x01\xFF"s), PropertyValue(PropertyData { 0, 1, 255 }));
    EXPECT_EQ(parseInList("\x40"s), PropertyValue(PropertyData {}));
    EXPECT_EQ(parseInList("\xA0"s), PropertyValue(PropertyArray {}));
    EXPECT_EQ(parseInList("\xD0"s), PropertyValue(PropertyList {}));
    EXPECT_EQ(parseInList("\xA2\x01\x01"s), PropertyValue(PropertyArray { "k", "k" }));
}

TEST(BinaryPropertyList, KeepsDatesToTheirLastBit)
{
    for (const double seconds :
        { 0.0, 0.1, -0.25, 410641689.123456, 2145916800.5, 63113904000.75, -63114076800.0, 1e300, -1e-300 })
        EXPECT_EQ(parseInList(date(seconds)), PropertyValue(NSDate(seconds))) << seconds;
}

TEST(BinaryPropertyList, ReadsWideUnsignedIntegersAsReals)
{
    const auto wide = [](std::uint64_t high, std::uint64_t low) {
        return parseInList("\x14" + BinaryFile::bigEndian(high, 8) + BinaryFile::bigEndian(low, 8));
    };
    EXPECT_EQ(wide(0, 5), PropertyValue(5));
    EXPECT_EQ(wide(0, 0x7FFFFFFFFFFFFFFF), PropertyValue(std::numeric_limits<long long>::max()));
    EXPECT_EQ(wide(0, 0x8000000000000000), PropertyValue(0x1p63));
    EXPECT_EQ(wide(0, 0xFFFFFFFFFFFFFFFF), PropertyValue(0x1p64));
    EXPECT_FALSE(wide(1, 0));
}

TEST(BinaryPropertyList, ReadsAnArchivesReferenceAsInXml)
{
    EXPECT_EQ(parseInList("\x80\x07"s), PropertyValue(PropertyList { { "CF$UID", 7 } }));
    EXPECT_EQ(parseInList("\x83\x00\x01\x00\x00"s), PropertyValue(PropertyList { { "CF$UID", 65536 } }));
}

TEST(BinaryPropertyList, MayHaveAnyRoot)
{
    EXPECT_EQ(parsePropertyList(BinaryFile { { "\x09"s } }.bytes()), PropertyValue(true));
    EXPECT_EQ(parsePropertyList(BinaryFile { { "\x51k"s, "\xA1\x00"s }, 1 }.bytes()),
        PropertyValue(PropertyArray { "k" }));
}

TEST(BinaryPropertyList, IsSpoiltByOneMalformedObject)
{
    for (const auto& object : { "\x00"s, "\x0F"s, "\x01"s, "\x15"s, "\x21\x00\x00"s, "\x32\x00\x00\x00\x00"s,
             "\x51\xE4"s, "\x51\x00"s, "\x61\xD8\x00"s, "\x61\xDC\x00"s, "\x62\xDC\x00\xD8\x00"s,
             "\x61\x00\x00"s, "\x70"s, "\x90"s, "\xB0"s, "\xC1\x01"s, "\xE0"s, "\xF0"s, "\xA1\x09"s,
             "\xD1\x02\x01"s, "\xD1\x00\x01"s, "\x5F\x20\x01"s, "\x5F\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"s,
             "\xAF\x12\xFF\xFF\xFF\xFF"s, "\xDF\x13\x80\x00\x00\x00\x00\x00\x00\x00"s, "\x5F"s, "\x88"s })
        EXPECT_FALSE(parseInList(object)) << testing::PrintToString(object);
}

TEST(BinaryPropertyList, IsSpoiltByAnObjectThatIsCutShort)
{
    for (const auto& object : { "\x11\x01"s, "\x13\x00\x00"s, "\x22\x00"s, "\x33\x00"s, "\x52k"s, "\x42\x00"s,
             "\x61\x00"s, "\xA2\x01"s, "\xD1\x01"s, "\x5F\x10"s, "\x81\x00"s })
        EXPECT_FALSE(parseInList(object)) << testing::PrintToString(object);
}

TEST(BinaryPropertyList, ThatContainsItselfIsNone)
{
    EXPECT_FALSE(parsePropertyList(BinaryFile { { "\xA1\x00"s } }.bytes()));
    EXPECT_FALSE(parsePropertyList(BinaryFile { { "\xA1\x01"s, "\xD1\x02\x00"s, "\x51k"s } }.bytes()));
}

TEST(BinaryPropertyList, CutAtAnyLengthIsNone)
{
    const auto file = sampleFile();
    ASSERT_EQ(parsePropertyList(file),
        PropertyValue(
            PropertyList { { "a", PropertyArray { true, 42, NSDate(1.5) } }, { "b", "hello text" } }));
    EXPECT_EQ(parsePropertyList(""), PropertyValue(PropertyList {}));
    for (std::size_t length = 1; length < file.size(); ++length)
        EXPECT_FALSE(parsePropertyList(file.substr(0, length))) << length;
}

TEST(BinaryPropertyList, WithAnyByteChangedIsReadOrRefused)
{
    const auto file = sampleFile();
    int refused = 0;
    for (std::size_t index = 0; index < file.size(); ++index) {
        for (int value = 0; value < 256; ++value) {
            auto changed = file;
            changed[index] = static_cast<char>(value);
            refused += parsePropertyList(changed) ? 0 : 1;
        }
    }
    EXPECT_GT(refused, 0);
}

TEST(BinaryPropertyList, DoesNotGrowBeyondItsFile)
{
    // Thirty arrays, each twice the one before it: a billion values from 300 bytes.
    BinaryFile file { { "\x09"s } };
    for (char level = 0; level < 30; ++level)
        file.objects.push_back("\xA2"s + level + level);
    file.root = 30;
    EXPECT_FALSE(parsePropertyList(file.bytes()));

    BinaryFile texts { { "\xAF\x11\xFF\xFF"s + std::string(0xFFFF, '\x01'),
        "\x5F\x12"s + BinaryFile::bigEndian(1 << 20, 4) + std::string(1 << 20, 'x') } };
    EXPECT_FALSE(parsePropertyList(texts.bytes()));
}

TEST(BinaryPropertyList, MayShareWhatItContains)
{
    const auto list
        = parsePropertyList(BinaryFile { { "\xA2\x01\x01"s, "\xD1\x02\x02"s, "\x51k"s } }.bytes());
    const PropertyValue inner = PropertyList { { "k", "k" } };
    EXPECT_EQ(list, PropertyValue(PropertyArray { inner, inner }));
}

TEST(BinaryPropertyList, NestsOnlySoDeep)
{
    const auto arrays = [](int depth) {
        // References take four bytes in a list this long.
        std::string file = "bplist00";
        std::string table;
        for (int level = 1; level <= depth; ++level) {
            table += BinaryFile::bigEndian(file.size(), 4);
            file += level < depth ? "\xA1" + BinaryFile::bigEndian(static_cast<std::uint64_t>(level), 4)
                                  : "\xA0";
        }
        const auto tableOffset = file.size();
        return parsePropertyList(file + table + std::string(6, '\0') + "\x04\x04"
            + BinaryFile::bigEndian(static_cast<std::uint64_t>(depth), 8) + BinaryFile::bigEndian(0, 8)
            + BinaryFile::bigEndian(tableOffset, 8));
    };
    EXPECT_TRUE(arrays(1));
    EXPECT_TRUE(arrays(deepestNesting));
    EXPECT_FALSE(arrays(deepestNesting + 1));
    EXPECT_FALSE(arrays(1'000'000));
}

}

#include "DeviceFixture.h"
#include "platform/NSMutableDictionary.h"
#include "platform/qt/OldStylePropertyList.h"
#include "platform/qt/PropertyListFormat.h"

using namespace platform;

namespace {

std::optional<PropertyList> parse(std::string_view text)
{
    const auto root = parsePropertyList(text);
    if (!root || !root->dictionary())
        return std::nullopt;
    return *root->dictionary();
}

/// The value of one entry; nothing when it spoils the list.
std::optional<PropertyValue> parseValue(const std::string& value)
{
    const auto list = parse("{ before = 1; it = " + value + "; }");
    return list ? std::optional(list->at("it")) : std::nullopt;
}

std::string nested(int depth)
{
    std::string text = "{ key = ";
    for (int level = 1; level < depth; ++level)
        text += '(';
    for (int level = 1; level < depth; ++level)
        text += ')';
    return text + (depth == 1 ? "text" : "") + "; }";
}

TEST(OldStylePropertyList, IsADictionaryInBraces)
{
    EXPECT_EQ(parse("{ key = \"value\"; list = ( a, b ); data = <0fbd 77>; inner = { deep = yes; }; }"),
        (PropertyList { { "key", "value" }, { "list", PropertyArray { "a", "b" } },
            { "data", PropertyData { 0x0f, 0xbd, 0x77 } },
            { "inner", PropertyList { { "deep", "yes" } } } }));
    EXPECT_EQ(parse("{}"), PropertyList {});
    EXPECT_EQ(parse(" \n{key=value;}\t\n"), (PropertyList { { "key", "value" } }));
}

TEST(OldStylePropertyList, IsAFileOfStrings)
{
    EXPECT_EQ(
        parse(
            "/* The title. */\n\"Title\" = \"Titel\";\n\n// The rest.\n\"Rest\"=\"Rest // */ /*\";\nbare;\n"),
        (PropertyList { { "Title", "Titel" }, { "Rest", "Rest // */ /*" }, { "bare", "bare" } }));
    EXPECT_EQ(parse("\xEF\xBB\xBFkey = \"\xC3\xA4\";"), (PropertyList { { "key", "\xC3\xA4" } }));
    EXPECT_EQ(parse("key = value; // to the end"), (PropertyList { { "key", "value" } }));
    EXPECT_EQ(parse("// nothing else"), PropertyList {});
    EXPECT_EQ(parse("key /**/ = /***/ value /* ; */ ;"), (PropertyList { { "key", "value" } }));
    EXPECT_EQ(parse("// old style\rkey = value;"), (PropertyList { { "key", "value" } }));
}

TEST(OldStylePropertyList, HoldsTextsAlone)
{
    for (const char* text : { "1", "1.5", "YES", "true", "-3", "http://host/a_b$", "2014-01-05" })
        EXPECT_EQ(parseValue(text), PropertyValue(text));
    EXPECT_EQ(parse("{ 5 = 6; }"), (PropertyList { { "5", "6" } }));
}

TEST(OldStylePropertyList, KeepsTheLastOfEqualKeys)
{
    EXPECT_EQ(parse("a = 1; \"a\" = 2;"), (PropertyList { { "a", "2" } }));
}

TEST(OldStylePropertyList, KnowsTheEscapesOfAText)
{
    EXPECT_EQ(parseValue(R"("a\nb\"c\\d\te")"), PropertyValue("a\nb\"c\\d\te"));
    EXPECT_EQ(parseValue(R"("\a\b\f\r\v\'\q\/")"), PropertyValue("\a\b\f\r\v'q/"));
    EXPECT_EQ(parseValue(R"("\U00e4\U263A\UE4g\UD83D\UDE00\U00411")"),
        PropertyValue("\xC3\xA4\xE2\x98\xBA\xC3\xA4g\xF0\x9F\x98\x80"
                      "A1"));
    EXPECT_EQ(parseValue(R"("\101\60\7x\1018")"),
        PropertyValue("A0\ax"
                      "A8"));
    EXPECT_EQ(parseValue("\"over\\\ntwo\nlines\""), PropertyValue("over\ntwo\nlines"));
    EXPECT_EQ(parseValue("\"\\\xC3\xA4\""), PropertyValue("\xC3\xA4"));
    EXPECT_EQ(parseValue(R"('it"s \'')"), PropertyValue("it\"s '"));
    EXPECT_EQ(parseValue(R"("")"), PropertyValue(""));
}

TEST(OldStylePropertyList, IsSpoiltByAMalformedText)
{
    for (const char* text :
        { R"("open)", R"("open\)", R"("open\")", R"("\U")", R"("\Ug")", R"("\UD83D")", R"("\UDE00\UD83D")",
            R"("\200")", R"("\777")", "two words", "\xC3\xA4", "#FF0000", "a\"b\"", "" })
        EXPECT_FALSE(parseValue(text)) << text;
    EXPECT_FALSE(parse("key = \"\xFF\";"));
    EXPECT_FALSE(parse("key = value; // \xC3"));
}

TEST(OldStylePropertyList, ReadsHexadecimalData)
{
    EXPECT_EQ(parseValue("<>"), PropertyValue(PropertyData {}));
    EXPECT_EQ(parseValue("< 00FF\n aB 1 2 >"), PropertyValue(PropertyData { 0, 255, 0xab, 0x12 }));
    for (const char* data : { "<0>", "<0g>", "<00", "<0x00>", "<*I3>", "<00>>", "<00 /**/>" })
        EXPECT_FALSE(parseValue(data)) << data;
}

TEST(OldStylePropertyList, ReadsArrays)
{
    EXPECT_EQ(parseValue("()"), PropertyValue(PropertyArray {}));
    EXPECT_EQ(parseValue("( a, )"), PropertyValue(PropertyArray { "a" }));
    EXPECT_EQ(parseValue("( \"a\" /* , */ , (b), {c=d;},<0a> )"),
        PropertyValue(PropertyArray {
            "a", PropertyArray { "b" }, PropertyList { { "c", "d" } }, PropertyData { 10 } }));
    for (const char* array : { "(", "(a", "(a,", "(a b)", "(,)", "(a,,b)", "(a;)", "(a}" })
        EXPECT_FALSE(parseValue(array)) << array;
}

TEST(OldStylePropertyList, IsNothingWhenMalformed)
{
    for (const char* text :
        { "{", "}", "{ key }", "{ key = }", "{ key = value }", "{ key = value; ", "{ = value; }", "{} {}",
            "{} key;", "key = value", "key = value; }", "key value;", "key == value;", "(a)", "<00>", "text",
            "\"text\"", "two words", ";", "/* open", "key = value; /* open", "{ key = /* value; }",
            "{ (a) = b; }", "<?xml version=\"1.0\"?> { key = value; }", "bplist00 = a;" })
        EXPECT_FALSE(parse(text)) << text;
    EXPECT_FALSE(parse(std::string_view("key\0 = value;", 13)));
}

TEST(OldStylePropertyList, IsNothingWhenCutShort)
{
    constexpr std::string_view whole = "{ key = \"va\\U00e4\"; list = ( a, b ); data = <0fbd>; }";
    ASSERT_TRUE(parse(whole));
    for (std::size_t length = 1; length < whole.size(); ++length)
        EXPECT_FALSE(parse(whole.substr(0, length))) << length;
}

TEST(OldStylePropertyList, IsReadToACertainDepth)
{
    EXPECT_TRUE(parse(nested(1)));
    EXPECT_TRUE(parse(nested(deepestNesting)));
    EXPECT_FALSE(parse(nested(deepestNesting + 1)));
    EXPECT_FALSE(parse("{ key = " + std::string(1'000'000, '(')));
    std::string braces;
    for (int level = 0; level < 1'000'000; ++level)
        braces += "{a=";
    EXPECT_FALSE(parse(braces));
}

class OldStylePropertyListFile : public DeviceTest { };

TEST_F(OldStylePropertyListFile, IsReadAndSavedAsXml)
{
    constexpr const char* path = "/var/mobile/Library/Preferences/test.plist";
    const auto file = preferences() / "test.plist";
    writeTestFile(file, "{ buttonColor = \"#FF8800\"; disableForMinutes = 30; }");
    auto list = NSMutableDictionary::dictionaryWithContentsOfFile(path);
    ASSERT_TRUE(list);
    EXPECT_EQ(
        list->entries(), (PropertyList { { "buttonColor", "#FF8800" }, { "disableForMinutes", "30" } }));
    ASSERT_TRUE(list->writeToFileAtomically(path, true));
    EXPECT_TRUE(readTestFile(file).starts_with("<?xml "));

    writeTestFile(file, "no such list");
    EXPECT_FALSE(NSMutableDictionary::dictionaryWithContentsOfFile(path));
}

}

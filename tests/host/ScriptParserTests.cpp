#include "host/driver/ScriptParser.h"

#include <gtest/gtest.h>

using host::readCharacters;
using host::readCount;
using host::readNumber;
using host::splitScriptLine;

namespace {

using Words = std::vector<std::string>;

Words words(std::string_view line)
{
    const auto split = splitScriptLine(line);
    EXPECT_EQ(split.error, "") << line;
    return split.words;
}

TEST(ScriptParser, SeparatesWordsAtBlanks)
{
    EXPECT_EQ(words("tap 10 20"), (Words { "tap", "10", "20" }));
    EXPECT_EQ(words("  tap\t10  20 "), (Words { "tap", "10", "20" }));
    EXPECT_EQ(words("rows\r"), (Words { "rows" }));
}

TEST(ScriptParser, PassesOverBlankLinesAndLinesThatBeginWithAHash)
{
    for (const char* line : { "", "   ", "\t\r", "#", "# tap \"x", "   # indented", "#tap", "# \xFF" })
        EXPECT_TRUE(splitScriptLine(line).isPassedOver()) << line;
}

TEST(ScriptParser, TakesAHashInsideALineAsAnyCharacter)
{
    EXPECT_EQ(words("tap #FF0000 # x"), (Words { "tap", "#FF0000", "#", "x" }));
}

TEST(ScriptParser, GroupsWithQuotes)
{
    EXPECT_EQ(words("tap \"Button Color\""), (Words { "tap", "Button Color" }));
    EXPECT_EQ(words("tap 'Button Color'"), (Words { "tap", "Button Color" }));
    EXPECT_EQ(words("tap \"it's\" 'a \"word\"'"), (Words { "tap", "it's", "a \"word\"" }));
    EXPECT_EQ(words("'tap' x"), (Words { "tap", "x" }));
    EXPECT_EQ(words("\"#\" x"), (Words { "#", "x" }));
}

TEST(ScriptParser, JoinsPiecesThatTouch)
{
    EXPECT_EQ(words("ta'p' But\"ton Co\"lor"), (Words { "tap", "Button Color" }));
}

TEST(ScriptParser, TakesEmptyQuotesAsAnEmptyWord)
{
    EXPECT_EQ(words("type \"\""), (Words { "type", "" }));
    EXPECT_EQ(words("type ''"), (Words { "type", "" }));
    EXPECT_EQ(words("type a''b"), (Words { "type", "ab" }));
}

TEST(ScriptParser, KeepsTheCharacterAfterABackslash)
{
    EXPECT_EQ(words(R"(tap Button\ Color \"x\' \\)"), (Words { "tap", "Button Color", "\"x'", "\\" }));
}

TEST(ScriptParser, EscapesFewCharactersInDoubleQuotesAndNoneInSingle)
{
    EXPECT_EQ(words(R"(type "a\"b\\c\$d\`e")"), (Words { "type", R"(a"b\c$d`e)" }));
    EXPECT_EQ(words(R"(type "a\nb\ c")"), (Words { "type", R"(a\nb\ c)" }));
    EXPECT_EQ(words(R"(type 'a\"b\\')"), (Words { "type", R"(a\"b\\)" }));
}

TEST(ScriptParser, ExpandsNothing)
{
    EXPECT_EQ(
        words("type $HOME * ~ `x` a;b {1,2}"), (Words { "type", "$HOME", "*", "~", "`x`", "a;b", "{1,2}" }));
}

TEST(ScriptParser, KeepsUnicodeAsItIs)
{
    EXPECT_EQ(words("type \"Grüße \U0001F600\""), (Words { "type", "Grüße \U0001F600" }));
}

TEST(ScriptParser, SaysWhichQuoteIsOpenAndKeepsTheWordsBefore)
{
    const auto line = splitScriptLine("tap \"Button");
    EXPECT_EQ(line.words, (Words { "tap" }));
    EXPECT_EQ(line.error, "The quotation mark in column 5 is never closed.");
    EXPECT_EQ(splitScriptLine("'").error, "The quotation mark in column 1 is never closed.");
    EXPECT_EQ(splitScriptLine(R"(tap "x\")").error, "The quotation mark in column 5 is never closed.");
    EXPECT_EQ(splitScriptLine("tap x'y z").words, (Words { "tap" }));
}

TEST(ScriptParser, RefusesABackslashBeforeNothing)
{
    const auto line = splitScriptLine("tap x\\");
    EXPECT_EQ(line.words, (Words { "tap" }));
    EXPECT_NE(line.error.find("backslash"), std::string::npos);
}

TEST(ScriptParser, RefusesNulBytesAndWhatIsNotUtf8)
{
    EXPECT_EQ(splitScriptLine(std::string_view("tap\0x", 5)).error, "The line holds a NUL byte.");
    for (const char* line : { "type \xFF", "type \xC3", "type \xC0\x80", "type \xED\xA0\x80", "type \x80",
             "type \xF4\x90\x80\x80", "type \xF8\x88\x80\x80\x80", "type \xE2\x82" })
        EXPECT_EQ(splitScriptLine(line).error, "The line is not UTF-8.") << line;
}

TEST(ScriptParser, KeepsTheWordsBeforeWhatCannotBeRead)
{
    EXPECT_EQ(splitScriptLine("type 'a b' c\xFF").words, (Words { "type", "a b" }));
    EXPECT_EQ(splitScriptLine("type \"a b\xFF\"").words, (Words { "type" }));
    EXPECT_EQ(splitScriptLine(std::string_view("type \0", 6)).words, (Words { "type" }));
    EXPECT_EQ(splitScriptLine(std::string_view("type\0", 5)).words, Words {});
}

TEST(ScriptParser, ReadsDecimalNumbers)
{
    const std::pair<const char*, double> numbers[] = { { "0", 0 }, { "10", 10 }, { "10.25", 10.25 },
        { "-3.5", -3.5 }, { "+7", 7 }, { ".5", 0.5 }, { "5.", 5 }, { "1e2", 100 }, { "-0", 0 } };
    for (const auto& [word, expected] : numbers) {
        double number = -1;
        EXPECT_TRUE(readNumber(word, number)) << word;
        EXPECT_EQ(number, expected) << word;
    }
}

TEST(ScriptParser, LeavesWhatIsNoFiniteNumber)
{
    for (const char* word : { "", "x", "1x", "1 ", " 1", "nan", "inf", "-inf", "infinity", "NAN", "1e999",
             "0x10", "1,5", "--1", "+-1", "++1", "+", "-", ".", "e", "1e", "1.2.3" }) {
        double number = -1;
        EXPECT_FALSE(readNumber(word, number)) << word;
        EXPECT_EQ(number, -1) << word;
    }
}

TEST(ScriptParser, ReadsCountsFromDigitsAlone)
{
    long count = -1;
    EXPECT_TRUE(readCount("0", count));
    EXPECT_EQ(count, 0);
    EXPECT_TRUE(readCount("0042", count));
    EXPECT_EQ(count, 42);
    for (const char* word : { "", "-1", "+1", "1.0", "1e2", " 1", "x", "99999999999999999999" }) {
        EXPECT_FALSE(readCount(word, count)) << word;
        EXPECT_EQ(count, 42) << word;
    }
}

TEST(ScriptParser, ReadsCharacters)
{
    std::vector<char32_t> characters;
    EXPECT_TRUE(readCharacters("a\u00FC\u20AC\U0001F600", characters));
    EXPECT_EQ(characters, (std::vector<char32_t> { U'a', U'\u00FC', U'\u20AC', U'\U0001F600' }));
    EXPECT_TRUE(readCharacters("", characters));
    EXPECT_TRUE(characters.empty());
}

}

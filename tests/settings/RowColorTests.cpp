#include "settings/RowColor.h"

#include <gtest/gtest.h>

namespace vekora {

using namespace platform;

namespace {

struct Painted {
    std::string text;
    std::string background;
};

Painted painted(const PropertyValue& value)
{
    const auto colors = rowColors(&value);
    return { hexDescription(colors.text.cgColor()), hexDescription(colors.background.cgColor()) };
}

const std::string black = "#000000FF";
const std::string white = "#FFFFFFFF";

}

TEST(RowColor, IsBlackOnWhiteWithoutAColor)
{
    const auto colors = rowColors(nullptr);
    EXPECT_EQ(colors.text, UIColor::blackColor());
    EXPECT_EQ(colors.background, UIColor::whiteColor());
}

TEST(RowColor, ShowsTheStoredColorWithTextThatCanBeRead)
{
    struct Case {
        const char* color;
        std::string text;
        const char* background;
    };
    const Case cases[] {
        { "#FFFFFF", black, "#FFFFFFFF" },
        { "#000000", white, "#000000FF" },
        { "#FF0000", white, "#FF0000FF" },
        { "#00FF00", black, "#00FF00FF" },
        { "#0000FF", white, "#0000FFFF" },
        { "#808080", black, "#808080FF" },
        { "#7F7F7F", white, "#7F7F7FFF" },
        { "#ff8800", black, "#FF8800FF" },
        { "123456", white, "#123456FF" },
    };
    for (const auto& [color, text, background] : cases) {
        EXPECT_EQ(painted(color).text, text) << color;
        EXPECT_EQ(painted(color).background, background) << color;
    }
}

TEST(RowColor, ReadsAnyTextAsAColor)
{
    const std::pair<const char*, const char*> cases[] {
        { "#FF00", "#00FF00FF" },
        { "#FFF", "#000FFFFF" },
        { "##12", "#000012FF" },
        { "#12#34", "#000012FF" },
        { "#12xyz", "#000012FF" },
        { "#0x00FF00", "#00FF00FF" },
        { "#000000000FF", "#0000FFFF" },
        { "#", "#FFFFFFFF" },
        { "", "#FFFFFFFF" },
        { "red", "#FFFFFFFF" },
        { " #FF0000", "#FFFFFFFF" },
        { "# FF0000", "#FFFFFFFF" },
        { "-FF0000", "#FFFFFFFF" },
        { "#1000000", "#FFFFFFFF" },
        { "#FFFFFFF", "#FFFFFFFF" },
        { "#FFFFFFFFFFFFFFFFFF", "#FFFFFFFF" },
    };
    for (const auto& [color, background] : cases)
        EXPECT_EQ(painted(color).background, background) << color;
}

TEST(RowColor, TakesAValueThatIsNoTextAsWhite)
{
    for (const PropertyValue& value : { PropertyValue(0xFF0000), PropertyValue(true), PropertyValue(0.5),
             PropertyValue(NSDate(1)), PropertyValue(PropertyData { 1 }),
             PropertyValue(PropertyArray { "#FF0000" }), PropertyValue(PropertyList { { "red", 255 } }) }) {
        EXPECT_EQ(painted(value).text, black);
        EXPECT_EQ(painted(value).background, white);
    }
}

TEST(RowColor, WeighsTheChannelsAsTheEyeDoes)
{
    EXPECT_NEAR(darkness({ 255, 255, 255 }), 0, 1e-15);
    EXPECT_DOUBLE_EQ(darkness({ 0, 0, 0 }), 1);
    EXPECT_NEAR(darkness({ 255, 0, 0 }), 1 - 0.2126, 1e-15);
    EXPECT_NEAR(darkness({ 0, 255, 0 }), 0.2848, 1e-15);
    EXPECT_NEAR(darkness({ 0, 0, 255 }), 1 - 0.0722, 1e-15);
    EXPECT_NEAR(darkness({ 128, 128, 128 }), 1 - 128 / 255.0, 1e-15);
}

TEST(RowColor, TakesWhiteTextInTheMiddle)
{
    // Colours whose darkness is 0.5 to the last bit, and the next lighter ones.
    const std::pair<const char*, const char*> cases[] {
        { "#0DA371", "#0DA372" },
        { "#4E925A", "#4E925B" },
        { "#8F8143", "#8F8144" },
        { "#E1665D", "#E1665E" },
    };
    for (const auto& [middle, lighter] : cases) {
        EXPECT_EQ(darkness(readColorString(middle)), 0.5) << middle;
        EXPECT_EQ(painted(middle).text, white) << middle;
        EXPECT_EQ(painted(lighter).text, black) << lighter;
    }
}

TEST(RowColor, PaintsAnOpaqueColorOfRedGreenAndBlue)
{
    const PropertyValue value("#FFFFFF");
    EXPECT_EQ(rowColors(&value).background, UIColor::colorWithRedGreenBlueAlpha(1, 1, 1, 1));
}

}

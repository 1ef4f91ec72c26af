#include "ColorCellTest.h"

#include "picker/VKColorPickerView_B.h"
#include "picker/VKColorPickerView_H.h"
#include "picker/VKColorPickerView_S.h"
#include "platform/Truncation.h"

#include <cmath>
#include <limits>

// What the cell makes of its row and of what the preference file holds.

using namespace platform;

namespace vekora::tests {

namespace {

using ColorCell = ColorCellTest;

struct StoredText {
    const char* stored;
    const char* shown;
    std::vector<float> color;
};

class StoredColor : public ColorCellTest, public testing::WithParamInterface<StoredText> { };

}

TEST_P(StoredColor, IsShownAsStoredAndPaintedAsRead)
{
    const auto& [text, shown, color] = GetParam();
    store({ { "buttonColor", text } });
    makeCell();
    EXPECT_EQ(hex().text(), shown);
    EXPECT_EQ(sliderValues(), color);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(value(i).text(), std::to_string(static_cast<int>(color[i])));
    const auto painted
        = UIColor::colorWithRedGreenBlueAlpha(color[0] / 255.0, color[1] / 255.0, color[2] / 255.0, 1);
    EXPECT_EQ(sample().layer().backgroundColor(), painted.cgColor());
    EXPECT_EQ(picker().color(), painted);
    EXPECT_EQ(events(), nothing);
}

INSTANTIATE_TEST_SUITE_P(Texts, StoredColor,
    testing::Values(StoredText { "#FF8800", "#FF8800", { 255, 136, 0 } },
        StoredText { "#ff8800", "#FF8800", { 255, 136, 0 } },
        StoredText { "FF8800", "#FF8800", { 255, 136, 0 } },
        StoredText { "##FF8800#", "#FF8800", { 255, 136, 0 } }, StoredText { "#FFF", "#FFF", { 0, 15, 255 } },
        StoredText { "#1000000", "#1000000", { 255, 255, 255 } },
        StoredText { "#FF#00", "#FF#00", { 0, 0, 255 } },
        StoredText { "#0xff8800", "#0XFF8800", { 255, 136, 0 } },
        StoredText { "# ff8800", "# FF8800", { 255, 255, 255 } },
        StoredText { "red", "#RED", { 255, 255, 255 } }, StoredText { "#", "#", { 255, 255, 255 } },
        StoredText { "", "#", { 255, 255, 255 } }));

TEST_F(ColorCell, ShowsItsDefaultWhenTheFileHasNoColor)
{
    row->setPropertyForKey("#00ff80", "default");
    makeCell();
    EXPECT_EQ(hex().text(), "#00FF80");
    store({ { "buttonText", "Vekora" } });
    makeCell();
    EXPECT_EQ(sliderValues(), (std::vector<float> { 0, 255, 128 }));
}

TEST_F(ColorCell, IsWhiteWithoutAnyColor)
{
    row->removePropertyForKey("default");
    makeCell();
    EXPECT_EQ(hex().text(), "#FFFFFF");
    EXPECT_EQ(sliderValues(), (std::vector<float> { 255, 255, 255 }));
    EXPECT_FALSE(sampleTextIsWhite());
}

TEST_F(ColorCell, TakesAColorThatIsNoTextForWhite)
{
    for (const auto& value : { PropertyValue(0x0000FF), PropertyValue(true), PropertyValue(PropertyArray {}),
             PropertyValue(PropertyList {}), PropertyValue(PropertyData { 1 }), PropertyValue(1.5) }) {
        store({ { "buttonColor", value } });
        makeCell();
        EXPECT_EQ(hex().text(), "#");
        EXPECT_EQ(sampleBackground(), "#FFFFFFFF");
    }
}

TEST_F(ColorCell, EditsTheColorThatItsKeyNames)
{
    row->setPropertyForKey("otherColor", "key");
    store({ { "buttonColor", "#FF8800" }, { "otherColor", "#00FF80" } });
    makeCell();
    EXPECT_EQ(hex().text(), "#00FF80");
}

TEST_F(ColorCell, ReadsNoFileWithoutDomainOrKey)
{
    store({ { "buttonColor", "#00FF80" }, { "colorPickerType", 2 } });
    row->removePropertyForKey("key");
    makeCell();
    EXPECT_EQ(hex().text(), "#FF0000");
    EXPECT_TRUE(dynamic_cast<VKColorPickerView_B*>(&picker()));
    row->setPropertyForKey("buttonColor", "key");
    row->removePropertyForKey("defaults");
    makeCell();
    EXPECT_EQ(hex().text(), "#FF0000");
    EXPECT_TRUE(dynamic_cast<VKColorPickerView_H*>(&picker()));
}

TEST_F(ColorCell, TakesTheSamplesOpacityFromTheFile)
{
    const std::pair<PropertyValue, const char*> levels[] = {
        { 100, "#000000FF" },
        { 40, "#00000066" },
        { 40.0, "#00000066" },
        { "40", "#00000066" },
        { 0, "#00000000" },
        { -50, "#00000000" },
        { 1000000, "#000000FF" },
        { std::numeric_limits<double>::infinity(), "#000000FF" },
        { std::numeric_limits<double>::quiet_NaN(), "#00000000" },
        { 1e300, "#000000FF" },
        { "much", "#00000000" },
        { PropertyArray {}, "#00000000" },
    };
    row->setPropertyForKey("#000000", "default");
    for (const auto& [level, color] : levels) {
        store({ { "buttonAlphaLevel", level } });
        makeCell();
        EXPECT_EQ(sampleBackground(), color);
        cell().setColors(true);
        EXPECT_EQ(sampleBackground(), color);
        // The picker shows the colour itself.
        EXPECT_EQ(hexDescription(*picker().crossHairs()->layer().backgroundColor()), "#000000FF");
    }
}

TEST_F(ColorCell, PaintsTheSampleOverWhite)
{
    row->setPropertyForKey("#FF8800", "default");
    store({ { "buttonAlphaLevel", 20 } });
    makeCell();
    window->setScale(1);
    window->display();
    EXPECT_EQ(window->picture().at(30, 60), 0xFFFFE7CCU);
    EXPECT_EQ(window->picture().at(15, 60), 0xFF000000U); // The border.
    EXPECT_EQ(window->picture().at(8, 60), 0xFFFFFFFFU);
}

TEST_F(ColorCell, ChoosesItsTextByColorAndOpacity)
{
    row->setPropertyForKey("#7F7F7F", "default");
    makeCell();
    EXPECT_TRUE(sampleTextIsWhite());
    store({ { "buttonAlphaLevel", 90 } });
    makeCell();
    EXPECT_FALSE(sampleTextIsWhite());
    row->setPropertyForKey("#808080", "default");
    store({ { "buttonAlphaLevel", 100 } });
    makeCell();
    EXPECT_FALSE(sampleTextIsWhite());
}

TEST_F(ColorCell, AnswersItsContrastRuleByName)
{
    makeCell();
    const auto white = [&](int red, int green, int blue, double opacity) {
        return cell().performSelector("useWhiteFont:withGreen:withBlue:withOpacity:",
                   { PropertyValue(red), PropertyValue(green), PropertyValue(blue), PropertyValue(opacity) })
            == Argument(PropertyValue(true));
    };
    EXPECT_FALSE(white(255, 255, 255, 1));
    EXPECT_TRUE(white(0, 0, 0, 1));
    EXPECT_FALSE(white(128, 128, 128, 1));
    EXPECT_TRUE(white(127, 127, 127, 1));
    EXPECT_FALSE(white(0, 0, 0, 0));
    EXPECT_TRUE(white(13, 163, 113, 1));
}

TEST_F(ColorCell, HasOnePickerOfTheKindInTheFile)
{
    enum Kind { H, S, B };
    const std::pair<std::optional<PropertyValue>, Kind> kinds[] = {
        { std::nullopt, H },
        { 0, H },
        { 1, S },
        { 2, B },
        { 3, H },
        { 7, H },
        { -1, H },
        { "1", S },
        { "2nd", B },
        { "no", H },
        { true, S },
        { 1.9, S },
        { 2.0, B },
        { std::numeric_limits<double>::quiet_NaN(), H },
        { std::numeric_limits<double>::infinity(), H },
        { 4294967298LL, B }, // Its low 32 bits are 2.
        { PropertyList {}, H },
        { PropertyArray {}, H },
    };
    for (const auto& [type, kind] : kinds) {
        PropertyList entries { { "buttonColor", "#FF8800" } };
        if (type)
            entries.insert_or_assign("colorPickerType", *type);
        store(entries);
        makeCell();
        EXPECT_EQ(dynamic_cast<VKColorPickerView_H*>(&picker()) != nullptr, kind == H);
        EXPECT_EQ(dynamic_cast<VKColorPickerView_S*>(&picker()) != nullptr, kind == S);
        EXPECT_EQ(dynamic_cast<VKColorPickerView_B*>(&picker()) != nullptr, kind == B);
        EXPECT_EQ(picker().color(), UIColor::colorWithRedGreenBlueAlpha(1, 136 / 255.0, 0, 1));
        // Whatever the kind, it is the one that follows.
        slider(0).setValue(0);
        cell().setColors(true);
        EXPECT_EQ(hexDescription(*picker().crossHairs()->layer().backgroundColor()), "#008800FF");
    }
}

TEST_F(ColorCell, PinsItsSlidersWithoutARange)
{
    row->removePropertyForKey("min");
    row->removePropertyForKey("max");
    makeCell();
    EXPECT_EQ(sliderValues(), (std::vector<float> { 0, 0, 0 }));
    EXPECT_EQ(valueTexts(), (std::vector<std::string> { "255", "0", "0" }));
    EXPECT_EQ(slider(0).maximumValue(), 0);
}

TEST_F(ColorCell, SetsTheLowerEndOfTheRangeFirst)
{
    row->setPropertyForKey(300, "min");
    makeCell();
    EXPECT_EQ(slider(0).minimumValue(), 255);
    EXPECT_EQ(slider(0).maximumValue(), 255);
    EXPECT_EQ(sliderValues(), (std::vector<float> { 255, 255, 255 }));
}

TEST_F(ColorCell, TakesAnyRange)
{
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    const PropertyValue ends[] = { 0, 255, -10, 1e300, -1e300, infinity, -infinity,
        std::numeric_limits<double>::quiet_NaN(), "255", "wide", PropertyArray {}, true };
    for (const auto& min : ends) {
        for (const auto& max : ends) {
            row->setPropertyForKey(min, "min");
            row->setPropertyForKey(max, "max");
            makeCell();
            cell().sliderValueChangedAction(&slider(0));
            cell().askUserForInputR();
            answer("Save", "1e38");
            press(slider(1), { slider(1).thumbRect().midX(), 20 });
            move(slider(1), { 200, 20 });
            release(slider(1), { 200, 20 });
            EXPECT_EQ(hex().text(),
                writtenColorString({ truncatedInteger(slider(0).value()), truncatedInteger(slider(1).value()),
                    truncatedInteger(slider(2).value()) }));
            EXPECT_FALSE(std::isnan(slider(0).value()));
        }
    }
}

TEST_F(ColorCell, ReadsItsRangeFromTexts)
{
    row->setPropertyForKey("-10", "min");
    row->setPropertyForKey("100.5", "max");
    makeCell();
    EXPECT_EQ(slider(0).minimumValue(), -10);
    EXPECT_EQ(slider(0).maximumValue(), 100.5F);
}

}

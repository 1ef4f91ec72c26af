#include "ColorCellTest.h"

#include "picker/VKColorPickerView_B.h"
#include "picker/VKColorPickerView_H.h"
#include "picker/VKColorPickerView_S.h"
#include "platform/Truncation.h"

#include <cmath>
#include <limits>

using namespace platform;

namespace vekora::tests {

namespace {

class ColorCell : public ColorCellTest { };

const auto clear = UIColor::clearColor().cgColor();
const auto faint = UIColor::colorWithRedGreenBlueAlpha(0, 0, 0, 0.04).cgColor();

struct LabelLook {
    CGRect frame;
    std::string text;
    UIColor color;
    NSTextAlignment alignment;
    unsigned mask;
};

void expectLabel(const UILabel& label, const LabelLook& look)
{
    EXPECT_EQ(label.frame(), look.frame);
    EXPECT_EQ(label.text(), look.text);
    EXPECT_EQ(label.textColor(), look.color);
    EXPECT_EQ(label.textAlignment(), look.alignment);
    EXPECT_EQ(label.autoresizingMask(), look.mask);
    EXPECT_EQ(label.numberOfLines(), 1);
    EXPECT_EQ(label.font(), UIFont());
}

CGSize widestHex()
{
    UILabel label({ 15, 10, 290, 40 });
    label.setText("#FFFFFFF");
    label.sizeToFit();
    return label.frame().size();
}

}

TEST_F(ColorCell, IsAsWideAsItsPage)
{
    PSListController page({ 414, 700 });
    row = std::make_shared<PSSpecifier>("", &page, "", "", nullptr, PSCellType::StaticText);
    makeCell();
    EXPECT_EQ(slider(0).frame().width, 414 - 30);
    EXPECT_EQ(picker().frame().width, 414);
}

TEST_F(ColorCell, IsWhite)
{
    makeCell();
    EXPECT_EQ(cell().layer().backgroundColor(), UIColor::whiteColor().cgColor());
}

TEST_F(ColorCell, HasTheDefaultStyleWhateverIsAskedFor)
{
    const auto valueCell = std::make_shared<VKColorCell>(1L, "cell", row);
    valueCell->detailTextLabel().setText("value");
    valueCell->layoutIfNeeded();
    EXPECT_EQ(valueCell->detailTextLabel().superview(), nullptr);
}

TEST_F(ColorCell, HoldsNothingButItsSeventeenViews)
{
    makeCell();
    EXPECT_EQ(cell().contentView().subviews().size(), 17U);
}

TEST_F(ColorCell, ShowsTheHexReadOutAboveTheSample)
{
    makeCell();
    const auto size = widestHex();
    expectLabel(hex(),
        { { 160 - size.width * 0.5, 10, size.width, size.height }, "#FF0000", UIColor::blueColor(),
            NSTextAlignment::Center, 7 });
    EXPECT_EQ(hex().layer().backgroundColor(), clear);
    expectLabel(
        sample(), { { 15, 41, 286, 38 }, "Button", UIColor::whiteColor(), NSTextAlignment::Center, 7 });
    EXPECT_EQ(sample().layer().borderColor(), UIColor::blackColor().cgColor());
    EXPECT_EQ(sample().layer().borderWidth(), 1);
    EXPECT_EQ(sample().layer().cornerRadius(), 5);
    EXPECT_TRUE(sample().layer().masksToBounds());
}

TEST_F(ColorCell, ShowsThreeChannels)
{
    makeCell();
    const std::string names[] = { "Red", "Green", "Blue" };
    const std::string numbers[] = { "255", "0", "0" };
    for (int i = 0; i < 3; ++i) {
        const double top = 490 + 68 * i;
        auto& title = child<UILabel>(2 + i);
        expectLabel(
            title, { { 15, top, 200, 20 }, names[i], UIColor::blackColor(), NSTextAlignment::Left, 0 });
        EXPECT_EQ(title.layer().backgroundColor(), clear);
        expectLabel(value(i),
            { { 245, top - 7, 60, 30 }, numbers[i], UIColor::blueColor(), NSTextAlignment::Right, 5 });
        EXPECT_EQ(value(i).layer().backgroundColor(), clear);
        EXPECT_EQ(slider(i).frame(), (CGRect { 15, top + 18, 290, 40 }));
        EXPECT_EQ(slider(i).autoresizingMask(), 7U);
        EXPECT_TRUE(slider(i).isContinuous());
        EXPECT_EQ(slider(i).minimumValue(), 0);
        EXPECT_EQ(slider(i).maximumValue(), 255);
    }
}

TEST_F(ColorCell, LaysFaintButtonsWhereTheReadOutsAre)
{
    makeCell();
    const auto expectButton = [&](std::size_t place, const UILabel& readOut) {
        auto& button = child<UIButton>(place);
        EXPECT_EQ(button.frame(), readOut.frame());
        EXPECT_EQ(button.autoresizingMask(), readOut.autoresizingMask());
        EXPECT_EQ(button.currentTitle(), "");
        EXPECT_EQ(button.layer().cornerRadius(), 5);
        EXPECT_EQ(button.layer().backgroundColor(), faint);
    };
    for (int i = 0; i < 3; ++i)
        expectButton(5 + i, value(i));
    expectButton(14, hex());
}

TEST_F(ColorCell, LaysTheSlidersFirstWhenThePickerIsNotPreferred)
{
    for (const auto& off : { PropertyValue(false), PropertyValue(0), PropertyValue("no") }) {
        row->setPropertyForKey(off, "preferColorPicker");
        makeCell();
        EXPECT_EQ(picker().frame(), (CGRect { 0, 285, 320, 380 }));
        for (int i = 0; i < 3; ++i) {
            const double top = 90 + 68 * i;
            EXPECT_EQ(child<UILabel>(2 + i).frame(), (CGRect { 15, top, 200, 20 }));
            EXPECT_EQ(value(i).frame(), (CGRect { 245, top - 7, 60, 30 }));
            EXPECT_EQ(slider(i).frame(), (CGRect { 15, top + 18, 290, 40 }));
        }
    }
}

TEST_F(ColorCell, LaysThePickerFirstWhenItIsPreferred)
{
    row->setPropertyForKey(true, "preferColorPicker");
    makeCell();
    EXPECT_EQ(picker().frame(), (CGRect { 0, 90, 320, 380 }));
    EXPECT_EQ(picker().autoresizingMask(), 7U);
}

TEST_F(ColorCell, EndsWithTheHelp)
{
    makeCell();
    const auto& help = child<UILabel>(16);
    EXPECT_EQ(help.text(),
        "-- Tap once on a color gradient to select a color.\n"
        "-- Tap, hold and drag on a color gradient to scroll through different colors.\n"
        "-- Tap once on a number value to bring up a keyboard and enter a value directly.\n"
        "-- Tap once on the hex value to bring up a keyboard and enter a value directly.");
    EXPECT_EQ(help.numberOfLines(), 0);
    EXPECT_EQ(help.textColor(), UIColor::blackColor());
    EXPECT_EQ(help.textAlignment(), NSTextAlignment::Left);
    EXPECT_EQ(help.layer().backgroundColor(), std::nullopt);
    EXPECT_EQ(help.autoresizingMask(), 7U);
    EXPECT_EQ(help.frame().origin(), (CGPoint { 15, 685 }));
    EXPECT_EQ(help.frame().size(), help.sizeThatFits({ 290, 100 }));
}

TEST_F(ColorCell, FollowsItsWidthByMasksAlone)
{
    makeCell();
    const auto before = hex().frame();
    cell().setFrame({ 0, 0, 480, 860 });
    EXPECT_DOUBLE_EQ(hex().frame().x, before.x * 1.5);
    EXPECT_DOUBLE_EQ(hex().frame().width, before.width * 1.5);
    EXPECT_DOUBLE_EQ(sample().frame().width, 286 * 1.5);
    EXPECT_EQ(child<UILabel>(2).frame(), (CGRect { 15, 490, 200, 20 }));
    EXPECT_EQ(value(0).frame().width, 60);
    EXPECT_DOUBLE_EQ(value(0).frame().x, 245 + 160 * 245.0 / 260);
    EXPECT_EQ(child<UIButton>(5).frame(), value(0).frame());
    EXPECT_DOUBLE_EQ(slider(2).frame().width, 290 * 1.5);
    EXPECT_DOUBLE_EQ(picker().frame().width, 480);
}

struct StoredText {
    const char* stored;
    const char* shown;
    std::vector<float> color;
};

class StoredColor : public ColorCellTest, public testing::WithParamInterface<StoredText> { };

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

TEST_F(ColorCell, IsReleasedByItsPage)
{
    store({ { "buttonColor", "#FF8800" } });
    makeCell();
    const std::weak_ptr<VKColorCell> seen = _cell;
    const std::weak_ptr<UIView> picker = cell().contentView().subviews().at(15);
    cell().removeFromSuperview();
    _cell = nullptr;
    EXPECT_TRUE(seen.expired());
    EXPECT_TRUE(picker.expired());
}

TEST_F(ColorCell, IsNotMissedByAPickerThatStays)
{
    store({ { "buttonColor", "#FF8800" } });
    makeCell();
    const auto kept = cell().contentView().subviews().at(15);
    auto& picker = dynamic_cast<ColorPickerBase&>(*kept);
    cell().removeFromSuperview();
    _cell = nullptr;
    picker.colorsHaveChangedBlock()(UIColor::redColor());
    picker.saveChangesBlock()(UIColor::redColor());
    EXPECT_EQ(events(), nothing);
}

TEST_F(ColorCell, IsMadeByName)
{
    const auto* found = NSClassFromString("VKColorCell");
    ASSERT_TRUE(found);
    const auto made = found->make<PSTableCell>(0L, std::string("cell"), row);
    ASSERT_TRUE(made);
    EXPECT_EQ(made->contentView().subviews().size(), 17U);
}

}

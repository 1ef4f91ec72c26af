#include "ColorCellTest.h"

using namespace platform;

namespace vekora::tests {

namespace {

class ColorCellDialog : public ColorCellTest {
protected:
    ColorCellDialog()
    {
        store({ { "buttonColor", "#FF8800" }, { "enabled", true } });
        makeCell();
    }

    void typeChannel(int channel, const std::string& text)
    {
        tap(value(channel));
        answer("Save", text);
    }
    void typeHex(const std::string& text)
    {
        tap(hex());
        answer("Save", text);
    }
    std::string savedColor() { return stored()->at("buttonColor").string()->c_str(); }
};

}

TEST_F(ColorCellDialog, AsksForAChannelWhoseReadOutIsTapped)
{
    const std::string names[] = { "Red", "Green", "Blue" };
    for (int i = 0; i < 3; ++i) {
        tap(value(i));
        EXPECT_EQ(alert().title(), std::nullopt);
        EXPECT_EQ(alert().message(), "Please enter a value for " + names[i] + " between\n0 and 255");
        EXPECT_EQ(alert().tag(), 2626 + i);
        EXPECT_EQ(alert().alertViewStyle(), UIAlertViewStyle::PlainTextInput);
        EXPECT_EQ(alert().numberOfButtons(), 2);
        EXPECT_EQ(alert().buttonTitleAtIndex(0), "Cancel");
        EXPECT_EQ(alert().buttonTitleAtIndex(1), "Save");
        EXPECT_EQ(alert().textFieldAtIndex(0)->text(), "");
        EXPECT_EQ(alert().textFieldAtIndex(0)->keyboardType(), UIKeyboardType::NumberPad);
        answer("Cancel");
    }
}

TEST_F(ColorCellDialog, AsksForAHexValueWhenItsReadOutIsTapped)
{
    tap(hex());
    EXPECT_EQ(alert().title(), std::nullopt);
    EXPECT_EQ(alert().message(),
        "Please enter a hex value between\n#000000 and #FFFFFF\nCurrent value is: #FF8800");
    EXPECT_EQ(alert().tag(), 2629);
    EXPECT_EQ(alert().alertViewStyle(), UIAlertViewStyle::PlainTextInput);
    EXPECT_EQ(alert().numberOfButtons(), 2);
    EXPECT_EQ(alert().buttonTitleAtIndex(0), "Cancel");
    EXPECT_EQ(alert().buttonTitleAtIndex(1), "Save");
    EXPECT_EQ(alert().textFieldAtIndex(0)->text(), "");
    EXPECT_EQ(alert().textFieldAtIndex(0)->keyboardType(), UIKeyboardType::Default);
}

TEST_F(ColorCellDialog, TellsTheHexValueAsItIsShown)
{
    store({ { "buttonColor", "fff" } });
    makeCell();
    tap(hex());
    EXPECT_EQ(
        alert().message(), "Please enter a hex value between\n#000000 and #FFFFFF\nCurrent value is: #FFF");
}

TEST_F(ColorCellDialog, OpensByName)
{
    const std::pair<const char*, long> dialogs[] = { { "askUserForInputR", 2626 },
        { "askUserForInputG", 2627 }, { "askUserForInputB", 2628 }, { "askUserForInputHex", 2629 } };
    for (const auto& [action, tag] : dialogs) {
        cell().performSelector(action);
        EXPECT_EQ(alert().tag(), tag);
        answer("Cancel");
    }
}

TEST_F(ColorCellDialog, NamesTheUnitAtBothEnds)
{
    row->setPropertyForKey(" %", "type");
    row->setPropertyForKey(100.9, "max");
    makeCell();
    cell().askUserForInputG();
    EXPECT_EQ(alert().message(), "Please enter a value for Green between\n0 % and 100 %");
}

TEST_F(ColorCellDialog, LooksTheUnitUpWhenItAsks)
{
    cell().specifier()->setPropertyForKey("°", "type");
    cell().askUserForInputB();
    EXPECT_EQ(alert().message(), "Please enter a value for Blue between\n0° and 255°");
}

TEST_F(ColorCellDialog, BeginsWithAMinusBelowZero)
{
    row->setPropertyForKey(-10, "min");
    makeCell();
    tap(value(0));
    EXPECT_EQ(alert().message(), "Please enter a value for Red between\n-10 and 255");
    EXPECT_EQ(alert().textFieldAtIndex(0)->text(), "-");
    EXPECT_EQ(alert().textFieldAtIndex(0)->keyboardType(), UIKeyboardType::NumberPad);
    answer("Save", "-3");
    EXPECT_EQ(slider(0).value(), -3);
    EXPECT_EQ(value(0).text(), "-3");
}

TEST_F(ColorCellDialog, BeginsWithAMinusThatTheMessageDoesNotShow)
{
    row->setPropertyForKey(-0.5, "min");
    makeCell();
    cell().askUserForInputR();
    EXPECT_EQ(alert().message(), "Please enter a value for Red between\n0 and 255");
    EXPECT_EQ(alert().textFieldAtIndex(0)->text(), "-");
}

TEST_F(ColorCellDialog, SetsTheChannelAndSaves)
{
    typeChannel(2, "128");
    EXPECT_EQ(sliderValues(), (std::vector<float> { 255, 136, 128 }));
    EXPECT_EQ(valueTexts(), (std::vector<std::string> { "255", "136", "128" }));
    EXPECT_EQ(hex().text(), "#FF8880");
    EXPECT_EQ(sampleBackground(), "#FF8880FF");
    EXPECT_EQ(hexDescription(*picker().crossHairs()->layer().backgroundColor()), "#FF8880FF");
    EXPECT_EQ(events(), writtenAndPosted);
    EXPECT_EQ(stored(), (PropertyList { { "buttonColor", "#FF8880" }, { "enabled", true } }));
}

TEST_F(ColorCellDialog, SetsOnlyItsOwnChannel)
{
    typeChannel(0, "1");
    EXPECT_EQ(savedColor(), "#018800");
    typeChannel(1, "2");
    EXPECT_EQ(savedColor(), "#010200");
    typeChannel(2, "3");
    EXPECT_EQ(savedColor(), "#010203");
}

TEST_F(ColorCellDialog, PinsNumbersToTheRange)
{
    for (const auto* text : { "300", "1e30", "1e400", "255.0001" }) {
        typeChannel(2, text);
        EXPECT_EQ(value(2).text(), "255") << text;
        EXPECT_EQ(savedColor(), "#FF88FF") << text;
        EXPECT_EQ(events(), writtenAndPosted);
    }
    for (const auto* text : { "-1", "-1e400" }) {
        typeChannel(2, text);
        EXPECT_EQ(value(2).text(), "0") << text;
        EXPECT_EQ(savedColor(), "#FF8800") << text;
    }
}

TEST_F(ColorCellDialog, ReadsWhatIsNoNumberAsZero)
{
    for (const auto* text : { "abc", "", "-", "#FF", "nan", "inf", "FF", "\u0661" }) {
        typeChannel(1, "136");
        (void)events();
        typeChannel(1, text);
        EXPECT_EQ(value(1).text(), "0") << text;
        EXPECT_EQ(savedColor(), "#FF0000") << text;
        EXPECT_EQ(events(), writtenAndPosted);
    }
}

TEST_F(ColorCellDialog, ReadsTheNumberAtTheStart)
{
    typeChannel(1, " 12abc");
    EXPECT_EQ(savedColor(), "#FF0C00");
    typeChannel(1, "1,5");
    EXPECT_EQ(savedColor(), "#FF0100");
}

TEST_F(ColorCellDialog, KeepsAFractionInTheSlider)
{
    typeChannel(1, "127.996");
    EXPECT_EQ(slider(1).value(), 127.996F);
    EXPECT_EQ(value(1).text(), "128");
    EXPECT_EQ(savedColor(), "#FF7F00");
}

TEST_F(ColorCellDialog, ReadsHexTextsByTheRule)
{
    const std::pair<const char*, const char*> texts[] = {
        { "#00ff80", "#00FF80" },
        { "00FF80", "#00FF80" },
        { "##00FF80", "#00FF80" },
        { "0x00FF80", "#00FF80" },
        { " #00FF80", "#FFFFFF" },
        { " 00FF80", "#FFFFFF" },
        { "# 00FF80", "#FFFFFF" },
        { "#FFF", "#000FFF" },
        { "FF", "#0000FF" },
        { "", "#FFFFFF" },
        { "#", "#FFFFFF" },
        { "green", "#FFFFFF" },
        { "blue", "#00000B" },
        { "1000000", "#FFFFFF" },
        { "#0000012", "#000012" },
        { "123456789", "#FFFFFF" },
        { "12#34", "#000012" },
    };
    for (const auto& [text, color] : texts) {
        typeHex("#123456");
        (void)events();
        typeHex(text);
        EXPECT_EQ(hex().text(), color) << text;
        EXPECT_EQ(savedColor(), color) << text;
        EXPECT_EQ(sampleBackground(), std::string(color) + "FF") << text;
        EXPECT_EQ(
            hexDescription(*picker().crossHairs()->layer().backgroundColor()), std::string(color) + "FF");
        EXPECT_EQ(events(), writtenAndPosted);
    }
}

TEST_F(ColorCellDialog, ShowsATypedHexValueEverywhere)
{
    typeHex("#00ff80");
    EXPECT_EQ(sliderValues(), (std::vector<float> { 0, 255, 128 }));
    EXPECT_EQ(valueTexts(), (std::vector<std::string> { "0", "255", "128" }));
    EXPECT_FALSE(sampleTextIsWhite());
    typeHex("102030");
    EXPECT_TRUE(sampleTextIsWhite());
}

TEST_F(ColorCellDialog, ReadsOutATypedHexValueInPlainDigitsAsTyped)
{
    Device::current().locale = "ar_EG";
    row->setPropertyForKey(100, "max");
    makeCell();
    typeHex("#00FF80");
    EXPECT_EQ(valueTexts(), (std::vector<std::string> { "0", "255", "128" }));
    EXPECT_EQ(hex().text(), "#006464");
}

TEST_F(ColorCellDialog, SavesAValueThatDidNotChange)
{
    typeHex("#FF8800");
    EXPECT_EQ(events(), writtenAndPosted);
    typeChannel(0, "255");
    EXPECT_EQ(events(), writtenAndPosted);
}

TEST_F(ColorCellDialog, ChangesNothingOnCancel)
{
    for (int i = 0; i < 3; ++i) {
        tap(value(i));
        answer("Cancel", "77");
    }
    tap(hex());
    answer("Cancel", "123456");
    EXPECT_EQ(hex().text(), "#FF8800");
    EXPECT_EQ(sliderValues(), (std::vector<float> { 255, 136, 0 }));
    EXPECT_EQ(events(), nothing);
}

TEST_F(ColorCellDialog, MindsOnlyItsOwnAlertsAndButtons)
{
    UIAlertView stranger({ .message = "", .otherButtonTitles = { "A", "B", "C" } });
    stranger.setAlertViewStyle(UIAlertViewStyle::PlainTextInput);
    stranger.textFieldAtIndex(0)->setText("77");
    for (const long tag : { 0L, 2625L, 2630L, 3026L }) {
        stranger.setTag(tag);
        cell().alertViewClickedButtonAtIndex(stranger, 1);
    }
    for (const long tag : { 2626L, 2627L, 2628L, 2629L }) {
        stranger.setTag(tag);
        for (const long button : { 0L, 2L, -1L })
            cell().alertViewClickedButtonAtIndex(stranger, button);
    }
    EXPECT_EQ(hex().text(), "#FF8800");
    EXPECT_EQ(events(), nothing);
}

TEST_F(ColorCellDialog, IsNotMissedByAnAlertThatStays)
{
    tap(value(0));
    cell().removeFromSuperview();
    const std::weak_ptr<VKColorCell> seen = _cell;
    _cell = nullptr;
    ASSERT_TRUE(seen.expired());
    answer("Save", "0");
    EXPECT_EQ(UIAlertView::topmost(), nullptr);
    EXPECT_EQ(events(), nothing);
}

}

#include "ColorCellEditTest.h"

using namespace platform;

namespace vekora::tests {

TEST_F(ColorCellEdit, FollowsASliderLive)
{
    holdThumb(2);
    moveThumb(2, 100.5F);
    EXPECT_EQ(valueTexts(), (std::vector<std::string> { "255", "136", "100" }));
    EXPECT_EQ(hex().text(), "#FF8864");
    EXPECT_EQ(sampleBackground(), "#FF8864FF");
    EXPECT_EQ(shownInPicker(), "#FF8864FF");
    moveThumb(2, 200.5F);
    EXPECT_EQ(value(2).text(), "200");
    EXPECT_EQ(hex().text(), "#FF88C8");
    EXPECT_EQ(events(), nothing);
}

TEST_F(ColorCellEdit, ChangesItsSampleTextWithTheSlider)
{
    EXPECT_FALSE(sampleTextIsWhite());
    holdThumb(1);
    moveThumb(1, 0);
    EXPECT_TRUE(sampleTextIsWhite());
    moveThumb(1, 255);
    EXPECT_FALSE(sampleTextIsWhite());
}

TEST_F(ColorCellEdit, ShowsThePickerTheColorWithoutCommittingIt)
{
    holdThumb(0);
    moveThumb(0, 0);
    releaseThumb(0);
    EXPECT_EQ(shownInPicker(), "#008800FF");
    EXPECT_EQ(picker().color(), UIColor::colorWithRedGreenBlueAlpha(1, 136 / 255.0, 0, 1));
}

TEST_F(ColorCellEdit, SavesWhenASliderIsReleased)
{
    const auto before = *stored();
    holdThumb(1);
    moveThumb(1, 255);
    releaseThumb(1);
    EXPECT_EQ(events(), writtenAndPosted);
    auto expected = before;
    expected.insert_or_assign("buttonColor", "#FFFF00");
    EXPECT_EQ(stored(), expected);
}

TEST_F(ColorCellEdit, SavesOnceHoweverFarTheSliderMoved)
{
    holdThumb(0);
    for (int value = 255; value >= 0; value -= 15)
        moveThumb(0, static_cast<float>(value));
    releaseThumb(0);
    EXPECT_EQ(events(), writtenAndPosted);
    EXPECT_EQ(stored()->at("buttonColor"), "#008800");
}

TEST_F(ColorCellEdit, SavesWhenASliderIsReleasedOutside)
{
    holdThumb(0);
    const CGPoint farAway { thumbAt(slider(0), 0).x, -300 };
    move(slider(0), farAway);
    EXPECT_EQ(events(), nothing);
    release(slider(0), farAway);
    EXPECT_EQ(events(), writtenAndPosted);
    EXPECT_EQ(stored()->at("buttonColor"), "#008800");
}

TEST_F(ColorCellEdit, WritesTheColorAnewOnAReleaseWithoutMovement)
{
    store({ { "buttonColor", "#FFF" } });
    makeCell();
    holdThumb(0);
    EXPECT_EQ(hex().text(), "#FFF");
    releaseThumb(0);
    EXPECT_EQ(hex().text(), "#000FFF");
    EXPECT_EQ(stored()->at("buttonColor"), "#000FFF");
    EXPECT_EQ(events(), writtenAndPosted);
}

TEST_F(ColorCellEdit, LeavesASliderAloneThatIsTappedBesideItsThumb)
{
    tap(slider(0));
    EXPECT_EQ(sliderValues(), (std::vector<float> { 255, 136, 0 }));
    EXPECT_EQ(hex().text(), "#FF8800");
    EXPECT_EQ(events(), nothing);
}

TEST_F(ColorCellEdit, ReadsOutRoundedWhatItPaintsCut)
{
    slider(0).setValue(127.996F);
    cell().performSelector("sliderValueChangedAction:", { &slider(0) });
    EXPECT_EQ(value(0).text(), "128");
    EXPECT_EQ(hex().text(), "#7F8800");
    cell().performSelector("sliderTouchUpInsideOutsideAction:", { &slider(0) });
    EXPECT_EQ(stored()->at("buttonColor"), "#7F8800");
}

TEST_F(ColorCellEdit, ReadsOutOnlyTheSliderThatMoved)
{
    slider(0).setValue(10);
    slider(1).setValue(20);
    cell().sliderValueChangedAction(&slider(1));
    EXPECT_EQ(valueTexts(), (std::vector<std::string> { "255", "20", "0" }));
    EXPECT_EQ(hex().text(), "#0A1400");
}

TEST_F(ColorCellEdit, RepaintsForAnyOtherSender)
{
    slider(2).setValue(255);
    UISlider stranger;
    for (auto* sender : { static_cast<NSObject*>(&stranger), static_cast<NSObject*>(&hex()),
             static_cast<NSObject*>(nullptr) }) {
        slider(0).setValue(slider(0).value() - 1);
        cell().performSelector("sliderValueChangedAction:", { sender });
    }
    EXPECT_EQ(valueTexts(), (std::vector<std::string> { "255", "136", "0" }));
    EXPECT_EQ(hex().text(), "#FC88FF");
    EXPECT_EQ(shownInPicker(), "#FC88FFFF");
    EXPECT_EQ(events(), nothing);
}

TEST_F(ColorCellEdit, LeavesPickerAndTextColorAloneOnRelease)
{
    for (int i = 0; i < 3; ++i)
        slider(i).setValue(0);
    cell().sliderTouchUpInsideOutsideAction(nullptr);
    EXPECT_EQ(hex().text(), "#000000");
    EXPECT_EQ(sampleBackground(), "#000000FF");
    EXPECT_EQ(valueTexts(), (std::vector<std::string> { "255", "136", "0" }));
    EXPECT_EQ(shownInPicker(), "#FF8800FF");
    EXPECT_FALSE(sampleTextIsWhite());
    EXPECT_EQ(events(), writtenAndPosted);
}

TEST_F(ColorCellEdit, UpdatesThePickerOnlyWhenAskedTo)
{
    slider(0).setValue(0);
    cell().performSelector("setColors:", { PropertyValue(false) });
    EXPECT_EQ(hex().text(), "#008800");
    EXPECT_TRUE(sampleTextIsWhite());
    EXPECT_EQ(shownInPicker(), "#FF8800FF");
    cell().performSelector("setColors:", { PropertyValue(true) });
    EXPECT_EQ(shownInPicker(), "#008800FF");
    EXPECT_EQ(events(), nothing);
}

TEST_F(ColorCellEdit, ReadsOutInTheUsersDigits)
{
    Device::current().locale = "ar_EG";
    makeCell();
    EXPECT_EQ(valueTexts(), (std::vector<std::string> { "255", "136", "0" }));
    slider(0).setValue(128);
    cell().sliderValueChangedAction(&slider(0));
    EXPECT_EQ(valueTexts(), (std::vector<std::string> { "\u0661\u0662\u0668", "136", "0" }));
    EXPECT_EQ(hex().text(), "#808800");
}

TEST_F(ColorCellEdit, FollowsThePickerLive)
{
    press(bar(), { 0, 20 });
    EXPECT_EQ(hex().text(), "#FF8800");
    // Two thirds along the bar is blue.
    move(bar(), { bar().bounds().width * 2 / 3, 20 });
    EXPECT_EQ(hex().text(), "#0000FF");
    EXPECT_EQ(sliderValues(), (std::vector<float> { 0, 0, 255 }));
    EXPECT_EQ(valueTexts(), (std::vector<std::string> { "0", "0", "255" }));
    EXPECT_EQ(sampleBackground(), "#0000FFFF");
    EXPECT_TRUE(sampleTextIsWhite());
    EXPECT_EQ(events(), nothing);
}

TEST_F(ColorCellEdit, SavesWhenThePickersTouchEnds)
{
    press(bar(), { 0, 20 });
    move(bar(), { bar().bounds().width * 2 / 3, 20 });
    release(bar(), { bar().bounds().width / 3, 20 });
    EXPECT_EQ(events(), writtenAndPosted);
    EXPECT_EQ(hex().text(), "#00FF00");
    EXPECT_EQ(stored()->at("buttonColor"), "#00FF00");
}

TEST_F(ColorCellEdit, RoundsThePickersColorToTheNearestStep)
{
    // White to black down the field's left edge: half way, each component is 127.5.
    press(field(), { 0, 0 });
    move(field(), { 0, field().bounds().height / 2 });
    EXPECT_EQ(hex().text(), "#808080");
    EXPECT_EQ(valueTexts(), (std::vector<std::string> { "128", "128", "128" }));
}

TEST_F(ColorCellEdit, LeavesThePickersOwnHueAloneWhileItIsDragged)
{
    const auto hue = picker().currentHue;
    ASSERT_GT(hue, 0);
    press(field(), { 50, 50 });
    move(field(), { -20, 50 });
    EXPECT_EQ(sliderValues()[0], sliderValues()[1]);
    EXPECT_EQ(picker().currentHue, hue);
}

TEST_F(ColorCellEdit, SavesTheReadOutAsShownWhenThePickerChangedNothing)
{
    store({ { "buttonColor", "#f80" } });
    makeCell();
    const auto& nowhere = *picker().currentHueLabel();
    press(bar(), { 10, 20 });
    release(bar(), bar().convertPointFromView(nowhere.convertPointToView({ 1, 1 }, nullptr), nullptr));
    EXPECT_EQ(hex().text(), "#F80");
    EXPECT_EQ(stored()->at("buttonColor"), "#F80");
    EXPECT_EQ(events(), writtenAndPosted);
}

TEST_F(ColorCellEdit, ReadsOutThePickersColorAsPinnedByTheSliders)
{
    row->setPropertyForKey(100, "max");
    makeCell();
    picker().colorsHaveChangedBlock()(UIColor::colorWithRedGreenBlueAlpha(1, 0.2, 0, 1));
    EXPECT_EQ(valueTexts(), (std::vector<std::string> { "100", "51", "0" }));
    EXPECT_EQ(hex().text(), "#643300");
}

TEST_F(ColorCellEdit, TakesAGreyFromThePicker)
{
    picker().colorsHaveChangedBlock()(UIColor::colorWithWhiteAlpha(0.2, 1));
    EXPECT_EQ(hex().text(), "#333333");
}

}

#include "PickerFixture.h"

namespace vekora::test {

TYPED_TEST_SUITE(EveryColorPicker, Kinds, KindNames);

TYPED_TEST(EveryColorPicker, TellsTheBlockBeforeItKeepsTheColour)
{
    std::optional<UIColor> during;
    this->picker->setColorsHaveChangedBlock([&](const UIColor& color) {
        EXPECT_EQ(color, UIColor::blueColor());
        during = this->picker->color();
    });
    this->picker->_setColor(UIColor::blueColor());
    EXPECT_EQ(during, UIColor::redColor());
    EXPECT_EQ(this->picker->color(), UIColor::blueColor());
}

TYPED_TEST(EveryColorPicker, CommitsAnEqualColourSilently)
{
    this->picker->_setColor(UIColor::colorWithHueSaturationBrightnessAlpha(0, 1, 1, 1));
    EXPECT_TRUE(this->changed.empty()) << "red however it is made";
    this->picker->_setColor(UIColor::colorWithRedGreenBlueAlpha(1, 0, 0, 0.5));
    EXPECT_EQ(this->changed.size(), 1u) << "alpha counts";
    this->picker->_setColor(UIColor::blackColor());
    this->picker->_setColor(UIColor::colorWithRedGreenBlueAlpha(0, 0, 0, 1));
    EXPECT_EQ(this->changed.size(), 3u) << "and so does the colour space";
    EXPECT_TRUE(this->saved.empty());
}

TYPED_TEST(EveryColorPicker, ShowsNothingWhenItCommits)
{
    const auto before = this->shown();
    const auto text = this->picker->currentHueLabel()->text();
    this->picker->_setColor(UIColor::blueColor());
    EXPECT_EQ(this->shown(), before);
    EXPECT_EQ(this->picker->currentHueLabel()->text(), text);
}

TYPED_TEST(EveryColorPicker, CommitsItsOwnColour)
{
    this->picker->setColorsHaveChangedBlock([&](const UIColor& color) {
        if (color.isEqual(UIColor::blueColor()))
            this->picker->_setColor(UIColor::whiteColor());
        this->changed.push_back(color);
    });
    this->picker->_setColor(UIColor::blueColor());
    EXPECT_EQ(this->changed, (std::vector { UIColor::whiteColor(), UIColor::blueColor() }));
    EXPECT_EQ(this->picker->color(), UIColor::blueColor()) << "the outer commit is kept last";
    this->picker->_setColor(*this->picker->color());
    EXPECT_EQ(this->changed.size(), 2u);
}

TYPED_TEST(EveryColorPicker, PassesOverMissingBlocks)
{
    this->picker->setColorsHaveChangedBlock(nullptr);
    this->picker->setSaveChangesBlock(nullptr);
    this->tap(this->inField(0.5, 0.25));
    EXPECT_EQ(this->picker->color(), this->shownColor());
    EXPECT_NE(this->picker->color(), UIColor::redColor());
    this->picker->askUserForHue();
    this->answer("90", "OK");
    EXPECT_NEAR(this->picker->currentHue, 0.25, 1e-12);
}

TYPED_TEST(EveryColorPicker, CommitsTheFirstColourOverNone)
{
    this->show(std::nullopt);
    this->picker->_setColor(UIColor::colorWithRedGreenBlueAlpha(0, 0, 0, 1));
    EXPECT_EQ(this->changed.size(), 1u) << "black is not the same as none";
}

TYPED_TEST(EveryColorPicker, SavesBlackAsLongAsItHasNoColour)
{
    this->show(std::nullopt);
    this->picker->touchesEndedButtonWithEvent(nullptr, nullptr);
    EXPECT_EQ(this->saved, std::vector { UIColor::colorWithRedGreenBlueAlpha(0, 0, 0, 1) });
    EXPECT_EQ(this->picker->color(), std::nullopt);
}

TYPED_TEST(EveryColorPicker, SavesBlackWhateverItShowsAsLongAsItHasNoColour)
{
    this->show(std::nullopt);
    this->picker->setColor(UIColor::blueColor());
    this->picker->touchesEndedButtonWithEvent(nullptr, nullptr);
    EXPECT_EQ(this->saved, std::vector { UIColor::colorWithRedGreenBlueAlpha(0, 0, 0, 1) });
}

TYPED_TEST(EveryColorPicker, SavesTheCommittedColourNotTheShownOne)
{
    this->picker->setColor(UIColor::blueColor());
    this->picker->touchesEndedButtonWithEvent(nullptr, nullptr);
    EXPECT_EQ(this->saved, std::vector { UIColor::redColor() });
}

TYPED_TEST(EveryColorPicker, SavesAfterTheLastCommit)
{
    std::vector<std::string> order;
    this->picker->setColorsHaveChangedBlock([&](const UIColor&) { order.emplace_back("changed"); });
    this->picker->setSaveChangesBlock([&](const UIColor&) { order.emplace_back("save"); });
    this->tap(this->inField(0.5, 0.25));
    this->picker->askUserForHue();
    this->answer("90", "OK");
    EXPECT_EQ(order, (std::vector<std::string> { "changed", "save", "changed", "save" }));
}

// Blocks that pull the rug from under the picker.

TYPED_TEST(EveryColorPicker, OutlivesABlockThatLetsGoOfItDuringADrag)
{
    std::weak_ptr<TypeParam> watched = this->picker;
    this->picker->setColorsHaveChangedBlock([this](const UIColor&) {
        this->picker->removeFromSuperview();
        this->picker.reset();
    });
    const auto from = this->inField(0.5, 0.25), to = this->inField(0.25, 0.25);
    this->touch(from);
    this->move(to);
    EXPECT_TRUE(watched.expired());
    this->move(from);
    this->lift(from);
    EXPECT_TRUE(this->saved.empty());
}

TYPED_TEST(EveryColorPicker, OutlivesABlockThatLetsGoOfItAtTouchUp)
{
    std::weak_ptr<TypeParam> watched = this->picker;
    this->picker->setColorsHaveChangedBlock([this](const UIColor&) {
        this->picker->removeFromSuperview();
        this->picker.reset();
    });
    this->tap(this->inField(0.5, 0.25));
    EXPECT_TRUE(watched.expired());
    EXPECT_EQ(this->saved.size(), 1u) << "it finishes what it has begun";
}

TYPED_TEST(EveryColorPicker, OutlivesASaveBlockThatLetsGoOfIt)
{
    std::weak_ptr<TypeParam> watched = this->picker;
    const auto letGo = [this](const UIColor&) {
        this->picker->removeFromSuperview();
        this->picker.reset();
    };
    this->picker->setSaveChangesBlock(letGo);
    this->tap(this->inBar(0.5));
    EXPECT_TRUE(watched.expired());
}

TYPED_TEST(EveryColorPicker, OutlivesABlockThatLetsGoOfItFromADialog)
{
    for (const auto inSave : { false, true }) {
        this->show();
        std::weak_ptr<TypeParam> watched = this->picker;
        const auto letGo = [this](const UIColor&) {
            this->picker->removeFromSuperview();
            this->picker.reset();
        };
        if (inSave)
            this->picker->setSaveChangesBlock(letGo);
        else
            this->picker->setColorsHaveChangedBlock(letGo);
        this->picker->askUserForHue();
        this->answer("90", "OK");
        EXPECT_TRUE(watched.expired());
        EXPECT_FALSE(shownAlert(this->window));
    }
}

TYPED_TEST(EveryColorPicker, OutlivesABlockThatLetsGoOfItFromADirectCommit)
{
    std::weak_ptr<TypeParam> watched = this->picker;
    this->picker->setColorsHaveChangedBlock([this](const UIColor&) {
        this->picker->removeFromSuperview();
        this->picker.reset();
    });
    this->picker->_setColor(UIColor::blueColor());
    EXPECT_TRUE(watched.expired());
}

TYPED_TEST(EveryColorPicker, LetsABlockReplaceItself)
{
    int calls = 0;
    this->picker->setColorsHaveChangedBlock([&, text = std::string(100, 'x')](const UIColor&) {
        this->picker->setColorsHaveChangedBlock(nullptr);
        calls += text.size() == 100;
    });
    this->picker->setSaveChangesBlock([&, text = std::string(100, 'x')](const UIColor&) {
        this->picker->setSaveChangesBlock(nullptr);
        calls += text.size() == 100;
    });
    this->tap(this->inField(0.5, 0.25));
    this->tap(this->inField(0.25, 0.25));
    EXPECT_EQ(calls, 2);
}

TYPED_TEST(EveryColorPicker, LetsABlockShowAnotherColour)
{
    this->picker->setColorsHaveChangedBlock(
        [&](const UIColor&) { this->picker->setColor(UIColor::whiteColor()); });
    this->tap(this->inField(0.5, 0.25));
    EXPECT_EQ(this->shown(), (Hsb { 0, 0, 1 }));
    EXPECT_NE(this->picker->color(), UIColor::whiteColor()) << "the picked colour was committed";
    EXPECT_NE(this->picker->color(), UIColor::redColor());
}

TYPED_TEST(EveryColorPicker, LetsABlockTakeItOffTheScreenAndOpenADialog)
{
    this->picker->setSaveChangesBlock([&](const UIColor&) {
        this->picker->removeFromSuperview();
        this->picker->askUserForHue();
    });
    this->tap(this->inField(0.5, 0.25));
    EXPECT_EQ(this->alert().tag(), 3026);
    this->picker->setSaveChangesBlock(nullptr);
    this->answer("90", "OK");
    EXPECT_NEAR(this->picker->currentHue, 0.25, 1e-12);
}

}

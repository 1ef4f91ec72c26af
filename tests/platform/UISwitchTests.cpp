#include "ControlTestSupport.h"
#include "platform/Style.h"
#include "platform/UISwitch.h"

using namespace platform;

namespace {

class UISwitchTest : public ControlTest {
protected:
    Ref<UISwitch> toggle = add(std::make_shared<UISwitch>(), { 100, 200, 51, 31 });
    UISwitchTest() { log->listenTo(*toggle); }
};

TEST_F(UISwitchTest, IsOffAndOfItsOwnSizeAtFirst)
{
    EXPECT_FALSE(toggle->isOn());
    EXPECT_EQ(UISwitch().frame().size(), (CGSize { 51, 31 }));
    EXPECT_EQ(toggle->sizeThatFits({ 10, 10 }), (CGSize { 51, 31 }));
}

TEST_F(UISwitchTest, ChangesOnceWithEachTap)
{
    tap({ 101, 201 });
    EXPECT_TRUE(toggle->isOn());
    EXPECT_EQ(log->actions, (std::vector<std::string> { "down", "valueChanged", "upInside" }));

    tap({ 150, 230 });
    EXPECT_FALSE(toggle->isOn());
    EXPECT_EQ(log->count("valueChanged"), 2);
}

TEST_F(UISwitchTest, SendsNothingWhenSetByTheProgram)
{
    toggle->setOn(true);
    EXPECT_TRUE(toggle->isOn());
    EXPECT_TRUE(log->actions.empty());
}

TEST_F(UISwitchTest, IsLeftAloneByAFingerLiftedFarAway)
{
    drag({ 125, 215 }, { 125, 400 });
    EXPECT_FALSE(toggle->isOn());
    EXPECT_EQ(log->count("valueChanged"), 0);
}

TEST_F(UISwitchTest, FollowsAPushOfItsKnob)
{
    drag({ 110, 215 }, { 140, 215 }, 5);
    EXPECT_TRUE(toggle->isOn());
    drag({ 110, 215 }, { 140, 215 }, 5);
    EXPECT_TRUE(toggle->isOn()) << "It is on that side already.";
    EXPECT_EQ(log->count("valueChanged"), 1);
    drag({ 140, 215 }, { 110, 215 }, 5);
    EXPECT_FALSE(toggle->isOn());
}

TEST_F(UISwitchTest, IgnoresTouchesWhileDisabled)
{
    toggle->setEnabled(false);
    tap(*toggle);
    EXPECT_FALSE(toggle->isOn());
    EXPECT_TRUE(log->actions.empty());
}

TEST_F(UISwitchTest, ShowsAWhiteKnobOnTheSideOfItsValue)
{
    const auto left = CGPoint { 115.5, 215 };
    const auto right = CGPoint { 135.5, 215 };
    EXPECT_EQ(pixelAt(left), 0xFFFFFFFF);
    EXPECT_EQ(pixelAt({ 140, 215 }), pixelOf(style::trackGray()));

    toggle->setOn(true);
    EXPECT_EQ(pixelAt(right), 0xFFFFFFFF);
    EXPECT_EQ(pixelAt({ 108, 215 }), pixelOf(style::switchOn()));
}

}

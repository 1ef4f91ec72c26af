#include "ControlTestSupport.h"
#include "platform/Style.h"
#include "platform/UIButton.h"

using namespace platform;

namespace {

using UIButtonTest = ControlTest;

TEST_F(UIButtonTest, DrawsNothingWithoutATitleYetTakesTouches)
{
    window->setBackgroundColor(UIColor::redColor());
    const auto button = add(UIButton::buttonWithType(UIButtonType::RoundedRect), { 10, 10, 100, 40 });
    button->setTitleForState("", UIControlState::Normal);
    log->listenTo(*button);

    window->touchBegan({ 12, 12 });
    for (double y = 0; y < 60; y += 0.5)
        for (double x = 0; x < 120; x += 0.5)
            ASSERT_EQ(pixelAt({ x, y }), 0xFFFF0000) << x << ", " << y;
    window->touchEnded({ 12, 12 });

    EXPECT_EQ(log->actions, (std::vector<std::string> { "down", "upInside" }));
}

TEST_F(UIButtonTest, ShowsItsTintedTitleInTheMiddle)
{
    const auto button = add(UIButton::buttonWithType(UIButtonType::Custom), { 10, 20, 200, 44 });
    button->setTitleForState("Save", UIControlState::Normal);
    window->display();

    EXPECT_EQ(button->currentTitle(), "Save");
    const auto& label = button->titleLabel();
    EXPECT_EQ(label.text(), "Save");
    EXPECT_EQ(label.textAlignment(), NSTextAlignment::Center);
    EXPECT_EQ(label.textColor(), style::tint());
    EXPECT_EQ(label.frame().midX(), 100);
    EXPECT_EQ(label.frame().midY(), 22);
}

TEST_F(UIButtonTest, FadesWhileTheFingerIsOnIt)
{
    const auto button = add(UIButton::buttonWithType(UIButtonType::Custom), { 10, 200, 100, 44 });
    button->setTitleForState("Save", UIControlState::Normal);

    window->touchBegan({ 50, 220 });
    const auto pressed = button->titleLabel().alpha();
    window->touchMoved({ 50, 10 });
    const auto dragged = button->titleLabel().alpha();
    window->touchMoved({ 50, 220 });
    const auto returned = button->titleLabel().alpha();
    window->touchEnded({ 50, 220 });

    EXPECT_LT(pressed, 0.5);
    EXPECT_EQ(dragged, 1);
    EXPECT_EQ(returned, pressed);
    EXPECT_EQ(button->titleLabel().alpha(), 1);
}

TEST_F(UIButtonTest, IsDimmedAndDeadWhileDisabled)
{
    const auto button = add(UIButton::buttonWithType(UIButtonType::Custom), { 10, 20, 100, 44 });
    button->setTitleForState("Save", UIControlState::Normal);
    log->listenTo(*button);

    button->setEnabled(false);
    tap(*button);
    EXPECT_EQ(button->titleLabel().alpha(), 0.5);
    EXPECT_TRUE(log->actions.empty());

    button->setEnabled(true);
    tap(*button);
    EXPECT_EQ(button->titleLabel().alpha(), 1);
    EXPECT_EQ(log->count("upInside"), 1);
}

}

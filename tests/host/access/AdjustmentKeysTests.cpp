#include "AccessFixture.h"
#include "host/access/AdjustmentKeys.h"

namespace host {

using enum ElementRole;

namespace {

class AdjustmentKeys : public AccessTest {
protected:
    /// What the key makes of the value; −1 for nothing.
    static double after(const Element& element, int key, Qt::KeyboardModifiers modifiers = {})
    {
        const auto adjustment = adjustmentFor(element, key, modifiers);
        return adjustment ? adjustment->value : -1;
    }
    Element greenAt100()
    {
        openScreen(options());
        openColorPage();
        screen->actions().setValue(element("Green", Slider), 100);
        return element("Green", Slider);
    }
};

}

TEST_F(AdjustmentKeys, GoOneStep)
{
    const auto green = greenAt100();
    EXPECT_EQ(after(green, Qt::Key_Right), 101);
    EXPECT_EQ(after(green, Qt::Key_Left), 99);
    EXPECT_EQ(after(green, Qt::Key_Up), 101);
    EXPECT_EQ(after(green, Qt::Key_Down), 99);
}

TEST_F(AdjustmentKeys, GoTenSteps)
{
    const auto green = greenAt100();
    EXPECT_EQ(after(green, Qt::Key_Right, Qt::ShiftModifier), 110);
    EXPECT_EQ(after(green, Qt::Key_Down, Qt::ControlModifier), 90);
    EXPECT_EQ(after(green, Qt::Key_PageUp), 110);
    EXPECT_EQ(after(green, Qt::Key_PageDown), 90);
}

TEST_F(AdjustmentKeys, GoToTheEnds)
{
    const auto green = greenAt100();
    EXPECT_EQ(after(green, Qt::Key_Home), 0);
    EXPECT_EQ(after(green, Qt::Key_End), 255);
}

TEST_F(AdjustmentKeys, StopAtTheEnds)
{
    openScreen(options());
    openColorPage();
    EXPECT_EQ(after(element("Red", Slider), Qt::Key_Right, Qt::ShiftModifier), 255);
    EXPECT_EQ(after(element("Blue", Slider), Qt::Key_PageDown), 0);
}

TEST_F(AdjustmentKeys, MoveHandlesTheWayTheyPoint)
{
    openScreen(optionsWithGallery());
    // Full brightness is at its left end.
    const auto brightness = element("Brightness", ColorBar);
    EXPECT_NEAR(after(brightness, Qt::Key_Right), 89, 1e-3);
    EXPECT_NEAR(after(brightness, Qt::Key_Left), 91, 1e-3);
    EXPECT_NEAR(after(brightness, Qt::Key_Up), 91, 1e-3);
    EXPECT_EQ(after(brightness, Qt::Key_Home), 0);
}

TEST_F(AdjustmentKeys, ReachBothAxesOfAField)
{
    openScreen(optionsWithGallery());
    const auto field = element("Hue and saturation", Field);
    const auto across = adjustmentFor(field, Qt::Key_Right, {});
    ASSERT_TRUE(across);
    EXPECT_EQ(across->target.name, "Hue");
    EXPECT_NEAR(across->value, 209.8, 1e-3);
    const auto down = adjustmentFor(field, Qt::Key_Up, {});
    ASSERT_TRUE(down);
    EXPECT_EQ(down->target.name, "Saturation");
    EXPECT_NEAR(down->value, 81, 1e-3);
    EXPECT_EQ(adjustmentFor(field, Qt::Key_End, {})->target.name, "Hue");
    EXPECT_EQ(adjustmentFor(field, Qt::Key_End, Qt::ControlModifier)->target.name, "Saturation");
    EXPECT_EQ(adjustmentFor(field, Qt::Key_PageDown, {})->target.name, "Saturation");
}

TEST_F(AdjustmentKeys, AreOfNoUseWithoutAValue)
{
    openScreen(options());
    EXPECT_FALSE(adjustmentFor(element("Enabled"), Qt::Key_Right, {}));
    EXPECT_FALSE(adjustmentFor(greenAt100(), Qt::Key_A, {}));
}

TEST_F(AdjustmentKeys, ChooseSegments)
{
    openScreen(optionsWithTestBundle());
    const auto* const segments = [&] {
        for (const auto* stop : focusableElements(root())) {
            if (stop->id.role == Segments)
                return stop;
        }
        return static_cast<const Element*>(nullptr);
    }();
    ASSERT_TRUE(segments);
    EXPECT_EQ(after(*segments, Qt::Key_Right), 1);
    EXPECT_EQ(after(*segments, Qt::Key_Left), 0);
    EXPECT_EQ(after(*segments, Qt::Key_End), 1);
}

}

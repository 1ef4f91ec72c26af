#include "AccessFixture.h"
#include "platform/NSMutableDictionary.h"
#include "platform/UIAlertView.h"

#include <cmath>

namespace host {

using namespace platform;
using enum ElementRole;

namespace {

class ElementActionsTest : public AccessTest {
protected:
    /// As the file has it.
    static std::string storedText(std::string_view key)
    {
        const auto file = NSMutableDictionary::dictionaryWithContentsOfFile(
            "/private/var/mobile/Library/Preferences/net.morvane.vekora.plist");
        const auto* const value = file ? file->objectForKey(key) : nullptr;
        return value && value->string() ? *value->string() : std::string();
    }
    ElementActions& actions() const { return screen->actions(); }
};

}

TEST_F(ElementActionsTest, PressesWhatIsOutOfSight)
{
    auto small = options();
    small.size = { 320, 320 };
    openScreen(small);
    EXPECT_FALSE(element("Button Color").inSight);
    EXPECT_TRUE(actions().press(element("Button Color")));
    EXPECT_EQ(depth(), 2U);
}

TEST_F(ElementActionsTest, TogglesASwitch)
{
    openScreen(options());
    EXPECT_TRUE(actions().press(element("Enabled")));
    EXPECT_TRUE(element("Enabled").chosen);
    EXPECT_TRUE(actions().press(element("Enabled")));
    EXPECT_FALSE(element("Enabled").chosen);
}

TEST_F(ElementActionsTest, LeavesWhatIsDisabledAlone)
{
    openScreen(options());
    EXPECT_FALSE(actions().press(element("Status Bar Icon")));
    EXPECT_FALSE(element("Status Bar Icon").chosen);
}

TEST_F(ElementActionsTest, LeavesWhatLiesBelowAnAlertAlone)
{
    openScreen(options());
    openColorPage();
    const auto red = element("Red", Slider);
    const auto hex = element("#FF0000");
    actions().press(hex);
    ASSERT_TRUE(UIAlertView::topmost());
    EXPECT_FALSE(actions().setValue(red, 10));
    EXPECT_FALSE(actions().press(hex));
}

TEST_F(ElementActionsTest, PutsASliderAtWholeValues)
{
    openScreen(options());
    openColorPage();
    for (int value = 0; value <= 255; value += 5) {
        EXPECT_TRUE(actions().setValue(element("Green", Slider), value));
        ASSERT_EQ(element("Green", Slider).value.value, value);
    }
}

TEST_F(ElementActionsTest, StoresWhatAValueIsSetTo)
{
    openScreen(options());
    openColorPage();
    EXPECT_TRUE(actions().setValue(element("Green", Slider), 128));
    EXPECT_EQ(storedText("buttonColor"), "#FF8000");
}

TEST_F(ElementActionsTest, PinsValuesToTheRange)
{
    openScreen(options());
    openColorPage();
    actions().setValue(element("Green", Slider), 1e9);
    EXPECT_EQ(element("Green", Slider).value.value, 255);
    actions().setValue(element("Hue", ColorBar), -5);
    EXPECT_EQ(element("Hue", ColorBar).value.value, 0);
    EXPECT_FALSE(actions().setValue(element("Hue", ColorBar), std::nan("")));
}

// Whole places of field and bar, the ends among them, of every kind, are reached exactly.
TEST_F(ElementActionsTest, PutsHandlesAtWholeValues)
{
    openScreen(optionsWithGallery());
    std::vector<Element> surfaces;
    for (const auto* stop : focusableElements(root())) {
        if (stop->id.role == Field || stop->id.role == ColorBar)
            surfaces.push_back(*stop);
    }
    ASSERT_EQ(surfaces.size(), 6U);
    for (const auto& surface : surfaces) {
        const auto parts = surface.id.role == Field ? surface.children : std::vector { surface };
        for (const auto& part : parts) {
            for (double value = part.value.least; value <= part.value.most; value += 4) {
                ASSERT_TRUE(actions().setValue(part, value)) << part.name << " " << value;
                ASSERT_EQ(findElement(root(), part.id)->value.value, value) << part.name;
            }
        }
    }
}

TEST_F(ElementActionsTest, ComesBackAfterAsManySteps)
{
    openScreen(optionsWithGallery());
    const auto part = element("Hue", Axis);
    const auto before = part.value.value;
    for (int step = 0; step < 25; ++step)
        ASSERT_TRUE(actions().step(*findElement(root(), part.id), 1));
    EXPECT_NEAR(findElement(root(), part.id)->value.value, before + 25, 1e-6);
    for (int step = 0; step < 25; ++step)
        ASSERT_TRUE(actions().step(*findElement(root(), part.id), -1));
    EXPECT_NEAR(findElement(root(), part.id)->value.value, before, 1e-6);
}

TEST_F(ElementActionsTest, LeavesTheOtherAxisWhereItIs)
{
    openScreen(optionsWithGallery());
    const auto field = element("Hue and saturation", Field);
    ASSERT_EQ(field.children.size(), 2U);
    actions().setValue(field.children[0], 210);
    actions().setValue(field.children[1], 40);
    EXPECT_EQ(element("Hue and saturation", Field).description, "hue 210 degrees, saturation 40 percent");
}

TEST_F(ElementActionsTest, StepsStopAtTheEnds)
{
    openScreen(options());
    openColorPage();
    EXPECT_FALSE(actions().step(element("Red", Slider), 1));
    EXPECT_TRUE(actions().step(element("Red", Slider), -300));
    EXPECT_EQ(element("Red", Slider).value.value, 0);
}

TEST_F(ElementActionsTest, ChoosesSegments)
{
    openScreen(optionsWithTestBundle());
    EXPECT_TRUE(actions().press(element("Right", Segment)));
    EXPECT_TRUE(element("Right", Segment).chosen);
    EXPECT_TRUE(actions().press(element("Right", Segment)));
    EXPECT_TRUE(element("Right", Segment).chosen);
}

TEST_F(ElementActionsTest, BeginsEditing)
{
    openScreen(options());
    EXPECT_TRUE(actions().press(element("Button Text:")));
    EXPECT_TRUE(phone->window().firstResponder());
}

}

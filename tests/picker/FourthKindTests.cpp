#include "PickerFixture.h"

#include "picker/ColorPickerImpl.h"

// A kind that nobody ships shows that the shared code knows nothing of the three that are: all that makes it
// is below. Its parts write down what is done to them.
namespace vekora::test {

namespace {

std::vector<std::string> journal;

class RecordingField final : public UIView {
public:
    void show(double brightness) { journal.push_back("field " + std::to_string(brightness)); }
};

class RecordingBar final : public UIView {
public:
    void show(double saturation, double hue)
    {
        journal.push_back("bar " + std::to_string(saturation) + " " + std::to_string(hue));
    }
};

/// Saturation falls to the right and hue downwards; brightness rises along the bar.
class FourthKind final : public ColorPicker<FourthKind, RecordingField, RecordingBar> {
public:
    FourthKind(CGRect frame, const std::optional<UIColor>& color, ColorBlock changed, ColorBlock save)
        : ColorPicker(frame, color, std::move(changed), std::move(save))
    {
        build();
    }

    static constexpr PickerPlan plan {
        .fieldX = { Component::Saturation, Direction::Falling },
        .fieldY = { Component::Hue, Direction::Rising },
        .bar = { Component::Brightness, Direction::Rising },
        .topLeft = { Component::Hue, "?", "h%d" },
        .topRight = { Component::Saturation, "?", "s%d" },
        .caption = { Component::Brightness, "?", "b%d" },
        .captionTitle = "Light:",
    };
    static const Roles roles;

    void updateFieldWithTouch(CGPoint touch)
    {
        journal.push_back(crossHairs()->center() == touch ? "field touched" : "marker late");
        takeFromField(touch);
    }
    void updateBarWithTouch(CGPoint touch)
    {
        journal.push_back(selector->center().x == touch.x ? "bar touched" : "marker late");
        takeFromBar(touch);
    }
    void updateFieldSelector()
    {
        journal.emplace_back("update field");
        showReadOut(plan.topLeft);
        showReadOut(plan.topRight);
    }
    void updateBarSelector()
    {
        journal.emplace_back("update bar");
        showReadOut(plan.caption);
    }
    void updateBarSelectorPosition()
    {
        const auto atColor = CGPoint { field->frame().x + (1 - currentSaturation) * field->frame().width,
            field->frame().y + currentHue * field->frame().height };
        journal.emplace_back(crossHairs()->center() == atColor ? "place bar after cross-hair" : "place bar");
        placeBarSelector();
    }
    void showInGradients()
    {
        field->show(currentBrightness);
        bar->show(currentSaturation, currentHue);
    }

    Ref<RecordingField> field;
    Ref<UIButton> fieldEater;
    Ref<RecordingBar> bar;
    Ref<UIButton> barEater;
    Ref<UIImageView> selector;
};

const FourthKind::Roles FourthKind::roles {
    .field = &FourthKind::field,
    .fieldTouchEater = &FourthKind::fieldEater,
    .bar = &FourthKind::bar,
    .barTouchEater = &FourthKind::barEater,
    .barSelector = &FourthKind::selector,
    .updateFieldWithTouch = &FourthKind::updateFieldWithTouch,
    .updateBarWithTouch = &FourthKind::updateBarWithTouch,
    .updateFieldSelector = &FourthKind::updateFieldSelector,
    .updateBarSelector = &FourthKind::updateBarSelector,
    .updateBarSelectorPosition = &FourthKind::updateBarSelectorPosition,
    .showInGradients = &FourthKind::showInGradients,
};

const auto registration = registerColorPicker<FourthKind>("FourthKind");

class FourthKindTest : public testing::Test {
protected:
    FourthKindTest()
        : window({ 400, 500 })
        , picker(std::make_shared<FourthKind>(
              CGRect { 0, 0, 276, 380 }, UIColor::redColor(),
              [](const UIColor&) { journal.emplace_back("changed"); },
              [](const UIColor&) { journal.emplace_back("save"); }))
    {
        window.addSubview(picker);
        window.display();
        journal.clear();
    }

    UIWindow window;
    Ref<FourthKind> picker;
};

TEST_F(FourthKindTest, ShowsAColourStepByStep)
{
    picker->setColor(UIColor::colorWithHueSaturationBrightnessAlpha(0.25, 1, 0.5, 1));
    EXPECT_EQ(journal,
        (std::vector<std::string> { "field 0.500000", "bar 1.000000 0.250000", "update bar", "update field",
            "place bar after cross-hair" }));
}

TEST_F(FourthKindTest, PlacesTheBarsMarkerFirstInALayout)
{
    picker->currentHue = 0.5;
    picker->setNeedsLayout();
    window.display();
    EXPECT_EQ(journal, std::vector<std::string> { "place bar" });
}

TEST_F(FourthKindTest, MovesTheMarkerThenTakesThenCommits)
{
    picker->dispatchTouchEventIsMoving({ 74, 100 }, true);
    EXPECT_EQ(journal, (std::vector<std::string> { "field touched", "update field", "changed" }));
    journal.clear();
    const auto bar = picker->bar->frame();
    picker->dispatchTouchEventIsMoving({ 74, bar.y }, true);
    EXPECT_EQ(journal, (std::vector<std::string> { "bar touched", "update bar", "changed" }));
}

TEST_F(FourthKindTest, FollowsItsOwnPlan)
{
    const auto field = picker->field->frame();
    picker->dispatchTouchEventIsMoving({ field.x + 64, field.y + field.height / 2 }, true);
    EXPECT_EQ(picker->currentSaturation, 0.75);
    EXPECT_EQ(picker->currentHue, 0.5);
    EXPECT_EQ(picker->currentHueLabel()->text(), "h180");
    EXPECT_EQ(picker->currentSaturationLabel()->text(), "s75");
    const auto bar = picker->bar->frame();
    picker->dispatchTouchEventIsMoving({ bar.x + 64, bar.y + 1 }, true);
    EXPECT_EQ(picker->currentBrightness, 0.25);
    EXPECT_EQ(picker->currentBrightnessLabel()->text(), "b25");
    EXPECT_EQ(picker->currentHueLabel()->frame().x, 10) << "top left";
}

TEST_F(FourthKindTest, IsTouchedThroughItsButtons)
{
    window.touchBegan({ 100, 100 });
    window.touchEnded({ 100, 100 });
    EXPECT_EQ(journal, (std::vector<std::string> { "field touched", "update field", "changed", "save" }));
}

}

}

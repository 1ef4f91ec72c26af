#include "ControlTestSupport.h"
#include "platform/Style.h"
#include "platform/UISegmentedControl.h"

using namespace platform;

namespace {

class UISegmentedControlTest : public ControlTest {
protected:
    Ref<UISegmentedControl> segments
        = add(std::make_shared<UISegmentedControl>(std::vector<std::string> { "Hue", "Saturation", "B" }),
            { 10, 200, 300, 29 });
    UISegmentedControlTest() { log->listenTo(*segments); }

    const UILabel& label(const std::string& text) const
    {
        for (const auto& subview : segments->subviews()) {
            const auto* const candidate = dynamic_cast<const UILabel*>(subview.get());
            if (candidate && candidate->text() == text)
                return *candidate;
        }
        throw std::runtime_error("no label " + text);
    }
};

TEST_F(UISegmentedControlTest, SelectsNothingAtFirst)
{
    EXPECT_EQ(segments->selectedSegmentIndex(), -1);
    EXPECT_EQ(segments->numberOfSegments(), 3);
}

TEST_F(UISegmentedControlTest, SelectsTheTappedSegment)
{
    tap({ 210, 214 });
    EXPECT_EQ(segments->selectedSegmentIndex(), 2);
    EXPECT_EQ(log->actions, (std::vector<std::string> { "down", "valueChanged", "upInside" }));
    tap({ 209, 214 });
    EXPECT_EQ(segments->selectedSegmentIndex(), 1);
    tap({ 10, 200 });
    EXPECT_EQ(segments->selectedSegmentIndex(), 0);
    EXPECT_EQ(log->count("valueChanged"), 3);
}

TEST_F(UISegmentedControlTest, SendsNothingWhenTheSelectedOneIsTapped)
{
    segments->setSelectedSegmentIndex(1);
    tap({ 160, 214 });
    EXPECT_EQ(segments->selectedSegmentIndex(), 1);
    EXPECT_EQ(log->count("valueChanged"), 0);
}

TEST_F(UISegmentedControlTest, SelectsNoneForAnIndexOutOfRange)
{
    segments->setSelectedSegmentIndex(2);
    segments->setSelectedSegmentIndex(3);
    EXPECT_EQ(segments->selectedSegmentIndex(), -1);
    segments->setSelectedSegmentIndex(2);
    segments->setSelectedSegmentIndex(-7);
    EXPECT_EQ(segments->selectedSegmentIndex(), -1);
    EXPECT_TRUE(log->actions.empty());
}

TEST_F(UISegmentedControlTest, IsLeftAloneByAFingerLiftedElsewhere)
{
    drag({ 20, 214 }, { 20, 400 });
    drag({ 20, 214 }, { 5, 214 });
    EXPECT_EQ(segments->selectedSegmentIndex(), -1);
}

TEST_F(UISegmentedControlTest, IgnoresTouchesWhileDisabled)
{
    segments->setEnabled(false);
    tap({ 160, 214 });
    EXPECT_EQ(segments->selectedSegmentIndex(), -1);
    EXPECT_EQ(segments->alpha(), 0.5);
}

TEST_F(UISegmentedControlTest, IsMadeAsWideAsItsTitlesNeed)
{
    UISegmentedControl fresh({ "Hue", "Saturation", "B" });
    fresh.layoutIfNeeded();
    EXPECT_EQ(fresh.frame().height, 29);
    for (const auto& subview : fresh.subviews()) {
        if (const auto* const title = dynamic_cast<const UILabel*>(subview.get())) {
            EXPECT_LE(title->sizeThatFits({}).width, title->frame().width);
        }
    }
}

TEST_F(UISegmentedControlTest, ShowsTheSelectedTitleOnTintedGround)
{
    segments->setSelectedSegmentIndex(1);
    window->display();
    EXPECT_EQ(label("Saturation").textColor(), UIColor::whiteColor());
    EXPECT_EQ(label("Hue").textColor(), style::tint());
    EXPECT_EQ(pixelAt({ 115, 205 }), pixelOf(style::tint()));
    EXPECT_EQ(pixelAt({ 105, 205 }), 0xFFFFFFFF);
}

TEST_F(UISegmentedControlTest, StandsHavingNoSegments)
{
    const auto none
        = add(std::make_shared<UISegmentedControl>(std::vector<std::string> {}), { 10, 300, 100, 29 });
    log->listenTo(*none);
    tap(*none);
    EXPECT_EQ(none->selectedSegmentIndex(), -1);
    EXPECT_EQ(log->count("valueChanged"), 0);
}

}

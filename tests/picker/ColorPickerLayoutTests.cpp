#include "PickerFixture.h"

namespace vekora::test {

TYPED_TEST_SUITE(EveryColorPicker, Kinds, KindNames);

namespace {

constexpr std::size_t captionTitlePlace = 4;
constexpr std::size_t topRightButtonPlace = 10;
constexpr std::size_t topLeftButtonPlace = 11;
constexpr std::size_t captionButtonPlace = 12;

}

TYPED_TEST(EveryColorPicker, RecomputesFieldAndBarWhenItIsResized)
{
    using Its = typename TestFixture::Its;
    auto& picker = *this->picker;
    const auto line = picker.labelHeight;
    for (const auto& [width, height] :
        { CGSize { 552, 500 }, CGSize { 200.5, 260.25 }, CGSize { 276, 380 } }) {
        picker.setFrame({ 3, 4, width, height });
        this->window.display();
        EXPECT_EQ(Its::field(picker).frame(), (CGRect { 10, line + 20, width - 20, height - 100 - line }));
        EXPECT_EQ(Its::fieldEater(picker).frame(), Its::field(picker).frame());
        EXPECT_EQ(Its::bar(picker).frame(), (CGRect { 10, height - 66 + line, width - 20, 40 }));
        EXPECT_EQ(Its::barEater(picker).frame(), Its::bar(picker).frame());
    }
}

TYPED_TEST(EveryColorPicker, LeavesLabelsAndValueButtonsToTheirMasks)
{
    auto& picker = *this->picker;
    const auto old = picker.frame();
    const auto& views = picker.subviews();
    std::vector<std::pair<UIView*, CGRect>> before;
    for (const auto place : { std::size_t(0), std::size_t(1), captionTitlePlace, std::size_t(5),
             topRightButtonPlace, topLeftButtonPlace, captionButtonPlace })
        before.emplace_back(views[place].get(), views[place]->frame());

    picker.setFrame({ old.x, old.y, old.width * 2, old.height + 100 });
    this->window.display();

    // Sides stretch alike with the width; only the top gives way to the height.
    for (const auto& [view, frame] : before)
        EXPECT_EQ(view->frame(), (CGRect { frame.x * 2, frame.y + 100, frame.width * 2, frame.height }));
}

TYPED_TEST(EveryColorPicker, PlacesTheMarkersAgainWhenItIsResized)
{
    using Its = typename TestFixture::Its;
    auto& picker = *this->picker;
    picker.setColor(UIColor::colorWithHueSaturationBrightnessAlpha(0.3, 0.6, 0.7, 1));
    picker.setFrame({ 0, 0, 500, 450 });
    this->window.display();
    const auto bar = Its::bar(picker).frame();
    EXPECT_EQ(picker.crossHairs()->center(), Its::crossHairs(this->shown(), Its::field(picker).frame()));
    EXPECT_EQ(Its::barSelector(picker).center(),
        (CGPoint { static_cast<float>(Its::barSelectorX(this->shown(), bar)), bar.midY() }));
    EXPECT_EQ(picker.crossHairs()->frame().size(), (CGSize { 20, 20 }));
    EXPECT_EQ(Its::barSelector(picker).frame().size(), (CGSize { 16, 48 }));
}

TYPED_TEST(EveryColorPicker, MovesNothingWhenItIsOnlyMoved)
{
    auto& picker = *this->picker;
    std::vector<CGRect> before;
    for (const auto& view : picker.subviews())
        before.push_back(view->frame());
    const auto frame = picker.frame();
    picker.setFrame({ 100, 100, frame.width, frame.height });
    this->window.display();
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_EQ(picker.subviews()[i]->frame(), before[i]) << i;
}

// A layout pass would put a marker from the finger back onto its component, through single precision.
TYPED_TEST(EveryColorPicker, LeavesAMarkerWhereTheFingerPutIt)
{
    using Its = typename TestFixture::Its;
    auto& picker = *this->picker;
    const CGPoint touch { 100.1, Its::bar(picker).frame().midY() };
    this->tap(touch);
    this->window.display();
    EXPECT_EQ(Its::barSelector(picker).center().x,
        this->picker->convertPointFromView(this->inWindow(touch), nullptr).x);
    EXPECT_NE(Its::barSelector(picker).center().x, static_cast<double>(100.1f));
}

TYPED_TEST(EveryColorPicker, SurvivesAnySize)
{
    using Its = typename TestFixture::Its;
    auto& picker = *this->picker;
    for (const CGSize size : { CGSize { 0, 0 }, CGSize { 5, 5 }, CGSize { 20, 100 }, CGSize { 300, 60 },
             CGSize { 3, 600 }, CGSize { 276, 380 } }) {
        picker.setFrame({ 10, 10, size.width, size.height });
        this->window.display();
        EXPECT_GE(Its::field(picker).frame().height, 0);
        EXPECT_EQ(Its::bar(picker).frame().height, 40);
        EXPECT_EQ(Its::fieldEater(picker).frame(), Its::field(picker).frame());
        for (double y = -20; y < 700; y += 7) {
            picker.dispatchTouchEventIsMoving({ 12, y }, true);
            const auto [hue, saturation, brightness] = this->shown();
            for (const auto value : { hue, saturation, brightness }) {
                EXPECT_GE(value, 0);
                EXPECT_LE(value, 1);
            }
        }
        this->window.display();
    }
}

}

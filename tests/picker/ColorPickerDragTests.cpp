#include "PickerFixture.h"

namespace vekora::test {

TYPED_TEST_SUITE(EveryColorPicker, Kinds, KindNames);

TYPED_TEST(EveryColorPicker, CommitsEachLocationOfADragAndSavesOnce)
{
    std::vector<UIColor> expected;
    this->touch(this->inField(0.5, 0.5));
    for (const auto share : { 0.25, 0.375, 0.625 }) {
        this->move(this->inField(share, 0.5));
        expected.push_back(this->shownColor());
        EXPECT_EQ(this->picker->color(), this->shownColor());
        EXPECT_TRUE(this->saved.empty());
    }
    this->lift(this->inField(0.75, 0.25));
    expected.push_back(this->shownColor());
    EXPECT_EQ(this->changed, expected);
    EXPECT_EQ(this->saved, std::vector { expected.back() });
}

TYPED_TEST(EveryColorPicker, SavesWhenTheFingerLiftsFarOutside)
{
    this->touch(this->inField(0.5, 0.25));
    this->move(this->inField(0.25, 0.25));
    const auto before = this->changed.size();
    this->lift({ 600, 100 });
    EXPECT_EQ(this->saved.size(), 1u);
    EXPECT_EQ(this->changed.size(), before + 1) << "the last location counts, pinned to the edge";
    EXPECT_EQ(this->shown(),
        TestFixture::Its::fromField(
            this->shown(), 1, (100 - TestFixture::Its::field(*this->picker).frame().y) / 256));
}

TYPED_TEST(EveryColorPicker, IgnoresDragsFarOutsideAndResumes)
{
    using Its = typename TestFixture::Its;
    const auto field = Its::field(*this->picker).frame();
    this->touch(this->inField(0.5, 0.25));
    this->move(this->inField(0.25, 0.25));
    const auto before = this->shown();

    this->move({ field.maxX() + 70, field.y + 64 });
    EXPECT_EQ(this->shown(), before) << "70 points beside the button is outside";
    this->move({ field.maxX() + 69.875, field.y + 64 });
    EXPECT_EQ(this->shown(), Its::fromField(before, 1, 0.25)) << "just within";
    this->move({ field.x - 70.125, field.y + 64 });
    EXPECT_EQ(this->shown(), Its::fromField(before, 1, 0.25));
    this->move({ field.x - 70, field.y + 128 });
    EXPECT_EQ(this->shown(), Its::fromField(before, 0, 0.5));
}

TYPED_TEST(EveryColorPicker, PinsADragBesideTheField)
{
    using Its = typename TestFixture::Its;
    const auto field = Its::field(*this->picker).frame();
    const auto before = this->shown();
    this->touch(this->inField(0.5, 0.25));
    this->move({ field.x - 8, field.y + 64 });
    EXPECT_EQ(this->picker->crossHairs()->center(), (CGPoint { field.x, field.y + 64 }));
    EXPECT_EQ(this->shown(), Its::fromField(before, 0, 0.25));
    this->move({ field.x - 8, field.y + 192 });
    EXPECT_EQ(this->picker->crossHairs()->center(), (CGPoint { field.x, field.y + 192 }))
        << "it follows the finger down";
    this->move({ field.maxX(), field.y + 64 });
    EXPECT_EQ(this->shown(), Its::fromField(before, 1, 0.25));
    this->move({ field.x + 64, field.maxY() + 9 });
    EXPECT_EQ(this->picker->crossHairs()->center(), (CGPoint { field.x + 64, field.maxY() }));
    EXPECT_EQ(this->shown(), Its::fromField(before, 0.25, 1));
    this->move({ field.x + 64, field.y - 9 });
    EXPECT_EQ(this->shown(), Its::fromField(before, 0.25, 0));
}

TYPED_TEST(EveryColorPicker, PinsADragLevelWithTheBar)
{
    using Its = typename TestFixture::Its;
    const auto bar = Its::bar(*this->picker).frame();
    const auto before = this->shown();
    this->touch(this->inBar(0.5));
    this->move({ bar.x - 9, bar.y });
    EXPECT_EQ(this->shown(), Its::fromBar(before, 0));
    EXPECT_EQ(Its::barSelector(*this->picker).center(), (CGPoint { bar.x, bar.midY() }));
    this->move({ bar.maxX(), bar.maxY() });
    EXPECT_EQ(this->shown(), Its::fromBar(before, 1));
    EXPECT_EQ(Its::barSelector(*this->picker).center(), (CGPoint { bar.maxX(), bar.midY() }));
    this->move({ bar.maxX() + 60, bar.y + 1 });
    EXPECT_EQ(this->shown(), Its::fromBar(before, 1));
}

TYPED_TEST(EveryColorPicker, FollowsTheLocationNotTheViewItBeganOn)
{
    using Its = typename TestFixture::Its;
    const auto field = Its::field(*this->picker).frame();
    const auto bar = Its::bar(*this->picker).frame();
    auto before = this->shown();

    this->touch(this->inField(0.5, 0.75));
    this->move(this->inBar(0.25));
    EXPECT_EQ(this->shown(), Its::fromBar(before, 0.25)) << "from the field to the bar";
    this->lift(this->inBar(0.25));

    before = this->shown();
    this->touch({ bar.x + 128, bar.y + 2 });
    this->move({ field.x + 128, field.maxY() - 16 });
    EXPECT_EQ(this->shown(), Its::fromField(before, 0.5, 240.0 / 256)) << "and back";
    this->lift({ field.x + 128, field.maxY() - 16 });
    EXPECT_EQ(this->saved.size(), 2u);
}

TYPED_TEST(EveryColorPicker, IgnoresTheFingerOverTheLabels)
{
    using Its = typename TestFixture::Its;
    auto& picker = *this->picker;
    const auto captionTop = Its::caption(picker).frame().y;
    this->tap(this->inField(0.5, 0.25));
    this->tap(this->inBar(0.25));
    this->changed.clear();
    this->saved.clear();
    const auto before = this->shown();
    const auto crossHairs = picker.crossHairs()->center();
    const auto selector = Its::barSelector(picker).center();

    this->touch(this->inField(0.25, 0.75));
    for (const auto y : { captionTop, captionTop + 5, Its::bar(picker).frame().y - 0.125 })
        this->move({ 100, y });
    this->move({ 100, Its::topLeft(picker).frame().y + picker.labelHeight });
    this->move({ 100, 12 });
    this->lift({ 100, captionTop });

    EXPECT_EQ(this->shown(), before);
    EXPECT_EQ(picker.crossHairs()->center(), crossHairs);
    EXPECT_EQ(Its::barSelector(picker).center(), selector);
    EXPECT_TRUE(this->changed.empty());
    EXPECT_EQ(this->saved, std::vector { *picker.color() }) << "the touch has ended all the same";
}

TYPED_TEST(EveryColorPicker, PicksUpAgainAtTheBarsLevel)
{
    using Its = typename TestFixture::Its;
    const auto bar = Its::bar(*this->picker).frame();
    const auto before = this->shown();
    this->touch(this->inField(0.5, 0.75));
    this->move({ 100, bar.y - 2 });
    EXPECT_EQ(this->shown(), before);
    this->move({ bar.x + 64, bar.y });
    EXPECT_EQ(this->shown(), Its::fromBar(before, 0.25));
}

}

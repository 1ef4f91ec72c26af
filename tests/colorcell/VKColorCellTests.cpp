#include "ColorCellTest.h"

#include "picker/VKColorPickerView_H.h"

using namespace platform;

namespace vekora::tests {

namespace {

using ColorCell = ColorCellTest;

const auto clear = UIColor::clearColor().cgColor();
const auto faint = UIColor::colorWithRedGreenBlueAlpha(0, 0, 0, 0.04).cgColor();

struct LabelLook {
    CGRect frame;
    std::string text;
    UIColor color;
    NSTextAlignment alignment;
    unsigned mask;
};

void expectLabel(const UILabel& label, const LabelLook& look)
{
    EXPECT_EQ(label.frame(), look.frame);
    EXPECT_EQ(label.text(), look.text);
    EXPECT_EQ(label.textColor(), look.color);
    EXPECT_EQ(label.textAlignment(), look.alignment);
    EXPECT_EQ(label.autoresizingMask(), look.mask);
    EXPECT_EQ(label.numberOfLines(), 1);
    EXPECT_EQ(label.font(), UIFont());
}

CGSize widestHex()
{
    UILabel label({ 15, 10, 290, 40 });
    label.setText("#FFFFFFF");
    label.sizeToFit();
    return label.frame().size();
}

}

TEST_F(ColorCell, IsAsWideAsItsPage)
{
    PSListController page({ 414, 700 });
    row = std::make_shared<PSSpecifier>("", &page, "", "", nullptr, PSCellType::StaticText);
    makeCell();
    EXPECT_EQ(slider(0).frame().width, 414 - 30);
    EXPECT_EQ(picker().frame().width, 414);
}

TEST_F(ColorCell, IsWhite)
{
    makeCell();
    EXPECT_EQ(cell().layer().backgroundColor(), UIColor::whiteColor().cgColor());
}

TEST_F(ColorCell, HasTheDefaultStyleWhateverIsAskedFor)
{
    const auto valueCell = std::make_shared<VKColorCell>(1L, "cell", row);
    valueCell->detailTextLabel().setText("value");
    valueCell->layoutIfNeeded();
    EXPECT_EQ(valueCell->detailTextLabel().superview(), nullptr);
}

TEST_F(ColorCell, HoldsNothingButItsSeventeenViews)
{
    makeCell();
    EXPECT_EQ(cell().contentView().subviews().size(), 17U);
}

TEST_F(ColorCell, ShowsTheHexReadOutAboveTheSample)
{
    makeCell();
    const auto size = widestHex();
    expectLabel(hex(),
        { { 160 - size.width * 0.5, 10, size.width, size.height }, "#FF0000", UIColor::blueColor(),
            NSTextAlignment::Center, 7 });
    EXPECT_EQ(hex().layer().backgroundColor(), clear);
    expectLabel(
        sample(), { { 15, 41, 286, 38 }, "Button", UIColor::whiteColor(), NSTextAlignment::Center, 7 });
    EXPECT_EQ(sample().layer().borderColor(), UIColor::blackColor().cgColor());
    EXPECT_EQ(sample().layer().borderWidth(), 1);
    EXPECT_EQ(sample().layer().cornerRadius(), 5);
    EXPECT_TRUE(sample().layer().masksToBounds());
}

TEST_F(ColorCell, ShowsThreeChannels)
{
    makeCell();
    const std::string names[] = { "Red", "Green", "Blue" };
    const std::string numbers[] = { "255", "0", "0" };
    for (int i = 0; i < 3; ++i) {
        const double top = 490 + 68 * i;
        auto& title = child<UILabel>(2 + i);
        expectLabel(
            title, { { 15, top, 200, 20 }, names[i], UIColor::blackColor(), NSTextAlignment::Left, 0 });
        EXPECT_EQ(title.layer().backgroundColor(), clear);
        expectLabel(value(i),
            { { 245, top - 7, 60, 30 }, numbers[i], UIColor::blueColor(), NSTextAlignment::Right, 5 });
        EXPECT_EQ(value(i).layer().backgroundColor(), clear);
        EXPECT_EQ(slider(i).frame(), (CGRect { 15, top + 18, 290, 40 }));
        EXPECT_EQ(slider(i).autoresizingMask(), 7U);
        EXPECT_TRUE(slider(i).isContinuous());
        EXPECT_EQ(slider(i).minimumValue(), 0);
        EXPECT_EQ(slider(i).maximumValue(), 255);
    }
}

TEST_F(ColorCell, LaysFaintButtonsWhereTheReadOutsAre)
{
    makeCell();
    const auto expectButton = [&](std::size_t place, const UILabel& readOut) {
        auto& button = child<UIButton>(place);
        EXPECT_EQ(button.frame(), readOut.frame());
        EXPECT_EQ(button.autoresizingMask(), readOut.autoresizingMask());
        EXPECT_EQ(button.currentTitle(), "");
        EXPECT_EQ(button.layer().cornerRadius(), 5);
        EXPECT_EQ(button.layer().backgroundColor(), faint);
    };
    for (int i = 0; i < 3; ++i)
        expectButton(5 + i, value(i));
    expectButton(14, hex());
}

TEST_F(ColorCell, LaysTheSlidersFirstWhenThePickerIsNotPreferred)
{
    for (const auto& off : { PropertyValue(false), PropertyValue(0), PropertyValue("no") }) {
        row->setPropertyForKey(off, "preferColorPicker");
        makeCell();
        EXPECT_EQ(picker().frame(), (CGRect { 0, 285, 320, 380 }));
        for (int i = 0; i < 3; ++i) {
            const double top = 90 + 68 * i;
            EXPECT_EQ(child<UILabel>(2 + i).frame(), (CGRect { 15, top, 200, 20 }));
            EXPECT_EQ(value(i).frame(), (CGRect { 245, top - 7, 60, 30 }));
            EXPECT_EQ(slider(i).frame(), (CGRect { 15, top + 18, 290, 40 }));
        }
    }
}

TEST_F(ColorCell, LaysThePickerFirstWhenItIsPreferred)
{
    row->setPropertyForKey(true, "preferColorPicker");
    makeCell();
    EXPECT_EQ(picker().frame(), (CGRect { 0, 90, 320, 380 }));
    EXPECT_EQ(picker().autoresizingMask(), 7U);
}

TEST_F(ColorCell, EndsWithTheHelp)
{
    makeCell();
    const auto& help = child<UILabel>(16);
    EXPECT_EQ(help.text(),
        "-- Tap once on a color gradient to select a color.\n"
        "-- Tap, hold and drag on a color gradient to scroll through different colors.\n"
        "-- Tap once on a number value to bring up a keyboard and enter a value directly.\n"
        "-- Tap once on the hex value to bring up a keyboard and enter a value directly.");
    EXPECT_EQ(help.numberOfLines(), 0);
    EXPECT_EQ(help.textColor(), UIColor::blackColor());
    EXPECT_EQ(help.textAlignment(), NSTextAlignment::Left);
    EXPECT_EQ(help.layer().backgroundColor(), std::nullopt);
    EXPECT_EQ(help.autoresizingMask(), 7U);
    EXPECT_EQ(help.frame().origin(), (CGPoint { 15, 685 }));
    EXPECT_EQ(help.frame().size(), help.sizeThatFits({ 290, 100 }));
}

TEST_F(ColorCell, FollowsItsWidthByMasksAlone)
{
    makeCell();
    const auto before = hex().frame();
    cell().setFrame({ 0, 0, 480, 860 });
    EXPECT_DOUBLE_EQ(hex().frame().x, before.x * 1.5);
    EXPECT_DOUBLE_EQ(hex().frame().width, before.width * 1.5);
    EXPECT_DOUBLE_EQ(sample().frame().width, 286 * 1.5);
    EXPECT_EQ(child<UILabel>(2).frame(), (CGRect { 15, 490, 200, 20 }));
    EXPECT_EQ(value(0).frame().width, 60);
    EXPECT_DOUBLE_EQ(value(0).frame().x, 245 + 160 * 245.0 / 260);
    EXPECT_EQ(child<UIButton>(5).frame(), value(0).frame());
    EXPECT_DOUBLE_EQ(slider(2).frame().width, 290 * 1.5);
    EXPECT_DOUBLE_EQ(picker().frame().width, 480);
}

TEST_F(ColorCell, IsReleasedByItsPage)
{
    store({ { "buttonColor", "#FF8800" } });
    makeCell();
    const std::weak_ptr<VKColorCell> seen = _cell;
    const std::weak_ptr<UIView> picker = cell().contentView().subviews().at(15);
    cell().removeFromSuperview();
    _cell = nullptr;
    EXPECT_TRUE(seen.expired());
    EXPECT_TRUE(picker.expired());
}

TEST_F(ColorCell, IsNotMissedByAPickerThatStays)
{
    store({ { "buttonColor", "#FF8800" } });
    makeCell();
    const auto kept = cell().contentView().subviews().at(15);
    auto& picker = dynamic_cast<ColorPickerBase&>(*kept);
    cell().removeFromSuperview();
    _cell = nullptr;
    picker.colorsHaveChangedBlock()(UIColor::redColor());
    picker.saveChangesBlock()(UIColor::redColor());
    EXPECT_EQ(events(), nothing);
}

TEST_F(ColorCell, IsMadeByName)
{
    const auto* found = NSClassFromString("VKColorCell");
    ASSERT_TRUE(found);
    const auto made = found->make<PSTableCell>(0L, std::string("cell"), row);
    ASSERT_TRUE(made);
    EXPECT_EQ(made->contentView().subviews().size(), 17U);
}

}

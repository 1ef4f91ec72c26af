#include "TableViewTest.h"

using namespace platform;
using namespace platform::tests;

TEST_F(TableViewTest, WritesHeadersInCapitalsAndFootersBelow)
{
    Device::current().locale = "de_DE";
    load({ { "F\u00FCr alle", { 44 }, "Gilt f\u00FCr alle Ger\u00E4te." } });
    Device::current().locale = "en_US";
    const auto* header = label("F\u00DCR ALLE");
    const auto* footer = label("Gilt f\u00FCr alle Ger\u00E4te.");
    ASSERT_TRUE(header && footer);
    const CGRect row = table->rectForRowAtIndexPath({ 0, 0 });
    EXPECT_EQ(header->frame().x, 15);
    EXPECT_LE(header->frame().maxY(), row.minY());
    EXPECT_GE(header->frame().minY(), 0);
    EXPECT_GE(footer->frame().minY(), row.maxY());
    EXPECT_EQ(header->font().pointSize, 13);
    EXPECT_GE(table->contentSize().height, footer->frame().maxY() + 35);
}

TEST_F(TableViewTest, WrapsLongFooters)
{
    load({ { "", { 44 }, "Short." }, { "", { 44 }, std::string(200, 'x') + " " + std::string(200, 'y') } });
    const auto* shortFooter = label("Short.");
    const auto* longFooter = label(std::string(200, 'x') + " " + std::string(200, 'y'));
    ASSERT_TRUE(shortFooter && longFooter);
    EXPECT_GT(longFooter->frame().height, 4 * shortFooter->frame().height);
    EXPECT_EQ(longFooter->frame().width, 290);
}

TEST_F(TableViewTest, DividesRowsByHairlines)
{
    load({ { "", { 44, 44 } } });
    const auto& picture = window->picture();
    const auto at = [&](double x, double y) {
        return picture.at(static_cast<int>(x * 2), static_cast<int>(y * 2)) & 0xFFFFFF;
    };
    constexpr unsigned hairline = 0xC8C7CC;
    EXPECT_EQ(at(2, 35 - 0.5), hairline); // Above the group, from edge to edge.
    EXPECT_EQ(at(2, 35), 0xFFFFFFu);
    EXPECT_EQ(at(20, 79 - 0.5), hairline); // Between the rows, from the text on.
    EXPECT_EQ(at(14, 79 - 0.5), 0xFFFFFFu);
    EXPECT_EQ(at(2, 123), hairline); // Below the group.
    EXPECT_EQ(at(20, 123 - 0.5), 0xFFFFFFu); // Not twice.
}

TEST_F(TableViewTest, LaysOutTextValueAndAccessory)
{
    source.fill = [](auto& made, NSIndexPath) {
        made.textLabel().setText("Title");
        made.detailTextLabel().setText("Value");
        made.setAccessoryType(UITableViewCellAccessory::DisclosureIndicator);
    };
    load({ { "", { 44 } } });
    const auto title = label("Title")->frame();
    const auto value = label("Value")->frame();
    const auto chevron = label("\u203A")->frame();
    EXPECT_EQ(title.x, 15);
    EXPECT_LE(title.maxX(), value.minX());
    EXPECT_LT(value.maxX(), chevron.minX());
    EXPECT_EQ(chevron.maxX(), 305);
    EXPECT_EQ(label("Title")->font().pointSize, 17);
}

TEST_F(TableViewTest, MirrorsRowsRightToLeft)
{
    Device::current().rightToLeft = true;
    source.fill = [](auto& made, NSIndexPath) {
        made.textLabel().setText("Title");
        made.detailTextLabel().setText("Value");
        made.setAccessoryType(UITableViewCellAccessory::DisclosureIndicator);
    };
    load({ { "Header", { 44 } } });
    EXPECT_EQ(label("Title")->frame().maxX(), 305);
    EXPECT_EQ(label("Title")->textAlignment(), NSTextAlignment::Right);
    EXPECT_EQ(label("Value")->textAlignment(), NSTextAlignment::Left);
    EXPECT_EQ(label("HEADER")->textAlignment(), NSTextAlignment::Right);
    EXPECT_EQ(label("\u203A"), nullptr);
    EXPECT_EQ(label("\u2039")->frame().minX(), 15);
}

TEST_F(TableViewTest, ShortensLongTitlesBeforeValues)
{
    source.fill = [](auto& made, NSIndexPath) {
        made.textLabel().setText("A title that is far too long for one row of a narrow page");
        made.detailTextLabel().setText("A value");
    };
    load({ { "", { 44 } } });
    const auto& value = *label("A value");
    EXPECT_EQ(value.frame().width, value.sizeThatFits({ 320, 44 }).width);
    EXPECT_LE(cell(0, 0).textLabel().frame().maxX(), value.frame().minX());
    source.fill = [](auto& made, NSIndexPath) {
        made.textLabel().setText("Title");
        made.detailTextLabel().setText("A value that is far too long for one row of a narrow page");
    };
    table->reloadData();
    window->display();
    const auto& title = *label("Title");
    EXPECT_GE(title.frame().width, title.sizeThatFits({ 320, 44 }).width);
}

TEST_F(TableViewTest, BeginsCellsAsWideAsThePhonesOwn)
{
    EXPECT_EQ(UITableViewCell(UITableViewCellStyle::Default, "").frame(), (CGRect { 0, 0, 320, 44 }));
    UITableViewCell resized(UITableViewCellStyle::Default, "");
    resized.setFrame({ 0, 0, 500, 60 });
    EXPECT_EQ(resized.contentView().frame(), (CGRect { 0, 0, 500, 60 }));
}

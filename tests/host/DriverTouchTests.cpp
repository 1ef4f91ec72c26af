#include "Conversation.h"

#include <gtest/gtest.h>

// The commands that touch.

namespace {

TEST(DriverTouches, TapOnATitleTapsTheRowsControl)
{
    Conversation ask;
    const QJsonValue at = ask.ok("tap Flag")["at"];
    EXPECT_EQ(ask.row("Flag")["value"], true);
    const auto toggle = ask.ok("tree UISwitch")["tree"].toObject();
    EXPECT_EQ(toggle["on"], true);
    const QJsonValue frame = toggle["onScreen"];
    EXPECT_EQ(numberAt(at, 0), numberAt(frame, 0) + numberAt(frame, 2) / 2);
    EXPECT_EQ(numberAt(at, 1), numberAt(frame, 1) + numberAt(frame, 3) / 2);
    ask.ok("tap Flag");
    EXPECT_EQ(ask.row("Flag")["value"], false);
}

TEST(DriverTouches, TapOnATextRowFocusesItsField)
{
    Conversation ask;
    ask.ok("tap Name");
    EXPECT_EQ(ask.ok("type x")["text"], "x");
}

TEST(DriverTouches, TapOnAPlaceholderFocusesItsField)
{
    Conversation ask;
    ask.ok("tap Nobody");
    EXPECT_EQ(ask.ok("type x")["text"], "x");
}

TEST(DriverTouches, TapOnAButtonRowPerformsItsAction)
{
    Conversation ask;
    ask.ok("tap Tell");
    EXPECT_EQ(ask.ok("alert")["alert"].toObject()["message"], "Flag");
}

TEST(DriverTouches, TapOnAGreyedRowSucceedsAndDoesNothing)
{
    Conversation ask;
    ask.ok("tap Grey");
    EXPECT_TRUE(ask.ok("alert")["alert"].isNull());
    ask.ok("tap 'Grey Switch'");
    EXPECT_EQ(ask.row("Grey Switch")["value"], false);
    EXPECT_TRUE(ask.ok("posted")["posted"].toArray().isEmpty());
}

TEST(DriverTouches, TapOnALinkThatLeadsNowhereDoesNothing)
{
    Conversation ask;
    ask.ok("tap Nowhere");
    EXPECT_EQ(ask.ok("page")["depth"], 1);
}

TEST(DriverTouches, TapChoosesFromAList)
{
    Conversation ask;
    ask.ok("tap Choice");
    EXPECT_EQ(ask.ok("page")["title"], "Choice");
    ask.ok("tap Three");
    ask.ok("back");
    EXPECT_EQ(ask.row("Choice")["value"], 3);
}

TEST(DriverTouches, TapFindsASegment)
{
    Conversation ask;
    ask.ok("tap Right");
    EXPECT_EQ(ask.row("side")["value"], 2);
}

TEST(DriverTouches, TapScrollsTheRowIntoView)
{
    Conversation ask;
    ask.ok("tap 'Long Page'");
    const QJsonValue at = ask.ok("tap 'Row 150'")["at"];
    EXPECT_EQ(ask.ok("page")["title"], "Row 150 tapped");
    EXPECT_GT(numberAt(at, 1), 64);
    EXPECT_LT(numberAt(at, 1), 667);
    EXPECT_GT(ask.ok("scroll 0")["offset"].toDouble(), 150 * 44 - 667);
    ask.ok("tap 'Row 3'");
    EXPECT_EQ(ask.ok("page")["title"], "Row 3 tapped");
}

TEST(DriverTouches, TapScrollsNoFurtherThanItNeeds)
{
    Conversation ask;
    ask.ok("tap 'Long Page'");
    ask.ok("scroll 20");
    ask.ok("tap 'Row 5'");
    EXPECT_EQ(ask.ok("scroll 0")["offset"], 20);
}

TEST(DriverTouches, TapShowsARowThatIsPartlyBeyondTheEdge)
{
    Conversation ask;
    ask.ok("tap 'Long Page'");
    ask.ok("scroll 60");
    ask.ok("tap 'Row 0'");
    EXPECT_LE(ask.ok("scroll 0")["offset"].toDouble(), 35);
}

TEST(DriverTouches, TapNeedsATextThatIsShown)
{
    Conversation ask;
    EXPECT_EQ(ask.error("tap 'No such text'"), "Nothing that is shown reads \"No such text\".");
    EXPECT_EQ(ask.error("tap fla"), "Nothing that is shown reads \"fla\".");
    EXPECT_EQ(ask.error("tap ''"), "An empty text is shown nowhere.");
    EXPECT_EQ(ask.error("tap Hidden"), "Nothing that is shown reads \"Hidden\".");
    EXPECT_EQ(ask.error("tap Clear"), "Nothing that is shown reads \"Clear\".");
}

TEST(DriverTouches, TapGoesThroughAClearButtonThatLiesOverTheText)
{
    Conversation ask;
    ask.ok("paints");
    ask.ok("tap 'Under glass'");
    EXPECT_EQ(ask.ok("paints")["paints"].toObject()["TestBlot"], 1);
}

TEST(DriverTouches, TapFailsOnWhatSomethingCovers)
{
    Conversation ask;
    EXPECT_EQ(
        ask.error("tap 'Under a plate'"), "Something lies over \"Under a plate\", so it can't be touched.");
    ask.ok("tap Tell");
    EXPECT_EQ(ask.error("tap Name"), "Something lies over \"Name\", so it can't be touched.");
    EXPECT_EQ(ask.error("row 0 0"), "Something lies over the row, so it can't be touched.");
}

TEST(DriverTouches, TheForemostOfTwoTextsIsTapped)
{
    Conversation ask;
    ask.ok("tap Tell"); // Its message reads "Flag" too.
    ask.ok("tap Flag");
    EXPECT_EQ(ask.row("Flag")["value"], false);
    ask.ok("tap Close");
    ask.ok("tap Flag");
    EXPECT_EQ(ask.row("Flag")["value"], true);
}

TEST(DriverTouches, BackIsCoveredByAnAlert)
{
    Conversation ask({ "--size", "320x480" });
    ask.ok("tap Choice");
    ask.ok("back");
    EXPECT_EQ(ask.ok("page")["depth"], 1);
}

TEST(DriverTouches, RowTapsByPlace)
{
    Conversation ask;
    ask.ok("row 0 0");
    EXPECT_EQ(ask.row("Flag")["value"], true);
    ask.ok("row 1 1");
    EXPECT_FALSE(ask.ok("alert")["alert"].isNull());
    ask.ok("answer Close");
    EXPECT_EQ(ask.error("row 1 10"), "The page has no row 10 in section 1.");
    EXPECT_EQ(ask.error("row 9 0"), "The page has no row 0 in section 9.");
    EXPECT_EQ(ask.error("row -1 0"), "\"-1\" is not a number of a row or section.");
    EXPECT_EQ(ask.error("row 0 1.5"), "\"1.5\" is not a number of a row or section.");
    EXPECT_EQ(ask.error("row 0"), "row takes SECTION and ROW, not 1 word.");
}

TEST(DriverTouches, RowScrollsIntoView)
{
    Conversation ask;
    ask.ok("tap 'Long Page'");
    ask.ok("row 0 199");
    EXPECT_EQ(ask.ok("page")["title"], "Row 199 tapped");
}

TEST(DriverTouches, TapAtAPoint)
{
    Conversation ask;
    const QJsonValue at = ask.ok("tap Flag")["at"];
    const auto point = QByteArray::number(numberAt(at, 0) + 0.25) + " " + QByteArray::number(numberAt(at, 1));
    const auto answer = ask.ok("tap " + point);
    EXPECT_EQ(numberAt(answer["at"], 0), numberAt(at, 0) + 0.25);
    EXPECT_EQ(ask.row("Flag")["value"], false);
}

TEST(DriverTouches, TapAtAPointNeedsNumbersInTheWindow)
{
    Conversation ask;
    EXPECT_EQ(ask.error("tap 10 x"), "\"x\" is not a number.");
    EXPECT_EQ(ask.error("tap Long Page"), "\"Long\" is not a number.");
    EXPECT_EQ(ask.error("tap 10 inf"), "\"inf\" is not a number.");
    EXPECT_EQ(ask.error("tap 375 10"), "The point lies outside the window.");
    EXPECT_EQ(ask.error("tap -0.5 10"), "The point lies outside the window.");
    EXPECT_TRUE(ask.error("tap 1 2 3").startsWith("tap takes one text"));
    EXPECT_TRUE(ask.error("tap").startsWith("tap takes one text"));
}

TEST(DriverTouches, PressMoveAndReleaseAreStepsOfOneTouch)
{
    Conversation ask;
    const QJsonValue at = ask.ok("tap Flag")["at"];
    const auto point = QByteArray::number(numberAt(at, 0)) + " " + QByteArray::number(numberAt(at, 1));
    EXPECT_EQ(numberAt(ask.ok("press " + point)["at"], 0), numberAt(at, 0));
    EXPECT_EQ(ask.row("Flag")["value"], true);
    EXPECT_EQ(numberAt(ask.ok("move 5 -5")["at"], 1), -5);
    ask.ok("move " + point);
    EXPECT_EQ(numberAt(ask.ok("release " + point)["at"], 1), numberAt(at, 1));
    EXPECT_EQ(ask.row("Flag")["value"], false);
}

TEST(DriverTouches, ThereIsOneFinger)
{
    Conversation ask;
    EXPECT_EQ(ask.error("move 1 1"), "The finger is not down; press first.");
    EXPECT_EQ(ask.error("release 1 1"), "The finger is not down; press first.");
    ask.ok("press 10 10");
    EXPECT_EQ(ask.error("press 1 1"), "The finger is down already; release it first.");
    EXPECT_EQ(ask.error("tap 1 1"), "The finger is down already; release it first.");
    EXPECT_EQ(ask.error("drag 1 1 2 2"), "The finger is down already; release it first.");
    ask.ok("release 10 10");
    ask.ok("tap 1 1");
}

TEST(DriverTouches, DragMovesASlider)
{
    Conversation ask;
    const auto thumb = [&] {
        const auto slider = ask.ok("tree UISlider")["tree"].toObject();
        EXPECT_EQ(slider["min"], 0);
        EXPECT_EQ(slider["max"], 10);
        const auto children = slider["children"].toArray();
        return QJsonValue(children[children.size() - 1].toObject()["onScreen"]);
    };
    const auto before = thumb();
    const double x = numberAt(before, 0) + numberAt(before, 2) / 2;
    const double y = numberAt(before, 1) + numberAt(before, 3) / 2;
    const auto answer = ask.ok("drag " + QByteArray::number(x) + " " + QByteArray::number(y) + " 400 0 3");
    EXPECT_EQ(numberAt(answer["at"], 0), 400);
    EXPECT_EQ(numberAt(answer["at"], 1), 0);
    EXPECT_EQ(ask.ok("tree UISlider")["tree"].toObject()["value"], 10);
    EXPECT_EQ(ask.row("volume")["value"], 10);
}

TEST(DriverTouches, DragFinishesLayoutAndPaintingAfterEveryStep)
{
    Conversation ask;
    const auto scrolls = [&](const QByteArray& steps) {
        ask.ok("drag 150 600 150 400" + steps);
        const auto offset = ask.ok("scroll 0")["offset"].toDouble();
        ask.ok("scroll -10000");
        return offset;
    };
    ask.ok("tap 'Long Page'");
    EXPECT_GT(scrolls(""), 150);
    EXPECT_GT(scrolls(" 1"), 150);
    EXPECT_GT(scrolls(" 200"), 150);
}

TEST(DriverTouches, DragNeedsNumbersAndSteps)
{
    Conversation ask;
    EXPECT_TRUE(ask.error("drag 1 1 2").startsWith("drag takes X1, Y1, X2, Y2"));
    EXPECT_TRUE(ask.error("drag 1 1 2 2 3 4").startsWith("drag takes X1, Y1, X2, Y2"));
    for (const char* steps : { "0", "-1", "1.5", "x", "100001" })
        EXPECT_TRUE(ask.error(QByteArray("drag 1 1 2 2 ") + steps).startsWith("STEPS is")) << steps;
    EXPECT_EQ(ask.error("drag 1 1 2 nan"), "\"nan\" is not a number.");
    EXPECT_EQ(ask.error("drag 999 1 2 2"), "The point lies outside the window.");
}

}

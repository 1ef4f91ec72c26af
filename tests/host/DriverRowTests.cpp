#include "Conversation.h"

#include <gtest/gtest.h>

// The commands about pages and their rows.

namespace {

TEST(DriverRows, PageTellsTitleClassAndDepth)
{
    Conversation ask;
    const auto first = ask.ok("page");
    EXPECT_EQ(first["title"], "Test Pane");
    EXPECT_EQ(first["class"], "TestPage");
    EXPECT_EQ(first["depth"], 1);
    ask.ok("tap 'Long Page'");
    const auto second = ask.ok("page");
    EXPECT_EQ(second["title"], "Long Page");
    EXPECT_EQ(second["class"], "TestLongPage");
    EXPECT_EQ(second["depth"], 2);
}

TEST(DriverRows, RowsHaveEveryField)
{
    Conversation ask;
    const QStringList fields { "action", "background", "cell", "enabled", "height", "id", "key",
        "placeholder", "row", "section", "text", "textColor", "title", "value" };
    const auto rows = ask.ok("rows")["rows"].toArray();
    EXPECT_EQ(rows.size(), 21);
    for (const auto& row : rows)
        EXPECT_EQ(row.toObject().keys(), fields);
}

TEST(DriverRows, RowsAreInTheOrderOfThePageGroupsIncluded)
{
    Conversation ask;
    QStringList places;
    for (const auto& value : ask.ok("rows")["rows"].toArray()) {
        const auto row = value.toObject();
        places << QString::number(row["section"].toInt()) + "/"
                + (row["row"].isNull() ? "-" : QString::number(row["row"].toInt())) + "/"
                + QString::number(row["cell"].toInt());
    }
    EXPECT_EQ(places.join(' '),
        "0/-/0 0/0/6 0/1/8 0/2/12 0/3/5 0/4/9 0/5/2 0/6/7 "
        "1/-/0 1/0/13 1/1/13 1/2/13 1/3/13 1/4/6 1/5/13 1/6/13 1/7/1 1/8/1 1/9/1 "
        "2/-/0 2/0/7");
}

TEST(DriverRows, ARowWithoutAGroupBeforeItIsInSectionZero)
{
    Conversation ask;
    ask.ok("tap 'Long Page'");
    const auto rows = ask.ok("rows")["rows"].toArray();
    ASSERT_EQ(rows.size(), 200);
    EXPECT_EQ(rows[0].toObject()["section"], 0);
    EXPECT_EQ(rows[0].toObject()["row"], 0);
    EXPECT_EQ(rows[199].toObject()["row"], 199);
    EXPECT_EQ(rows[199].toObject()["textColor"], "#007AFFFF");
}

TEST(DriverRows, ASwitchRow)
{
    Conversation ask;
    const auto row = ask.row("Flag");
    EXPECT_EQ(row["id"], "flag");
    EXPECT_EQ(row["key"], "flag");
    EXPECT_TRUE(row["action"].isNull());
    EXPECT_EQ(row["value"], false);
    EXPECT_EQ(row["enabled"], true);
    EXPECT_EQ(row["height"], 44.0);
    EXPECT_EQ(row["textColor"], "#000000FF");
    EXPECT_TRUE(row["text"].isNull());
    EXPECT_TRUE(row["placeholder"].isNull());
}

TEST(DriverRows, ATextRowTellsWhatItsFieldShows)
{
    Conversation ask;
    auto row = ask.row("Name");
    EXPECT_EQ(row["text"], "");
    EXPECT_EQ(row["placeholder"], "Nobody");
    EXPECT_TRUE(row["value"].isNull());
    ask.ok("tap Name");
    ask.ok("type Someone");
    row = ask.row("Name");
    EXPECT_EQ(row["text"], "Someone");
    EXPECT_TRUE(row["value"].isNull());
    ask.ok("key Return");
    row = ask.row("Name");
    EXPECT_EQ(row["text"], "Someone");
    EXPECT_EQ(row["value"], "Someone");
}

TEST(DriverRows, ASecretIsShownAsBullets)
{
    Conversation ask;
    ask.ok("tap Secret");
    EXPECT_EQ(ask.ok("type aü")["text"], "••");
    ask.ok("key Return");
    EXPECT_EQ(ask.row("Secret")["text"], "••");
    EXPECT_EQ(ask.row("Secret")["value"], "aü");
}

TEST(DriverRows, AGroupHasNothingThatACellHas)
{
    Conversation ask;
    const auto row = ask.row("Actions");
    EXPECT_TRUE(row["row"].isNull());
    EXPECT_EQ(row["cell"], 0);
    for (const char* field :
        { "key", "action", "value", "text", "placeholder", "textColor", "background", "height" })
        EXPECT_TRUE(row[field].isNull()) << field;
}

TEST(DriverRows, ARowWithoutANameHasNoTitle)
{
    Conversation ask;
    const auto row = ask.row("volume");
    EXPECT_TRUE(row["title"].isNull());
    EXPECT_EQ(row["value"], 0);
    EXPECT_EQ(row["cell"], 5);
}

TEST(DriverRows, OtherKindsOfRows)
{
    Conversation ask;
    EXPECT_EQ(ask.row("side")["value"], 1);
    EXPECT_EQ(ask.row("Choice")["value"], 2);
    EXPECT_EQ(ask.row("Ask")["action"], "ask");
    EXPECT_EQ(ask.row("Grey")["enabled"], false);
    EXPECT_NE(ask.row("Grey")["textColor"], ask.row("Tell")["textColor"]);
    EXPECT_EQ(ask.row("blot")["height"], 200.0);
}

TEST(DriverRows, APageWithoutRowsHasNone)
{
    Conversation ask;
    ask.ok("tap 'Bare Page'");
    EXPECT_EQ(ask.ok("page")["class"], "TestBarePage");
    EXPECT_EQ(ask.error("rows"), "The page that is shown has no rows.");
    EXPECT_EQ(ask.error("row 0 0"), "The page that is shown has no rows.");
    EXPECT_EQ(ask.error("scroll 10"), "The page that is shown has no rows.");
}

TEST(DriverRows, ScrollMovesAsFarAsThereAreRows)
{
    Conversation ask;
    ask.ok("tap 'Long Page'");
    EXPECT_EQ(ask.ok("scroll 100.5")["offset"], 100.5);
    EXPECT_EQ(ask.ok("scroll -50")["offset"], 50.5);
    EXPECT_EQ(ask.ok("scroll -1000")["offset"], 0);
    const auto bottom = ask.ok("scroll 1000000")["offset"].toDouble();
    EXPECT_GT(bottom, 200 * 44 - 667);
    EXPECT_EQ(ask.ok("scroll 1")["offset"], bottom);
}

TEST(DriverRows, ScrollNeedsANumberAndAPageThatCanBeTouched)
{
    Conversation ask;
    EXPECT_EQ(ask.error("scroll"), "scroll takes DY, not nothing.");
    EXPECT_EQ(ask.error("scroll 1 2"), "scroll takes DY, not 2 words.");
    EXPECT_EQ(ask.error("scroll nan"), "\"nan\" is not a number.");
    EXPECT_EQ(ask.error("scroll 1e7"), "\"1e7\" is too far away.");
    ask.ok("tap Tell");
    EXPECT_EQ(ask.error("scroll 10"), "An alert lies over the page.");
}

TEST(DriverRows, BackGoesToThePageBefore)
{
    Conversation ask;
    EXPECT_EQ(ask.error("back"), "The first page is shown; there is no way back.");
    ask.ok("tap 'Long Page'");
    EXPECT_EQ(ask.ok("back")["title"], "Test Pane");
    EXPECT_EQ(ask.ok("page")["depth"], 1);
}

TEST(DriverRows, CommandsWithoutWordsTakeNone)
{
    Conversation ask;
    for (const char* command :
        { "page", "rows", "back", "alert", "clear", "prefs", "posted", "paints", "settle" })
        EXPECT_EQ(ask.error(QByteArray(command) + " x"), QString(command) + " takes no further words.");
}

}

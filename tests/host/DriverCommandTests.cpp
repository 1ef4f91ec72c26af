#include "Conversation.h"

#include <gtest/gtest.h>

// The commands about texts, alerts, files and the clock.

namespace {

constexpr auto preferences = "private/var/mobile/Library/Preferences/net.morvane.vekora.plist";

TEST(DriverTexts, NeedAFocusedField)
{
    Conversation ask;
    for (const char* command : { "type x", "paste x", "clear", "key Return" })
        EXPECT_EQ(ask.error(command), "No text field is focused; tap one first.");
}

TEST(DriverTexts, TypePasteAndClear)
{
    Conversation ask;
    ask.ok("tap Name");
    EXPECT_EQ(ask.ok("type 'Grüße 😀'")["text"], "Grüße 😀");
    EXPECT_EQ(ask.ok("type ''")["text"], "Grüße 😀");
    EXPECT_EQ(ask.ok("paste ' and more'")["text"], "Grüße 😀 and more");
    EXPECT_EQ(ask.ok("clear")["text"], "");
    EXPECT_EQ(ask.ok("clear")["text"], "");
    EXPECT_EQ(ask.ok("paste x")["text"], "x");
}

TEST(DriverTexts, TypeIsAllOrNothing)
{
    Conversation ask;
    ask.ok("tap Ask");
    EXPECT_EQ(ask.error("type 34x5"), "The field's keyboard has no key for \"x\".");
    EXPECT_EQ(ask.ok("alert")["alert"].toObject()["text"], "12");
    EXPECT_EQ(ask.error("type -"), "The field's keyboard has no key for \"-\".");
    ask.ok("clear");
    EXPECT_EQ(ask.ok("type 345")["text"], "345");
    EXPECT_EQ(ask.ok("paste x")["text"], "345x");
}

TEST(DriverTexts, ATextLongerThanTheFieldHoldsIsNotTyped)
{
    Conversation ask;
    ask.ok("tap Name");
    EXPECT_EQ(
        ask.error("type " + QByteArray(100001, 'x')), "The field holds no more than 100000 characters.");
    EXPECT_EQ(ask.ok("type x")["text"], "x");
}

TEST(DriverTexts, Keys)
{
    Conversation ask;
    ask.ok("tap Name");
    ask.ok("type abc");
    ask.ok("key Backspace");
    EXPECT_EQ(ask.row("Name")["text"], "ab");
    ask.ok("key Tab");
    ask.ok("key Escape");
    EXPECT_EQ(ask.row("Name")["text"], "ab");
    EXPECT_TRUE(ask.row("Name")["value"].isNull());
    ask.ok("key Return");
    EXPECT_EQ(ask.row("Name")["value"], "ab");
    EXPECT_EQ(ask.error("key Return"), "No text field is focused; tap one first.");
    EXPECT_EQ(
        ask.error("key Delete"), "There is no key \"Delete\"; there are Return, Escape, Backspace and Tab.");
    EXPECT_EQ(ask.error("key"), "key takes one NAME, not nothing.");
}

TEST(DriverTexts, ATapElsewhereEndsTheEditing)
{
    Conversation ask;
    ask.ok("tap Name");
    ask.ok("type ab");
    ask.ok("tap 'Written here'");
    EXPECT_EQ(ask.row("Name")["value"], "ab");
}

TEST(DriverAlerts, NoAlertIsNull)
{
    Conversation ask;
    const auto answer = ask.ok("alert");
    EXPECT_TRUE(answer.contains("alert"));
    EXPECT_TRUE(answer["alert"].isNull());
    EXPECT_EQ(ask.error("answer OK"), "No alert is shown.");
}

TEST(DriverAlerts, AnAlertWithAField)
{
    Conversation ask;
    ask.ok("tap Ask");
    const auto alert = ask.ok("alert")["alert"].toObject();
    EXPECT_EQ(compact(alert),
        R"({"buttons":["Cancel","OK"],"keyboard":4,"message":"How many?","style":2,"tag":7,"text":"12","title":"Question"})");
}

TEST(DriverAlerts, AnAlertWithoutFieldOrTitle)
{
    Conversation ask;
    ask.ok("tap Tell");
    EXPECT_EQ(compact(ask.ok("alert")["alert"]),
        R"({"buttons":["Close"],"keyboard":0,"message":"Flag","style":0,"tag":0,"text":null,"title":null})");
}

TEST(DriverAlerts, AnswerTapsTheButton)
{
    Conversation ask;
    ask.ok("tap Ask");
    ask.ok("clear");
    ask.ok("type 34");
    EXPECT_EQ(
        ask.error("answer Perhaps"), "The alert has no button \"Perhaps\"; it has [\"Cancel\",\"OK\"].");
    ask.ok("answer OK");
    EXPECT_TRUE(ask.ok("alert")["alert"].isNull());
    ask.row("Button 1 with 34");
    ask.ok("tap Ask");
    ask.ok("answer Cancel");
    ask.row("Button 0 with 12");
}

TEST(DriverAlerts, KeysAnswerToo)
{
    Conversation ask;
    ask.ok("tap Tell");
    ask.ok("key Escape");
    EXPECT_TRUE(ask.ok("alert")["alert"].isNull());
    ask.ok("tap Ask");
    ask.ok("key Return");
    ask.row("Button 1 with 12");
}

TEST(DriverAlerts, TheForemostOfTwoIsAnsweredFirst)
{
    Conversation ask;
    ask.ok("tap 'Tell Twice'");
    EXPECT_EQ(ask.ok("alert")["alert"].toObject()["message"], "Second");
    ask.ok("answer 'Close it'");
    EXPECT_EQ(ask.ok("alert")["alert"].toObject()["message"], "Flag");
    ask.ok("answer Close");
    EXPECT_TRUE(ask.ok("alert")["alert"].isNull());
}

TEST(DriverFiles, PrefsIsNullWithoutAReadableFile)
{
    Conversation ask;
    EXPECT_TRUE(ask.ok("prefs")["prefs"].isNull());
    writeTestFile(ask.root() / preferences, "no property list <");
    EXPECT_TRUE(ask.ok("prefs")["prefs"].isNull());
    writeTestFile(ask.root() / preferences, "");
    EXPECT_EQ(compact(ask.ok("prefs")["prefs"]), "{}");
}

TEST(DriverFiles, PrefsIsTheFileThatRowsNameElseTheOneNamedAsTheBundle)
{
    const auto store = [](const Conversation& ask, const std::string& domain) {
        writeTestFile(ask.root() / ("private/var/mobile/Library/Preferences/" + domain + ".plist"),
            "<plist version=\"1.0\"><dict><key>of</key><string>" + domain + "</string></dict></plist>");
    };
    Conversation rows; // Whose identifier is another than its rows' domain.
    store(rows, "net.morvane.vekora");
    store(rows, "net.morvane.testpane");
    EXPECT_EQ(rows.ok("prefs")["prefs"].toObject()["of"].toString(), "net.morvane.vekora");

    Conversation identifier({ "--bundle", GALLERY_BUNDLE }); // No row of it names a domain.
    store(identifier, "net.morvane.vekora");
    store(identifier, "net.morvane.vekora.gallery");
    EXPECT_EQ(identifier.ok("prefs")["prefs"].toObject()["of"].toString(), "net.morvane.vekora.gallery");

    Conversation given({ "--defaults", "net.example.other" });
    store(given, "net.morvane.vekora");
    store(given, "net.example.other");
    EXPECT_EQ(given.ok("prefs")["prefs"].toObject()["of"].toString(), "net.example.other");
}

TEST(DriverFiles, PrefsShowsEveryKindOfValue)
{
    Conversation ask;
    ask.ok("tap 'Store Everything'");
    EXPECT_EQ(compact(ask.ok("prefs")["prefs"]),
        R"({"array":[1,"two"],"bool":true,"data":"AP8Q","date":"2014-01-09T10:17:00Z","dictionary":{"inner":2.5},)"
        R"("integer":9007199254740993,"real":0.1,"string":"Grüße"})");
}

TEST(DriverFiles, PrefsShowsAFractionThatABinaryFileHolds)
{
    // {"d": date 0.5}, as a binary property list.
    const std::string file("bplist00\xD1\x01\x02Qd\x33\x3F\xE0\0\0\0\0\0\0\x08\x0B\x0D\0\0\0\0\0\0\x01\x01"
                           "\0\0\0\0\0\0\0\x03\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x16",
        8 + 3 + 2 + 9 + 3 + 32);
    Conversation ask;
    writeTestFile(ask.root() / preferences, file);
    EXPECT_EQ(compact(ask.ok("prefs")["prefs"]), R"({"d":"2001-01-01T00:00:00.5Z"})");
}

TEST(DriverFiles, PrefsReadsWhatAnotherProgramWrote)
{
    Conversation ask;
    ask.ok("tap Flag");
    writeTestFile(ask.root() / preferences,
        "<plist version=\"1.0\"><dict><key>other</key><integer>3</integer></dict></plist>");
    EXPECT_EQ(compact(ask.ok("prefs")["prefs"]), R"({"other":3})");
    ask.ok("tap Flag");
    EXPECT_EQ(ask.ok("prefs")["prefs"].toObject().keys(), (QStringList { "flag", "other" }));
}

TEST(DriverFiles, PostedTellsWhatHappenedSinceTheLastTime)
{
    Conversation ask;
    EXPECT_EQ(compact(ask.ok("posted")["posted"]), "[]");
    ask.ok("tap Flag");
    EXPECT_EQ(compact(ask.ok("posted")["posted"]),
        R"([{"kind":"write","ok":true,"path":"/private/var/mobile/Library/Preferences/net.morvane.vekora.plist"},)"
        R"({"kind":"notification","name":"net.morvane.vekora/preferences"}])");
    EXPECT_EQ(compact(ask.ok("posted")["posted"]), "[]");
}

TEST(DriverFiles, PostedTellsOfWritesThatFailed)
{
    Conversation ask;
    ask.ok("tap 'Store Everything'");
    const auto posted = ask.ok("posted")["posted"].toArray();
    ASSERT_EQ(posted.size(), 2);
    EXPECT_EQ(
        compact(posted[1]), R"({"kind":"write","ok":false,"path":"/private/var/no/such/folder/file.plist"})");
}

TEST(DriverFiles, PostedTellsOfTheToggle)
{
    Conversation ask({ "--toggle" });
    ask.ok("tap Flip");
    EXPECT_EQ(
        compact(ask.ok("posted")["posted"]), R"([{"id":"net.morvane.vekorafs","kind":"toggle","state":1}])");
}

TEST(DriverFiles, PaintsCountsByClass)
{
    Conversation ask;
    EXPECT_EQ(ask.ok("paints")["paints"].toObject()["TestBlot"], 1);
    EXPECT_FALSE(ask.ok("paints")["paints"].toObject().contains("TestBlot"));
    ask.ok("scroll 50");
    ask.ok("tap Flag");
    EXPECT_FALSE(ask.ok("paints")["paints"].toObject().contains("TestBlot"));
    ask.ok("tap 'Under glass'");
    ask.ok("tap 'Under glass'");
    EXPECT_EQ(ask.ok("paints")["paints"].toObject()["TestBlot"], 2);
}

TEST(DriverClock, MovesOnByFractionsToo)
{
    Conversation ask({ "--now", "2014-01-05T10:17:42.6", "--timezone", "Europe/Berlin" });
    EXPECT_EQ(ask.ok("clock +0")["now"], "2014-01-05T09:17:42.6Z");
    EXPECT_EQ(ask.ok("clock +1.25")["now"], "2014-01-05T09:17:43.85Z");
    EXPECT_EQ(ask.ok("clock +86400")["now"], "2014-01-06T09:17:43.85Z");
}

TEST(DriverClock, NeedsAStandingClockAndSeconds)
{
    Conversation standing({ "--now", "2014-01-05T10:17:42Z" });
    for (const char* command :
        { "clock 5", "clock -5", "clock +x", "clock +-5", "clock +inf", "clock +1e11" })
        EXPECT_TRUE(standing.error(command).startsWith("clock takes +SECONDS, not ")) << command;
    EXPECT_EQ(standing.error("clock"), "clock takes +SECONDS, not nothing.");
    EXPECT_EQ(standing.ok("clock +0")["now"], "2014-01-05T10:17:42Z");
    Conversation running;
    EXPECT_EQ(
        running.error("clock +5"), "The clock is the real one and can't be moved; --now makes it stand.");
}

TEST(DriverCommands, AnUnknownOneIsAFailure)
{
    Conversation ask;
    EXPECT_EQ(ask.error("Page"), "There is no command \"Page\".");
    EXPECT_EQ(ask.end(), 1);
}

TEST(DriverCommands, SettleHasNoFurtherField)
{
    Conversation ask;
    EXPECT_EQ(ask.ok("settle").keys(), (QStringList { "do", "ok" }));
}

}

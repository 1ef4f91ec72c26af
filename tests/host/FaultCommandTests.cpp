#include "Conversation.h"

#include <gtest/gtest.h>

// Faults on demand against the project's own bundle: what the running pane does meanwhile, and afterwards.

namespace {

const QByteArray notification = R"({"kind":"notification","name":"net.morvane.vekora/preferences"})";

QByteArray write(bool succeeded)
{
    return QByteArray(R"({"kind":"write","ok":)") + (succeeded ? "true" : "false")
        + R"(,"path":"/private/var/mobile/Library/Preferences/net.morvane.vekora.plist"})";
}

class FaultCommand : public testing::Test {
protected:
    FaultCommand() { ask.ok("posted"); }

    std::filesystem::path folder() const { return ask.root() / "private/var/mobile/Library/Preferences"; }
    std::filesystem::path file() const { return folder() / "net.morvane.vekora.plist"; }
    std::string bytes() const { return readTestFile(file()); }
    std::size_t filesInFolder() const
    {
        return static_cast<std::size_t>(std::distance(
            std::filesystem::directory_iterator(folder()), std::filesystem::directory_iterator()));
    }

    QByteArray prefs() { return compact(ask.ok("prefs")["prefs"]); }
    QByteArray posted() { return compact(ask.ok("posted")["posted"]); }
    void dragOnTheColorPage()
    {
        ask.ok("tap \"Button Color\"");
        ask.ok("drag 100 300 250 350");
        ask.ok("back");
    }
    void openFirstPageAnew()
    {
        ask.ok("environment timezone Europe/Berlin");
        ask.ok("environment timezone UTC");
    }

    Conversation ask { Conversation::ownBundle() + QStringList { "--timezone", "UTC" } };
    const QByteArray seeded
        = R"({"buttonColor":"#FF0000","buttonText":"Vekora","colorPickerType":0,"preferColorPicker":true})";
};

}

TEST_F(FaultCommand, OnlyTheNextWriteFailsAndTheOldFileStaysWhole)
{
    const auto old = bytes();
    EXPECT_EQ(
        compact(ask.ok("fault write")), R"({"do":"fault","nextWriteFails":true,"ok":true,"readOnly":false})");
    ask.ok("tap Enabled");
    EXPECT_EQ(posted(), "[" + write(false) + "," + notification + "]") << "a failed write is told nobody";
    EXPECT_EQ(bytes(), old);
    EXPECT_EQ(filesInFolder(), 1U) << "nothing is left beside it";
    EXPECT_TRUE(ask.ok("alert")["alert"].isNull());
    EXPECT_EQ(ask.row("Enabled")["value"], true) << "the page shows what was chosen";

    ask.ok("tap Enabled");
    ask.ok("tap Enabled");
    EXPECT_EQ(
        posted(), "[" + write(true) + "," + notification + "," + write(true) + "," + notification + "]");
    EXPECT_EQ(ask.ok("prefs")["prefs"].toObject()["enabled"], true);
}

TEST_F(FaultCommand, AWriteOfTheColorPageFailsAlike)
{
    ask.ok("tap \"Button Color\"");
    ask.ok("posted");
    const auto old = bytes();
    ask.ok("fault write");
    ask.ok("drag 100 300 250 350");
    EXPECT_EQ(posted(), "[" + write(false) + "," + notification + "]");
    EXPECT_EQ(bytes(), old);
    ask.ok("drag 250 350 100 300");
    EXPECT_EQ(posted(), "[" + write(true) + "," + notification + "]");
    EXPECT_NE(bytes(), old);
}

TEST_F(FaultCommand, AVanishedFileIsWrittenAnewByTheMainPage)
{
    ask.ok("fault vanish");
    EXPECT_EQ(prefs(), "null");
    ask.ok("tap Enabled");
    EXPECT_EQ(prefs(), R"({"enabled":true})");
    EXPECT_EQ(posted(), "[" + write(true) + "," + notification + "]");
}

TEST_F(FaultCommand, AVanishedFileIsNotWrittenByTheColorPage)
{
    ask.ok("tap \"Button Color\"");
    ask.ok("fault vanish");
    ask.ok("posted");
    ask.ok("drag 100 300 250 350");
    EXPECT_EQ(posted(), "[" + notification + "]") << "the notification is posted even so";
    EXPECT_EQ(prefs(), "null");
    EXPECT_EQ(filesInFolder(), 0U);
}

TEST_F(FaultCommand, AVanishedFileIsSeededWhenTheFirstPageIsOpenedAnew)
{
    ask.ok("fault vanish");
    openFirstPageAnew();
    EXPECT_EQ(prefs(), seeded);
}

TEST_F(FaultCommand, AReadOnlyFolderKeepsEveryWriteOutUntilItIsOff)
{
    const auto old = bytes();
    EXPECT_EQ(compact(ask.ok("fault readonly")),
        R"({"do":"fault","nextWriteFails":false,"ok":true,"readOnly":true})");
    ask.ok("tap Enabled");
    ask.ok("tap \"Vekora Now\"");
    EXPECT_EQ(
        posted(), "[" + write(false) + "," + notification + "," + write(false) + "," + notification + "]");
    dragOnTheColorPage();
    EXPECT_EQ(posted(), "[" + write(false) + "," + notification + "]");
    EXPECT_EQ(bytes(), old);
    EXPECT_EQ(prefs(), seeded) << "it can still be read";
    EXPECT_EQ(filesInFolder(), 1U);

    ask.ok("fault off");
    ask.ok("tap Enabled");
    EXPECT_EQ(ask.ok("prefs")["prefs"].toObject()["enabled"], true);
    EXPECT_EQ(posted(), "[" + write(true) + "," + notification + "]");
}

TEST_F(FaultCommand, NothingIsSeededIntoAReadOnlyFolder)
{
    ask.ok("fault readonly");
    ask.ok("fault vanish");
    openFirstPageAnew();
    EXPECT_EQ(prefs(), "null");
    EXPECT_EQ(ask.row("Button Text:")["text"], "Vekora") << "the page shows what it could not store";
    ask.ok("fault off");
    openFirstPageAnew();
    EXPECT_EQ(prefs(), seeded);
}

TEST_F(FaultCommand, HalfAFileCountsAsNoneAndIsReplacedByAWholeOne)
{
    const auto old = bytes();
    ask.ok("fault half-written");
    EXPECT_EQ(bytes(), old.substr(0, old.size() / 2));
    EXPECT_EQ(prefs(), "null");
    ask.ok("tap Enabled");
    EXPECT_EQ(prefs(), R"({"enabled":true})");
}

TEST_F(FaultCommand, HalfAFileIsLeftAloneByTheColorPage)
{
    ask.ok("tap \"Button Color\"");
    ask.ok("posted");
    ask.ok("fault half-written");
    const auto half = bytes();
    ask.ok("drag 100 300 250 350");
    EXPECT_EQ(bytes(), half);
    EXPECT_EQ(posted(), "[" + notification + "]");
}

TEST_F(FaultCommand, OffTakesBackAFailureThatIsStillToCome)
{
    ask.ok("fault write");
    ask.ok("fault readonly");
    EXPECT_EQ(
        compact(ask.ok("fault off")), R"({"do":"fault","nextWriteFails":false,"ok":true,"readOnly":false})");
    ask.ok("fault off");
    ask.ok("tap Enabled");
    EXPECT_EQ(posted(), "[" + write(true) + "," + notification + "]");
}

TEST_F(FaultCommand, OffDoesNotBringBackWhatIsLost)
{
    ask.ok("fault vanish");
    ask.ok("fault off");
    EXPECT_EQ(prefs(), "null");
}

TEST_F(FaultCommand, SaysWhatItCannotDo)
{
    EXPECT_EQ(ask.error("fault"), "fault takes write, vanish, readonly, half-written or off, not nothing.");
    EXPECT_EQ(
        ask.error("fault fire"), "fault takes write, vanish, readonly, half-written or off, not \"fire\".");
    EXPECT_EQ(ask.error("fault write now"),
        "fault takes write, vanish, readonly, half-written or off, not 2 words.");
    ask.ok("fault vanish");
    EXPECT_EQ(ask.error("fault vanish"), "The preference file can't vanish: No such file or directory.");
    EXPECT_EQ(
        ask.error("fault half-written"), "The preference file can't be halved: No such file or directory.");
    writeTestFile(file(), "x");
    EXPECT_EQ(
        ask.error("fault half-written"), "The preference file can't be halved: there is too little in it.");
    EXPECT_EQ(bytes(), "x");
    std::filesystem::remove(file());
    std::filesystem::create_directory(file());
    ask.error("fault vanish");
    ask.error("fault half-written");
    EXPECT_TRUE(std::filesystem::is_directory(file()));
}

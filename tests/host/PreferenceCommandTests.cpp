#include "Conversation.h"

#include <gtest/gtest.h>

// The preference file, changed past the running pane, as the inspector does.

namespace {

class PreferenceCommand : public testing::Test {
protected:
    QByteArray prefs() { return compact(ask.ok("prefs")["prefs"]); }
    QByteArray answerTo(const char* command) { return compact(ask.ok(command)); }

    Conversation ask { Conversation::ownBundle() + QStringList { "--timezone", "UTC" } };
};

}

TEST_F(PreferenceCommand, StoresAValueOfEachTypeAndTellsOfIt)
{
    ask.ok("posted");
    EXPECT_EQ(
        answerTo("store enabled boolean on"), R"({"do":"store","ok":true,"reason":null,"stored":true})");
    EXPECT_EQ(compact(ask.ok("posted")["posted"]),
        R"([{"kind":"write","ok":true,"path":"/private/var/mobile/Library/Preferences/net.morvane.vekora.plist"},)"
        R"({"kind":"notification","name":"net.morvane.vekora/preferences"}])");
    ask.ok("reset");
    for (const char* words : { "a boolean false", "b integer -7", "c real 0.5", "'d e' string ' two  words '",
             "f date 2014-01-05T10:17:42+01:00", "g data '0a ff'",
             "h array '<array><integer>1</integer></array>'",
             "i dictionary '<dict><key>one</key><true/></dict>'" })
        ask.ok(QByteArray("store ") + words);
    EXPECT_EQ(prefs(),
        R"({"a":false,"b":-7,"c":0.5,"d e":" two  words ","f":"2014-01-05T09:17:42Z","g":"Cv8=","h":[1],"i":{"one":true}})");
}

TEST_F(PreferenceCommand, RemovesOneKeyAndResetsTheFile)
{
    ask.ok("remove buttonText");
    EXPECT_EQ(prefs(), R"({"buttonColor":"#FF0000","colorPickerType":0,"preferColorPicker":true})");
    ask.ok("remove buttonText");
    ask.ok("posted");
    EXPECT_EQ(answerTo("reset"), R"({"do":"reset","ok":true,"reason":null,"stored":true})");
    EXPECT_EQ(compact(ask.ok("posted")["posted"]),
        R"([{"kind":"notification","name":"net.morvane.vekora/preferences"}])");
    EXPECT_EQ(prefs(), "null");
    EXPECT_EQ(ask.ok("reset")["stored"], true) << "there is none any more";
}

TEST_F(PreferenceCommand, ThePaneShowsThemWhenItReadsTheFile)
{
    ask.ok("store buttonText string Later");
    EXPECT_EQ(ask.row("Button Text:")["text"], "Vekora");
    ask.ok("reopen");
    EXPECT_EQ(ask.row("Button Text:")["text"], "Later");
}

TEST_F(PreferenceCommand, AFileThatCannotBeChangedStaysAndTheAnswerSaysSo)
{
    const auto before = prefs();
    ask.ok("fault write");
    EXPECT_EQ(answerTo("store enabled boolean true"),
        R"({"do":"store","ok":true,"reason":"The file could not be written and is as it was.","stored":false})");
    ask.ok("fault readonly");
    EXPECT_EQ(ask.ok("remove buttonText")["stored"], false);
    EXPECT_EQ(ask.ok("reset")["stored"], false);
    EXPECT_EQ(prefs(), before);
    ask.ok("fault off");
    ask.ok("fault half-written");
    EXPECT_EQ(ask.ok("store enabled boolean true")["stored"], false);
    EXPECT_EQ(ask.ok("reset")["stored"], true);
}

TEST_F(PreferenceCommand, RefusesWhatIsNoValueAndChangesNothing)
{
    const auto before = prefs();
    EXPECT_EQ(ask.error("store enabled boolean perhaps"), "A boolean is true or false, not \"perhaps\".");
    EXPECT_EQ(ask.error("store enabled flag true"), "There is no type \"flag\".");
    EXPECT_EQ(ask.error("store 'a\x02' string b"), "A key has no control characters but tabs and line ends.");
    EXPECT_NE(ask.error("store enabled boolean"), "");
    EXPECT_NE(ask.error("remove"), "");
    EXPECT_NE(ask.error("reset all"), "");
    EXPECT_EQ(prefs(), before);
}

TEST_F(PreferenceCommand, TheBundleIsLoadedAnewOnTheSamePage)
{
    ask.ok("tap \"Button Color\"");
    ask.ok("scroll 40");
    const auto before = compact(ask.ok("digest"));
    EXPECT_EQ(answerTo("reload"), R"({"do":"reload","ok":true})");
    EXPECT_EQ(compact(ask.ok("digest")), before);
    ask.ok("back");
}

TEST(PreferenceCommands, ABundleThatCannotBeLoadedAnewIsAFailureAndMayBeMended)
{
    const TemporaryFolder folder;
    const auto bundle = folder.path() / "TestPane.bundle";
    std::filesystem::copy(TEST_BUNDLE, bundle);
    Conversation ask({ "--bundle", QString::fromStdString(bundle.string()) });
    const auto before = compact(ask.ok("digest"));
    std::filesystem::rename(bundle / "Info.plist", bundle / "away");
    EXPECT_NE(ask.error("reload"), "");
    EXPECT_EQ(ask.ok("page")["title"], "Error");
    std::filesystem::rename(bundle / "away", bundle / "Info.plist");
    ask.ok("reload");
    EXPECT_EQ(compact(ask.ok("digest")), before);
}

TEST_F(PreferenceCommand, AnInputMethodsTextIsShownAndHandedOver)
{
    EXPECT_NE(ask.error("compose ni 2"), "");
    ask.ok("tap \"Button Text:\"");
    const auto plain = compact(ask.ok("digest"));
    EXPECT_EQ(ask.ok("compose ni 2")["text"], "Vekora");
    EXPECT_NE(compact(ask.ok("digest")), plain) << "it is in the picture";
    EXPECT_NE(ask.error("compose ni far"), "");
    EXPECT_EQ(ask.ok("compose '' 0 你")["text"], "Vekora你");
    ask.ok("compose hao 3");
    ask.ok("key Return");
    EXPECT_EQ(ask.row("Button Text:")["value"], "Vekora你hao");
}

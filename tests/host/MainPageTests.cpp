#include "Conversation.h"

#include <gtest/gtest.h>

// Scripts against the project's own bundle, from the first start to what is stored and posted.

namespace {

constexpr auto write
    = R"({"kind":"write","ok":true,"path":"/private/var/mobile/Library/Preferences/net.morvane.vekora.plist"})";
constexpr auto notification = R"({"kind":"notification","name":"net.morvane.vekora/preferences"})";

QStringList own(const QStringList& more = {})
{
    return Conversation::ownBundle() + more;
}

QStringList atQuarterPastTen(const QStringList& more = {})
{
    return own({ "--now", "2014-01-05T10:17:42.6", "--timezone", "Europe/Berlin" }) + more;
}

QByteArray list(const QStringList& entries)
{
    return "[" + entries.join(',').toUtf8() + "]";
}

/// The row that says whether alarms are suppressed: the last of the first section.
QJsonObject status(Conversation& ask)
{
    QJsonObject last;
    for (const auto& value : ask.ok("rows")["rows"].toArray()) {
        const auto row = value.toObject();
        if (row["section"].toInt() > 0)
            break;
        last = row;
    }
    return last;
}

/// Its title. Which blank stands before AM or PM depends on the age of the locale's data.
QString statusTitle(Conversation& ask)
{
    return status(ask)["title"].toString().replace(QChar(0x202F), ' ');
}

void writePreferences(Conversation& ask, const std::string& entries)
{
    writeTestFile(ask.root() / "private/var/mobile/Library/Preferences/net.morvane.vekora.plist",
        "<plist version=\"1.0\"><dict>" + entries + "</dict></plist>");
}

TEST(MainPage, AFirstStartSeedsThePreferencesAndTellsNobody)
{
    Conversation ask(own());
    EXPECT_EQ(ask.ok("page")["class"], "VekoraListController");
    EXPECT_EQ(compact(ask.ok("posted")["posted"]), list({ write }));
    EXPECT_EQ(compact(ask.ok("prefs")["prefs"]),
        R"({"buttonColor":"#FF0000","buttonText":"Vekora","colorPickerType":0,"preferColorPicker":true})");
}

TEST(MainPage, TheSwitchStoresAndNotifies)
{
    Conversation ask(own());
    ask.ok("posted");
    EXPECT_EQ(status(ask)["enabled"], false);
    ask.ok("tap Enabled");
    EXPECT_EQ(ask.ok("prefs")["prefs"].toObject()["enabled"], true);
    EXPECT_EQ(compact(ask.ok("posted")["posted"]), list({ write, notification }));
    EXPECT_EQ(status(ask)["enabled"], true);
}

TEST(MainPage, SuppressingStoresUntilWhenAndShowsIt)
{
    Conversation ask(atQuarterPastTen());
    ask.ok("tap 'Silence Alarms For'");
    ask.ok("tap '30 Minutes'");
    ask.ok("back");
    ask.ok("posted");
    EXPECT_EQ(statusTitle(ask), "Alarms Enabled");
    ask.ok("tap 'Vekora Now'");
    const auto stored = ask.ok("prefs")["prefs"].toObject();
    EXPECT_EQ(stored["enabled"], true);
    EXPECT_EQ(stored["disableForMinutes"], 30);
    EXPECT_EQ(stored["disarmedUntil"], "2014-01-05T09:47:00Z");
    EXPECT_EQ(compact(ask.ok("posted")["posted"]), list({ write, notification }));
    EXPECT_EQ(statusTitle(ask), "Vekoraed Until: 1/5/14, 10:47:00 AM");
    ask.ok("tap 'Let Alarms Ring Again'");
    EXPECT_FALSE(ask.ok("prefs")["prefs"].toObject().contains("disarmedUntil"));
    EXPECT_EQ(statusTitle(ask), "Alarms Enabled");
}

TEST(MainPage, ShowsTheTimeAsTheLocaleDoes)
{
    Conversation ask(atQuarterPastTen({ "--locale", "de_DE" }));
    ask.ok("tap 'Vekora Now'");
    EXPECT_EQ(statusTitle(ask), "Vekoraed Until: 05.01.14, 11:17:00");
}

TEST(MainPage, TheClockMovesWhatIsSuppressedNext)
{
    Conversation ask(atQuarterPastTen());
    ask.ok("clock +60");
    ask.ok("tap 'Vekora Now'");
    EXPECT_EQ(ask.ok("prefs")["prefs"].toObject()["disarmedUntil"], "2014-01-05T10:18:00Z");
}

TEST(MainPage, TheToggleTakesTheNotificationsPlace)
{
    constexpr auto toggledOn = R"({"id":"net.morvane.vekorafs","kind":"toggle","state":1})";
    constexpr auto toggledOff = R"({"id":"net.morvane.vekorafs","kind":"toggle","state":0})";
    Conversation ask(own({ "--toggle" }));
    ask.ok("tap Enabled");
    EXPECT_EQ(compact(ask.ok("posted")["posted"]), list({ write, write, notification }));
    ask.ok("tap 'Vekora Now'");
    EXPECT_EQ(compact(ask.ok("posted")["posted"]), list({ write, toggledOn }));
    ask.ok("tap 'Let Alarms Ring Again'");
    EXPECT_EQ(compact(ask.ok("posted")["posted"]), list({ write, toggledOff }));
    ask.ok("tap Enabled");
    EXPECT_EQ(compact(ask.ok("posted")["posted"]), list({ write, toggledOff }));
}

TEST(MainPage, TheStatusBarRowIsGreyWithoutTheLibrary)
{
    Conversation without(own());
    EXPECT_EQ(without.row("VKEnableIcon")["enabled"], false);
    without.ok("posted");
    without.ok("tap 'Status Bar Icon'");
    EXPECT_EQ(compact(without.ok("posted")["posted"]), "[]");
    Conversation with(own({ "--statusbar" }));
    EXPECT_EQ(with.row("VKEnableIcon")["enabled"], true);
    with.ok("tap 'Status Bar Icon'");
    EXPECT_EQ(with.row("VKEnableIcon")["value"], true);
}

TEST(MainPage, TheTextIsStoredWhenTheEditingEnds)
{
    Conversation ask(own());
    ask.ok("posted");
    ask.ok("tap 'Button Text:'");
    ask.ok("clear");
    EXPECT_EQ(ask.ok("type Schlummern")["text"], "Schlummern");
    EXPECT_EQ(compact(ask.ok("posted")["posted"]), "[]");
    ask.ok("key Return");
    EXPECT_EQ(compact(ask.ok("posted")["posted"]), list({ write, notification }));
    EXPECT_EQ(ask.row("Button Text:")["value"], "Schlummern");
}

TEST(MainPage, TheColorRowIsPaintedInTheChosenColor)
{
    Conversation ask(own());
    const auto check = [&](const char* background, const char* text) {
        const auto row = ask.row("Button Color");
        EXPECT_EQ(row["background"], background);
        EXPECT_EQ(row["textColor"], text);
    };
    check("#FF0000FF", "#FFFFFFFF");
    // What another program stores shows when the page comes back.
    writePreferences(ask, "<key>buttonColor</key><string>#FF00</string>");
    ask.ok("tap 'Button Color'");
    ask.ok("back");
    check("#00FF00FF", "#000000FF");
}

TEST(MainPage, ATypedColorIsSavedAndShownEverywhere)
{
    Conversation ask(own());
    ask.ok("tap 'Button Color'");
    EXPECT_EQ(ask.ok("page")["title"], "buttonColor");
    ask.ok("posted");
    ask.ok("tap '#FF0000'");
    EXPECT_EQ(ask.ok("alert")["alert"].toObject()["tag"], 2629);
    ask.ok("type 0000ff");
    ask.ok("answer Save");
    EXPECT_EQ(compact(ask.ok("posted")["posted"]), list({ write, notification }));
    EXPECT_EQ(ask.ok("prefs")["prefs"].toObject()["buttonColor"], "#0000FF");
    ask.ok("back");
    EXPECT_EQ(ask.row("Button Color")["background"], "#0000FFFF");
}

TEST(MainPage, ADragInThePickerSavesWhenTheFingerLifts)
{
    Conversation ask(own());
    ask.ok("tap 'Button Color'");
    ask.ok("posted");
    const auto field = ask.ok("tree VKBrightnessSaturationView")["tree"].toObject();
    const QJsonValue frame = field["onScreen"];
    const double x = numberAt(frame, 0) + numberAt(frame, 2) / 2;
    const double y = numberAt(frame, 1) + numberAt(frame, 3) / 2;
    const auto point = QByteArray::number(x) + " " + QByteArray::number(y);
    ask.ok("press " + point);
    ask.ok("move " + point);
    EXPECT_EQ(compact(ask.ok("posted")["posted"]), "[]");
    ask.ok("release " + point);
    EXPECT_EQ(compact(ask.ok("posted")["posted"]), list({ write, notification }));
    EXPECT_NE(ask.ok("prefs")["prefs"].toObject()["buttonColor"], "#FF0000");
}

TEST(MainPage, ATextBelowTheScreenIsScrolledTo)
{
    Conversation ask(own({ "--size", "320x480" }));
    ask.ok("tap 'Button Color'");
    const auto at = ask.ok("tap Blue");
    EXPECT_LT(numberAt(at["at"], 1), 480);
    EXPECT_GT(ask.ok("scroll 0")["offset"].toDouble(), 0);
}

TEST(MainPage, AnswersAsTheDocumentationShows)
{
    const auto page = QString::fromStdString(readTestFile(DRIVER_PAGE));
    const auto lines
        = page.section("Open the colour page and come back:", 1).section("Suppress alarms", 0, 0);
    Conversation ask(own());
    QStringList answers;
    for (const char* command : { "tap \"Button Color\"", "page", "back" })
        answers << "    " + compact(ask.ok(command));
    EXPECT_TRUE(lines.contains("printf 'tap \"Button Color\"\\npage\\nback\\n'"));
    EXPECT_EQ(lines.trimmed().section('\n', 1), answers.join('\n'));
}

TEST(MainPage, RunsFromRightToLeftWhereTheLanguageDoes)
{
    Conversation ask(own({ "--locale", "ar_EG" }));
    const auto at = ask.ok("tap Enabled");
    EXPECT_LT(numberAt(at["at"], 0), 375 / 2.0);
    EXPECT_EQ(ask.row("Enabled")["value"], true);
}

}

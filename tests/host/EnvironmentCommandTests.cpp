#include "Conversation.h"

#include <gtest/gtest.h>

// The environment, changed by a script while pages are shown.

namespace {

/// With a suppression that goes on, so that a time is shown.
void storePreferences(const std::filesystem::path& root)
{
    writeTestFile(root / "private/var/mobile/Library/Preferences/net.morvane.vekora.plist",
        "<plist version=\"1.0\"><dict><key>buttonColor</key><string>#33AA77</string><key>enabled</key><true/>"
        "<key>disarmedUntil</key><date>2014-01-05T12:00:00Z</date></dict></plist>");
}

QStringList standing(const QStringList& more = {})
{
    return Conversation::ownBundle() + QStringList { "--now", "2014-01-05T10:17:42Z", "--timezone", "UTC" }
    + more;
}

std::string shotOf(Conversation& ask, const char* name)
{
    const auto file = ask.folder() / name;
    ask.ok("shot '" + QByteArray::fromStdString(file.string()) + "'");
    return readTestFile(file);
}

/// A page, and the tap on the first page that opens it; none for the first itself.
struct Page {
    const char* name;
    QByteArray tap;
};

const Page mainPage { "main", {} };
const Page choices { "choices", "tap \"Silence Alarms For\"" };
const Page color { "color", "tap \"Button Color\"" };

struct Case {
    const char* name;
    const char* value;
    const char* usual;
    std::vector<Page> pages;
    std::vector<QByteArray> afterwards; ///< Further commands after the change.
};

/// Whether the pages look the same, to the bit, when they were there before the change as when the host was
/// started that way; and then as they first were, when the change is taken back.
void expectAsStarted(const Case& known)
{
    Conversation started(standing({ QString("--") + known.name, known.value }));
    Conversation changed(standing());
    for (auto* const ask : { &started, &changed }) {
        storePreferences(ask->root());
        // The pages are made anew, and read the file.
        ask->ok("environment timezone Europe/Berlin");
        ask->ok("environment timezone UTC");
    }
    for (const auto& page : known.pages) {
        for (auto* const ask : { &started, &changed }) {
            if (!page.tap.isEmpty())
                ask->ok(page.tap);
        }
        const auto before = shotOf(changed, "before.png");
        const auto change = QByteArray("environment ") + known.name + " ";
        changed.ok(change + known.value);
        for (const auto& command : known.afterwards)
            changed.ok(command);
        const auto expected = shotOf(started, "started.png");
        EXPECT_TRUE(shotOf(changed, "changed.png") == expected) << known.name << ", " << page.name;
        EXPECT_FALSE(before == expected) << "nothing to see: " << known.name << ", " << page.name;
        changed.ok(change + known.usual);
        for (const auto& command : known.afterwards)
            changed.ok(command);
        EXPECT_TRUE(shotOf(changed, "again.png") == before) << known.name << ", " << page.name;
        for (auto* const ask : { &started, &changed }) {
            if (!page.tap.isEmpty())
                ask->ok("back");
        }
    }
}

}

TEST(EnvironmentCommand, ADirectionShowsAsIfStartedWithIt)
{
    expectAsStarted({ "direction", "rtl", "locale", { mainPage, choices, color }, {} });
}

TEST(EnvironmentCommand, ALocaleShowsAsIfStartedWithIt)
{
    expectAsStarted({ "locale", "ar_EG", "en_US", { mainPage, choices, color }, {} });
}

TEST(EnvironmentCommand, AScaleShowsAsIfStartedWithIt)
{
    expectAsStarted({ "scale", "1", "2", { mainPage, choices, color }, {} });
    // At three pixels a point some glyphs are large enough to be filled as outlines.
    expectAsStarted({ "scale", "3", "2", { mainPage, choices, color }, {} });
}

TEST(EnvironmentCommand, ASizeShowsAsIfStartedWithIt)
{
    expectAsStarted({ "size", "320x568", "375x667", { mainPage, choices }, {} });
}

TEST(EnvironmentCommand, PagesMadeAnewForASizeShowAsIfStartedWithIt)
{
    // The colour page follows a size by its masks, as on a device that is turned, until it is made anew.
    expectAsStarted({ "size", "320x568", "375x667", { color },
        { "environment direction rtl", "environment direction locale" } });
}

TEST(EnvironmentCommand, TellsWhatIsSo)
{
    Conversation ask(standing({ "--toggle", "--size", "320x568", "--scale", "3", "--locale", "de_DE" }));
    EXPECT_EQ(compact(ask.ok("environment")["environment"]),
        R"({"direction":"locale","locale":"de_DE","now":"2014-01-05T10:17:42+00:00","scale":"3",)"
        R"("size":"320x568","statusbar":"off","timezone":"UTC","toggle":"on"})");
}

TEST(EnvironmentCommand, ChangesOneThingAndTellsWhatIsSoThen)
{
    Conversation ask(standing());
    const auto changed = [&](const char* name, const char* value) {
        const auto answer = ask.ok(QByteArray("environment ") + name + " " + value)["environment"].toObject();
        return answer[name].toString().toStdString();
    };
    EXPECT_EQ(changed("toggle", "on"), "on");
    EXPECT_EQ(changed("toggle", "off"), "off");
    EXPECT_EQ(changed("statusbar", "on"), "on");
    EXPECT_EQ(changed("locale", "de-ch"), "de_CH");
    EXPECT_EQ(changed("timezone", "Europe/Berlin"), "Europe/Berlin");
    EXPECT_EQ(changed("now", "2014-07-01T12:00"), "2014-07-01T12:00:00+02:00");
    EXPECT_EQ(changed("now", "real"), "real");
    EXPECT_EQ(changed("size", "414x736"), "414x736");
    EXPECT_EQ(changed("scale", "1"), "1");
    EXPECT_EQ(changed("direction", "rtl"), "rtl");
}

TEST(EnvironmentCommand, SaysWhatIsWrongAndChangesNothing)
{
    Conversation ask(standing());
    const auto before = compact(ask.ok("environment"));
    EXPECT_EQ(ask.error("environment moon full"),
        "The environment has toggle, statusbar, locale, timezone, now, size, scale or direction, not "
        "\"moon\".");
    EXPECT_EQ(ask.error("environment toggle"), "environment takes [NAME VALUE], not 1 word.");
    EXPECT_EQ(ask.error("environment toggle maybe"), "toggle takes on or off, not \"maybe\".");
    EXPECT_EQ(ask.error("environment locale xx_XX"),
        "locale takes a known locale, as en_US or de_DE, not \"xx_XX\".");
    EXPECT_EQ(ask.error("environment timezone Atlantis"),
        "timezone takes a known time zone, as Europe/Berlin or UTC, not \"Atlantis\".");
    EXPECT_EQ(ask.error("environment now then"),
        "now takes real or an instant in ISO 8601, as 2014-01-05T10:17:42.6+01:00, not \"then\".");
    EXPECT_EQ(ask.error("environment size 0x1"),
        "size takes WIDTHxHEIGHT in whole points from 1 to 4096, as 375x667, not \"0x1\".");
    EXPECT_EQ(ask.error("environment scale 4"), "scale takes 1, 2 or 3, not \"4\".");
    EXPECT_EQ(ask.error("environment direction up"), "direction takes ltr, rtl or locale, not \"up\".");
    EXPECT_EQ(compact(ask.ok("environment")), before);
}

TEST(EnvironmentCommand, ReopenMakesThePagesAnew)
{
    Conversation ask(standing());
    const auto rowIsEnabled = [&] {
        for (const auto row : ask.ok("rows")["rows"].toArray()) {
            if (row.toObject()["title"] == "Status Bar Icon")
                return row.toObject()["enabled"].toBool();
        }
        ADD_FAILURE() << "The row is not there.";
        return false;
    };
    ask.ok("environment statusbar on");
    EXPECT_FALSE(rowIsEnabled());
    ask.ok("reopen");
    EXPECT_TRUE(rowIsEnabled());
    ask.ok("tap \"Button Color\"");
    ask.ok("reopen");
    EXPECT_EQ(ask.ok("page")["depth"], 2);
    EXPECT_EQ(ask.error("reopen it"), "reopen takes no further words.");
}

TEST(EnvironmentCommand, ReappearLetsThePageReadItsFile)
{
    Conversation ask(standing());
    const auto picture = [&] { return ask.ok("digest")["picture"].toString().toStdString(); };
    const auto before = picture();
    storePreferences(ask.root());
    ask.ok("settle");
    EXPECT_EQ(picture(), before);
    ask.ok("reappear");
    EXPECT_NE(picture(), before);
}

TEST(EnvironmentCommand, AFingerThatIsDownLosesItsPage)
{
    Conversation ask;
    ask.ok("press 100 300");
    ask.ok("environment locale de_DE");
    ask.ok("move 100 100");
    ask.ok("release 100 100");
    EXPECT_EQ(ask.ok("page")["depth"], 1);
    ask.ok("tap Ask");
    ask.ok("environment scale 1");
    EXPECT_TRUE(ask.ok("alert")["alert"].isNull());
}

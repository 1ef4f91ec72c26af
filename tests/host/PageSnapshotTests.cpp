#include "host/Phone.h"
#include "tests/support/Snapshot.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

/// The project's own bundle in a phone of 375 by 667 points at 2 pixels a point, at a set time and place.
class PageSnapshots : public testing::Test {
protected:
    host::Phone& open(const std::string& locale)
    {
        host::PhoneOptions options;
        options.root = root.path().string();
        options.locale = locale;
        options.timeZone = "Europe/Berlin";
        options.now = "2014-01-05T10:17:42.6";
        writeTestFile(
            root.path() / "private/var/mobile/Library/Preferences/net.morvane.vekora.plist", preferences);
        phone = std::make_unique<host::Phone>(options);
        EXPECT_EQ(phone->openBundle(), std::nullopt);
        phone->settle();
        return *phone;
    }

    void tap(platform::CGPoint point)
    {
        phone->window().touchBegan(point);
        phone->window().touchEnded(point);
        phone->settle();
    }

    static constexpr const char* preferences = R"(<plist version="1.0"><dict>
        <key>buttonColor</key><string>#3366CC</string>
        <key>buttonText</key><string>Snooze</string>
        <key>disarmedUntil</key><date>2014-01-05T10:00:00Z</date>
        <key>enabled</key><true/>
        </dict></plist>)";

    TemporaryFolder root;
    std::unique_ptr<host::Phone> phone;
};

constexpr platform::CGPoint buttonColorRow { 187, 490 };

}

TEST_F(PageSnapshots, ShowTheMainPage)
{
    EXPECT_TRUE(matchesSnapshot(open("en_US").window().picture(), "main-page"));
}

TEST_F(PageSnapshots, ShowTheMainPageFromRightToLeft)
{
    EXPECT_TRUE(matchesSnapshot(open("ar_EG").window().picture(), "main-page-ar"));
}

TEST_F(PageSnapshots, ShowTheColourPage)
{
    open("en_US");
    tap(buttonColorRow);
    EXPECT_TRUE(matchesSnapshot(phone->window().picture(), "color-page"));
}

#include "PhoneFixture.h"
#include "platform/NSFileManager.h"
#include "platform/UIAlertView.h"
#include "platform/UITextField.h"

// The environment, changed while pages are shown. That they then look as if the phone had been started that
// way is tested beside the driver's command.

namespace host {

using namespace platform;

namespace {

constexpr auto silencedUntilNoon
    = "<plist version=\"1.0\"><dict><key>buttonColor</key><string>#33AA77</string><key>enabled</key><true/>"
      "<key>disarmedUntil</key><date>2014-01-05T12:00:00Z</date></dict></plist>";

class PhoneEnvironment : public PhoneTest {
protected:
    PhoneEnvironment() { writeTestFile(preferenceFile(), silencedUntilNoon); }

    std::string status() const { return page().specifierAtIndexPath({ 0, 5 })->name(); }
};

}

TEST_F(PhoneEnvironment, ADirectionByTheLocaleFollowsIt)
{
    open(options());
    phone->setLocale("he_IL");
    EXPECT_TRUE(Device::current().rightToLeft);
    phone->setDirection(TextDirection::LeftToRight);
    EXPECT_FALSE(Device::current().rightToLeft);
    phone->setLocale("ar_EG");
    EXPECT_FALSE(Device::current().rightToLeft);
    phone->setDirection(TextDirection::OfTheLocale);
    EXPECT_TRUE(Device::current().rightToLeft);
    phone->setLocale("de_DE");
    EXPECT_FALSE(Device::current().rightToLeft);
}

TEST_F(PhoneEnvironment, ATimeZoneChangesTheTimesOnThePage)
{
    open(options());
    EXPECT_NE(status().find("12:00"), std::string::npos) << status();
    phone->setTimeZone("Europe/Berlin");
    EXPECT_NE(status().find("1:00"), std::string::npos) << status();
    EXPECT_EQ(status().find("12:00"), std::string::npos) << status();
}

TEST_F(PhoneEnvironment, PagesStayAsTimePasses)
{
    open(options());
    const auto before = status();
    phone->setStandingClock(NSDate(410961600 + 86400));
    EXPECT_TRUE(phone->moveClock(60.5));
    EXPECT_EQ(NSDate::date().timeIntervalSinceReferenceDate(), 410961600 + 86460.5);
    EXPECT_EQ(status(), before) << "the text does not follow the passing of time";
    phone->makePagesAnew();
    EXPECT_NE(status(), before) << "the suppression is over by now";
}

TEST_F(PhoneEnvironment, TheRealClockRunsAndCannotBeMoved)
{
    open(options());
    phone->setRunningClock();
    EXPECT_FALSE(phone->moveClock(1));
    EXPECT_GT(NSDate::date().timeIntervalSinceReferenceDate(), 410961600 + 86400);
}

TEST_F(PhoneEnvironment, AToggleIsThereOnceInstalledAndGoneOnceRemoved)
{
    open(options());
    const auto& files = NSFileManager::defaultManager();
    constexpr auto toggleSwitch = "/Library/Switches/VekoraFS.bundle/VekoraFS";
    EXPECT_EQ(NSClassFromString("FSSwitchPanel"), nullptr);
    for (int round = 0; round < 3; ++round) {
        phone->setToggleInstalled(true);
        EXPECT_TRUE(phone->toggleIsInstalled());
        EXPECT_NE(NSClassFromString("FSSwitchPanel"), nullptr);
        EXPECT_TRUE(files.fileExistsAtPath(toggleSwitch));
        tapRow("vekoraNow");
        phone->setToggleInstalled(false);
        EXPECT_EQ(NSClassFromString("FSSwitchPanel"), nullptr);
        EXPECT_FALSE(files.fileExistsAtPath(toggleSwitch));
        tapRow("vekoraNow");
    }
}

TEST_F(PhoneEnvironment, TheStatusBarLibraryIsSeenWhenThePagesAreMadeAnew)
{
    open(options());
    const auto iconIsEnabled = [&] { return page().specifierForID("VKEnableIcon")->isEnabled(); };
    EXPECT_FALSE(iconIsEnabled());
    phone->setStatusBarLibraryInstalled(true);
    EXPECT_FALSE(iconIsEnabled());
    phone->makePagesAnew();
    EXPECT_TRUE(iconIsEnabled());
    phone->setStatusBarLibraryInstalled(false);
    phone->makePagesAnew();
    EXPECT_FALSE(iconIsEnabled());
}

TEST_F(PhoneEnvironment, PagesMadeAnewAreTheSamePagesAtTheSamePlace)
{
    open(options());
    tapRow("Button Color");
    page().table().setContentOffset({ 0, 123 });
    const auto before = picture();
    phone->makePagesAnew();
    EXPECT_EQ(depth(), 2U);
    EXPECT_EQ(page().table().contentOffset().y, 123);
    EXPECT_TRUE(picture() == before);
    EXPECT_TRUE(phone->navigation().popViewController());
}

TEST_F(PhoneEnvironment, ATextBeingEditedIsStoredBeforeItsPageGoes)
{
    open(options());
    page().table().setContentOffset({ 0, 1e6 });
    tapRow("buttonText");
    auto* const field = phone->window().firstResponder();
    ASSERT_NE(field, nullptr);
    field->setText("Wake me");
    phone->setLocale("fr_FR");
    EXPECT_EQ(phone->window().firstResponder(), nullptr);
    EXPECT_NE(readTestFile(preferenceFile()).find("Wake me"), std::string::npos);
    EXPECT_EQ(page().readPreferenceValue(page().specifierForID("buttonText"))->string()[0], "Wake me");
}

TEST_F(PhoneEnvironment, AlertsAndTouchesGoWithTheirPages)
{
    open(optionsWithTestBundle());
    tapRow("Tell Twice");
    ASSERT_NE(UIAlertView::topmost(), nullptr);
    phone->window().touchBegan({ 100, 100 });
    phone->setLocale("de_DE");
    EXPECT_EQ(UIAlertView::topmost(), nullptr);
    phone->window().touchMoved({ 100, 50 });
    phone->window().touchEnded({ 100, 50 });
    phone->settle();
    tapRow("Ask");
    EXPECT_NE(UIAlertView::topmost(), nullptr);
}

TEST_F(PhoneEnvironment, AnErrorPageIsLaidOutAnew)
{
    auto options = optionsWithTestBundle();
    options.bundle = (folder.path() / "Nothing.bundle").string();
    phone = std::make_unique<Phone>(options);
    EXPECT_NE(phone->openBundle(), std::nullopt);
    const auto before = picture();
    phone->setLocale("ar_EG");
    phone->setDirection(TextDirection::LeftToRight);
    phone->setScreen({ 320, 480 }, 1);
    phone->setScale(2);
    phone->setScreen({ 375, 667 }, 2);
    EXPECT_EQ(depth(), 1U);
    EXPECT_TRUE(picture() == before);
}

TEST_F(PhoneEnvironment, WhoListensIsToldOfEveryChangeAndOfNothingElse)
{
    open(options());
    int told = 0;
    const auto number = phone->listenToEnvironment([&] { ++told; });
    const auto changeAllButTheClock = [this] {
        phone->setLocale("de_DE");
        phone->setTimeZone("Europe/Berlin");
        phone->setDirection(TextDirection::RightToLeft);
        phone->setScale(1);
        phone->setScreen({ 320, 568 }, 1);
        phone->setToggleInstalled(true);
        phone->setStatusBarLibraryInstalled(true);
    };
    changeAllButTheClock();
    phone->setStandingClock(NSDate(0));
    phone->setRunningClock();
    EXPECT_EQ(told, 9);
    changeAllButTheClock();
    EXPECT_EQ(told, 9) << "what is so already is no change";
    phone->stopListening(number);
    phone->setLocale("en_US");
    EXPECT_EQ(told, 9);
}

TEST_F(PhoneEnvironment, TheOptionsAreWhatIsSoNow)
{
    open(options());
    phone->setScreen({ 320, 568 }, 1);
    phone->setScale(3);
    phone->setStandingClock(NSDate(410961600.5));
    phone->setDirection(TextDirection::RightToLeft);
    const auto& now = phone->options();
    EXPECT_EQ(now.size, (CGSize { 320, 568 }));
    EXPECT_EQ(now.scale, 3);
    EXPECT_EQ(now.now, "2014-01-09T12:00:00.5Z");
    EXPECT_EQ(now.direction, TextDirection::RightToLeft);
    phone->setRunningClock();
    EXPECT_EQ(phone->options().now, std::nullopt);
}

}

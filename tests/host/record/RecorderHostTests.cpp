#include "platform/PSListController.h"
#include "platform/PSSpecifier.h"
#include "platform/UILabel.h"
#include "platform/UITableView.h"
#include "RecordTest.h"

#include "host/driver/ViewSearch.h"
#include "host/Faults.h"
#include "host/ValueText.h"

#include <QStringList>

using namespace platform;
using host::Fault;
using host::Faults;

// What is done with the phone's host, and the script that says it.

namespace {

class HostRecordings : public RecordTest {
protected:
    ~HostRecordings() override { Faults::current().make(Fault::Off); }
};

TEST_F(HostRecordings, ValuesThatTheInspectorStores)
{
    record();
    phone->storePreference("buttonText", PropertyValue("say \"$5\""));
    phone->storePreference("enabled", PropertyValue(true));
    phone->storePreference("real", PropertyValue(0.1));
    phone->storePreference(
        "at", std::get<PropertyValue>(host::valueFromText("date", "2014-01-05T10:17:42+01:00")));
    phone->storePreference("bytes", PropertyValue(PropertyData { 10, 255 }));
    phone->storePreference("list", PropertyValue(PropertyArray { PropertyValue(1), PropertyValue("<b>") }));
    phone->storePreference("real", std::nullopt);
    phone->showPageAgain();
    EXPECT_EQ(script(),
        "store \"buttonText\" string \"say \\\"\\$5\\\"\"\nstore \"enabled\" boolean \"true\"\nstore "
        "\"real\" real "
        "\"0.1\"\nstore \"at\" date \"2014-01-05T09:17:42+00:00\"\nstore \"bytes\" data \"0a ff\"\nstore "
        "\"list\" "
        "array "
        "\"<array><integer>1</integer><string>&lt;b&gt;</string></array>\"\nremove \"real\"\nreappear\n");
    ASSERT_TRUE(digest().preferences);
    expectSameReplay();
}

TEST_F(HostRecordings, AFileThatTheInspectorResets)
{
    record();
    tapAt(middleOfClass("UISwitch"));
    phone->deletePreferences();
    EXPECT_EQ(digest().preferences, std::nullopt);
    expectSameReplay();
    phone->makePagesAnew();
    EXPECT_EQ(script(), "tap \"Enabled\"\nreset\nreopen\n");
    expectSameReplay();
}

TEST_F(HostRecordings, AFaultMeetsTheSameWrite)
{
    record();
    Faults::current().make(Fault::Write);
    EXPECT_NE(phone->storePreference("enabled", PropertyValue(true)), "");
    EXPECT_EQ(phone->storePreference("buttonText", PropertyValue("Late")), "");
    Faults::current().make(Fault::HalfWritten);
    EXPECT_NE(phone->storePreference("enabled", PropertyValue(true)), "");
    EXPECT_EQ(script(),
        "fault write\nstore \"enabled\" boolean \"true\"\nstore \"buttonText\" string \"Late\"\nfault "
        "half-written\nstore \"enabled\" boolean \"true\"\n");
    expectSameReplay();
}

TEST_F(HostRecordings, SaysOfWhatAScriptCannotHoldThatItIsMissing)
{
    record();
    phone->storePreference("text", PropertyValue("one\ntwo"));
    EXPECT_EQ(script(), "");
    EXPECT_NE(wholeFile().find("# The inspector changed what a script can't hold.\n"), std::string::npos);
}

TEST_F(HostRecordings, ABundleThatIsLoadedAnew)
{
    recordTestBundle();
    phone->scrollAt({ 100, 300 }, 200);
    phone->settle();
    tapAt(middleOfClass("UITextField"));
    typeKeys("left");
    EXPECT_EQ(phone->reloadBundle(), std::nullopt);
    phone->settle();
    EXPECT_TRUE(script().ends_with("\nreload\n")) << script();
    expectSameReplay();
}

TEST_F(HostRecordings, NothingOfAnErrorPageThatAReplayDoesNotComeTo)
{
    const TemporaryFolder bundles;
    const auto bundle = bundles.path() / "TestPane.bundle";
    std::filesystem::copy(TEST_BUNDLE, bundle);
    auto own = options();
    own.bundle = bundle.string();
    phone.reset();
    record(own);
    phone->setTryAgain([] {});
    std::filesystem::rename(bundle / "Info.plist", bundle / "away");
    EXPECT_NE(phone->reloadBundle(), std::nullopt);
    phone->settle();
    tapAt(middleOf("Try Again"));
    phone->scrollAt({ 100, 300 }, 20);
    phone->makePagesAnew();
    phone->showPageAgain();
    EXPECT_EQ(script(), "");
    EXPECT_NE(wholeFile().find("# The bundle was loaded anew, in vain: "), std::string::npos) << wholeFile();
    phone->setLocale("de_DE");
    std::filesystem::rename(bundle / "away", bundle / "Info.plist");
    EXPECT_EQ(phone->reloadBundle(), std::nullopt);
    phone->settle();
    tapAt(middleOf("Tell Twice"));
    EXPECT_EQ(script(), "environment locale \"de_DE\"\nreload\ntap \"Tell Twice\"\n");
    expectSameReplay();
}

TEST_F(HostRecordings, ARowWithATitleThatNobodyReadsIsToldByItsPlace)
{
    record();
    auto* const label = dynamic_cast<UILabel*>(host::viewsShowing(window(), "Vekora Now").front());
    ASSERT_TRUE(label);
    const auto place = middleOf("Vekora Now");
    label->setText(std::string(600, 'x'));
    phone->settle();
    tapAt(place);
    EXPECT_EQ(script(), "row 0 2\n");
}

}

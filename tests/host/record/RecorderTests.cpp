#include "RecordTest.h"

#include "host/driver/ViewSearch.h"
#include "platform/UISlider.h"

// What a person does, and the script that says it. Each script is replayed by the program as well.

using namespace platform;

namespace {

using Recordings = RecordTest;

TEST_F(Recordings, TapsByNameWhereverARowIsTouched)
{
    record();
    const auto row = middleOf("Vekora Now");
    tapAt({ row.x - 100, row.y + 9.25 });
    EXPECT_EQ(script(), "tap \"Vekora Now\"\n");
    expectSameReplay();
}

TEST_F(Recordings, TapsASwitchByItsRowsTitle)
{
    record();
    const auto toggle = middleOfClass("UISwitch");
    tapAt({ toggle.x + 7, toggle.y - 3 });
    EXPECT_EQ(script(), "tap \"Enabled\"\n");
    expectSameReplay();
}

TEST_F(Recordings, TellsStepsWhereASwitchWasPushed)
{
    record();
    const auto toggle = middleOfClass("UISwitch");
    dragTo(toggle, { toggle.x - 15, toggle.y }, 1);
    dragTo(toggle, { toggle.x + 15, toggle.y }, 1);
    EXPECT_EQ(script(), "drag 334.5 120.5 319.5 120.5 1\ntap \"Enabled\"\n"); // It went on, as by a tap.
    expectSameReplay();
}

TEST_F(Recordings, TapOnTheTitleOfASwitchIsNoTapOnTheSwitch)
{
    record();
    const auto title = middleOf("Enabled");
    tapAt(title);
    EXPECT_EQ(script(), "tap 157 121\n");
    expectSameReplay();
}

TEST_F(Recordings, GoesToAPageAndBack)
{
    record();
    tapAt(middleOf("Button Color"));
    tapAt({ 30, 40 });
    tapAt(middleOf("Button Color"));
    phone->goBack();
    EXPECT_EQ(script(), "tap \"Button Color\"\nback\ntap \"Button Color\"\nback\n");
    expectSameReplay();
}

TEST_F(Recordings, AJitteringTapIsATap)
{
    record();
    const auto row = middleOf("Vekora Now");
    dragTo(row, { row.x + 3, row.y - 4 }, 3);
    EXPECT_EQ(script(), "tap \"Vekora Now\"\n");
    expectSameReplay();
}

TEST_F(Recordings, ATouchThatStraysFromARowMeansNothing)
{
    record();
    const auto row = middleOf("Vekora Now");
    dragTo(row, { row.x + 60, row.y }, 3);
    EXPECT_EQ(script(), "");
    expectSameReplay();
}

TEST_F(Recordings, AButtonLeftBeforeTheReleaseIsToldInSteps)
{
    record();
    tapAt(middleOf("Button Color"));
    dragTo({ 30, 40 }, { 300, 400 }, 2);
    EXPECT_EQ(script(), "tap \"Button Color\"\ndrag 30 40 300 400 2\n");
    EXPECT_EQ(depth(), 2U);
    expectSameReplay();
}

TEST_F(Recordings, DragsOnAFieldAndASliderToTheBit)
{
    record();
    tapAt(middleOf("Button Color"));
    dragTo({ 100.0 / 3, 300.1 }, { 222.2, 310.7 }, 7);
    const auto* slider = host::firstViewOfClass(window(), "UISlider");
    ASSERT_TRUE(slider);
    const auto rect = host::rectInWindow(*slider);
    const auto thumb = dynamic_cast<const UISlider*>(slider)->value() / 255 * (rect.width - 31) + 15.5;
    dragTo({ rect.x + thumb, rect.midY() }, { rect.x + rect.width / 3, rect.midY() + 5 }, 5);
    ASSERT_TRUE(
        script().starts_with("tap \"Button Color\"\ndrag 33.333333333333336 300.1 222.2 310.7 7\ndrag "))
        << script();
    ASSERT_TRUE(digest().preferences);
    expectSameReplay();
}

TEST_F(Recordings, TheEnvironmentAndFaults)
{
    record();
    phone->setScreen({ 320, 480 }, 2);
    phone->setLocale("de_DE");
    phone->setToggleInstalled(true);
    tapAt(middleOfClass("UISwitch"));
    EXPECT_EQ(script(),
        "environment size \"320x480\"\nenvironment locale \"de_DE\"\nenvironment toggle \"on\"\ntap "
        "\"Enabled\"\n");
    expectSameReplay();
}

TEST_F(Recordings, PagesThatAreMadeAnewOrAppearAgain)
{
    record();
    phone->setStatusBarLibraryInstalled(true);
    tapAt(middleOf("Button Color"));
    phone->makePagesAnew();
    phone->showPageAgain();
    phone->goBack();
    tapAt(middleOf("Vekora Now"));
    phone->showPageAgain();
    EXPECT_EQ(script(),
        "environment statusbar \"on\"\ntap \"Button Color\"\nreopen\nreappear\nback\ntap \"Vekora Now\"\n"
        "reappear\n");
    expectSameReplay();
}

TEST_F(Recordings, ChangesOfTheEnvironmentAreNoReopening)
{
    record();
    phone->setLocale("de_DE");
    phone->setScale(1);
    EXPECT_EQ(script().find("reopen"), std::string::npos) << script();
    expectSameReplay();
}

TEST_F(Recordings, APressIsInTheFileBeforeItIsFelt)
{
    record();
    press({ 187, 400 });
    EXPECT_EQ(script(), "press 187 400\n");
    move({ 187, 401 });
    EXPECT_EQ(script(), "press 187 400\nmove 187 401\n");
    release({ 187, 401 });
}

TEST_F(Recordings, ATouchThatANewPageTakesAwayDoesNothingWhenItIsReplayed)
{
    record();
    press(middleOf("Vekora Now"));
    phone->setLocale("de_DE");
    phone->settle();
    EXPECT_EQ(script(), "press 187.5 209\nenvironment locale \"de_DE\"\nrelease 187.5 209\n");
    expectSameReplay();
}

TEST_F(Recordings, TwoOfANameAreToldApart)
{
    recordTestBundle();
    // The row below is called as the group above is.
    const auto views = host::viewsShowing(window(), "Grey Switch");
    ASSERT_EQ(views.size(), 1U);
    tapAt(host::middleInWindow(*views.front()));
    expectSameReplay();
}

TEST_F(Recordings, EndWithADigestThatTheReplayPrints)
{
    record();
    tapAt(middleOf("Vekora Now"));
    finish();
    EXPECT_TRUE(script().ends_with("\ndigest\n"));
    const auto whole = wholeFile();
    const auto now = digest();
    EXPECT_NE(whole.find(*now.preferences), std::string::npos);
    EXPECT_NE(whole.find(now.tree), std::string::npos);
    EXPECT_NE(whole.find(now.picture), std::string::npos);
    tapAt(middleOf("Vekora Now"));
    EXPECT_EQ(wholeFile(), whole);
}

}

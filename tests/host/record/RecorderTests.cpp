#include "RecordTest.h"

#include "host/access/ElementTree.h"
#include "host/access/FieldText.h"
#include "host/driver/ViewSearch.h"
#include "platform/qt/TextEditor.h"
#include "platform/UIAlertView.h"
#include "platform/UISlider.h"

#include <QInputMethodEvent>

using namespace platform;

// What a person does, and the script that says it. Each script is replayed by the program as well.

namespace {

class Recordings : public RecordTest { };

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

TEST_F(Recordings, AnswersAlertsByTheirButtons)
{
    recordTestBundle();
    tapAt(middleOf("Tell Twice"));
    const auto button = middleOf("Close it");
    tapAt({ button.x + 50, button.y + 2 });
    pressKey(Qt::Key_Escape);
    EXPECT_EQ(script(), "tap \"Tell Twice\"\nanswer \"Close it\"\nkey Escape\n");
    expectSameReplay();
}

TEST_F(Recordings, TypesPastesAndSelects)
{
    record();
    tapAt(middleOfClass("UITextField"));
    typeKeys("ab");
    pressKey(Qt::Key_Backspace);
    pressKey(Qt::Key_Left, Qt::ShiftModifier);
    window().firstResponder()->editor().paste("say \"$5\"");
    pressKey(Qt::Key_Home, Qt::ShiftModifier);
    pressKey(Qt::Key_X, Qt::ControlModifier);
    pressKey(Qt::Key_Return);
    EXPECT_EQ(script().substr(script().find('\n') + 1),
        "type \"ab\"\nkey Backspace\nselect 7 6\npaste \"say \\\"\\$5\\\"\"\nselect 14 0\nkey Backspace\n"
        "key Return\n");
    expectSameReplay();
}

TEST_F(Recordings, WhatAScreenReaderSelectsAndInserts)
{
    record();
    const auto field = [&] {
        phone->settle();
        auto read = host::readScreen(window(), phone->navigation());
        for (const auto* element : host::focusableElements(read)) {
            if (element->id.role == host::ElementRole::TextField)
                return *element;
        }
        throw std::runtime_error("There is no text field.");
    };
    host::Screen screen(*phone);
    tapAt(middleOfClass("UITextField"));
    const auto begin = script();
    ASSERT_TRUE(host::selectText(field(), { 1, 3 }));
    window().firstResponder()->editor().paste("(");
    ASSERT_TRUE(host::selectText(field(), { 1, 1 }));
    ASSERT_TRUE(host::replaceText(screen, field(), { 3, 99 }, QStringLiteral("end")));
    EXPECT_EQ(
        script().substr(begin.size()), "select 1 3\ntype \"(\"\nselect 1 1\nselect 3 5\npaste \"end\"\n");
    EXPECT_EQ(field().text, "V(oend");
    expectSameReplay();
}

TEST_F(Recordings, SaysWhatOnlyHandsDo)
{
    record();
    tapAt(middleOfClass("UITextField"));
    typeKeys("one two");
    pressKey(Qt::Key_Z, Qt::ControlModifier);
    pressKey(Qt::Key_Home);
    pressKey(Qt::Key_Delete);
    const auto undone = script();
    EXPECT_NE(undone.find("edit \"Vekora\" "), std::string::npos) << undone;
    EXPECT_NE(undone.find("edit \"ekora\" 0 0\n"), std::string::npos) << undone;
    phone->endEditing();
    EXPECT_TRUE(script().ends_with("done\n"));
    expectSameReplay();
}

TEST_F(Recordings, ADoubleTapSelectsTheSameWord)
{
    record();
    const auto field = middleOfClass("UITextField");
    tapAt(field);
    typeKeys(" the second and the third");
    const auto* view = window().firstResponder();
    const auto place = host::rectInWindow(*view);
    tapAt({ place.x + 40, place.midY() });
    wait(0.1);
    press({ place.x + 43, place.midY() });
    release({ place.x + 43, place.midY() });
    EXPECT_NE(script().find("again "), std::string::npos) << script();
    EXPECT_TRUE(window().firstResponder()->editor().lineEdit->hasSelectedText());
    expectSameReplay();
    wait(2);
    press({ place.x + 43, place.midY() });
    release({ place.x + 43, place.midY() });
    EXPECT_FALSE(window().firstResponder()->editor().lineEdit->hasSelectedText());
    expectSameReplay();
}

TEST_F(Recordings, ADragScrollsAndItsGlideIsPartOfIt)
{
    recordTestBundle();
    const auto start = page().table().contentOffset().y;
    dragTo({ 150, 600 }, { 150, 430.3 }, 8, 0.1);
    glide(40);
    const auto now = page().table().contentOffset().y;
    ASSERT_GT(now, start + 160);
    EXPECT_EQ(script(), "scroll " + QString::number(now - start).toStdString() + "\n");
    glide(1000);
    EXPECT_EQ(script().find('\n'), script().size() - 1) << script();
    expectSameReplay();
}

TEST_F(Recordings, AFingerThatStopsTheGlideMeansNothingElse)
{
    recordTestBundle();
    dragTo({ 150, 600 }, { 150, 500 }, 4, 0.05);
    glide(3);
    tapAt({ 150, 300 });
    EXPECT_EQ(script().find("scroll "), 0U) << script();
    EXPECT_EQ(script().find('\n'), script().size() - 1) << script();
    expectSameReplay();
}

TEST_F(Recordings, TheWheelScrollsAndBackIsNothing)
{
    recordTestBundle();
    phone->scrollAt({ 100, 300 }, 80);
    phone->settle();
    phone->scrollAt({ 100, 300 }, 40.5);
    phone->settle();
    EXPECT_EQ(script(), "scroll 120.5\n");
    phone->scrollAt({ 100, 300 }, -500);
    phone->settle();
    EXPECT_EQ(script(), "");
    phone->scrollAt({ 100, 300 }, 1e5);
    phone->settle();
    expectSameReplay();
}

TEST_F(Recordings, ALongPageMakesTheSameRowsWhereverItIsScrolled)
{
    recordTestBundle();
    const auto long_ = page().specifierForID("Long Page");
    ASSERT_TRUE(long_);
    page().table().scrollToRowAtIndexPath(*page().indexPathForSpecifier(long_));
    phone->settle();
    tapAt(middleOf("Long Page"));
    for (const double dy : { 900.0, 2500.0, 700.0, -3000.0, 5000.0 }) {
        phone->scrollAt({ 100, 300 }, dy);
        phone->settle();
    }
    dragTo({ 150, 600 }, { 150, 100 }, 10, 0.1);
    glide(200);
    expectSameReplay();
}

TEST_F(Recordings, APageThatIsScrolledOnTheWayTakesNoNames)
{
    record();
    phone->setScreen({ 375, 400 }, 2);
    phone->settle();
    phone->scrollAt({ 100, 200 }, 70);
    // The first row in sight lies half below the bar.
    tapAt({ 100, 66 });
    tapAt({ 334, 130 });
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

TEST_F(Recordings, TextOfAnInputMethodComesBeforeTheTouchThatTakesIt)
{
    record();
    tapAt(middleOfClass("UITextField"));
    auto& editor = window().firstResponder()->editor();
    QInputMethodEvent composing("ni", {});
    editor.inputMethod(composing);
    tapAt(middleOf("Vekora Now"));
    EXPECT_TRUE(script().ends_with("paste \"ni\"\ntap \"Vekora Now\"\n")) << script();
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

#include "RecordTest.h"

#include "host/access/ElementTree.h"
#include "host/access/FieldText.h"
#include "host/driver/ViewSearch.h"
#include "platform/qt/TextEditor.h"
#include "platform/UIAlertView.h"

#include <stdexcept>

using namespace platform;

namespace {

using Recordings = RecordTest;

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

TEST_F(Recordings, TextOfAnInputMethodThatATouchTakes)
{
    record();
    tapAt(middleOfClass("UITextField"));
    compose("n");
    compose("ni");
    tapAt(middleOf("Vekora Now"));
    EXPECT_TRUE(script().ends_with("compose \"n\" 1\ncompose \"ni\" 2\ntap \"Vekora Now\"\n")) << script();
    expectSameReplay();
}

TEST_F(Recordings, TextOfAnInputMethodThatIsNotHandedOverYet)
{
    record();
    tapAt(middleOfClass("UITextField"));
    compose("ni", 1);
    EXPECT_TRUE(script().ends_with("compose \"ni\" 1\n")) << script();
    expectSameReplay();
    compose({}, 0, "你");
    EXPECT_TRUE(script().ends_with("compose \"\" 0 \"你\"\n")) << script();
    expectSameReplay();
    pressKey(Qt::Key_A, Qt::ControlModifier);
    compose("hao", 3);
    EXPECT_EQ(window().firstResponder()->editor().text(), "");
    compose("h", 1, "ao");
    expectSameReplay();
    phone->makePagesAnew();
    EXPECT_TRUE(script().ends_with("compose \"hao\" 3\ncompose \"h\" 1 \"ao\"\nreopen\n")) << script();
    expectSameReplay();
}

TEST_F(Recordings, AFieldIsScrolledByTextOfAnInputMethodAsWell)
{
    record();
    tapAt(middleOfClass("UITextField"));
    typeKeys("a text that is as long as the field is wide, or so");
    pressKey(Qt::Key_Home);
    compose("one two three four five six seven eight nine ten eleven");
    compose("one two", 0);
    compose({}, 0, "1");
    expectSameReplay();
}

}

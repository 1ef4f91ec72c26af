#include "TextEditorTest.h"

#include <utility>

using namespace platform;
using namespace platform::tests;

TEST_F(TextEditorTest, LeavesTheCaretBehindTheTextWhenATapBeginsTheEditing)
{
    field->resignFirstResponder();
    field->setText("a long enough text");
    tap({ 40, 35 });
    EXPECT_TRUE(editor.typeText("!"));
    EXPECT_EQ(field->text(), "a long enough text!");
}

TEST_F(TextEditorTest, PutsTheCaretWhereALaterTouchIs)
{
    field->setText("ab");
    press(Qt::Key_Left);
    const auto between = caretX();
    press(Qt::Key_End);
    tap({ between + 1, 35 });
    EXPECT_TRUE(editor.typeText("|"));
    EXPECT_EQ(field->text(), "a|b");
    tap({ 21, 35 });
    EXPECT_TRUE(editor.typeText("|"));
    EXPECT_EQ(field->text(), "|a|b");
    tap({ 210, 35 });
    EXPECT_TRUE(editor.typeText("|"));
    EXPECT_EQ(field->text(), "|a|b|");
}

TEST_F(TextEditorTest, SelectsByDraggingBothWays)
{
    field->setText("abcd");
    press(Qt::Key_Left);
    const auto beforeLast = caretX();
    drag({ beforeLast, 35 }, { 5, 60 }, 4);
    EXPECT_TRUE(editor.typeText("x"));
    EXPECT_EQ(field->text(), "xd");
    drag({ 21, 35 }, { 310, 35 }, 4);
    EXPECT_TRUE(editor.typeText("y"));
    EXPECT_EQ(field->text(), "y");
}

TEST_F(TextEditorTest, SelectsAWordByADoubleClick)
{
    field->setText("one two three");
    for (int count = 0; count < 7; ++count)
        press(Qt::Key_Left);
    const auto inTwo = caretX();
    const auto click = [&](double time) {
        window->touchBegan({ inTwo, 35 }, time);
        window->touchEnded({ inTwo, 35 }, time + 0.05);
    };
    click(10);
    click(10.2);
    EXPECT_TRUE(editor.typeText("2"));
    EXPECT_EQ(field->text(), "one 2 three");
}

TEST_F(TextEditorTest, TakesSlowOrUntimedTapsForSingleOnes)
{
    field->setText("one");
    for (const auto& times : { std::pair(10.0, 11.0), std::pair(0.0, 0.0) }) {
        for (const auto time : { times.first, times.second }) {
            window->touchBegan({ 200, 35 }, time);
            window->touchEnded({ 200, 35 }, time);
        }
        EXPECT_TRUE(editor.typeText("x"));
    }
    EXPECT_EQ(field->text(), "onexx");
}

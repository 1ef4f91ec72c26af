#include "TextEditorTest.h"

using namespace platform;
using namespace platform::tests;

TEST_F(TextEditorTest, TypesAtTheCaretAndTellsOfEachCharacter)
{
    EXPECT_TRUE(editor.typeText("Wecker ä😀"));
    EXPECT_EQ(field->text(), "Wecker ä😀");
    EXPECT_EQ(log->count("edited"), 9);
}

TEST_F(TextEditorTest, SelectsBetweenPlaces)
{
    editor.typeText("abcd");
    log->actions.clear();
    EXPECT_TRUE(editor.select(3, 1));
    EXPECT_EQ(editor.lineEdit->selectedText(), "bc");
    EXPECT_EQ(editor.lineEdit->cursorPosition(), 1);
    EXPECT_TRUE(editor.select(99, 99));
    EXPECT_FALSE(editor.lineEdit->hasSelectedText());
    EXPECT_EQ(editor.lineEdit->cursorPosition(), 4);
    EXPECT_EQ(log->count("edited"), 0);
}

TEST_F(TextEditorTest, ReplacesTextAndSelectionInOneStep)
{
    editor.typeText("abcd");
    log->actions.clear();
    EXPECT_TRUE(editor.replace("x\nyz", 1, 3));
    EXPECT_EQ(field->text(), "x yz");
    EXPECT_EQ(editor.lineEdit->selectedText(), " y");
    EXPECT_EQ(editor.lineEdit->cursorPosition(), 3);
    EXPECT_EQ(log->count("edited"), 1);
}

TEST_F(TextEditorTest, TakesKeysFromItsWindow)
{
    EXPECT_TRUE(press("a"));
    EXPECT_TRUE(press("€"));
    EXPECT_TRUE(press(" "));
    EXPECT_EQ(field->text(), "a€ ");
    EXPECT_EQ(log->count("edited"), 3);
}

TEST_F(TextEditorTest, TakesNothingWhileItsFieldHasNoKeys)
{
    field->resignFirstResponder();
    log->actions.clear();
    QKeyEvent event(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
    EXPECT_FALSE(editor.typeText("a"));
    EXPECT_FALSE(editor.keyPress(event));
    EXPECT_FALSE(editor.paste("a"));
    EXPECT_FALSE(editor.clear());
    EXPECT_FALSE(editor.key("Backspace"));
    EXPECT_FALSE(commit("a"));
    EXPECT_FALSE(press("a"));
    EXPECT_EQ(field->text(), "");
    EXPECT_TRUE(log->actions.empty());
}

TEST_F(TextEditorTest, TypesAllOrNothingOfATextThatTheKeyboardLacks)
{
    field->setKeyboardType(UIKeyboardType::NumberPad);
    EXPECT_FALSE(editor.typeText("12a"));
    EXPECT_FALSE(editor.typeText("-1"));
    EXPECT_FALSE(editor.typeText("\xFF"));
    EXPECT_EQ(field->text(), "");
    EXPECT_TRUE(log->actions.empty());
    EXPECT_TRUE(editor.typeText("12"));
    EXPECT_EQ(field->text(), "12");
}

TEST_F(TextEditorTest, RefusesKeysThatTheKeyboardLacks)
{
    field->setKeyboardType(UIKeyboardType::NumberPad);
    EXPECT_FALSE(press("a"));
    EXPECT_FALSE(press("-"));
    EXPECT_FALSE(press(" "));
    EXPECT_TRUE(press("7"));
    EXPECT_EQ(field->text(), "7");
}

TEST_F(TextEditorTest, CommitsOfAnInputMethodCountAsTyped)
{
    EXPECT_TRUE(commit("漢字"));
    EXPECT_EQ(field->text(), "漢字");
    EXPECT_EQ(log->count("edited"), 1);
    field->setText("");
    field->setKeyboardType(UIKeyboardType::NumberPad);
    EXPECT_FALSE(commit("漢"));
    EXPECT_FALSE(commit("1a"));
    EXPECT_TRUE(commit("12"));
    EXPECT_EQ(field->text(), "12");
}

TEST_F(TextEditorTest, ShowsACompositionWithoutTakingItForText)
{
    EXPECT_TRUE(editor.typeText("ab"));
    const auto before = editor.caretRect();
    compose("kan");
    EXPECT_EQ(field->text(), "ab");
    EXPECT_GT(editor.caretRect().x, before.x);
    EXPECT_EQ(log->count("edited"), 2);
    EXPECT_TRUE(commit("漢"));
    EXPECT_EQ(field->text(), "ab漢");
    EXPECT_EQ(log->count("edited"), 3);
}

TEST_F(TextEditorTest, CommitsACompositionWhenTheEditingEnds)
{
    compose("kan");
    field->resignFirstResponder();
    EXPECT_EQ(field->text(), "kan");
    EXPECT_EQ(log->actions, (std::vector<std::string> { "edited", "editingEnded" }));
}

TEST_F(TextEditorTest, AnswersInputMethodsInTheFieldsPoints)
{
    EXPECT_TRUE(editor.typeText("abc"));
    EXPECT_TRUE(editor.inputMethodQuery(Qt::ImEnabled).toBool());
    EXPECT_EQ(editor.inputMethodQuery(Qt::ImSurroundingText).toString(), QStringLiteral("abc"));
    EXPECT_EQ(editor.inputMethodQuery(Qt::ImCursorPosition).toInt(), 3);
    const auto rect = editor.inputMethodQuery(Qt::ImCursorRectangle).toRectF();
    EXPECT_EQ(rect.x(), editor.caretRect().x);
    EXPECT_GT(rect.x(), 15);
    EXPECT_LT(rect.x(), 40);
    field->setKeyboardType(UIKeyboardType::NumberPad);
    EXPECT_TRUE(editor.inputMethodQuery(Qt::ImHints).toInt() & Qt::ImhDigitsOnly);
    field->resignFirstResponder();
    EXPECT_FALSE(editor.inputMethodQuery(Qt::ImEnabled).toBool());
}

TEST_F(TextEditorTest, KeepsALongerTextThatTheProgramHasSet)
{
    const std::string text(UITextField::Editor::maximumLength + 10, 'x');
    field->resignFirstResponder();
    field->setText(text);
    field->becomeFirstResponder();
    EXPECT_TRUE(editor.key("Backspace"));
    EXPECT_EQ(field->text().size(), text.size() - 1);
}

TEST_F(TextEditorTest, MovesDeletesAndUndoes)
{
    EXPECT_TRUE(editor.typeText("one two"));
    EXPECT_TRUE(press(Qt::Key_Home));
    EXPECT_TRUE(press("x"));
    EXPECT_EQ(field->text(), "xone two");
    EXPECT_TRUE(press(Qt::Key_End));
    EXPECT_TRUE(editor.key("Backspace"));
    EXPECT_EQ(field->text(), "xone tw");
    EXPECT_TRUE(press(Qt::Key_Left, Qt::ControlModifier));
    EXPECT_TRUE(press(Qt::Key_Delete));
    EXPECT_EQ(field->text(), "xone w");
    EXPECT_TRUE(press(Qt::Key_Z, Qt::ControlModifier));
    EXPECT_EQ(field->text(), "xone tw");
    EXPECT_TRUE(press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier));
    EXPECT_EQ(field->text(), "xone w");
}

TEST_F(TextEditorTest, ReplacesTheSelectionByWhatIsTyped)
{
    EXPECT_TRUE(editor.typeText("one two"));
    EXPECT_TRUE(press(Qt::Key_Home, Qt::ShiftModifier));
    EXPECT_TRUE(press("z"));
    EXPECT_EQ(field->text(), "z");
}

TEST_F(TextEditorTest, DeletesAWholeCharacterAtOnce)
{
    EXPECT_TRUE(editor.paste("a😀"));
    EXPECT_TRUE(editor.key("Backspace"));
    EXPECT_EQ(field->text(), "a");
}

TEST_F(TextEditorTest, TypesNothingForShortcutsItDoesNotKnow)
{
    press(Qt::Key_Q, Qt::ControlModifier, QStringLiteral("\x11"));
    press(Qt::Key_F5);
    press(Qt::Key_Shift, Qt::ShiftModifier);
    EXPECT_EQ(field->text(), "");
    EXPECT_TRUE(log->actions.empty());
}

TEST_F(TextEditorTest, EndsTheEditingWithReturn)
{
    EXPECT_TRUE(editor.typeText("abc"));
    log->actions.clear();
    EXPECT_TRUE(editor.key("Return"));
    EXPECT_FALSE(field->isFirstResponder());
    EXPECT_EQ(field->text(), "abc");
    EXPECT_EQ(log->actions, (std::vector<std::string> { "editingEnded" }));
}

TEST_F(TextEditorTest, EndsTheEditingWithEnterOfTheKeypad)
{
    EXPECT_TRUE(press(Qt::Key_Enter, Qt::KeypadModifier, QStringLiteral("\r")));
    EXPECT_FALSE(field->isFirstResponder());
}

TEST_F(TextEditorTest, HasNoReturnOnItsPads)
{
    for (const auto pad :
        { UIKeyboardType::NumberPad, UIKeyboardType::PhonePad, UIKeyboardType::DecimalPad }) {
        field->setKeyboardType(pad);
        EXPECT_FALSE(editor.key("Return"));
        EXPECT_TRUE(field->isFirstResponder());
    }
}

TEST_F(TextEditorTest, LeavesOtherNamedKeysToOthers)
{
    EXPECT_TRUE(editor.typeText("abc"));
    EXPECT_FALSE(editor.key("Tab"));
    EXPECT_FALSE(editor.key("Escape"));
    EXPECT_FALSE(editor.key("Hyper"));
    EXPECT_EQ(field->text(), "abc");
    EXPECT_TRUE(field->isFirstResponder());
}

TEST_F(TextEditorTest, ClearsItsText)
{
    field->setText("abc");
    EXPECT_TRUE(editor.clear());
    EXPECT_EQ(field->text(), "");
    EXPECT_TRUE(editor.clear());
    EXPECT_EQ(log->count("edited"), 1);
}

TEST_F(TextEditorTest, GoesOnBehindAPresetText)
{
    field->setText("-");
    field->setKeyboardType(UIKeyboardType::NumberPad);
    EXPECT_TRUE(editor.typeText("10"));
    EXPECT_EQ(field->text(), "-10");
}

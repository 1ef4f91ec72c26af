#include "TextEditorTest.h"

#include <QClipboard>
#include <QGuiApplication>

using namespace platform;
using namespace platform::tests;

TEST_F(TextEditorTest, PastesWhatTheKeyboardLacks)
{
    field->setKeyboardType(UIKeyboardType::NumberPad);
    EXPECT_TRUE(editor.paste("-1.5 °"));
    EXPECT_EQ(field->text(), "-1.5 °");
    EXPECT_EQ(log->count("edited"), 1);
}

TEST_F(TextEditorTest, PastesFromTheClipboardByKey)
{
    field->setKeyboardType(UIKeyboardType::NumberPad);
    QGuiApplication::clipboard()->setText(QStringLiteral("#FF8800"));
    EXPECT_TRUE(press(Qt::Key_V, Qt::ControlModifier, QStringLiteral("\x16")));
    EXPECT_TRUE(press(Qt::Key_Insert, Qt::ShiftModifier));
    EXPECT_EQ(field->text(), "#FF8800#FF8800");
}

TEST_F(TextEditorTest, PastesOverTheSelection)
{
    field->setText("one two");
    EXPECT_TRUE(press(Qt::Key_A, Qt::ControlModifier));
    EXPECT_TRUE(editor.paste("three"));
    EXPECT_EQ(field->text(), "three");
}

TEST_F(TextEditorTest, CopiesAndCutsTheSelection)
{
    field->setText("one two");
    EXPECT_TRUE(press(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier));
    EXPECT_TRUE(press(Qt::Key_C, Qt::ControlModifier));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("two"));
    EXPECT_TRUE(press(Qt::Key_A, Qt::ControlModifier));
    EXPECT_TRUE(press(Qt::Key_X, Qt::ControlModifier));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("one two"));
    EXPECT_EQ(field->text(), "");
    EXPECT_EQ(log->count("edited"), 1);
}

TEST_F(TextEditorTest, GivesNoSecretToTheClipboard)
{
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    field->setSecureTextEntry(true);
    field->setText("secret");
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
}

TEST_F(TextEditorTest, PastesLineBreaksAndControlCharactersAsBlanks)
{
    EXPECT_TRUE(editor.paste(std::string("a\r\nb\nc\rd\te\0f\x7F", 13) + "\u2028g\u2029"));
    EXPECT_EQ(field->text(), "a b c d e f  g ");
}

TEST_F(TextEditorTest, PastesBrokenTextHarmlessly)
{
    EXPECT_TRUE(editor.paste("a\xED\xA0\x80\xFFz"));
    const auto text = field->text();
    EXPECT_EQ(text.front(), 'a');
    EXPECT_EQ(text.back(), 'z');
    EXPECT_TRUE(QString::fromStdString(text).isValidUtf16());
}

TEST_F(TextEditorTest, CutsOffAPastedTextThatIsTooLong)
{
    EXPECT_TRUE(editor.paste(std::string(1 << 20, 'x')));
    EXPECT_EQ(field->text(), std::string(UITextField::Editor::maximumLength, 'x'));
    window->display();
    EXPECT_TRUE(editor.paste("y"));
    EXPECT_EQ(field->text().size(), static_cast<std::size_t>(UITextField::Editor::maximumLength));
    EXPECT_TRUE(editor.clear());
    EXPECT_EQ(field->text(), "");
}

TEST_F(TextEditorTest, NeverCutsACharacterInTwo)
{
    std::string smiles = "x";
    for (int count = 0; count < UITextField::Editor::maximumLength / 2; ++count)
        smiles += "😀";
    EXPECT_TRUE(editor.paste(smiles));
    EXPECT_EQ(field->text(), smiles.substr(0, smiles.size() - 4));
}

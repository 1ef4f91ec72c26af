#include "ControlTestSupport.h"
#include "platform/qt/TextEditor.h"
#include "platform/Style.h"
#include "platform/UILabel.h"

#include <QKeyEvent>

#include <cmath>

using namespace platform;

namespace {

class TextEditorDrawingTest : public ControlTest {
protected:
    Ref<UITextField> field = add(std::make_shared<UITextField>(), { 20, 20, 200, 30 });
    UITextField::Editor& editor = field->editor();

    /// The field's part of the picture.
    std::vector<std::uint32_t> picture()
    {
        window->display();
        const auto scale = window->scale();
        std::vector<std::uint32_t> pixels;
        for (int y = 0; y < static_cast<int>(30 * scale); ++y)
            for (int x = 0; x < static_cast<int>(200 * scale); ++x)
                pixels.push_back(
                    window->picture().at(static_cast<int>(20 * scale) + x, static_cast<int>(20 * scale) + y));
        return pixels;
    }

    struct Columns {
        int first = -1;
        int last = -1;
    };
    /// Which columns of the field hold anything but the window's white, in pixels.
    Columns inkedColumns()
    {
        const auto pixels = picture();
        const auto width = static_cast<int>(200 * window->scale());
        Columns columns;
        for (std::size_t index = 0; index < pixels.size(); ++index) {
            if (pixels[index] == 0xFFFFFFFF)
                continue;
            const auto x = static_cast<int>(index) % width;
            columns.first = columns.first < 0 ? x : std::min(columns.first, x);
            columns.last = std::max(columns.last, x);
        }
        return columns;
    }
    std::uint32_t pixelInField(CGFloat x, CGFloat y) { return pixelAt({ 20 + x, 20 + y }); }
    void key(int name, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QKeyEvent event(QEvent::KeyPress, name, modifiers);
        editor.keyPress(event);
    }
};

TEST_F(TextEditorDrawingTest, ShowsNothingWhileEmpty)
{
    for (const auto pixel : picture())
        ASSERT_EQ(pixel, 0xFFFFFFFF);
}

TEST_F(TextEditorDrawingTest, ShowsItsTextAsALabelDoesAtEveryScale)
{
    for (const double scale : { 1, 2, 3 }) {
        for (const auto alignment :
            { NSTextAlignment::Left, NSTextAlignment::Center, NSTextAlignment::Right }) {
            setScreen({ 320, 480 }, scale);
            field->setText("Vekora gjÄ 128");
            field->setTextAlignment(alignment);
            const auto shown = picture();

            field->setHidden(true);
            const auto label = add(std::make_shared<UILabel>(), { 20, 20, 200, 30 });
            label->setText(field->text());
            label->setTextAlignment(alignment);
            EXPECT_EQ(shown, picture()) << scale;
            label->removeFromSuperview();
            field->setHidden(false);
        }
    }
}

TEST_F(TextEditorDrawingTest, DoesNotMoveItsTextWhenTheEditingBegins)
{
    for (const double scale : { 1, 2, 3 }) {
        setScreen({ 320, 480 }, scale);
        for (const auto alignment :
            { NSTextAlignment::Left, NSTextAlignment::Center, NSTextAlignment::Right }) {
            field->setTextAlignment(alignment);
            field->setText("Vekora");
            const auto idle = picture();
            field->becomeFirstResponder();
            key(Qt::Key_Home);
            const auto editing = picture();
            field->resignFirstResponder();

            int changed = 0;
            for (std::size_t index = 0; index < idle.size(); ++index)
                changed += idle[index] != editing[index];
            EXPECT_GT(changed, 0) << "There is a caret.";
            EXPECT_LE(changed, std::ceil(2 * scale) * std::ceil(24 * scale)) << "There is more than a caret.";
        }
    }
}

TEST_F(TextEditorDrawingTest, ShowsASteadyCaretWhileItHasTheKeys)
{
    field->becomeFirstResponder();
    EXPECT_EQ(pixelInField(1, 15), pixelOf(style::tint()));
    EXPECT_TRUE(window->display().empty()) << "Nothing is left to do.";
    field->resignFirstResponder();
    EXPECT_EQ(pixelInField(1, 15), 0xFFFFFFFF);
}

TEST_F(TextEditorDrawingTest, ShowsItsCaretWholeAtEitherEnd)
{
    for (const auto alignment : { NSTextAlignment::Left, NSTextAlignment::Right }) {
        field->setTextAlignment(alignment);
        field->becomeFirstResponder();
        const auto caret = editor.caretRect();
        EXPECT_GE(caret.x, 0);
        EXPECT_LE(caret.maxX(), 200);
        EXPECT_GE(caret.y, 0);
        EXPECT_LE(caret.maxY(), 30);
        field->resignFirstResponder();
    }
}

TEST_F(TextEditorDrawingTest, ShowsThePlaceholderOnlyWhileEmpty)
{
    field->setPlaceholder("Name");
    const auto placeholder = picture();
    EXPECT_NE(placeholder, std::vector<std::uint32_t>(placeholder.size(), 0xFFFFFFFF));
    field->becomeFirstResponder();
    EXPECT_GT(inkedColumns().last, 40);
    EXPECT_TRUE(editor.typeText("."));
    EXPECT_LT(inkedColumns().last, 20);
    EXPECT_TRUE(editor.key("Backspace"));
    field->resignFirstResponder();
    EXPECT_EQ(picture(), placeholder);
}

TEST_F(TextEditorDrawingTest, ShowsSecretsAsDots)
{
    field->setSecureTextEntry(true);
    field->setText("iii");
    const auto narrow = picture();
    field->setText("WMW");
    EXPECT_EQ(picture(), narrow);
    field->becomeFirstResponder();
    EXPECT_TRUE(editor.typeText("x"));
    EXPECT_EQ(field->text(), "WMWx");
    field->setSecureTextEntry(false);
    field->resignFirstResponder();
    EXPECT_NE(picture(), narrow);
}

TEST_F(TextEditorDrawingTest, ShowsTheSelectionBehindItsText)
{
    field->setText("llll");
    field->becomeFirstResponder();
    const auto end = editor.caretRect().x;
    key(Qt::Key_A, Qt::ControlModifier);
    window->display();
    int tinted = 0;
    for (double x = 0.25; x < end; x += 0.5) {
        const auto pixel = pixelInField(x, 15);
        tinted += (pixel & 255) > (pixel >> 16 & 255);
    }
    EXPECT_GT(tinted, 0);
    EXPECT_EQ(pixelInField(end + 3, 15), 0xFFFFFFFF);
    key(Qt::Key_Right);
    EXPECT_EQ(pixelInField(end / 2, 6), 0xFFFFFFFF);
}

TEST_F(TextEditorDrawingTest, ScrollsALongTextToItsCaret)
{
    field->becomeFirstResponder();
    for (int count = 0; count < 20; ++count) {
        EXPECT_TRUE(editor.typeText("wide "));
        EXPECT_LE(editor.caretRect().maxX(), 200);
        EXPECT_GE(editor.caretRect().x, 0);
    }
    EXPECT_GT(editor.caretRect().x, 190);
    key(Qt::Key_Home);
    EXPECT_EQ(editor.caretRect().x, 0);
    const auto home = picture();
    key(Qt::Key_End);
    EXPECT_NE(picture(), home);
    field->setText("short");
    EXPECT_LT(editor.caretRect().x, 60);
    EXPECT_EQ(editor.caretRect().maxX(), (inkedColumns().last + 1) / 2.0);
}

TEST_F(TextEditorDrawingTest, ShowsLineBreaksAsBlanks)
{
    field->setText("a\nb");
    const auto broken = picture();
    field->setText("a b");
    EXPECT_EQ(picture(), broken);
}

TEST_F(TextEditorDrawingTest, EndsATextThatIsTooLongInAnEllipsisWhileIdle)
{
    field->setText("a text that is by far too long for so short a field");
    EXPECT_LT(inkedColumns().last, 400);
    const auto idle = picture();
    field->becomeFirstResponder();
    EXPECT_NE(picture(), idle);
    field->resignFirstResponder();
    EXPECT_EQ(picture(), idle);
}

TEST_F(TextEditorDrawingTest, DrawsLongTextsOfTheProgram)
{
    field->setText(std::string(1 << 18, 'x'));
    EXPECT_GT(inkedColumns().last, 300);
}

TEST_F(TextEditorDrawingTest, IsDimmedWhileDisabled)
{
    field->setText("Vekora");
    const auto plain = picture();
    field->setEnabled(false);
    const auto dimmed = picture();
    unsigned darkest = 255;
    for (const auto pixel : dimmed)
        darkest = std::min(darkest, pixel & 255);
    EXPECT_NE(plain, dimmed);
    EXPECT_GT(darkest, 110U);
}

TEST_F(TextEditorDrawingTest, StandsHavingNoRoom)
{
    for (const auto size : { CGSize { 0, 0 }, CGSize { 1, 1 }, CGSize { 2, 30 }, CGSize { 200, 3 } }) {
        field->setFrame({ 20, 20, size.width, size.height });
        field->setText("Vekora");
        field->becomeFirstResponder();
        EXPECT_TRUE(editor.typeText("x"));
        key(Qt::Key_A, Qt::ControlModifier);
        window->display();
        drag({ 20, 20 }, { 60, 20 }, 3);
        field->resignFirstResponder();
        EXPECT_EQ(field->text(), "Vekorax");
    }
}

}

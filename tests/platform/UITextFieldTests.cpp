#include "ControlTestSupport.h"
#include "platform/qt/TextEditor.h"
#include "platform/UITextField.h"

using namespace platform;

namespace {

class UITextFieldTest : public ControlTest {
protected:
    Ref<UITextField> field = add(std::make_shared<UITextField>(), { 20, 20, 200, 30 });
    Ref<UITextField> other = add(std::make_shared<UITextField>(), { 20, 80, 200, 30 });
    UITextFieldTest() { log->listenTo(*field); }
};

TEST_F(UITextFieldTest, IsEmptyAtFirst)
{
    EXPECT_EQ(field->text(), "");
    EXPECT_EQ(field->placeholder(), "");
    EXPECT_EQ(field->keyboardType(), UIKeyboardType::Default);
    EXPECT_FALSE(field->isSecureTextEntry());
    EXPECT_FALSE(field->isFirstResponder());
    EXPECT_EQ(window->firstResponder(), nullptr);
}

TEST_F(UITextFieldTest, GivesBackTheTextThatWasSet)
{
    for (const std::string text : { "", "Vekora", "ä€😀", "two\nlines\tand\ra tab", "مرحبا" }) {
        field->setText(text);
        EXPECT_EQ(field->text(), text);
        field->becomeFirstResponder();
        EXPECT_EQ(field->text(), text);
        field->setText("");
        field->setText(text);
        EXPECT_EQ(field->text(), text);
        field->resignFirstResponder();
        EXPECT_EQ(field->text(), text);
    }
    EXPECT_EQ(log->count("edited"), 0);
}

TEST_F(UITextFieldTest, StandsBytesThatAreNoText)
{
    for (const auto& bytes : { std::string("a\xFF\xFE"), std::string("\xC3"), std::string("\xED\xA0\x80"),
             std::string("a\0b", 3), std::string("\xF8\x88\x80\x80\x80") }) {
        field->setText(bytes);
        const auto read = field->text();
        field->setText(read);
        EXPECT_EQ(field->text(), read) << "What is read is text.";
        tap(*field);
        EXPECT_EQ(field->text(), read);
        field->resignFirstResponder();
        window->display();
    }
}

TEST_F(UITextFieldTest, BeginsAndEndsTheEditingOnce)
{
    field->becomeFirstResponder();
    field->becomeFirstResponder();
    EXPECT_TRUE(field->isFirstResponder());
    EXPECT_EQ(window->firstResponder(), field.get());
    field->resignFirstResponder();
    field->resignFirstResponder();
    EXPECT_FALSE(field->isFirstResponder());
    EXPECT_EQ(window->firstResponder(), nullptr);
    EXPECT_EQ(log->actions, (std::vector<std::string> { "editingBegan", "editingEnded" }));
}

TEST_F(UITextFieldTest, IsTheOnlyFirstResponderOfItsWindow)
{
    field->becomeFirstResponder();
    other->becomeFirstResponder();
    EXPECT_FALSE(field->isFirstResponder());
    EXPECT_TRUE(other->isFirstResponder());
    EXPECT_EQ(window->firstResponder(), other.get());
    EXPECT_EQ(log->actions, (std::vector<std::string> { "editingBegan", "editingEnded" }));
}

TEST_F(UITextFieldTest, ResignsBeforeTheNextOneBegins)
{
    log->listenTo(*other);
    field->becomeFirstResponder();
    other->becomeFirstResponder();
    EXPECT_EQ(log->actions, (std::vector<std::string> { "editingBegan", "editingEnded", "editingBegan" }));
}

TEST_F(UITextFieldTest, BeginsTheEditingWhenTapped)
{
    tap(*field);
    EXPECT_TRUE(field->isFirstResponder());
    tap(*other);
    EXPECT_FALSE(field->isFirstResponder());
    EXPECT_TRUE(other->isFirstResponder());
}

TEST_F(UITextFieldTest, TakesNoKeysOutsideAWindow)
{
    const auto loose = std::make_shared<UITextField>();
    loose->becomeFirstResponder();
    EXPECT_FALSE(loose->isFirstResponder());
}

TEST_F(UITextFieldTest, TakesNoKeysWhileDisabled)
{
    field->setEnabled(false);
    tap(*field);
    field->becomeFirstResponder();
    EXPECT_FALSE(field->isFirstResponder());
    EXPECT_TRUE(log->actions.empty());
}

TEST_F(UITextFieldTest, EndsTheEditingWhenDisabled)
{
    field->becomeFirstResponder();
    field->setEnabled(false);
    EXPECT_FALSE(field->isFirstResponder());
    EXPECT_EQ(window->firstResponder(), nullptr);
    EXPECT_EQ(log->count("editingEnded"), 1);
}

TEST_F(UITextFieldTest, EndsTheEditingWhenItLeavesItsWindow)
{
    field->becomeFirstResponder();
    ASSERT_TRUE(field->editor().typeText("abc"));
    field->removeFromSuperview();
    EXPECT_FALSE(field->isFirstResponder());
    EXPECT_EQ(window->firstResponder(), nullptr);
    EXPECT_EQ(field->text(), "abc");
    EXPECT_EQ(log->count("editingEnded"), 1);
}

TEST_F(UITextFieldTest, EndsTheEditingWhenAViewAroundItLeaves)
{
    const auto around = add(std::make_shared<UIView>(), { 0, 0, 320, 200 });
    around->addSubview(field);
    field->becomeFirstResponder();
    around->removeFromSuperview();
    EXPECT_FALSE(field->isFirstResponder());
    EXPECT_EQ(window->firstResponder(), nullptr);
}

TEST_F(UITextFieldTest, StandsItsWindowGoing)
{
    field->becomeFirstResponder();
    window = nullptr;
    EXPECT_FALSE(field->isFirstResponder());
    EXPECT_EQ(field->window(), nullptr);
}

TEST_F(UITextFieldTest, LeavesItsWindowWithoutKeysWhenItGoes)
{
    auto gone = add(std::make_shared<UITextField>(), { 20, 120, 200, 30 });
    gone->becomeFirstResponder();
    gone->removeFromSuperview();
    gone = nullptr;
    EXPECT_EQ(window->firstResponder(), nullptr);
    field->becomeFirstResponder();
    EXPECT_TRUE(field->isFirstResponder());
}

TEST_F(UITextFieldTest, StandsBeingTakenAwayByWhoeverIsToldOfAnEdit)
{
    field->becomeFirstResponder();
    log->onAction = [this] {
        if (field) {
            field->removeFromSuperview();
            field = nullptr;
        }
    };
    auto& editor = field->editor();
    EXPECT_FALSE(editor.typeText("ab")) << "The second character finds nobody.";
    EXPECT_EQ(log->actions, (std::vector<std::string> { "editingBegan", "edited", "editingEnded" }));
    EXPECT_EQ(window->firstResponder(), nullptr);
}

TEST_F(UITextFieldTest, EndsOnceWhenWhoeverIsToldOfTheEndCallsUponAnother)
{
    field->becomeFirstResponder();
    log->onAction = [this] {
        if (log->actions.back() == "editingEnded")
            other->becomeFirstResponder();
    };
    const auto third = add(std::make_shared<UITextField>(), { 20, 120, 200, 30 });
    third->becomeFirstResponder();
    EXPECT_EQ(log->count("editingEnded"), 1);
    EXPECT_EQ(other->isFirstResponder() + third->isFirstResponder(), 1);
    EXPECT_TRUE(window->firstResponder()->isFirstResponder());
}

TEST_F(UITextFieldTest, KeepsItsTextWhenItsLooksChange)
{
    field->setText("Vekora");
    field->becomeFirstResponder();
    field->setFont(UIFont::systemFontOfSize(12));
    field->setTextColor(UIColor::redColor());
    field->setTextAlignment(NSTextAlignment::Right);
    field->setSecureTextEntry(true);
    field->setKeyboardType(UIKeyboardType::NumberPad);
    EXPECT_EQ(field->text(), "Vekora");
    EXPECT_EQ(field->textColor(), UIColor::redColor());
    EXPECT_EQ(field->textAlignment(), NSTextAlignment::Right);
    EXPECT_EQ(field->keyboardType(), UIKeyboardType::NumberPad);
    EXPECT_TRUE(field->isSecureTextEntry());
    EXPECT_TRUE(field->isFirstResponder());
}

struct KeyboardCase {
    UIKeyboardType keyboard;
    std::u32string has;
    std::u32string lacks;
};

class KeyboardTest : public testing::TestWithParam<KeyboardCase> { };

TEST_P(KeyboardTest, HasItsCharactersOnly)
{
    for (const auto character : GetParam().has)
        EXPECT_TRUE(keyboardHasCharacter(GetParam().keyboard, character)) << std::hex << unsigned(character);
    for (const auto character : GetParam().lacks)
        EXPECT_FALSE(keyboardHasCharacter(GetParam().keyboard, character)) << std::hex << unsigned(character);
}

const std::u32string controls { U'\0', U'\n', U'\r', U'\t', U'\b', 0x1B, 0x7F, 0x85, 0x2028, 0x2029, 0xD800,
    0xDFFF, 0x110000 };

INSTANTIATE_TEST_SUITE_P(Every, KeyboardTest,
    testing::Values(KeyboardCase { UIKeyboardType::Default, U"azAZ09 #-.,ßé€漢😀ع\u200D", controls },
        KeyboardCase { UIKeyboardType::ASCIICapable, U"azAZ09 #-.,~", controls + U"ßé€漢😀" },
        KeyboardCase { UIKeyboardType::NumbersAndPunctuation, U"0123456789-.,#aZé", controls },
        KeyboardCase { UIKeyboardType::URL, U"azAZ09-._/:%#", controls + U" é" },
        KeyboardCase { UIKeyboardType::NumberPad, U"0123456789", controls + U"-+.,aF# ٣１" },
        KeyboardCase { UIKeyboardType::PhonePad, U"0123456789+*#,;", controls + U"-.a " },
        KeyboardCase { UIKeyboardType::DecimalPad, U"0123456789.", controls + U",-a " }));

TEST(Keyboard, HasTheDecimalSeparatorOfItsLanguage)
{
    const auto before = Device::current();
    Device::current().locale = "de_DE";
    EXPECT_TRUE(keyboardHasCharacter(UIKeyboardType::DecimalPad, ','));
    EXPECT_FALSE(keyboardHasCharacter(UIKeyboardType::DecimalPad, '.'));
    Device::current() = before;
}

}

#include "UIAlertViewTest.h"

using namespace platform;
using namespace platform::tests;

TEST_F(UIAlertViewTest, TellsItsDelegateWhichButtonWasTapped)
{
    makeAlert()->show();
    tapText("Save");
    makeAlert()->show();
    tapText("Cancel");
    EXPECT_EQ(delegate->answers, (std::vector<long> { 1, 0 }));
    EXPECT_EQ(UIAlertView::topmost(), nullptr);
}

TEST_F(UIAlertViewTest, IsThereWithItsTextWhileTheDelegateIsTold)
{
    std::string text;
    bool visible = false;
    delegate->onAnswer = [&](UIAlertView& alert) {
        text = alert.textFieldAtIndex(0)->text();
        visible = alert.isVisible();
    };
    const auto alert = showWithField();
    EXPECT_TRUE(alert->textFieldAtIndex(0)->editor().typeText("128"));
    tapText("Save");
    EXPECT_EQ(text, "128");
    EXPECT_TRUE(visible);
    EXPECT_FALSE(alert->isVisible());
}

TEST_F(UIAlertViewTest, LetsItsDelegateShowTheNextOne)
{
    Ref<UIAlertView> next;
    delegate->onAnswer = [&](UIAlertView&) {
        if (!next)
            (next = showWithField());
    };
    const auto first = makeAlert();
    first->show();
    tapText("Save");
    EXPECT_FALSE(first->isVisible());
    EXPECT_EQ(UIAlertView::topmost(), next.get());
    EXPECT_FALSE(next->isHidden());
    EXPECT_EQ(window->firstResponder(), next->textFieldAtIndex(0));
    tapText("Save");
    EXPECT_EQ(UIAlertView::topmost(), nullptr);
    EXPECT_EQ(window->firstResponder(), nullptr);
}

TEST_F(UIAlertViewTest, StandsItsDelegateGoingInTheAnswer)
{
    delegate->onAnswer = [this](UIAlertView&) { const auto gone = std::move(delegate); };
    makeAlert()->show();
    tapText("Save");
    EXPECT_EQ(UIAlertView::topmost(), nullptr);
}

TEST_F(UIAlertViewTest, StandsItsDelegateGoingBeforeTheAnswer)
{
    const auto shown = makeAlert();
    shown->show();
    const auto waiting = makeAlert();
    delegate = nullptr;
    tapText("Save");
    EXPECT_FALSE(shown->isVisible());
    waiting->show();
    tapText("Save");
    EXPECT_FALSE(waiting->isVisible());
}

TEST_F(UIAlertViewTest, StandsItsPageGoingInTheAnswer)
{
    const auto page = add(std::make_shared<UIView>(), { 0, 0, 320, 480 });
    page->addSubview(std::make_shared<UITextField>());
    delegate->onAnswer = [&](UIAlertView&) { page->removeFromSuperview(); };
    showWithField();
    tapText("Save");
    EXPECT_TRUE(window->subviews().empty());
}

TEST_F(UIAlertViewTest, StandsItsWindowGoingInTheAnswer)
{
    delegate->onAnswer = [this](UIAlertView&) { window = nullptr; };
    const auto alert = showWithField();
    alert->pressDefaultButton();
    EXPECT_FALSE(alert->isVisible());
    EXPECT_EQ(UIWindow::keyWindow(), nullptr);
}

TEST_F(UIAlertViewTest, IsAnsweredOnce)
{
    delegate->onAnswer = [](UIAlertView& alert) { alert.pressCancelButton(); };
    const auto alert = makeAlert();
    alert->show();
    tapText("Save");
    alert->pressCancelButton();
    EXPECT_EQ(delegate->answers, (std::vector<long> { 1 }));
}

TEST_F(UIAlertViewTest, IsConfirmedByReturnAndCancelledByEscape)
{
    for (const auto keyboard : { UIKeyboardType::Default, UIKeyboardType::NumberPad }) {
        delegate->answers.clear();
        showWithField()->textFieldAtIndex(0)->setKeyboardType(keyboard);
        EXPECT_TRUE(pressKey(Qt::Key_Return));
        showWithField()->textFieldAtIndex(0)->setKeyboardType(keyboard);
        EXPECT_TRUE(pressKey(Qt::Key_Escape));
        EXPECT_EQ(delegate->answers, (std::vector<long> { 1, 0 }));
    }
    delegate->answers.clear();
    showWithField()->textFieldAtIndex(0)->editor().key("Return");
    showWithField()->textFieldAtIndex(0)->editor().key("Escape");
    EXPECT_EQ(delegate->answers, (std::vector<long> { 1, 0 }));
}

TEST_F(UIAlertViewTest, IsAnsweredByKeysWithoutAField)
{
    makeAlert({ "One", "Two" })->show();
    EXPECT_FALSE(pressKey(Qt::Key_A));
    EXPECT_TRUE(pressKey(Qt::Key_Enter));
    EXPECT_EQ(delegate->answers, (std::vector<long> { 2 }));
    EXPECT_FALSE(pressKey(Qt::Key_Enter));
}

TEST_F(UIAlertViewTest, IsNotAnsweredByAKeyHeldDown)
{
    makeAlert()->show();
    EXPECT_FALSE(pressKey(Qt::Key_Return, true));
    EXPECT_NE(UIAlertView::topmost(), nullptr);
}

TEST_F(UIAlertViewTest, IsNotCancelledWithoutACancelButton)
{
    const auto alert = UIAlertView::make(
        { .message = "Wait", .delegate = delegate.get(), .otherButtonTitles = { "Go", "Stay" } });
    alert->show();
    alert->pressCancelButton();
    EXPECT_TRUE(alert->isVisible());
    EXPECT_TRUE(delegate->answers.empty());
}

TEST_F(UIAlertViewTest, ReadsWhatAnInputMethodHasNotCommittedYet)
{
    std::string read;
    delegate->onAnswer = [&](UIAlertView& alert) { read = alert.textFieldAtIndex(0)->text(); };
    const auto alert = showWithField();
    QInputMethodEvent composition(QStringLiteral("12"), {});
    alert->textFieldAtIndex(0)->editor().inputMethod(composition);
    tapText("Save");
    EXPECT_EQ(read, "12");
}

TEST_F(UIAlertViewTest, StandsHavingNoButtons)
{
    const auto alert = UIAlertView::make({ .message = "Wait", .delegate = delegate.get() });
    alert->show();
    window->display();
    alert->pressDefaultButton();
    alert->pressCancelButton();
    EXPECT_TRUE(alert->isVisible());
    EXPECT_TRUE(delegate->answers.empty());
}

TEST_F(UIAlertViewTest, IsLeftAloneByAFingerLiftedElsewhere)
{
    const auto alert = makeAlert();
    alert->show();
    window->display();
    const auto* const save = find(*window, "Save");
    ASSERT_NE(save, nullptr);
    const auto at = save->convertPointToView({ 20, 20 }, nullptr);
    drag(at, { at.x, at.y + 150 });
    EXPECT_TRUE(alert->isVisible());
    EXPECT_TRUE(delegate->answers.empty());
}

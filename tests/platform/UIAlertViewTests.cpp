#include "UIAlertViewTest.h"

using namespace platform;
using namespace platform::tests;

TEST_F(UIAlertViewTest, NumbersItsButtonsFromTheCancelButton)
{
    const auto alert = makeAlert({ "One", "Two" });
    EXPECT_EQ(alert->numberOfButtons(), 3);
    EXPECT_EQ(alert->buttonTitleAtIndex(0), "Cancel");
    EXPECT_EQ(alert->buttonTitleAtIndex(1), "One");
    EXPECT_EQ(alert->buttonTitleAtIndex(2), "Two");
    EXPECT_EQ(alert->buttonTitleAtIndex(3), "");
    EXPECT_EQ(alert->buttonTitleAtIndex(-1), "");

    const UIAlertView without({ .message = "Well", .otherButtonTitles = { "One" } });
    EXPECT_EQ(without.numberOfButtons(), 1);
    EXPECT_EQ(without.buttonTitleAtIndex(0), "One");
}

TEST_F(UIAlertViewTest, KeepsWhatItWasMadeOf)
{
    const auto alert = makeAlert();
    EXPECT_EQ(alert->title(), std::nullopt);
    EXPECT_EQ(alert->message(), "How much?");
    EXPECT_EQ(alert->tag(), 0);
    EXPECT_EQ(alert->alertViewStyle(), UIAlertViewStyle::Default);
    alert->setTag(2626);
    alert->show();
    EXPECT_EQ(alert->tag(), 2626);
    EXPECT_EQ(UIAlertView({ .title = "Title" }).title(), "Title");
}

TEST_F(UIAlertViewTest, HasOneFieldAsSoonAsItsStyleAsksForIt)
{
    const auto alert = makeAlert();
    EXPECT_EQ(alert->textFieldAtIndex(0), nullptr);
    alert->setAlertViewStyle(UIAlertViewStyle::PlainTextInput);
    ASSERT_NE(alert->textFieldAtIndex(0), nullptr);
    EXPECT_EQ(alert->textFieldAtIndex(0)->text(), "");
    EXPECT_FALSE(alert->textFieldAtIndex(0)->isSecureTextEntry());
    EXPECT_EQ(alert->textFieldAtIndex(1), nullptr);
    EXPECT_EQ(alert->textFieldAtIndex(-1), nullptr);

    auto* const before = alert->textFieldAtIndex(0);
    alert->setAlertViewStyle(UIAlertViewStyle::SecureTextInput);
    EXPECT_EQ(alert->textFieldAtIndex(0), before);
    EXPECT_TRUE(before->isSecureTextEntry());
    alert->setAlertViewStyle(UIAlertViewStyle::Default);
    EXPECT_EQ(alert->textFieldAtIndex(0), nullptr);
}

TEST_F(UIAlertViewTest, LivesWhileItIsShownAndNoLonger)
{
    std::weak_ptr<NSObject> alert;
    {
        const auto made = makeAlert();
        alert = made;
        made->show();
    }
    EXPECT_FALSE(alert.expired());
    tapText("Cancel");
    EXPECT_TRUE(alert.expired());
}

TEST_F(UIAlertViewTest, DoesNothingWithoutAKeyWindow)
{
    window = nullptr;
    const auto alert = makeAlert();
    alert->setAlertViewStyle(UIAlertViewStyle::PlainTextInput);
    alert->show();
    EXPECT_FALSE(alert->isVisible());
    EXPECT_EQ(UIAlertView::topmost(), nullptr);
    alert->pressDefaultButton();
    EXPECT_TRUE(delegate->answers.empty());
}

TEST_F(UIAlertViewTest, DoesNothingWhenShownTwice)
{
    const auto alert = makeAlert();
    alert->show();
    alert->show();
    EXPECT_FALSE(alert->isHidden());
    tapText("Save");
    EXPECT_EQ(window->subviews().size(), 0U);
    alert->show();
    EXPECT_EQ(UIAlertView::topmost(), alert.get());
    tapText("Save");
    EXPECT_EQ(delegate->answers, (std::vector<long> { 1, 1 }));
}

TEST_F(UIAlertViewTest, KeepsTouchesFromThePage)
{
    const auto control = add(std::make_shared<UIControl>(), { 0, 0, 320, 480 });
    log->listenTo(*control);
    makeAlert()->show();
    window->display();
    for (const auto point : { CGPoint { 5, 5 }, CGPoint { 160, 150 }, CGPoint { 319, 479 } })
        tap(point);
    EXPECT_TRUE(log->actions.empty());
    EXPECT_TRUE(delegate->answers.empty());

    tapText("Cancel");
    tap({ 5, 5 });
    EXPECT_EQ(log->count("upInside"), 1);
}

TEST_F(UIAlertViewTest, DimsThePage)
{
    EXPECT_EQ(pixelAt({ 2, 2 }), 0xFFFFFFFF);
    makeAlert()->show();
    EXPECT_EQ(pixelAt({ 2, 2 }), 0xFF999999);
    EXPECT_EQ(pixelAt({ 318, 478 }), 0xFF999999);
    tapText("Cancel");
    EXPECT_EQ(pixelAt({ 2, 2 }), 0xFFFFFFFF);
}

TEST_F(UIAlertViewTest, TakesTheKeysForItsField)
{
    const auto row = add(std::make_shared<UITextField>(), { 20, 20, 200, 30 });
    log->listenTo(*row);
    row->becomeFirstResponder();
    const auto alert = showWithField();
    EXPECT_EQ(window->firstResponder(), alert->textFieldAtIndex(0));
    EXPECT_EQ(log->actions, (std::vector<std::string> { "editingBegan", "editingEnded" }));
    tapText("Save");
    EXPECT_EQ(window->firstResponder(), nullptr);
    EXPECT_FALSE(row->isFirstResponder());
}

TEST_F(UIAlertViewTest, EndsTheEditingOnThePageWithoutAFieldToo)
{
    const auto row = add(std::make_shared<UITextField>(), { 20, 20, 200, 30 });
    row->becomeFirstResponder();
    makeAlert()->show();
    EXPECT_EQ(window->firstResponder(), nullptr);
}

TEST_F(UIAlertViewTest, MayBeSetUpAfterItIsShown)
{
    const auto alert = makeAlert();
    alert->show();
    alert->setAlertViewStyle(UIAlertViewStyle::PlainTextInput);
    auto* const field = alert->textFieldAtIndex(0);
    EXPECT_EQ(window->firstResponder(), field);
    field->setText("-");
    field->setKeyboardType(UIKeyboardType::NumberPad);
    EXPECT_FALSE(field->editor().typeText("-"));
    EXPECT_TRUE(field->editor().typeText("12"));
    EXPECT_EQ(field->text(), "-12");
}

TEST_F(UIAlertViewTest, CoversAnEarlierOneThatReturnsAfterwards)
{
    const auto first = showWithField();
    EXPECT_TRUE(first->textFieldAtIndex(0)->editor().typeText("1"));
    const auto second = makeAlert({ "Fine" });
    second->show();
    EXPECT_EQ(UIAlertView::topmost(), second.get());
    EXPECT_TRUE(first->isVisible());
    EXPECT_TRUE(first->isHidden());
    EXPECT_EQ(window->firstResponder(), nullptr);
    EXPECT_EQ(pixelAt({ 2, 2 }), 0xFF999999) << "Dimmed once.";

    tapText("Fine");
    EXPECT_EQ(UIAlertView::topmost(), first.get());
    EXPECT_FALSE(first->isHidden());
    EXPECT_EQ(window->firstResponder(), first->textFieldAtIndex(0));
    EXPECT_EQ(first->textFieldAtIndex(0)->text(), "1");
    tapText("Save");
    EXPECT_EQ(delegate->answers, (std::vector<long> { 1, 1 }));
}

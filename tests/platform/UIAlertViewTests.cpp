#include "ControlTestSupport.h"
#include "platform/qt/TextEditor.h"
#include "platform/UIAlertView.h"
#include "platform/UIButton.h"

#include <QKeyEvent>

using namespace platform;

namespace {

struct Delegate final : UIAlertViewDelegate {
    ~Delegate() override { UIAlertView::delegateIsGone(this); }
    void alertViewClickedButtonAtIndex(UIAlertView& alert, long index) override
    {
        answers.push_back(index);
        if (onAnswer)
            onAnswer(alert);
    }

    std::vector<long> answers;
    std::function<void(UIAlertView&)> onAnswer;
};

class UIAlertViewTest : public ControlTest {
protected:
    std::unique_ptr<Delegate> delegate = std::make_unique<Delegate>();

    Ref<UIAlertView> makeAlert(
        std::vector<std::string> others = { "Save" }, std::string message = "How much?")
    {
        return UIAlertView::make({ .message = std::move(message),
            .delegate = delegate.get(),
            .cancelButtonTitle = "Cancel",
            .otherButtonTitles = std::move(others) });
    }
    Ref<UIAlertView> showWithField(UIAlertViewStyle style = UIAlertViewStyle::PlainTextInput)
    {
        const auto alert = makeAlert();
        alert->setAlertViewStyle(style);
        alert->show();
        return alert;
    }

    /// The foremost view that shows exactly this text; null without one.
    static UILabel* find(const UIView& view, const std::string& text)
    {
        for (auto subview = view.subviews().rbegin(); subview != view.subviews().rend(); ++subview) {
            if ((*subview)->isHidden())
                continue;
            if (auto* const found = find(**subview, text))
                return found;
            auto* const label = dynamic_cast<UILabel*>(subview->get());
            if (label && label->text() == text)
                return label;
        }
        return nullptr;
    }
    void tapText(const std::string& text)
    {
        window->display();
        const auto* const label = find(*window, text);
        ASSERT_NE(label, nullptr) << text;
        tap(*label);
    }
    bool pressKey(int key, bool repeated = false)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), repeated);
        return sendKeyToWindow(*window, event);
    }
};

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

TEST_F(UIAlertViewTest, TellsItsDelegateWhichButtonWasTapped)
{
    makeAlert()->show();
    tapText("Save");
    makeAlert()->show();
    tapText("Cancel");
    EXPECT_EQ(delegate->answers, (std::vector<long> { 1, 0 }));
    EXPECT_EQ(UIAlertView::topmost(), nullptr);
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

}

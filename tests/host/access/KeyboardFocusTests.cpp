#include "AccessFixture.h"
#include "host/PhoneView.h"
#include "platform/UIAlertView.h"
#include "platform/UITextField.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

namespace host {

using namespace platform;

namespace {

/// The keys of a window that shows the phone.
class KeyboardFocusTest : public PhoneTest {
protected:
    void openView(const PhoneOptions& options)
    {
        view.reset();
        open(options);
        view = std::make_unique<PhoneView>(*phone);
        const auto size = options.size;
        view->resize(
            static_cast<int>(size.width) * options.scale, static_cast<int>(size.height) * options.scale);
    }
    ~KeyboardFocusTest() override { view.reset(); }

    void press(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {}) const
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(view.get(), &event);
        phone->settle();
        QApplication::processEvents();
    }
    void pressTimes(int times, int key) const
    {
        for (int time = 0; time < times; ++time)
            press(key);
    }
    void click(CGPoint point) const
    {
        const QPointF at = view->rectFor({ point.x, point.y, 0, 0 }).topLeft();
        QMouseEvent down(QEvent::MouseButtonPress, at, at, Qt::LeftButton, Qt::LeftButton, {});
        QMouseEvent up(QEvent::MouseButtonRelease, at, at, Qt::LeftButton, {}, {});
        QApplication::sendEvent(view.get(), &down);
        QApplication::sendEvent(view.get(), &up);
        QApplication::processEvents();
    }
    /// The name of what the ring is around; empty without one.
    std::string at() const
    {
        const auto* const element = view->keyboardFocus().element();
        return element ? element->name : std::string();
    }

    std::unique_ptr<PhoneView> view;
};

}

TEST_F(KeyboardFocusTest, IsHiddenUntilAKeyMovesIt)
{
    openView(options());
    EXPECT_EQ(at(), "");
    press(Qt::Key_Tab);
    EXPECT_EQ(at(), "Enabled");
}

TEST_F(KeyboardFocusTest, MovesInOrderAndWraps)
{
    openView(options());
    pressTimes(6, Qt::Key_Tab);
    EXPECT_EQ(at(), "Button Text:");
    press(Qt::Key_Tab);
    EXPECT_EQ(at(), "Enabled");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(at(), "Button Text:");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(at(), "Button Color");
}

TEST_F(KeyboardFocusTest, MovesBetweenRowsByArrows)
{
    openView(options());
    press(Qt::Key_Down);
    pressTimes(2, Qt::Key_Down);
    EXPECT_EQ(at(), "Vekora Now");
    press(Qt::Key_Up);
    EXPECT_EQ(at(), "Silence Alarms For");
    press(Qt::Key_End);
    EXPECT_EQ(at(), "Button Text:");
    press(Qt::Key_Down);
    EXPECT_EQ(at(), "Button Text:") << "arrows do not wrap";
    press(Qt::Key_Home);
    EXPECT_EQ(at(), "Enabled");
}

TEST_F(KeyboardFocusTest, ScrollsWhatItMovesToIntoSight)
{
    auto small = options();
    small.size = { 320, 320 };
    small.scale = 1;
    openView(small);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(at(), "Button Text:");
    EXPECT_GT(page().table().contentOffset().y, 0);
    press(Qt::Key_Tab);
    EXPECT_EQ(at(), "Enabled");
    EXPECT_EQ(page().table().contentOffset().y, 0);
}

TEST_F(KeyboardFocusTest, HidesFromTheMouseAndGoesOnFromThere)
{
    openView(options());
    press(Qt::Key_Tab);
    click({ 100, 490 - 30 }); // Between the rows.
    EXPECT_EQ(at(), "");
    const auto row
        = page().table().convertRectToView(page().table().rectForRowAtIndexPath({ 0, 2 }), nullptr);
    click({ row.midX(), row.midY() });
    press(Qt::Key_Tab);
    EXPECT_EQ(at(), "Let Alarms Ring Again");
}

TEST_F(KeyboardFocusTest, ActivatesBySpaceAndReturn)
{
    openView(options());
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    EXPECT_NE(readTestFile(preferenceFile()).find("<true/>"), std::string::npos);
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_EQ(depth(), 2U);
}

TEST_F(KeyboardFocusTest, KeepsAPlaceOnEachPage)
{
    openView(options());
    pressTimes(2, Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_EQ(at(), "5 Minutes");
    press(Qt::Key_Down);
    press(Qt::Key_Escape);
    EXPECT_EQ(depth(), 1U);
    EXPECT_EQ(at(), "Silence Alarms For");
}

TEST_F(KeyboardFocusTest, LeavesKeysToATextThatIsEdited)
{
    openView(options());
    pressTimes(6, Qt::Key_Tab);
    press(Qt::Key_Return);
    ASSERT_TRUE(phone->window().firstResponder());
    press(Qt::Key_Space, {}, " ");
    press(Qt::Key_Home);
    press(Qt::Key_X, {}, "x");
    EXPECT_EQ(phone->window().firstResponder()->text(), "xVekora ");
    press(Qt::Key_Tab);
    EXPECT_FALSE(phone->window().firstResponder());
    EXPECT_EQ(at(), "Enabled");
    EXPECT_NE(readTestFile(preferenceFile()).find("xVekora "), std::string::npos);
}

TEST_F(KeyboardFocusTest, GoesThroughAnAlert)
{
    openView(options());
    pressTimes(5, Qt::Key_Tab);
    press(Qt::Key_Return);
    ASSERT_EQ(at(), "#FF0000");
    press(Qt::Key_Return);
    auto* const alert = UIAlertView::topmost();
    ASSERT_TRUE(alert);
    ASSERT_TRUE(phone->window().firstResponder()) << "one types at once";
    press(Qt::Key_0, {}, "0");
    press(Qt::Key_Tab);
    EXPECT_EQ(at(), "Cancel");
    EXPECT_FALSE(phone->window().firstResponder());
    press(Qt::Key_Tab);
    EXPECT_EQ(at(), "Save");
    press(Qt::Key_Tab);
    ASSERT_TRUE(phone->window().firstResponder()) << "and goes on typing";
    press(Qt::Key_0, {}, "F");
    EXPECT_EQ(alert->textFieldAtIndex(0)->text(), "0F");
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    EXPECT_FALSE(UIAlertView::topmost()) << "Return presses what it is at: Cancel";
    EXPECT_EQ(at(), "#FF0000");
    EXPECT_FALSE(std::filesystem::exists(preferenceFile())
        && readTestFile(preferenceFile()).find("#0F") != std::string::npos);
}

TEST_F(KeyboardFocusTest, AnswersAnAlertByReturnAndEscapeWithoutARing)
{
    openView(options());
    pressTimes(5, Qt::Key_Tab);
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    ASSERT_TRUE(UIAlertView::topmost());
    press(Qt::Key_Escape);
    EXPECT_FALSE(UIAlertView::topmost());
    EXPECT_EQ(depth(), 2U);
}

TEST_F(KeyboardFocusTest, SurvivesPagesThatAreMadeAnew)
{
    openView(options());
    pressTimes(3, Qt::Key_Tab);
    phone->makePagesAnew();
    QApplication::processEvents();
    press(Qt::Key_Tab);
    EXPECT_NE(at(), "");
    phone->navigation().setRoot(nullptr);
    QApplication::processEvents();
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    press(Qt::Key_Down);
    press(Qt::Key_End);
    press(Qt::Key_PageDown);
    EXPECT_EQ(at(), "");
}

TEST_F(KeyboardFocusTest, DrawsItsRingOverThePictureOnly)
{
    openView(options());
    const auto before = picture();
    const auto plain = view->grab().toImage();
    press(Qt::Key_Tab);
    EXPECT_NE(view->grab().toImage(), plain);
    EXPECT_EQ(picture(), before);
    click({ 200, 30 });
    EXPECT_EQ(view->grab().toImage(), plain);
}

}

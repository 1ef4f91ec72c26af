#include "host/inspector/Inspector.h"

#include "host/PhoneView.h"
#include "platform/Device.h"
#include "WindowTest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QToolButton>
#include <QtTest/QTest>

using namespace platform;

namespace {

class InspectorPanel : public WindowTest {
protected:
    /// Of the phone in the window, in points, as the pane sees it.
    static CGSize screen() { return Device::current().screenSize; }

    /// Of the inspector, when so much is wanted on the tests' screen, which is rather small.
    int widthOf(int wanted)
    {
        const auto handle = window().findChild<QSplitter*>()->handleWidth();
        return std::min(wanted, window().screen()->availableGeometry().width() - 375 - handle);
    }

    static constexpr CGSize usual { 375, 667 };
};

}

namespace platform {

static void PrintTo(const CGSize& size, std::ostream* stream)
{
    *stream << size.width << " x " << size.height;
}

}

TEST_F(InspectorPanel, IsNotEvenMadeAtTheFirstStart)
{
    open();
    EXPECT_FALSE(window().inspectorIsShown());
    EXPECT_EQ(window().inspector(), nullptr);
    EXPECT_EQ(screen(), usual);
}

TEST_F(InspectorPanel, WidensTheWindowAndLeavesThePhoneItsSize)
{
    open();
    const auto closed = window().size();
    for (int round = 0; round < 3; ++round) {
        window().setInspectorShown(true);
        QCoreApplication::processEvents();
        EXPECT_EQ(screen(), usual);
        EXPECT_EQ(view().size(), QSize(375, 667));
        EXPECT_EQ(window().inspector()->width(), widthOf(host::Inspector::usualWidth));
        EXPECT_EQ(window().height(), closed.height());

        window().setInspectorShown(false);
        QCoreApplication::processEvents();
        EXPECT_EQ(screen(), usual);
        EXPECT_EQ(window().size(), closed);
    }
}

TEST_F(InspectorPanel, NeverResizesThePhoneOnTheWay)
{
    open();
    std::vector<QSize> sizes;
    struct Watch final : QObject {
        explicit Watch(std::vector<QSize>& sizes)
            : sizes(sizes)
        {
        }
        bool eventFilter(QObject* object, QEvent* event) override
        {
            if (event->type() == QEvent::Resize)
                sizes.push_back(static_cast<QWidget*>(object)->size());
            return false;
        }
        std::vector<QSize>& sizes;
    } watch(sizes);
    view().installEventFilter(&watch);
    window().setInspectorShown(true);
    QCoreApplication::processEvents();
    window().setInspectorShown(false);
    QCoreApplication::processEvents();
    EXPECT_TRUE(sizes.empty()) << sizes.size() << " resizes";
}

TEST_F(InspectorPanel, GetsWhatTheWindowGains)
{
    open();
    window().setInspectorShown(true);
    window().resize(window().width() + 100, window().height());
    QCoreApplication::processEvents();
    EXPECT_EQ(screen(), usual);
    EXPECT_EQ(window().inspector()->width(), widthOf(host::Inspector::usualWidth) + 100);
}

TEST_F(InspectorPanel, IsShownAndHiddenByButtonAndKeys)
{
    open();
    auto* const button = window().findChild<QToolButton*>();
    ASSERT_TRUE(button);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(window().inspectorIsShown());
    EXPECT_TRUE(button->isChecked());
    QTest::keyClick(&view(), Qt::Key_I, Qt::ControlModifier);
    EXPECT_FALSE(window().inspectorIsShown());
    EXPECT_FALSE(button->isChecked());
    QTest::keyClick(&view(), Qt::Key_F12);
    EXPECT_TRUE(window().inspectorIsShown());
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_FALSE(window().inspectorIsShown());
}

TEST_F(InspectorPanel, LeavesTheKeysToThePhoneUntilItIsClicked)
{
    open();
    EXPECT_EQ(QApplication::focusWidget(), &view());
    QTest::keyClick(&view(), Qt::Key_F12);
    EXPECT_EQ(QApplication::focusWidget(), &view());
    window().inspector()->setFocus();
    EXPECT_NE(QApplication::focusWidget(), &view());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F12);
    EXPECT_EQ(QApplication::focusWidget(), &view());
}

TEST_F(InspectorPanel, ClosesWithTheWindowByTheUsualKeys)
{
    open();
    window().setInspectorShown(true);
    window().inspector()->setFocus();
    QTest::keyClick(window().inspector(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(window().isVisible());
}

TEST_F(InspectorPanel, IsRememberedFromOneRunToTheNext)
{
    open();
    window().setInspectorShown(true);
    window().resize(window().width() - 40, window().height());
    QCoreApplication::processEvents();
    close();
    EXPECT_TRUE(std::filesystem::exists(configuration() / "vekora/inspector.ini"));

    open();
    EXPECT_TRUE(window().inspectorIsShown());
    EXPECT_EQ(screen(), usual);
    EXPECT_EQ(window().inspector()->width(), widthOf(host::Inspector::usualWidth) - 40);
    window().setInspectorShown(false);
    close();

    open();
    EXPECT_EQ(window().inspector(), nullptr);
    EXPECT_EQ(screen(), usual);
    window().setInspectorShown(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(window().inspector()->width(), widthOf(host::Inspector::usualWidth) - 40);
}

TEST_F(InspectorPanel, StartsAsUsualWhenItsMemoryMakesNoSense)
{
    for (const auto* const memory : { "[General]\nshown=true\nwidth=-7\npage=nowhere\n", "\xFF\xFE[[[=%zz\n",
             "[General]\nshown=true\nwidth=99999999999\n" }) {
        writeTestFile(configuration() / "vekora/inspector.ini", memory);
        open();
        EXPECT_EQ(screen(), usual);
        window().setInspectorShown(true);
        QCoreApplication::processEvents();
        EXPECT_EQ(window().inspector()->width(), widthOf(host::Inspector::usualWidth));
        close();
    }
}

TEST_F(InspectorPanel, HasNoCaretThatBlinks)
{
    QApplication::setCursorFlashTime(1000);
    open();
    window().setInspectorShown(true);
    EXPECT_EQ(QApplication::cursorFlashTime(), 0);
}

TEST_F(InspectorPanel, TakesItsRoomFromThePhoneWhereTheWindowCannotGrow)
{
    open();
    window().showMaximized();
    ASSERT_TRUE(waitUntil([&] { return window().width() > 600; }));
    const auto whole = window().size();
    window().setInspectorShown(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(window().size(), whole);
    EXPECT_GE(window().inspector()->width(), host::Inspector::smallestWidth);
    EXPECT_LT(view().width(), whole.width() - host::Inspector::smallestWidth);
    window().setInspectorShown(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(window().size(), whole);
    EXPECT_EQ(view().width(), whole.width());
}

TEST_F(InspectorPanel, StaysOnTheScreen)
{
    open();
    const auto available = window().screen()->availableGeometry();
    ASSERT_LT(available.width(), 375 + host::Inspector::usualWidth) << "the tests' screen has 800 pixels";
    window().move(available.right() - 375, 0);
    window().setInspectorShown(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(screen(), usual);
    EXPECT_EQ(window().width(), available.width());
    EXPECT_EQ(window().x(), available.left());
}

TEST_F(InspectorPanel, ShowsEveryButtonWholeHoweverNarrowItIs)
{
    for (const auto* const name : { "file", "timeline", "views", "environment" }) {
        auto* const page = openPage<QWidget>(name);
        window().resize(window().phoneView().width() + host::Inspector::smallestWidth, window().height());
        QCoreApplication::processEvents();
        ASSERT_LT(page->width(), 340) << name;
        const auto buttons = page->findChildren<QAbstractButton*>();
        EXPECT_FALSE(buttons.isEmpty()) << name;
        for (const auto* const button : buttons) {
            if (!button->isVisible() || button->text().isEmpty())
                continue;
            EXPECT_GE(button->width(), button->minimumSizeHint().width())
                << name << ": " << button->text().toStdString();
            const QRect place(button->mapTo(page, QPoint()), button->size());
            EXPECT_TRUE(place.left() >= 0 && place.right() < page->width())
                << name << ": " << button->text().toStdString();
        }
        for (const auto* const area : page->findChildren<QScrollArea*>())
            EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0) << name;
    }
}

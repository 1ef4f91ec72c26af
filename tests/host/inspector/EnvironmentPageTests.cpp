#include "host/inspector/EnvironmentPage.h"

#include "host/Faults.h"
#include "host/inspector/Inspector.h"
#include "host/PhoneView.h"
#include "platform/Device.h"
#include "WindowTest.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QtTest/QTest>
#include <QWheelEvent>

using namespace platform;

namespace {

class InspectorEnvironment : public WindowTest {
protected:
    ~InspectorEnvironment() override { host::Faults::current().make(host::Fault::Off); }

    void openIt() { page = openPage<host::EnvironmentPage>("environment"); }

    template <typename Control> Control& control(const char* name)
    {
        auto* const found = page->findChild<Control*>(QLatin1String(name));
        if (!found)
            throw std::runtime_error(std::string("no control ") + name);
        return *found;
    }
    QString message() { return control<QLabel>("message").text(); }
    bool messageIsShown() { return control<QLabel>("message").isVisible(); }
    void press(const char* name)
    {
        QTest::mouseClick(&control<QPushButton>(name), Qt::LeftButton);
        QCoreApplication::processEvents();
    }
    /// Keys go where the focus is, as a person's do.
    void enter(QLineEdit& field, const char* text)
    {
        field.setFocus();
        field.selectAll();
        auto* const focus = QApplication::focusWidget();
        ASSERT_NE(focus, nullptr);
        QTest::keyClick(focus, Qt::Key_Backspace);
        QTest::keyClicks(focus, QLatin1String(text));
        QTest::keyClick(focus, Qt::Key_Return);
        QCoreApplication::processEvents();
    }
    void type(const char* name, const char* text) { enter(*control<QComboBox>(name).lineEdit(), text); }
    /// With the keys, as the list is shown.
    void choose(const char* name, const QString& title)
    {
        auto& box = control<QComboBox>(name);
        box.setFocus();
        const auto wanted = box.findText(title);
        ASSERT_GE(wanted, 0) << title.toStdString();
        const auto before = box.currentIndex();
        for (int step = before; step < wanted; ++step)
            QTest::keyClick(&box, Qt::Key_Down);
        for (int step = before; step > wanted; --step)
            QTest::keyClick(&box, Qt::Key_Up);
        QCoreApplication::processEvents();
    }

    host::EnvironmentPage* page = nullptr;
};

}

TEST_F(InspectorEnvironment, ShowsWhatIsSo)
{
    openIt();
    EXPECT_EQ(control<QComboBox>("size").currentText(), "375x667");
    EXPECT_EQ(control<QComboBox>("scale").currentText(), "1 pixel a point");
    EXPECT_EQ(control<QComboBox>("locale").currentText(), "en_US");
    EXPECT_EQ(control<QComboBox>("direction").currentText(), "As the locale says");
    EXPECT_EQ(control<QComboBox>("timezone").currentText(), "Europe/Berlin");
    EXPECT_EQ(control<QLineEdit>("now").text(), "2014-01-05T10:17:42.6+01:00");
    EXPECT_FALSE(control<QCheckBox>("toggle").isChecked());
    EXPECT_FALSE(control<QCheckBox>("statusbar").isChecked());
    EXPECT_FALSE(messageIsShown());
}

TEST_F(InspectorEnvironment, FollowsWhatOthersChange)
{
    openIt();
    phone().setLocale("nb_NO");
    phone().setToggleInstalled(true);
    phone().setRunningClock();
    EXPECT_EQ(control<QComboBox>("locale").currentText(), "nb_NO");
    EXPECT_TRUE(control<QCheckBox>("toggle").isChecked());
    EXPECT_EQ(control<QLineEdit>("now").text(), "real");
    window().resize(window().size() + QSize(0, 33));
    QCoreApplication::processEvents();
    EXPECT_EQ(control<QComboBox>("size").currentText(), "375x700");
}

TEST_F(InspectorEnvironment, ChangesTheLanguageTheDirectionAndTheZone)
{
    openIt();
    type("locale", "ar-eg");
    EXPECT_EQ(Device::current().locale, "ar_EG");
    EXPECT_TRUE(Device::current().rightToLeft);
    EXPECT_EQ(control<QComboBox>("locale").currentText(), "ar_EG");
    choose("direction", "Left to right");
    EXPECT_FALSE(Device::current().rightToLeft);
    type("timezone", "Asia/Tokyo");
    EXPECT_EQ(Device::current().timeZone, "Asia/Tokyo");
    choose("locale", "de_DE");
    EXPECT_EQ(Device::current().locale, "de_DE");
}

TEST_F(InspectorEnvironment, TheWindowFollowsThePhonesSize)
{
    openIt();
    const auto inspector = window().inspector()->width();
    const auto height = window().height();
    type("size", "414x736");
    EXPECT_EQ(Device::current().screenSize, (CGSize { 414, 736 }));
    EXPECT_EQ(view().size(), QSize(414, 736));
    EXPECT_EQ(window().height(), height + 736 - 667);
    EXPECT_EQ(window().inspector()->width(), inspector);
    type("size", "320x568");
    EXPECT_EQ(view().size(), QSize(320, 568));
    window().setInspectorShown(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(view().size(), QSize(320, 568));
    EXPECT_EQ(window().width(), 320);
    phone().setScreen({ 400, 400 }, 1);
    EXPECT_EQ(view().size(), QSize(400, 400));
    EXPECT_EQ(window().width(), 400);
}

TEST_F(InspectorEnvironment, TheWindowFollowsThePhonesScale)
{
    openIt();
    choose("scale", "2 pixels a point");
    EXPECT_EQ(Device::current().screenSize, (CGSize { 375, 667 }));
    EXPECT_EQ(view().size(), QSize(750, 1334));
    choose("scale", "1 pixel a point");
    EXPECT_EQ(Device::current().screenSize, (CGSize { 375, 667 }));
    EXPECT_EQ(view().size(), QSize(375, 667));
}

TEST_F(InspectorEnvironment, LetsTheClockStandMoveOnAndRun)
{
    openIt();
    enter(control<QLineEdit>("now"), "2014-07-01T12:00");
    EXPECT_EQ(control<QLineEdit>("now").text(), "2014-07-01T12:00:00+02:00");
    enter(control<QLineEdit>("seconds"), "90.5");
    EXPECT_EQ(control<QLineEdit>("now").text(), "2014-07-01T12:01:30.5+02:00");
    press("run");
    EXPECT_EQ(Device::current().standingClock, std::nullopt);
    press("move");
    EXPECT_EQ(message(), "The clock is the real one and can't be moved; let it stand still first.");
    press("stand");
    EXPECT_NE(Device::current().standingClock, std::nullopt);
    EXPECT_FALSE(messageIsShown());
    press("move");
    EXPECT_FALSE(messageIsShown());
}

TEST_F(InspectorEnvironment, InstallsCompanionsAndTellsOfTheToggle)
{
    openIt();
    control<QCheckBox>("toggle").click();
    EXPECT_TRUE(phone().toggleIsInstalled());
    const auto line = [&] {
        for (const auto* const label : window().findChildren<QLabel*>()) {
            if (label->text().startsWith("Companion toggle: "))
                return true;
        }
        return false;
    };
    EXPECT_TRUE(line());
    control<QCheckBox>("toggle").click();
    EXPECT_FALSE(phone().toggleIsInstalled());
    EXPECT_FALSE(line());
    control<QCheckBox>("statusbar").click();
    EXPECT_TRUE(phone().statusBarLibraryIsInstalled());
    const auto before = phone().navigation().topViewController()->weak_from_this();
    press("anew");
    EXPECT_TRUE(before.expired());
    EXPECT_NE(phone().navigation().topViewController(), nullptr);
}

TEST_F(InspectorEnvironment, AnswersWhatMakesNoSenseWithASentenceAndChangesNothing)
{
    openIt();
    type("size", "huge");
    EXPECT_TRUE(messageIsShown());
    EXPECT_EQ(message(), "size takes WIDTHxHEIGHT in whole points from 1 to 4096, as 375x667, not \"huge\".");
    EXPECT_EQ(control<QComboBox>("size").currentText(), "375x667");
    type("locale", "xx_XX");
    EXPECT_EQ(control<QComboBox>("locale").currentText(), "en_US");
    type("timezone", "");
    EXPECT_EQ(Device::current().timeZone, "Europe/Berlin");
    enter(control<QLineEdit>("now"), "soon");
    EXPECT_EQ(control<QLineEdit>("now").text(), "2014-01-05T10:17:42.6+01:00");
    enter(control<QLineEdit>("seconds"), "1e99");
    EXPECT_EQ(message(), "The clock moves on by a number of seconds, as 60 or 0.5, not \"1e99\".");
    type("locale", "fr_FR");
    EXPECT_FALSE(messageIsShown()) << "what works takes the sentence away";
}

TEST_F(InspectorEnvironment, MakesFaultsAndSaysWhichAreInForce)
{
    openIt();
    auto& state = control<QLabel>("faults");
    EXPECT_EQ(state.text(), "Every write can succeed.");
    press("write");
    EXPECT_EQ(state.text(), "The next write will fail.");
    QTest::mouseClick(&view(), Qt::LeftButton, {}, { 334, 121 });
    EXPECT_EQ(state.text(), "Every write can succeed.") << "it was that of the switch";
    press("readonly");
    EXPECT_EQ(state.text(), "File and folder are read-only.");
    press("off");
    EXPECT_EQ(state.text(), "Every write can succeed.");
    press("half-written");
    EXPECT_FALSE(messageIsShown());
    press("vanish");
    EXPECT_FALSE(std::filesystem::exists(preferences()));
    press("vanish");
    EXPECT_EQ(message(), "The preference file can't vanish: No such file or directory.");
}

TEST_F(InspectorEnvironment, TurningTheWheelOverAChoiceChangesNothingUnlessItHasTheKeys)
{
    openIt();
    auto& box = control<QComboBox>("scale");
    const auto turn = [&] {
        const auto place = box.rect().center();
        QWheelEvent event(
            place, box.mapToGlobal(QPointF(place)), {}, { 0, -120 }, {}, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&box, &event);
    };
    view().setFocus();
    turn();
    EXPECT_EQ(Device::current().scale, 1);
    box.setFocus();
    turn();
    EXPECT_EQ(Device::current().scale, 2);
}

TEST_F(InspectorEnvironment, AScreenReaderMayAskForPartsThatAreNotThere)
{
    openIt();
    auto* const area = page->findChild<QScrollArea*>();
    ASSERT_NE(area, nullptr);
    auto* const interface = QAccessible::queryAccessibleInterface(area);
    ASSERT_NE(interface, nullptr);
    EXPECT_GT(interface->childCount(), 0);
    EXPECT_NE(interface->child(0), nullptr);
    for (const int beyond : { -1, interface->childCount(), 1000 })
        EXPECT_EQ(interface->child(beyond), nullptr) << beyond;
}

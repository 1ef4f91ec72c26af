#include "WindowTest.h"

#include "host/inspector/Inspector.h"

#include <QtTest/QTest>

WindowTest::WindowTest()
{
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(configuration().string()));
}

WindowTest::~WindowTest()
{
    close();
    qputenv("XDG_CONFIG_HOME", _configurationBefore);
}

host::MainWindow& WindowTest::open()
{
    host::PhoneOptions options;
    options.root = root().string();
    options.scale = 1;
    options.locale = "en_US";
    options.timeZone = "Europe/Berlin";
    options.now = "2014-01-05T10:17:42.6";
    _phone = std::make_unique<host::Phone>(options);
    EXPECT_EQ(_phone->openBundle(), std::nullopt);
    _window = std::make_unique<host::MainWindow>(*_phone);
    _window->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(_window.get(), longestWait));
    QCoreApplication::processEvents();
    return *_window;
}

QWidget* WindowTest::openPageNamed(const char* name)
{
    if (!_window)
        open();
    window().setInspectorShown(true);
    window().inspector()->setCurrentPage(QString::fromLatin1(name));
    EXPECT_EQ(window().inspector()->currentPage(), QString::fromLatin1(name));
    QCoreApplication::processEvents();
    return window().inspector()->currentWidget();
}

void WindowTest::close()
{
    _window.reset();
    _phone.reset();
}

bool WindowTest::waitUntil(const std::function<bool()>& claim)
{
    return QTest::qWaitFor(claim, longestWait);
}

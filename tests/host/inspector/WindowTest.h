#pragma once

#include "host/MainWindow.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <functional>
#include <memory>
#include <ostream>

/// The window with the project's own bundle in a phone of 375 by 667 points at 1 pixel a point, with a
/// configuration and a root of its own, at a set time and place.
class WindowTest : public testing::Test {
protected:
    WindowTest();
    ~WindowTest() override;

    /// Shows the window, and lets it come to rest.
    host::MainWindow& open();
    void close();
    /// Opens the window too, unless it is open, and the inspector at this page.
    template <typename Page> Page* openPage(const char* name)
    {
        return dynamic_cast<Page*>(openPageNamed(name));
    }

    host::MainWindow& window() { return *_window; }
    host::Phone& phone() { return *_phone; }
    host::PhoneView& view() { return _window->phoneView(); }

    static constexpr int longestWait = 60000; ///< Milliseconds; only a failure waits that long.
    /// Runs the event loop until the claim holds; false when it never does.
    static bool waitUntil(const std::function<bool()>& claim);

    std::filesystem::path root() const { return _folder.path() / "root"; }
    std::filesystem::path preferences() const
    {
        return root() / "private/var/mobile/Library/Preferences/net.morvane.vekora.plist";
    }
    std::filesystem::path configuration() const { return _folder.path() / "config"; }

private:
    QWidget* openPageNamed(const char* name);

    TemporaryFolder _folder;
    QByteArray _configurationBefore = qgetenv("XDG_CONFIG_HOME");
    std::unique_ptr<host::Phone> _phone;
    std::unique_ptr<host::MainWindow> _window;
};

/// How a failed expectation shows them.
inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << text.toStdString();
}

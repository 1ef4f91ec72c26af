#pragma once

#include "settings/PreferenceStore.h"

#include "host/Installation.h"
#include "platform/Device.h"
#include "platform/FSSwitchPanel.h"
#include "platform/Journal.h"
#include "tests/support/TemporaryFolder.h"

#include <functional>
#include <gtest/gtest.h>

/// A device of a test's own, in English and in Greenwich, on which it is 2014-01-05 10:17:42.6. The pane's
/// resources are installed; nothing has run yet. Everything the pane does to the outside is written down.
class SettingsTest : public testing::Test {
protected:
    SettingsTest();
    ~SettingsTest() override;

    std::filesystem::path preferenceFile() const;
    /// As somebody else would write it, whatever it is.
    void writePreferenceFile(const std::string& content) const;
    void storePreferences(const platform::PropertyList&);
    /// What the file holds; nothing when there is no readable one.
    std::optional<platform::PropertyList> storedPreferences() const;

    void installToggleFiles();
    /// The framework's class, in this process.
    void registerToggleClass();
    void installStatusBarLibrary();

    void setClock(double secondsSince1970);
    void setPlace(const std::string& locale, const std::string& timeZone);

    /// What has happened since the last call, in order: "write", "toggle off", "notification". The latter is
    /// bare and immediate, else it says what it is.
    std::vector<std::string> takeEvents();
    /// Called before each of these is noted.
    std::function<void(const std::string&)> whenSomethingHappens;

    static constexpr double tenSeventeen = 1388917062.6;

    TemporaryFolder folder;
    host::Installation installation { folder.path() / "phone" };

private:
    void installResources() const;
    void note(const platform::JournalEntry&);

    platform::Device _device;
    int _listener = 0;
    std::vector<std::string> _events;
    std::shared_ptr<void> _toggleClass;
};

/// The blank before AM and PM is a narrow one in newer locale data.
std::string withPlainBlanks(std::string);

#include "SettingsTest.h"

using namespace platform;

namespace {

// The pane's classes are linked into the test program, and register before `main` with the bundle in which
// they look for their resources.
[[gnu::constructor(101)]] void nameTheBundle()
{
    Class::setBundlePathOfNewClasses("/Library/PreferenceBundles/Vekora.bundle");
}

class RecordingPanel final : public FSSwitchPanel {
public:
    static RecordingPanel* sharedPanel()
    {
        static RecordingPanel panel;
        return &panel;
    }

    void setStateForSwitchIdentifier(long state, std::string identifier) override
    {
        Journal::shared().record(
            { .kind = JournalEntry::Kind::Toggle, .name = std::move(identifier), .state = state });
    }

    long stateForSwitchIdentifier(std::string) override { return 0; }
};

std::string describe(const JournalEntry& entry)
{
    switch (entry.kind) {
    case JournalEntry::Kind::Write:
        return entry.name == vekora::preferencesPath ? "write" : "write " + entry.name;
    case JournalEntry::Kind::Notification:
        return (entry.name == "net.morvane.vekora/preferences" ? "notification"
                                                               : "notification " + entry.name)
            + (entry.detail == "immediately" ? "" : " with [" + entry.detail + "]");
    case JournalEntry::Kind::Toggle:
        return (entry.name == "net.morvane.vekorafs" ? "toggle " : "toggle " + entry.name + " ")
            + (entry.state == 1        ? "on"
                    : entry.state == 0 ? "off"
                                       : std::to_string(entry.state));
    default:
        return {};
    }
}

}

SettingsTest::SettingsTest()
    : _device(Device::current())
{
    Device::current() = {};
    Device::current().root = installation.root();
    setClock(tenSeventeen);
    setPlace("en_US", "UTC");
    installResources();
    vekora::mainPreferences.reset();
    vekora::colorPagePreferences.reset();
    vekora::statusSpecifier.reset();
    _listener = Journal::shared().listen([this](const JournalEntry& entry) { note(entry); });
}

SettingsTest::~SettingsTest()
{
    Journal::shared().stop(_listener);
    vekora::mainPreferences.reset();
    vekora::colorPagePreferences.reset();
    vekora::statusSpecifier.reset();
    Device::current() = _device;
}

void SettingsTest::installResources() const
{
    const auto bundle = installation.root() / "Library/PreferenceBundles/Vekora.bundle";
    std::filesystem::create_directory(bundle);
    for (const auto& entry :
        std::filesystem::directory_iterator(host::InstallationSources::ofThisBuild().bundle)) {
        // The module is linked into the test program, and too large to be copied for every test.
        if (entry.path().has_extension())
            std::filesystem::copy(entry.path(), bundle);
    }
}

std::filesystem::path SettingsTest::preferenceFile() const
{
    return installation.root() / "private/var/mobile/Library/Preferences/net.morvane.vekora.plist";
}

void SettingsTest::writePreferenceFile(const std::string& content) const
{
    writeTestFile(preferenceFile(), content);
}

void SettingsTest::storePreferences(const PropertyList& preferences)
{
    ASSERT_TRUE(NSMutableDictionary(preferences).writeToFileAtomically(vekora::preferencesPath, true));
    takeEvents();
}

std::optional<PropertyList> SettingsTest::storedPreferences() const
{
    const auto stored = NSMutableDictionary::dictionaryWithContentsOfFile(vekora::preferencesPath);
    return stored ? std::optional(stored->entries()) : std::nullopt;
}

void SettingsTest::installToggleFiles()
{
    writeTestFile(installation.root() / "Library/MobileSubstrate/DynamicLibraries/Flipswitch.dylib", "");
    writeTestFile(installation.root() / "Library/Switches/VekoraFS.bundle/VekoraFS", "");
}

void SettingsTest::registerToggleClass()
{
    auto registration
        = registerClass<RecordingPanel>("FSSwitchPanel")
              .classMethod("sharedPanel", &RecordingPanel::sharedPanel)
              .method("setState:forSwitchIdentifier:", &RecordingPanel::setStateForSwitchIdentifier)
              .method("stateForSwitchIdentifier:", &RecordingPanel::stateForSwitchIdentifier);
    _toggleClass = std::make_shared<TypedClassRegistration<RecordingPanel>>(std::move(registration));
}

void SettingsTest::installStatusBarLibrary()
{
    installation.installStatusBarLibrary();
}

void SettingsTest::setClock(double secondsSince1970)
{
    Device::current().standingClock = NSDate::dateWithTimeIntervalSince1970(secondsSince1970);
}

void SettingsTest::setPlace(const std::string& locale, const std::string& timeZone)
{
    Device::current().locale = locale;
    Device::current().timeZone = timeZone;
}

std::vector<std::string> SettingsTest::takeEvents()
{
    return std::exchange(_events, {});
}

void SettingsTest::note(const JournalEntry& entry)
{
    const auto event = describe(entry);
    if (event.empty())
        return;
    if (whenSomethingHappens)
        whenSomethingHappens(event);
    _events.push_back(event);
}

std::string withPlainBlanks(std::string text)
{
    const std::string narrow = "\u202f";
    for (auto at = text.find(narrow); at != std::string::npos; at = text.find(narrow))
        text.replace(at, narrow.size(), " ");
    return text;
}

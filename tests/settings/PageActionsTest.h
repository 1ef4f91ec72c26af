#pragma once

#include "SettingsTest.h"

#include "settings/VekoraListController.h"

using Events = std::vector<std::string>;

enum class Toggle { Absent, Present, WithoutClass };

/// What the page does to the file, the toggle and the notification centre, and in which order.
class PageActionsTest : public SettingsTest {
protected:
    void install(Toggle);
    /// A page with its rows.
    void open(const platform::PropertyList& preferences = { { "buttonColor", "#FF0000" } });
    /// Stores a value as a row with this key does.
    void set(const char* key, std::optional<platform::PropertyValue>);

    std::string statusName() const;
    /// In the snapshot, in seconds since 1970.
    double end() const;
    platform::NSDate in(double seconds) const;

    platform::Ref<vekora::VekoraListController> page;
};

#pragma once

#include "platform/Device.h"
#include "platform/Journal.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <vector>

/// A device with an empty file system of its own, laid out as every device has it, whose journal is kept.
class DeviceTest : public testing::Test {
protected:
    DeviceTest()
    {
        platform::Device::current().root = root().string();
        std::filesystem::create_directories(root() / "private/var/mobile/Library/Preferences");
        std::filesystem::create_symlink("private/var", root() / "var");
        _listener = platform::Journal::shared().listen(
            [this](const platform::JournalEntry& entry) { journal.push_back(entry); });
    }
    ~DeviceTest() override
    {
        platform::Journal::shared().stop(_listener);
        platform::Device::current() = _before;
    }

    std::filesystem::path root() const { return _folder.path() / "root"; }
    std::filesystem::path outside() const { return _folder.path(); }
    std::filesystem::path preferences() const { return root() / "private/var/mobile/Library/Preferences"; }

    std::vector<platform::JournalEntry> journal;

private:
    TemporaryFolder _folder;
    platform::Device _before = platform::Device::current();
    int _listener = 0;
};

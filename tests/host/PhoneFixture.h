#pragma once

#include "host/Phone.h"
#include "platform/Device.h"
#include "platform/PSListController.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

/// Phones with a root of their own, one at a time, in this process.
class PhoneTest : public testing::Test {
protected:
    ~PhoneTest() override
    {
        phone.reset();
        platform::Device::current() = _before;
    }

    /// With the project's own bundle, a clock that stands, and the same root each time.
    host::PhoneOptions options() const
    {
        host::PhoneOptions options;
        options.root = root().string();
        options.locale = "en_US";
        options.timeZone = "UTC";
        options.now = "2014-01-05T10:17:42Z";
        return options;
    }
    host::PhoneOptions optionsWithTestBundle() const
    {
        auto result = options();
        result.bundle = TEST_BUNDLE;
        return result;
    }
    std::filesystem::path root() const { return folder.path() / "root"; }
    std::filesystem::path preferenceFile() const
    {
        return root() / "private/var/mobile/Library/Preferences/net.morvane.vekora.plist";
    }

    host::Phone& open(const host::PhoneOptions& options)
    {
        phone.reset();
        phone = std::make_unique<host::Phone>(options);
        const auto error = phone->openBundle();
        EXPECT_EQ(error.value_or(""), "");
        phone->settle();
        return *phone;
    }

    platform::PSListController& page() const
    {
        return dynamic_cast<platform::PSListController&>(*phone->navigation().topViewController());
    }
    std::size_t depth() const { return phone->navigation().viewControllers().size(); }

    /// A tap on the middle of the row, as far as it takes scrolled into sight.
    void tapRow(std::string_view identifier) const
    {
        auto& list = page();
        const auto place = list.indexPathForSpecifier(list.specifierForID(identifier));
        ASSERT_TRUE(place) << identifier;
        list.table().scrollToRowAtIndexPath(*place);
        phone->settle();
        const auto row = list.table().convertRectToView(list.table().rectForRowAtIndexPath(*place), nullptr);
        tap({ row.midX(), row.midY() });
    }
    void tap(platform::CGPoint point) const
    {
        phone->window().touchBegan(point);
        phone->window().touchEnded(point);
        phone->settle();
    }

    /// The window's picture, pixel by pixel.
    std::vector<std::uint32_t> picture() const
    {
        phone->settle();
        const auto& bitmap = phone->window().picture();
        const auto count = static_cast<std::size_t>(bitmap.width) * static_cast<std::size_t>(bitmap.height);
        return { bitmap.pixels.get(), bitmap.pixels.get() + count };
    }

    TemporaryFolder folder;
    std::unique_ptr<host::Phone> phone;

private:
    platform::Device _before = platform::Device::current();
};

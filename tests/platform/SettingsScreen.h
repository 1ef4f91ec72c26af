#pragma once

#include "platform/Device.h"
#include "platform/PSListController.h"
#include "platform/UINavigationController.h"
#include "platform/UITextField.h"
#include "platform/UIWindow.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>

/// The bundle that the pages of the tests come from.
inline const std::string testBundle = "/Library/PreferenceBundles/Test.bundle";

/// Registers a page as if the module of the test bundle had been loaded.
template <typename Page> auto registerTestPage(std::string_view name)
{
    platform::Class::setBundlePathOfNewClasses(testBundle);
    auto registration = platform::registerClass<Page>(name).template initialiser<platform::CGSize>();
    platform::Class::setBundlePathOfNewClasses({});
    return registration;
}

/// A window of pages over a device's files of its own, touched the way a finger does it.
class SettingsScreen : public testing::Test {
protected:
    explicit SettingsScreen(platform::CGSize size = { 375, 667 })
        : before(platform::Device::current())
    {
        auto& device = platform::Device::current();
        device = {};
        device.root = root.path().string();
        device.screenSize = size;
        window = std::make_shared<platform::UIWindow>(size);
        window->setScale(2);
        window->makeKey();
        navigation = std::make_unique<platform::UINavigationController>(size);
        window->addSubview(navigation->viewRef());
    }

    ~SettingsScreen() override { platform::Device::current() = before; }

    /// Pages go while what a test has of its own is still there.
    void TearDown() override
    {
        navigation.reset();
        window.reset();
    }

    /// Below the device's root.
    void writeFile(const std::string& devicePath, const std::string& content)
    {
        writeTestFile(root.path().string() + devicePath, content);
    }
    std::string readFile(const std::string& devicePath)
    {
        return readTestFile(root.path().string() + devicePath);
    }

    /// Rows in XML, between <array> and </array>.
    void writeResource(
        const std::string& items, const std::string& more = {}, const std::string& name = "Test")
    {
        writeFile(testBundle + "/" + name + ".plist",
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" + more
                + "<key>items</key><array>" + items + "</array></dict></plist>");
    }

    template <typename Page> platform::Ref<Page> show(platform::Ref<Page> page)
    {
        navigation->setRoot(page);
        window->display();
        return page;
    }
    template <typename Page> platform::Ref<Page> show()
    {
        return show(std::make_shared<Page>(navigation->contentSize()));
    }

    platform::PSListController* top() const
    {
        return dynamic_cast<platform::PSListController*>(navigation->topViewController());
    }
    platform::PSTableCell* cell(long section, long row) const
    {
        return dynamic_cast<platform::PSTableCell*>(top()->table().cellForRowAtIndexPath({ section, row }));
    }
    template <typename Control> Control* control(long section, long row) const
    {
        return cell(section, row) ? dynamic_cast<Control*>(cell(section, row)->control()) : nullptr;
    }

    static platform::CGPoint middleOf(const platform::UIView& view)
    {
        const auto bounds = view.bounds();
        return view.convertPointToView({ bounds.midX(), bounds.midY() }, nullptr);
    }
    void tap(platform::CGPoint point)
    {
        window->display();
        window->touchBegan(point);
        window->touchEnded(point);
        window->display();
    }
    void tap(const platform::UIView& view)
    {
        window->display();
        tap(middleOf(view));
    }
    /// At the row's beginning, where no control is.
    void tapRow(long section, long row)
    {
        window->display();
        tap(cell(section, row)->convertPointToView({ 20, 20 }, nullptr));
    }
    void drag(platform::CGPoint from, platform::CGPoint to, int steps = 10)
    {
        window->display();
        window->touchBegan(from);
        for (int step = 1; step <= steps; ++step) {
            window->touchMoved(
                { from.x + (to.x - from.x) * step / steps, from.y + (to.y - from.y) * step / steps });
            window->display();
        }
        window->touchEnded(to);
        window->display();
    }

    TemporaryFolder root;
    platform::Ref<platform::UIWindow> window;
    std::unique_ptr<platform::UINavigationController> navigation;

private:
    platform::Device before;
};

/// One row of a resource.
inline std::string item(const std::string& cell, const std::string& label, const std::string& more = {})
{
    return "<dict><key>cell</key><string>" + cell + "</string><key>label</key><string>" + label + "</string>"
        + more + "</dict>";
}
inline std::string text(const std::string& key, const std::string& value)
{
    return "<key>" + key + "</key><string>" + value + "</string>";
}

#include "picker/VKColorPickerView_B.h"
#include "picker/VKColorPickerView_H.h"
#include "picker/VKColorPickerView_S.h"
#include "platform/Device.h"
#include "platform/UIWindow.h"
#include "tests/support/Snapshot.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace platform;
using namespace vekora;

namespace {

constexpr CGSize size { 320, 380 };

class ColorPickerSnapshots : public testing::Test {
protected:
    ColorPickerSnapshots()
    {
        Device::current().root = root.path().string();
        Device::current().scale = 2;
        const auto bundle = root.path() / "Library/PreferenceBundles/Vekora.bundle";
        std::filesystem::create_directories(bundle);
        for (const auto* const name : { "Selector.png", "Selector@2x.png" })
            std::filesystem::copy_file(std::filesystem::path(RESOURCES) / name, bundle / name);
    }
    ~ColorPickerSnapshots() override { Device::current() = {}; }

    template <typename Picker> testing::AssertionResult matches(const std::string& name)
    {
        const auto window = std::make_shared<UIWindow>(size);
        const auto picker = std::make_shared<Picker>(CGRect { 0, 0, size.width, size.height },
            UIColor::colorWithHueSaturationBrightnessAlpha(0.58, 0.7, 0.8, 1), nullptr, nullptr);
        window->addSubview(picker);
        window->display();
        std::vector<PixelRect> exact;
        for (const auto& view : picker->subviews()) {
            const auto frame = view->frame();
            if (view->layer().masksToBounds()) // The field and the bar.
                exact.push_back({ static_cast<int>(frame.x * 2), static_cast<int>(frame.y * 2),
                    static_cast<int>(frame.width * 2), static_cast<int>(frame.height * 2) });
        }
        EXPECT_EQ(exact.size(), 2U);
        return matchesSnapshot(window->picture(), name, exact);
    }

    TemporaryFolder root;
};

}

TEST_F(ColorPickerSnapshots, ShowTheKindWithBrightnessOnTheBar)
{
    EXPECT_TRUE(matches<VKColorPickerView_B>("picker-b"));
}

TEST_F(ColorPickerSnapshots, ShowTheKindWithHueOnTheBar)
{
    EXPECT_TRUE(matches<VKColorPickerView_H>("picker-h"));
}

TEST_F(ColorPickerSnapshots, ShowTheKindWithSaturationOnTheBar)
{
    EXPECT_TRUE(matches<VKColorPickerView_S>("picker-s"));
}

#pragma once

#include "tests/support/TemporaryFolder.h"

#include "colorcell/VKColorCell.h"
#include "picker/ColorPickerBase.h"

#include "platform/Device.h"
#include "platform/PSListController.h"
#include "platform/UIButton.h"
#include "platform/UISlider.h"
#include "platform/UIWindow.h"

#include <gtest/gtest.h>

namespace vekora::tests {

/// A colour cell in a window in memory, on a device that has nothing but preference files.
class ColorCellTest : public testing::Test {
protected:
    static constexpr std::string_view preferences
        = "/private/var/mobile/Library/Preferences/net.morvane.vekora.plist";

    ColorCellTest();
    ~ColorCellTest() override;

    /// Where the device's file lies on this machine.
    std::filesystem::path hostPath(std::string_view devicePath = preferences) const;
    void store(platform::PropertyList);
    /// What the preference file holds; nothing when there is none that can be read.
    std::optional<platform::PropertyList> stored() const;

    /// The cell for `row`, as the table keeps it.
    VKColorCell& makeCell();
    VKColorCell& cell() { return *_cell; }

    // The cell's views by their place, which is part of what is tested.
    template <typename View> View& child(std::size_t index)
    {
        return dynamic_cast<View&>(*cell().contentView().subviews().at(index));
    }
    platform::UILabel& hex() { return child<platform::UILabel>(0); }
    platform::UILabel& sample() { return child<platform::UILabel>(1); }
    platform::UISlider& slider(int channel) { return child<platform::UISlider>(8 + channel); }
    platform::UILabel& value(int channel) { return child<platform::UILabel>(11 + channel); }
    ColorPickerBase& picker() { return child<ColorPickerBase>(15); }

    /// Of the three sliders and their read-outs.
    std::vector<float> sliderValues();
    std::vector<std::string> valueTexts();
    /// "#RRGGBBAA".
    std::string sampleBackground();
    bool sampleTextIsWhite();

    // Touches, in the coordinates of a view.
    void press(const platform::UIView&, platform::CGPoint);
    void move(const platform::UIView&, platform::CGPoint);
    void release(const platform::UIView&, platform::CGPoint);
    void tap(const platform::UIView&); ///< In its middle.
    static platform::CGPoint middle(const platform::UIView&);
    /// The point to which the finger that holds the middle of the thumb has to go.
    platform::CGPoint thumbAt(platform::UISlider&, float value);

    /// The alert that can be answered; fails the test when there is none.
    platform::UIAlertView& alert();
    void answer(std::string_view button, std::optional<std::string> text = std::nullopt);

    /// "write PATH" and "post NAME" since the last call, in order. A post is bare and immediate, else it says
    /// what it is.
    std::vector<std::string> events();

    platform::Ref<platform::PSSpecifier> row;
    platform::Ref<platform::UIWindow> window;
    platform::Ref<VKColorCell> _cell;

private:
    TemporaryFolder _root;
    platform::Device _deviceBefore;
    int _listener;
    std::vector<std::string> _events;
};

/// What a finished edit does.
inline const std::vector<std::string> writtenAndPosted {
    "write /private/var/mobile/Library/Preferences/net.morvane.vekora.plist",
    "post net.morvane.vekora/preferences",
};
inline const std::vector<std::string> onlyPosted { "post net.morvane.vekora/preferences" };
inline const std::vector<std::string> nothing {};

}

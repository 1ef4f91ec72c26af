#pragma once

#include "ColorCellLayout.h"
#include "ColorString.h"

#include "platform/NSNumberFormatter.h"
#include "platform/PSTableCell.h"
#include "platform/UIAlertView.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace platform {
class UISlider;
}

namespace vekora {

class VKColorPickerView_B;
class VKColorPickerView_H;
class VKColorPickerView_S;

/// Edits one colour of a preference file with sliders, typed values and a picker, which follow each other
/// while an edit goes on; the file is written, and its readers told, when the edit ends.
///
/// Its row's properties: "key" and "defaults" name the colour and its file, "PostNotification" whom to tell,
/// "default" the colour that is shown without a stored one, "min" and "max" (0 and 255) the sliders' range,
/// "preferColorPicker" whether the picker lies above the sliders, and "type" a unit that the dialogs show.
class VKColorCell final : public platform::PSTableCell, public platform::UIAlertViewDelegate {
public:
    /// Lays itself out for the width that it has from its base class. The style is always the default one.
    VKColorCell(long style, std::string reuseIdentifier, platform::Ref<platform::PSSpecifier>);
    ~VKColorCell() override;

    void askUserForInputHex();
    void askUserForInputR();
    void askUserForInputG();
    void askUserForInputB();
    void alertViewClickedButtonAtIndex(platform::UIAlertView&, long buttonIndex) override;

    /// Whether text on the colour (each channel 0..255) should be white; opacity is 0..1.
    bool useWhiteFontWithGreenWithBlueWithOpacity(
        std::int32_t red, std::int32_t green, std::int32_t blue, float opacity) const;

    /// Shows the sliders' colour everywhere else, in the picker too if asked to.
    void setColors(bool updatePicker);
    void sliderTouchUpInsideOutsideAction(platform::UISlider*);
    void sliderValueChangedAction(platform::UISlider*);

private:
    /// What the cell has for each colour channel.
    struct Channel {
        const char* name;
        std::int32_t ColorChannels::*number;
        platform::Ref<platform::UILabel> VKColorCell::*title;
        platform::Ref<platform::UILabel> VKColorCell::*value;
        platform::Ref<platform::UISlider> VKColorCell::*slider;
        const char* askAction;
        long alertTag;
    };
    static const std::array<Channel, 3> channels;

    const platform::PropertyValue* property(std::string_view key) const;
    std::string readPreferences();
    ColorChannels showStoredColor(std::string_view text);

    void makeViews(const ColorCellLayout&);
    platform::Ref<platform::UISlider> makeSlider(platform::CGRect frame);
    void addViews();
    void makePicker(platform::CGRect frame, const platform::UIColor&);
    void makeHelp(platform::CGRect frame);

    ColorChannels colorOfSliders() const;
    void setSliders(ColorChannels);
    void showNumber(const Channel&);
    void showSampleAndHex(ColorChannels);
    void showSampleText(ColorChannels);
    void colorsHaveChanged(const platform::UIColor&);
    std::string preferencesPath() const;
    void saveChanges();

    void askForChannel(const Channel&);
    platform::Ref<platform::UIAlertView> showQuestion(std::string message, long tag);
    std::string unit() const;
    void takeNumber(const Channel&, std::string_view text);
    void takeHex(std::string_view text);

    platform::Ref<platform::UILabel> hexColorField;
    platform::Ref<platform::UILabel> buttonColorField;
    platform::Ref<platform::UILabel> titleR, titleG, titleB;
    platform::Ref<platform::UILabel> valueR, valueG, valueB;
    platform::Ref<platform::UISlider> sliderR, sliderG, sliderB;
    /// One of them, for good.
    platform::Ref<VKColorPickerView_H> colorPickerView_H;
    platform::Ref<VKColorPickerView_S> colorPickerView_S;
    platform::Ref<VKColorPickerView_B> colorPickerView_B;
    float min = 0;
    float max = 0;
    float buttonAlphaLevel = 1;
    platform::NSNumberFormatter formatter;
    std::optional<std::string> specifierObject;
    std::optional<std::string> defaults;
    std::optional<std::string> PostNotification;
    std::int32_t colorPickerType = 0;
};

}

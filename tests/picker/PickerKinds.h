#pragma once

#include "PickerPrinting.h"

#include "picker/VKColorPickerView_B.h"
#include "picker/VKColorPickerView_H.h"
#include "picker/VKColorPickerView_S.h"

#include <string>

/// What the kinds name differently, for tests that hold for all of them, and what each must do. Each kind is
/// written out by hand: nothing here looks at the kinds' own plans.
namespace vekora::test {

using namespace platform;

struct Hsb {
    double hue = 0;
    double saturation = 0;
    double brightness = 0;

    bool operator==(const Hsb&) const = default;
};

inline void PrintTo(const Hsb& hsb, std::ostream* out)
{
    *out << "hue " << hsb.hue << ", saturation " << hsb.saturation << ", brightness " << hsb.brightness;
}

template <typename Picker> struct Kind;

template <> struct Kind<VKColorPickerView_B> {
    using Picker = VKColorPickerView_B;
    static constexpr auto className = "VKColorPickerView_B";
    static constexpr auto fieldClass = "VKHueSaturationView";
    static constexpr auto barClass = "VKBrightnessSliderView";

    static UIView& field(Picker& picker) { return *picker.hueSaturationView(); }
    static UIButton& fieldEater(Picker& picker) { return *picker.touchEaterHueSaturation(); }
    static UIView& bar(Picker& picker) { return *picker.brightnessGradientView(); }
    static UIButton& barEater(Picker& picker) { return *picker.touchEaterBrightness(); }
    static UIImageView& barSelector(Picker& picker) { return *picker.brightnessSelector(); }
    static UILabel& topLeft(Picker& picker) { return *picker.currentSaturationLabel(); }
    static UILabel& topRight(Picker& picker) { return *picker.currentHueLabel(); }
    static UILabel& caption(Picker& picker) { return *picker.currentBrightnessLabel(); }

    static constexpr auto captionTitle = "Brightness:";
    static constexpr long topLeftTag = 3028;
    static constexpr long topRightTag = 3026;
    static constexpr long captionTag = 3027;

    static std::string hueText(const std::string& degrees) { return degrees + "° : Hue"; }
    static std::string saturationText(const std::string& percent) { return "Saturation: " + percent + "%"; }
    static std::string brightnessText(const std::string& percent) { return percent + "%"; }

    /// The components after a touch in the field, `across` and `down` being shares of its sides.
    static Hsb fromField(Hsb before, double across, double down)
    {
        return { across, 1 - down, before.brightness };
    }
    static Hsb fromBar(Hsb before, double across) { return { before.hue, before.saturation, 1 - across }; }

    static CGPoint crossHairs(Hsb hsb, CGRect field)
    {
        return { hsb.hue * field.width + field.x, (1 - hsb.saturation) * field.height + field.y };
    }
    static double barSelectorX(Hsb hsb, CGRect bar) { return (1 - hsb.brightness) * bar.width + bar.x; }

    static void updateBarSelectorPosition(Picker& picker) { picker._updateBrightnessSelectorPosition(); }
    static void updateBarSelector(Picker& picker) { picker._updateBrightnessSelector(); }
    static void updateFieldSelector(Picker& picker) { picker._updateHueSaturationSelector(); }
    static void updateFieldWithTouch(Picker& picker, CGPoint touch)
    {
        picker._updateHueSaturationWithTouch(touch);
    }
    static void updateBarWithTouch(Picker& picker, CGPoint touch)
    {
        picker._updateBrightnessWithTouch(touch);
    }
};

template <> struct Kind<VKColorPickerView_H> {
    using Picker = VKColorPickerView_H;
    static constexpr auto className = "VKColorPickerView_H";
    static constexpr auto fieldClass = "VKBrightnessSaturationView";
    static constexpr auto barClass = "VKHueSliderView";

    static UIView& field(Picker& picker) { return *picker.brightnessSaturationView(); }
    static UIButton& fieldEater(Picker& picker) { return *picker.touchEaterBrightnessSaturation(); }
    static UIView& bar(Picker& picker) { return *picker.hueGradientView(); }
    static UIButton& barEater(Picker& picker) { return *picker.touchEaterHueSaturation(); }
    static UIImageView& barSelector(Picker& picker) { return *picker.hueSelector(); }
    static UILabel& topLeft(Picker& picker) { return *picker.currentBrightnessLabel(); }
    static UILabel& topRight(Picker& picker) { return *picker.currentSaturationLabel(); }
    static UILabel& caption(Picker& picker) { return *picker.currentHueLabel(); }

    static constexpr auto captionTitle = "Hue:";
    static constexpr long topLeftTag = 3027;
    static constexpr long topRightTag = 3028;
    static constexpr long captionTag = 3026;

    static std::string hueText(const std::string& degrees) { return degrees + "°"; }
    static std::string saturationText(const std::string& percent) { return percent + "% :Saturation"; }
    static std::string brightnessText(const std::string& percent) { return "Brightness: " + percent + "%"; }

    static Hsb fromField(Hsb before, double across, double down) { return { before.hue, across, 1 - down }; }
    static Hsb fromBar(Hsb before, double across) { return { across, before.saturation, before.brightness }; }

    static CGPoint crossHairs(Hsb hsb, CGRect field)
    {
        return { hsb.saturation * field.width + field.x, (1 - hsb.brightness) * field.height + field.y };
    }
    static double barSelectorX(Hsb hsb, CGRect bar) { return hsb.hue * bar.width + bar.x; }

    static void updateBarSelectorPosition(Picker& picker) { picker._updateHueSelectorPosition(); }
    static void updateBarSelector(Picker& picker) { picker._updateHueSelector(); }
    static void updateFieldSelector(Picker& picker) { picker._updateBrigntessSaturationSelector(); }
    static void updateFieldWithTouch(Picker& picker, CGPoint touch)
    {
        picker._updateBrightnessSaturationWithTouch(touch);
    }
    static void updateBarWithTouch(Picker& picker, CGPoint touch) { picker._updateHueWithTouch(touch); }
};

template <> struct Kind<VKColorPickerView_S> {
    using Picker = VKColorPickerView_S;
    static constexpr auto className = "VKColorPickerView_S";
    static constexpr auto fieldClass = "VKHueBrightnessView";
    static constexpr auto barClass = "VKSaturationSliderView";

    static UIView& field(Picker& picker) { return *picker.hueBrightnessView(); }
    static UIButton& fieldEater(Picker& picker) { return *picker.touchEaterHueBrightness(); }
    static UIView& bar(Picker& picker) { return *picker.saturationGradientView(); }
    static UIButton& barEater(Picker& picker) { return *picker.touchEaterSaturation(); }
    static UIImageView& barSelector(Picker& picker) { return *picker.saturationSelector(); }
    static UILabel& topLeft(Picker& picker) { return *picker.currentBrightnessLabel(); }
    static UILabel& topRight(Picker& picker) { return *picker.currentHueLabel(); }
    static UILabel& caption(Picker& picker) { return *picker.currentSaturationLabel(); }

    static constexpr auto captionTitle = "Saturation:";
    static constexpr long topLeftTag = 3027;
    static constexpr long topRightTag = 3026;
    static constexpr long captionTag = 3028;

    static std::string hueText(const std::string& degrees) { return degrees + "° : Hue"; }
    static std::string saturationText(const std::string& percent) { return percent + "%"; }
    static std::string brightnessText(const std::string& percent) { return "Brightness: " + percent + "%"; }

    static Hsb fromField(Hsb before, double across, double down)
    {
        return { across, before.saturation, 1 - down };
    }
    static Hsb fromBar(Hsb before, double across) { return { before.hue, 1 - across, before.brightness }; }

    static CGPoint crossHairs(Hsb hsb, CGRect field)
    {
        return { hsb.hue * field.width + field.x, (1 - hsb.brightness) * field.height + field.y };
    }
    static double barSelectorX(Hsb hsb, CGRect bar) { return (1 - hsb.saturation) * bar.width + bar.x; }

    static void updateBarSelectorPosition(Picker& picker) { picker._updateSaturationSelectorPosition(); }
    static void updateBarSelector(Picker& picker) { picker._updateSaturationSelector(); }
    static void updateFieldSelector(Picker& picker) { picker._updateHueBrigntesSelector(); }
    static void updateFieldWithTouch(Picker& picker, CGPoint touch)
    {
        picker._updateHueBrightnessWithTouch(touch);
    }
    static void updateBarWithTouch(Picker& picker, CGPoint touch)
    {
        picker._updateSaturationWithTouch(touch);
    }
};

}

#pragma once

#include "ColorCellTest.h"

#include "picker/VKColorPickerView_H.h"

namespace vekora::tests {

/// A cell of an orange with the picker of the kind H, on a device whose file has more than the colour.
class ColorCellEdit : public ColorCellTest {
protected:
    ColorCellEdit()
    {
        store({ { "buttonColor", "#FF8800" }, { "buttonText", "Wake" }, { "enabled", true },
            { "colorPickerType", 0 }, { "other", platform::PropertyArray { 1, "two" } } });
        makeCell();
    }

    void holdThumb(int channel) { press(slider(channel), middleOfThumb(channel)); }
    platform::CGPoint middleOfThumb(int channel)
    {
        const auto thumb = slider(channel).thumbRect();
        return { thumb.midX(), thumb.midY() };
    }
    /// To about the middle between two whole values.
    void moveThumb(int channel, float value) { move(slider(channel), thumbAt(slider(channel), value)); }
    void releaseThumb(int channel) { release(slider(channel), middleOfThumb(channel)); }

    std::string shownInPicker() { return hexDescription(*picker().crossHairs()->layer().backgroundColor()); }

    VKColorPickerView_H& huePicker() { return dynamic_cast<VKColorPickerView_H&>(picker()); }
    platform::UIView& field() { return *huePicker().touchEaterBrightnessSaturation(); }
    platform::UIView& bar() { return *huePicker().touchEaterHueSaturation(); }
};

}

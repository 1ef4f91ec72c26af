#pragma once

#include "PickerKinds.h"

#include "platform/UIAlertView.h"
#include "platform/UIWindow.h"

#include <gtest/gtest.h>
#include <vector>

namespace vekora::test {

/// The alert in front; null when there is none.
inline UIAlertView* shownAlert(UIWindow& window)
{
    const auto& views = window.subviews();
    for (auto view = views.rbegin(); view != views.rend(); ++view) {
        if (auto* alert = dynamic_cast<UIAlertView*>(view->get()))
            return alert;
    }
    return nullptr;
}

inline UIButton* buttonTitled(const UIView& view, const std::string& title)
{
    for (const auto& subview : view.subviews()) {
        if (auto* button = dynamic_cast<UIButton*>(subview.get()); button && button->currentTitle() == title)
            return button;
        if (auto* button = buttonTitled(*subview, title))
            return button;
    }
    return nullptr;
}

/// As a finger does it.
inline void tapAlertButton(UIWindow& window, UIAlertView& alert, const std::string& title)
{
    window.layoutIfNeeded();
    auto* const button = buttonTitled(alert, title);
    ASSERT_TRUE(button) << "no button " << title;
    const auto size = button->bounds();
    const auto middle = button->convertPointToView({ size.width / 2, size.height / 2 }, nullptr);
    window.touchBegan(middle);
    window.touchEnded(middle);
}

/// A picker of some kind in a window, away from its origin, with blocks that write down what they are told.
template <typename Picker> class EveryColorPicker : public testing::Test {
protected:
    using Its = Kind<Picker>;
    static constexpr CGPoint origin { 16, 24 };

    EveryColorPicker()
        : window({ 720, 640 })
    {
        window.makeKey();
        show();
    }

    Ref<Picker> make(CGSize size, const std::optional<UIColor>& color)
    {
        return std::make_shared<Picker>(
            CGRect { origin.x, origin.y, size.width, size.height }, color,
            [this](const UIColor& told) { changed.push_back(told); },
            [this](const UIColor& told) { saved.push_back(told); });
    }

    /// Replaces the picker shown. Heights are chosen so that the field's is 256.
    void show(const std::optional<UIColor>& color = UIColor::redColor(), CGFloat width = 276)
    {
        if (picker)
            picker->removeFromSuperview();
        const auto line = make({ width, 380 }, color)->labelHeight;
        picker = make({ width, 356 + line }, color);
        window.addSubview(picker);
        window.display();
    }

    // Fingers, in the picker's coordinates.
    void touch(CGPoint point) { window.touchBegan(inWindow(point)); }
    void move(CGPoint point) { window.touchMoved(inWindow(point)); }
    void lift(CGPoint point) { window.touchEnded(inWindow(point)); }
    void tap(CGPoint point)
    {
        touch(point);
        lift(point);
    }
    void tapView(const UIView& view) { tap({ view.frame().midX(), view.frame().midY() }); }
    static CGPoint inWindow(CGPoint point) { return { point.x + origin.x, point.y + origin.y }; }

    /// A point of field or bar, by shares of its sides.
    CGPoint inField(double across, double down) { return inside(Its::field(*picker).frame(), across, down); }
    CGPoint inBar(double across, double down = 0.5)
    {
        return inside(Its::bar(*picker).frame(), across, down);
    }
    static CGPoint inside(CGRect rect, double across, double down)
    {
        return { rect.x + across * rect.width, rect.y + down * rect.height };
    }

    Hsb shown() const { return { picker->currentHue, picker->currentSaturation, picker->currentBrightness }; }
    UIColor shownColor() const
    {
        return UIColor::colorWithHueSaturationBrightnessAlpha(
            picker->currentHue, picker->currentSaturation, picker->currentBrightness, 1);
    }

    UIAlertView& alert()
    {
        auto* const alert = shownAlert(window);
        if (!alert)
            ADD_FAILURE() << "no alert is shown";
        return *alert;
    }
    void answer(const std::string& text, const std::string& button)
    {
        auto* const shown = shownAlert(window);
        ASSERT_TRUE(shown);
        shown->textFieldAtIndex(0)->setText(text);
        tapAlertButton(window, *shown, button);
    }

    UIWindow window;
    std::vector<UIColor> changed;
    std::vector<UIColor> saved;
    Ref<Picker> picker;
};

using Kinds = testing::Types<VKColorPickerView_B, VKColorPickerView_H, VKColorPickerView_S>;

struct KindNames {
    template <typename Picker> static std::string GetName(int) { return Kind<Picker>::className; }
};

}

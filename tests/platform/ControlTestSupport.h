#pragma once

#include "platform/Device.h"
#include "platform/UIControl.h"
#include "platform/UIWindow.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// Writes down which actions it was sent, in order.
class ActionLog final : public platform::NSObject {
public:
    std::vector<std::string> actions;
    std::function<void()> onAction; ///< Called after each.

    void listenTo(platform::UIControl&);
    long count(const std::string& action) const;

    void down() { write("down"); }
    void dragInside() { write("dragInside"); }
    void upInside() { write("upInside"); }
    void upOutside() { write("upOutside"); }
    void valueChanged() { write("valueChanged"); }
    void editingBegan() { write("editingBegan"); }
    void edited() { write("edited"); }
    void editingEnded() { write("editingEnded"); }

private:
    void write(const char* action);
};

/// A window of 320 by 480 points at two pixels a point, which has the keys.
class ControlTest : public testing::Test {
protected:
    ControlTest();
    ~ControlTest() override;

    template <typename View> std::shared_ptr<View> add(std::shared_ptr<View> view, platform::CGRect frame)
    {
        view->setFrame(frame);
        window->addSubview(view);
        return view;
    }
    void tap(platform::CGPoint);
    /// In the middle of the view.
    void tap(const platform::UIView&);
    void drag(platform::CGPoint from, platform::CGPoint to, int steps = 1);
    void setScreen(platform::CGSize, double scale);
    /// 0xAARRGGBB of the picture at a point, after displaying it.
    std::uint32_t pixelAt(platform::CGPoint);

    platform::Device _deviceBefore = platform::Device::current();
    platform::Ref<platform::UIWindow> window;
    platform::Ref<ActionLog> log = std::make_shared<ActionLog>();
};

std::uint32_t pixelOf(const platform::UIColor&);

#include "ControlTestSupport.h"

#include <algorithm>
#include <cmath>

using namespace platform;

namespace {

const auto registration = registerClass<ActionLog>("ActionLog")
                              .method("down", &ActionLog::down)
                              .method("dragInside", &ActionLog::dragInside)
                              .method("upInside", &ActionLog::upInside)
                              .method("upOutside", &ActionLog::upOutside)
                              .method("valueChanged", &ActionLog::valueChanged)
                              .method("editingBegan", &ActionLog::editingBegan)
                              .method("edited", &ActionLog::edited)
                              .method("editingEnded", &ActionLog::editingEnded);

}

void ActionLog::listenTo(UIControl& control)
{
    control.addTargetActionForControlEvents(this, "down", UIControlEventTouchDown);
    control.addTargetActionForControlEvents(this, "dragInside", UIControlEventTouchDragInside);
    control.addTargetActionForControlEvents(this, "upInside", UIControlEventTouchUpInside);
    control.addTargetActionForControlEvents(this, "upOutside", UIControlEventTouchUpOutside);
    control.addTargetActionForControlEvents(this, "valueChanged", UIControlEventValueChanged);
    control.addTargetActionForControlEvents(this, "editingBegan", UIControlEventEditingDidBegin);
    control.addTargetActionForControlEvents(this, "edited", UIControlEventEditingChanged);
    control.addTargetActionForControlEvents(this, "editingEnded", UIControlEventEditingDidEnd);
}

long ActionLog::count(const std::string& action) const
{
    return std::count(actions.begin(), actions.end(), action);
}

void ActionLog::write(const char* action)
{
    actions.emplace_back(action);
    if (onAction)
        onAction();
}

ControlTest::ControlTest()
{
    Device::current() = {};
    window = std::make_shared<UIWindow>(CGSize { 320, 480 });
    window->setScale(Device::current().scale);
    window->makeKey();
}

ControlTest::~ControlTest()
{
    window = nullptr;
    Device::current() = _deviceBefore;
}

void ControlTest::tap(CGPoint point)
{
    window->touchBegan(point);
    window->touchEnded(point);
    window->display();
}

void ControlTest::tap(const UIView& view)
{
    window->display();
    const auto bounds = view.bounds();
    tap(view.convertPointToView({ bounds.midX(), bounds.midY() }, nullptr));
}

void ControlTest::drag(CGPoint from, CGPoint to, int steps)
{
    window->touchBegan(from);
    for (int step = 1; step <= steps; ++step) {
        const auto part = static_cast<double>(step) / steps;
        window->touchMoved({ from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part });
    }
    window->touchEnded(to);
    window->display();
}

void ControlTest::setScreen(CGSize size, double scale)
{
    Device::current().screenSize = size;
    Device::current().scale = scale;
    window->setScale(scale);
    window->setFrame({ 0, 0, size.width, size.height });
    window->display();
}

std::uint32_t ControlTest::pixelAt(CGPoint point)
{
    window->display();
    const auto scale = window->scale();
    return window->picture().at(
        static_cast<int>(std::floor(point.x * scale)), static_cast<int>(std::floor(point.y * scale)));
}

std::uint32_t pixelOf(const UIColor& color)
{
    const auto rgba = color.cgColor().rgba();
    std::uint32_t result = 0xFF;
    for (int channel = 0; channel < 3; ++channel)
        result = result << 8 | static_cast<std::uint32_t>(std::floor(rgba[channel] * 255 + 0.5));
    return result;
}

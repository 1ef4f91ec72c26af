#pragma once

#include "Bitmap.h"
#include "Device.h"
#include "UIViewImpl.h"
#include "UIWindow.h"

#include <functional>
#include <memory>
#include <vector>

namespace platform {

/// The state of a window.
struct UIWindow::WindowImpl : UIView::Impl {
    using Impl::Impl;

    void deliver(UITouchPhase, CGPoint location, double timestamp);

    double scale = Device::current().scale;
    Bitmap picture;
    std::vector<PixelRect> damaged;
    std::shared_ptr<UIEvent> event; ///< Of the finger that is down.
    CGPoint lastLocation;
    InputObserver* observer = nullptr;
    UITextField* firstResponder = nullptr;
    const UIView* firstResponderView = nullptr; ///< The same, for when only its view is left of it.
    std::function<void()> needsDisplayHandler;
    bool handlerCalled = false;
    bool hasPainted = false; ///< In the present pass.
};

}

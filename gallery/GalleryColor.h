#pragma once

#include "platform/UIColor.h"

#include <functional>
#include <map>

namespace gallery {

/// The one colour that everything in the gallery shows. Whoever changes it tells everybody else.
class GalleryColor {
public:
    using Observer = std::function<void(const platform::UIColor&)>;

    static GalleryColor& shared();

    const platform::UIColor& color() const { return _color; }
    /// Tells every observer but the one named.
    void setColor(const platform::UIColor&, int exceptObserver = 0);

    /// Returns a number, never 0, to stop observing with.
    int observe(Observer);
    void stop(int observer);

private:
    platform::UIColor _color = platform::UIColor::colorWithHueSaturationBrightnessAlpha(0.58, 0.8, 0.9, 1);
    std::map<int, Observer> _observers;
    int _next = 1;
};

}

#include "GalleryColor.h"

namespace gallery {

GalleryColor& GalleryColor::shared()
{
    static GalleryColor color;
    return color;
}

void GalleryColor::setColor(const platform::UIColor& color, int exceptObserver)
{
    _color = color;
    const auto observers = _observers;
    for (const auto& [number, observer] : observers) {
        if (number != exceptObserver)
            observer(color);
    }
}

int GalleryColor::observe(Observer observer)
{
    _observers[_next] = std::move(observer);
    return _next++;
}

void GalleryColor::stop(int observer)
{
    _observers.erase(observer);
}

}

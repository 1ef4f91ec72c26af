#include "Surface.h"

#include "platform/UIButton.h"
#include "platform/UILabel.h"

#include <algorithm>
#include <cmath>

namespace host {

using namespace platform;

namespace {

// Handles are placed through single precision now and then; what is this near a whole unit is one.
constexpr double wholeEnough = 1e-3;

constexpr SurfaceAxis hue { "hue", 360, "degrees", false };
constexpr SurfaceAxis saturation { "saturation", 100, "percent", false };
constexpr SurfaceAxis fallingSaturation { "saturation", 100, "percent", true };
constexpr SurfaceAxis fallingBrightness { "brightness", 100, "percent", true };
constexpr SurfaceAxis horizontal { "horizontal", 100, "percent", false };
constexpr SurfaceAxis vertical { "vertical", 100, "percent", true };

constexpr SurfaceKind kinds[] = {
    { "VKHueSaturationView", "Hue and saturation", { hue, fallingSaturation } },
    { "VKBrightnessSaturationView", "Saturation and brightness", { saturation, fallingBrightness } },
    { "VKHueBrightnessView", "Hue and brightness", { hue, fallingBrightness } },
    { "VKBrightnessSliderView", "Brightness", { fallingBrightness, std::nullopt } },
    { "VKHueSliderView", "Hue", { hue, std::nullopt } },
    { "VKSaturationSliderView", "Saturation", { fallingSaturation, std::nullopt } },
};
constexpr SurfaceKind unknownField { "", "Field", { horizontal, vertical } };
constexpr SurfaceKind unknownBar { "", "Bar", { horizontal, std::nullopt } };
constexpr SurfaceKind unknownColumn { "", "Bar", { std::nullopt, vertical } };

bool followsDrags(const UIControl& control)
{
    const auto* const button = dynamic_cast<const UIButton*>(&control);
    return button && button->currentTitle().empty()
        && (control.allControlEvents() & UIControlEventTouchDragInside);
}

bool contains(CGRect rect, CGPoint point)
{
    // The far edges as well: a handle may stand there.
    return point.x >= rect.minX() && point.x <= rect.maxX() && point.y >= rect.minY()
        && point.y <= rect.maxY();
}

bool canBeHandle(const UIView& view, CGRect pad)
{
    const auto frame = view.frame();
    const bool isSmaller = frame.width < pad.width / 2 || frame.height < pad.height / 2;
    return !view.isHidden() && isSmaller && !frame.isEmpty() && !dynamic_cast<const UILabel*>(&view)
        && !dynamic_cast<const UIControl*>(&view) && contains(pad, view.center());
}

const SurfaceKind& kindFor(const UIView& ground, CGRect pad, CGRect handle)
{
    if (const auto* const known = surfaceKindNamed(ground.className()))
        return *known;
    if (handle.height >= pad.height)
        return unknownBar;
    return handle.width >= pad.width ? unknownColumn : unknownField;
}

struct Side {
    CGFloat begin;
    CGFloat length;
    CGFloat handle;
};

Side sideOf(const Surface& surface, int part)
{
    const auto frame = surface.pad->frame();
    const auto handle = surface.handle->center();
    return part == 0 ? Side { frame.x, frame.width, handle.x } : Side { frame.y, frame.height, handle.y };
}

}

const SurfaceKind* surfaceKindNamed(std::string_view className)
{
    const auto* const found = std::find_if(
        std::begin(kinds), std::end(kinds), [&](const auto& kind) { return kind.className == className; });
    return found == std::end(kinds) ? nullptr : found;
}

ElementValue Surface::value(int part) const
{
    const auto& meaning = *axis(part);
    const auto side = sideOf(*this, part);
    const double share = side.length > 0 ? std::clamp((side.handle - side.begin) / side.length, 0.0, 1.0) : 0;
    const double exact = (meaning.falls ? 1 - share : share) * meaning.units;
    const double whole = std::round(exact);
    return { std::abs(exact - whole) < wholeEnough ? whole : exact, 0, meaning.units, 1 };
}

CGPoint Surface::placeFor(int part, double value) const
{
    const auto frame = pad->frame();
    const auto place = [&](int other) -> CGFloat {
        const auto& meaning = axis(other);
        const auto side = sideOf(*this, other);
        if (!meaning)
            return side.length / 2;
        if (other != part)
            return std::clamp(side.handle - side.begin, 0.0, side.length);
        const double share = std::clamp(value / meaning->units, 0.0, 1.0);
        return (meaning->falls ? 1 - share : share) * side.length;
    };
    // The pad's own coordinates begin where its bounds do.
    return { pad->bounds().x + std::min(place(0), frame.width),
        pad->bounds().y + std::min(place(1), frame.height) };
}

std::string Surface::summary() const
{
    std::string text;
    for (int part = 0; part < 2; ++part) {
        if (!axis(part))
            continue;
        if (!text.empty())
            text += ", ";
        const auto units = std::lround(value(part).value);
        text += std::string(axis(part)->name) + " " + std::to_string(units) + " "
            + std::string(axis(part)->unit);
    }
    return text;
}

std::optional<Surface> surfaceOf(UIControl& pad)
{
    const auto* const container = pad.superview();
    if (!container || !followsDrags(pad) || pad.frame().isEmpty())
        return std::nullopt;
    Surface surface { &pad, &pad, nullptr, nullptr };
    for (const auto& sibling : container->subviews()) {
        if (sibling.get() == &pad)
            continue;
        if (canBeHandle(*sibling, pad.frame()))
            surface.handle = sibling.get();
        else if (sibling->frame() == pad.frame() && !dynamic_cast<UIControl*>(sibling.get()))
            surface.ground = sibling.get();
    }
    if (!surface.handle)
        return std::nullopt;
    surface.kind = &kindFor(*surface.ground, pad.frame(), surface.handle->frame());
    return surface;
}

}

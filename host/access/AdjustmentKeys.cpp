#include "AdjustmentKeys.h"

#include "platform/UIControl.h"
#include "Surface.h"

#include <algorithm>

namespace host {

using namespace platform;

namespace {

constexpr double manySteps = 10;

enum class Way { Across, Down };
enum class Effect { Left, Right, More, Less, Least, Most };

struct KeyRule {
    int key;
    Way way; ///< On a field.
    Effect effect;
    double steps;
};

constexpr KeyRule keyRules[] = {
    { Qt::Key_Left, Way::Across, Effect::Left, 1 },
    { Qt::Key_Right, Way::Across, Effect::Right, 1 },
    { Qt::Key_Up, Way::Down, Effect::More, 1 },
    { Qt::Key_Down, Way::Down, Effect::Less, 1 },
    { Qt::Key_PageUp, Way::Down, Effect::More, manySteps },
    { Qt::Key_PageDown, Way::Down, Effect::Less, manySteps },
    { Qt::Key_Home, Way::Across, Effect::Least, 0 },
    { Qt::Key_End, Way::Across, Effect::Most, 0 },
};

/// The value lies the other way round: its greatest is at the left, or at the top.
bool falls(const Element& element)
{
    auto* const pad = dynamic_cast<UIControl*>(element.id.get());
    const auto surface = pad ? surfaceOf(*pad) : std::nullopt;
    return surface && surface->axis(element.id.part) && surface->axis(element.id.part)->falls;
}

/// Whether the effect makes the value more (1) or less (-1).
double signOf(Effect effect, const Element& element)
{
    const bool isDown = element.id.part == 1; // Its handle moves up and down, and so do the keys.
    switch (effect) {
    case Effect::More:
    case Effect::Less:
        return (effect == Effect::More) == (!isDown || falls(element)) ? 1 : -1;
    case Effect::Left:
    case Effect::Right:
        return (effect == Effect::Right) == (isDown || !falls(element)) ? 1 : -1;
    case Effect::Least:
    case Effect::Most:
        break;
    }
    return 0;
}

std::optional<Adjustment> adjustSegments(const Element& segments, Effect effect)
{
    const auto count = static_cast<double>(segments.children.size());
    const auto chosen = std::find_if(segments.children.begin(), segments.children.end(),
        [](const auto& segment) { return segment.chosen; });
    const auto now
        = chosen == segments.children.end() ? -1.0 : static_cast<double>(chosen - segments.children.begin());
    switch (effect) {
    case Effect::Left:
        return Adjustment { segments, std::max(0.0, now - 1) };
    case Effect::Right:
        return Adjustment { segments, std::min(count - 1, now + 1) };
    case Effect::Least:
        return Adjustment { segments, 0 };
    case Effect::Most:
        return Adjustment { segments, count - 1 };
    case Effect::More:
    case Effect::Less:
        break;
    }
    return std::nullopt;
}

const Element* axisOf(const Element& field, int part)
{
    const auto found = std::find_if(
        field.children.begin(), field.children.end(), [&](const auto& axis) { return axis.id.part == part; });
    return found == field.children.end() ? nullptr : &*found;
}

}

std::optional<Adjustment> adjustmentFor(const Element& element, int key, Qt::KeyboardModifiers modifiers)
{
    const auto rule = std::find_if(
        std::begin(keyRules), std::end(keyRules), [&](const auto& known) { return known.key == key; });
    if (rule == std::end(keyRules))
        return std::nullopt;
    if (element.id.role == ElementRole::Segments)
        return adjustSegments(element, rule->effect);

    const bool isEnd = rule->effect == Effect::Least || rule->effect == Effect::Most;
    const auto* target = &element;
    if (element.id.role == ElementRole::Field) {
        const bool isDown = rule->way == Way::Down || (isEnd && modifiers.testFlag(Qt::ControlModifier));
        target = axisOf(element, isDown ? 1 : 0);
    }
    if (!target || !hasValue(target->id.role))
        return std::nullopt;
    const auto& range = target->value;
    if (isEnd)
        return Adjustment { *target, rule->effect == Effect::Least ? range.least : range.most };
    const bool isMany = modifiers & (Qt::ShiftModifier | Qt::ControlModifier);
    const auto steps = isMany ? manySteps : rule->steps;
    const auto wanted = range.value + signOf(rule->effect, *target) * steps * range.step;
    return Adjustment { *target, std::clamp(wanted, range.least, range.most) };
}

}

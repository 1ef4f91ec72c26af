#include "Element.h"

#include "platform/UIView.h"

#include <algorithm>
#include <array>

namespace host {

using namespace platform;

namespace {

void collectFocusable(const Element& element, std::vector<const Element*>& found)
{
    if (takesKeyboardFocus(element))
        found.push_back(&element);
    for (const auto& child : element.children)
        collectFocusable(child, found);
}

}

UIView* ElementId::get() const
{
    return static_cast<UIView*>(view.get());
}

bool ElementId::operator==(const ElementId& other) const
{
    const auto* const mine = view.get();
    return mine && mine == other.view.get() && role == other.role && part == other.part;
}

bool takesKeyboardFocus(const Element& element)
{
    using enum ElementRole;
    static constexpr std::array stops { Button, Link, Choice, Switch, Slider, Segments, TextField, Field,
        ColorBar };
    return element.enabled && std::find(stops.begin(), stops.end(), element.id.role) != stops.end();
}

bool hasValue(ElementRole role)
{
    return role == ElementRole::Slider || role == ElementRole::Axis || role == ElementRole::ColorBar;
}

std::vector<const Element*> focusableElements(const Element& root)
{
    std::vector<const Element*> found;
    collectFocusable(root, found);
    return found;
}

const Element* findElement(const Element& root, const ElementId& id)
{
    if (root.id == id)
        return &root;
    for (const auto& child : root.children) {
        if (const auto* found = findElement(child, id))
            return found;
    }
    return nullptr;
}

}

#include "ElementIndex.h"

#include <functional>

namespace host {

ElementKey::ElementKey(const ElementId& id)
    : view(id.view.get())
    , role(id.role)
    , part(id.part)
{
}

std::size_t ElementKeyHash::operator()(const ElementKey& key) const
{
    // Views lie further apart than a view has roles and parts.
    constexpr std::size_t roles = 32;
    const auto rest = static_cast<std::size_t>(key.part) * roles + static_cast<std::size_t>(key.role);
    return std::hash<const void*> {}(key.view) + rest;
}

ElementIndex::ElementIndex(const Element& root)
{
    add(root, nullptr);
}

void ElementIndex::add(const Element& element, const Element* parent)
{
    if (const ElementKey key(element.id); key.view)
        _places.try_emplace(key, Place { &element, parent });
    for (const auto& child : element.children)
        add(child, &element);
}

const ElementIndex::Place* ElementIndex::find(const ElementId& id) const
{
    const ElementKey key(id);
    const auto found = key.view ? _places.find(key) : _places.end();
    return found == _places.end() ? nullptr : &found->second;
}

}

#pragma once

#include "Element.h"

#include <unordered_map>

namespace host {

/// What `ElementId` compares, of a view that is there.
struct ElementKey {
    const platform::NSObject* view = nullptr;
    ElementRole role = ElementRole::Text;
    int part = 0;

    explicit ElementKey(const ElementId&);
    bool operator==(const ElementKey&) const = default;
};

struct ElementKeyHash {
    std::size_t operator()(const ElementKey&) const;
};

/// Where each element of a tree is, found without a search. The tree must stay where it is.
class ElementIndex final {
public:
    struct Place {
        const Element* element;
        const Element* parent; ///< Null for the root.
    };

    explicit ElementIndex(const Element& root);
    /// Null when there is none of the kind, or its view has gone.
    const Place* find(const ElementId&) const;

private:
    void add(const Element&, const Element* parent);

    std::unordered_map<ElementKey, Place, ElementKeyHash> _places;
};

}

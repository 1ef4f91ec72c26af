#pragma once

#include "ElementActions.h"
#include "ElementIndex.h"
#include "host/Phone.h"

#include <optional>

namespace host {

/// A phone's screen as the keyboard and assistive technologies see it: its elements, read anew when something
/// has changed and somebody asks, and the touches that use them.
class Screen {
public:
    /// The phone must outlive it.
    explicit Screen(Phone&);

    /// As of now. Good until the phone's next change.
    const Element& root();
    /// Something was painted or laid out, so what was read no longer counts.
    void invalidate()
    {
        _index.reset();
        _root.reset();
    }
    /// Null for what is not shown any more; good as long as `root`.
    const ElementIndex::Place* place(const ElementId&);
    const Element* find(const ElementId&);

    ElementActions& actions() { return _actions; }
    Phone& phone() { return _phone; }

    /// What all elements belong to: the foremost alert, else the page on top.
    platform::NSObject* context();

private:
    Phone& _phone;
    ElementActions _actions;
    std::optional<Element> _root;
    std::optional<ElementIndex> _index; ///< Of it; made when somebody first looks.
};

}

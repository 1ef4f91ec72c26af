#pragma once

#include "platform/Geometry.h"
#include "platform/Runtime.h"

#include <string>
#include <vector>

namespace platform {
class UIView;
}

namespace host {

/// What a person can do with an element, or what it tells them.
enum class ElementRole {
    Alert,
    Bar, ///< Above a page: the way back and the title.
    Page, ///< Rows, or whatever the page shows instead.
    Group, ///< Several elements in one row.
    Heading,
    Text,
    Picture,
    Button,
    Link, ///< A row that opens a page.
    Choice, ///< A row of which one on its page is chosen.
    Switch,
    Slider,
    Segments,
    Segment,
    TextField,
    Field, ///< Two values, picked on a surface; its axes are its children.
    Axis, ///< One of these values.
    ColorBar, ///< One value, picked on a surface.
};

/// Which element is meant, for as long as what it stands for lives. Two that stand for the same are equal.
struct ElementId {
    platform::WeakObject view { nullptr };
    ElementRole role = ElementRole::Text;
    int part = 0; ///< Of a view that holds several: the segment, or the axis (0 across, 1 down).

    platform::UIView* get() const;
    bool operator==(const ElementId& other) const;
};

/// A value in its natural unit.
struct ElementValue {
    double value = 0;
    double least = 0;
    double most = 1;
    double step = 1;
};

/// One thing that the phone's screen shows, and those in it in reading order.
struct Element {
    ElementId id;
    std::string name; ///< May be empty for what only holds others.
    std::string description; ///< What it shows beside its name: a row's value, a spoken summary.
    std::string text; ///< Of a text field: what it shows, a secret as bullets.
    platform::WeakObject frame {
        nullptr
    }; ///< The view that counts as its outline: its own, or its whole row.
    platform::CGRect rect; ///< Of the outline, in points of the window; may lie out of sight.
    ElementValue value; ///< Of sliders, axes and bars.
    bool enabled = true;
    bool chosen = false; ///< A switch that is on, the segment or row that is chosen.
    bool inSight = true; ///< Some of it is.
    bool secret = false;
    std::vector<Element> children;
};

/// Whether the keyboard stops there. Segments and axes are reached through what they are parts of.
bool takesKeyboardFocus(const Element&);
/// Whether `value` means something.
bool hasValue(ElementRole);

/// The elements that the keyboard stops at, in reading order.
std::vector<const Element*> focusableElements(const Element& root);
/// Null when there is none of the kind.
const Element* findElement(const Element& root, const ElementId&);

}

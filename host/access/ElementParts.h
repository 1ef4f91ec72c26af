#pragma once

#include "Element.h"

namespace platform {
class UIControl;
class UILabel;
class UITableView;
class UITableViewCell;
class UIView;
}

/// How the views of a screen become elements; for ElementTree.cpp.
namespace host {

Element makeElement(const platform::UIView&, ElementRole, std::string name, int part = 0);

/// Whatever of the view's subviews, and of what they hold, a person sees or uses, in reading order.
std::vector<Element> elementsIn(const platform::UIView& container);

/// Whatever this one view stands for: nothing, itself, or what it holds.
std::vector<Element> elementsOf(platform::UIView&);

Element elementOfControl(platform::UIControl&);
/// A row as one element, where it is one thing to a person, else as a group.
Element elementOfRow(platform::UITableViewCell&);
/// Headers, rows and footers.
std::vector<Element> elementsOfTable(platform::UITableView&);

/// In reading order, each at its place.
std::vector<Element> inReadingOrder(std::vector<std::vector<Element>>);

}

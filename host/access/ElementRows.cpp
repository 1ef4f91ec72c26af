#include "ElementNames.h"
#include "ElementParts.h"
#include "platform/PSTableCell.h"
#include "platform/UIControl.h"
#include "platform/UITableView.h"

#include <algorithm>

namespace host {

using namespace platform;

namespace {

constexpr CGFloat headerGap = 10; ///< Points between a header and its first row, at most.

bool isUsed(const Element& element)
{
    return element.id.role != ElementRole::Text && element.id.role != ElementRole::Group;
}

/// What a tap on the row does, as far as it is known.
ElementRole roleOfRow(const UITableViewCell& cell)
{
    const auto* const row = dynamic_cast<const PSTableCell*>(&cell);
    if (!row || !row->specifier())
        return cell.selectable() ? ElementRole::Button : ElementRole::Text;
    switch (row->specifier()->cellType()) {
    case PSCellType::Link:
    case PSCellType::LinkList:
        return ElementRole::Link;
    case PSCellType::ListItem:
        return ElementRole::Choice;
    case PSCellType::Button:
        return ElementRole::Button;
    default:
        return cell.selectable() ? ElementRole::Button : ElementRole::Text;
    }
}

bool isEnabled(const UITableViewCell& cell)
{
    const auto* const row = dynamic_cast<const PSTableCell*>(&cell);
    return !row || !row->specifier() || row->specifier()->isEnabled();
}

std::string titleOf(const UITableViewCell& cell)
{
    const auto& label = cell.textLabel();
    return label.superview() && isShownItself(label) ? spokenText(label.text()) : std::string();
}

/// The row itself, with what its texts say.
Element rowAlone(const UITableViewCell& cell, const std::vector<Element>& texts)
{
    auto element = makeElement(cell, roleOfRow(cell), titleOf(cell));
    for (const auto& text : texts) {
        if (text.id.role != ElementRole::Text || text.id.get() == &cell.textLabel())
            continue;
        auto& target = element.name.empty() ? element.name : element.description;
        target += (target.empty() ? "" : " ") + text.name;
    }
    element.enabled = isEnabled(cell);
    element.chosen = cell.accessoryType() == UITableViewCellAccessory::Checkmark;
    return element;
}

bool isTheControlOf(const UITableViewCell& cell, const Element& element)
{
    const auto* const row = dynamic_cast<const PSTableCell*>(&cell);
    const UIView* control = row ? row->control() : nullptr;
    if (!control)
        control = cell.accessoryView().get();
    return control && element.id.get() == control;
}

/// The row's control, which the whole row stands for.
Element rowWithControl(const UITableViewCell& cell, Element control, const std::vector<Element>& texts)
{
    const auto title = titleOf(cell);
    if (!title.empty())
        control.name = title;
    for (const auto& text : texts) {
        if (text.id.role == ElementRole::Text && text.id.get() != &cell.textLabel())
            control.description += (control.description.empty() ? "" : " ") + text.name;
    }
    control.frame = WeakObject(const_cast<UITableViewCell*>(&cell));
    control.rect = makeElement(cell, ElementRole::Group, {}).rect;
    control.enabled = control.enabled && isEnabled(cell);
    return control;
}

/// A row begins right below it.
bool isHeader(const UITableView& table, const UILabel& label)
{
    const auto& views = table.subviews();
    return std::any_of(views.begin(), views.end(), [&](const auto& view) {
        const auto distance = view->frame().minY() - label.frame().maxY();
        return distance >= 0 && distance <= headerGap && dynamic_cast<const UITableViewCell*>(view.get());
    });
}

}

Element elementOfRow(UITableViewCell& cell)
{
    auto leaves = elementsIn(cell.contentView());
    if (const auto& accessory = cell.accessoryView()) {
        std::vector<std::vector<Element>> blocks { std::move(leaves), elementsOf(*accessory) };
        leaves = inReadingOrder(std::move(blocks));
    }
    const auto used = std::count_if(leaves.begin(), leaves.end(), isUsed);
    if (used == 0)
        return rowAlone(cell, leaves);
    const auto first = std::find_if(leaves.begin(), leaves.end(), isUsed);
    if (used == 1 && isTheControlOf(cell, *first))
        return rowWithControl(cell, *first, leaves);

    auto group = makeElement(cell, ElementRole::Group, titleOf(cell));
    if (cell.selectable() && roleOfRow(cell) != ElementRole::Text)
        group.children.push_back(rowAlone(cell, {}));
    std::move(leaves.begin(), leaves.end(), std::back_inserter(group.children));
    return group;
}

std::vector<Element> elementsOfTable(UITableView& table)
{
    std::vector<std::vector<Element>> blocks;
    for (const auto& view : table.subviews()) {
        auto elements = elementsOf(*view);
        if (const auto* const label = dynamic_cast<const UILabel*>(view.get());
            label && !elements.empty() && isHeader(table, *label))
            elements.front().id.role = ElementRole::Heading;
        blocks.push_back(std::move(elements));
    }
    return inReadingOrder(std::move(blocks));
}

}

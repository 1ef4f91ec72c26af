#include "PSTableCell.h"

#include "PSListController.h"
#include "Style.h"

#include <algorithm>

namespace platform {

namespace {

/// What a row of a kind looks like when nothing else is said.
struct RowKind {
    PSCellType type;
    const char* cellClass = "PSTableCell";
    UITableViewCellAccessory accessory = UITableViewCellAccessory::None;
    bool selectable = false;
    bool showsValue = false;
    bool tinted = false;
};

constexpr RowKind rowKinds[] = {
    { .type = PSCellType::Link,
        .accessory = UITableViewCellAccessory::DisclosureIndicator,
        .selectable = true },
    { .type = PSCellType::LinkList,
        .accessory = UITableViewCellAccessory::DisclosureIndicator,
        .selectable = true,
        .showsValue = true },
    { .type = PSCellType::ListItem, .selectable = true },
    { .type = PSCellType::TitleValue, .showsValue = true },
    { .type = PSCellType::Slider, .cellClass = "PSSliderTableCell" },
    { .type = PSCellType::Switch, .cellClass = "PSSwitchTableCell" },
    { .type = PSCellType::EditText, .cellClass = "PSEditableTableCell", .selectable = true },
    { .type = PSCellType::Segment, .cellClass = "PSSegmentTableCell" },
    { .type = PSCellType::SecureEditText, .cellClass = "PSEditableTableCell", .selectable = true },
    { .type = PSCellType::Button, .selectable = true, .tinted = true },
    { .type = PSCellType::EditTextView, .cellClass = "PSEditableTableCell", .selectable = true },
};

const RowKind& kindOf(PSCellType type)
{
    static constexpr RowKind staticText { .type = PSCellType::StaticText };
    const auto* found = std::find_if(
        std::begin(rowKinds), std::end(rowKinds), [&](const auto& kind) { return kind.type == type; });
    return found == std::end(rowKinds) ? staticText : *found;
}

/// As wide as the page is when the cell is made.
CGFloat widthOfPage(const PSSpecifier* specifier)
{
    auto* page = specifier ? dynamic_cast<PSListController*>(specifier->target()) : nullptr;
    if (!page)
        return 0;
    return page->isViewLoaded() ? page->view().bounds().width : page->contentSize().width;
}

/// A name without a folder is looked up in the bundle of the page's class.
std::optional<UIImage> iconOf(const PSSpecifier& specifier)
{
    const auto name = specifier.textForKey("icon");
    if (name.empty())
        return std::nullopt;
    if (name.front() == '/')
        return UIImage::imageNamed(name);
    const auto* page = specifier.target() ? Class::ofObject(*specifier.target()) : nullptr;
    return page && !page->bundlePath().empty() ? UIImage::imageNamed(page->bundlePath() + "/" + name)
                                               : std::nullopt;
}

/// A short title where the row has them, else the title, else the value's own text.
std::string shownValue(PSSpecifier& specifier)
{
    const auto value = specifier.performGetter();
    if (!value)
        return {};
    const auto* title = specifier.titleForValue(*value);
    if (!title)
        return textOfPropertyValue(*value);
    const auto* shortTitles = specifier.propertyForKey("shortTitles");
    if (const auto* array = shortTitles ? shortTitles->array() : nullptr) {
        const auto index = static_cast<std::size_t>(title - specifier.titles().data());
        if (const auto* text = index < array->size() ? (*array)[index].string() : nullptr)
            return *text;
    }
    return *title;
}

const auto registration
    = registerClass<PSTableCell>("PSTableCell").initialiser<long, std::string, Ref<PSSpecifier>>();

}

PSTableCell::PSTableCell(long style, std::string reuseIdentifier, Ref<PSSpecifier> specifier)
    : UITableViewCell(
        style == 1 ? UITableViewCellStyle::Value1 : UITableViewCellStyle::Default, std::move(reuseIdentifier))
    , _specifier(std::move(specifier))
{
    if (const CGFloat width = widthOfPage(_specifier.get()); width > 0)
        setFrame({ 0, 0, width, defaultHeight });
}

Ref<PSTableCell> PSTableCell::cellForSpecifier(const Ref<PSSpecifier>& specifier)
{
    const auto make = [&](std::string_view className) -> Ref<PSTableCell> {
        const auto* cellClass = NSClassFromString(className);
        const long style = kindOf(specifier->cellType()).showsValue ? 1 : 0;
        return cellClass ? cellClass->make<PSTableCell>(style, specifier->identifier(), specifier) : nullptr;
    };
    if (auto cell = make(specifier->textForKey("cellClass")))
        return cell;
    return make(kindOf(specifier->cellType()).cellClass);
}

void PSTableCell::refreshCellContentsWithSpecifier(PSSpecifier& specifier)
{
    const auto& kind = kindOf(specifier.cellType());
    const bool enabled = specifier.isEnabled();
    textLabel().setText(specifier.name());
    textLabel().setTextColor(!enabled ? style::disabledText()
            : kind.tinted             ? style::tint()
                                      : UIColor::blackColor());
    if (kind.showsValue) {
        detailTextLabel().setText(shownValue(specifier));
        detailTextLabel().setTextColor(enabled ? style::valueText() : style::disabledText());
    }
    if (kind.accessory != UITableViewCellAccessory::None)
        setAccessoryType(kind.accessory);
    setSelectable(enabled && kind.selectable);
    imageView().setImage(iconOf(specifier));
    setNeedsLayout();
}

void PSTableCell::layoutControlBesideTitle(
    UIView& control, Room room, CGFloat longestTitle, CGFloat controlHeight)
{
    constexpr CGFloat gap = 12;
    CGFloat start = room.start;
    if (!textLabel().text().empty()) {
        const CGFloat title
            = std::min(textLabel().sizeThatFits(bounds().size()).width, room.width() * longestTitle);
        place(textLabel(), start, title);
        start += title + gap;
    }
    placeCentered(control, start, { std::max(0.0, room.end - start), controlHeight });
}

}

#include "PSCellName.h"

#include <algorithm>

namespace platform {

namespace {

constexpr PSCellName names[] = {
    { "PSGroupCell", PSCellType::Group },
    { "PSLinkCell", PSCellType::Link },
    { "PSLinkListCell", PSCellType::LinkList, true },
    { "PSListItemCell", PSCellType::ListItem, true },
    { "PSTitleValueCell", PSCellType::TitleValue, true },
    { "PSSliderCell", PSCellType::Slider, true },
    { "PSSwitchCell", PSCellType::Switch, true },
    { "PSStaticTextCell", PSCellType::StaticText, true },
    { "PSEditTextCell", PSCellType::EditText, true },
    { "PSSegmentCell", PSCellType::Segment, true },
    { "PSGiantIconCell", PSCellType::GiantIcon },
    { "PSGiantCell", PSCellType::Giant },
    { "PSSecureEditTextCell", PSCellType::SecureEditText, true },
    { "PSButtonCell", PSCellType::Button },
    { "PSEditTextViewCell", PSCellType::EditTextView, true },
    { "PSSpinnerCell", PSCellType::Spinner },
};

}

std::span<const PSCellName> cellNames()
{
    return names;
}

const PSCellName* cellNameNamed(std::string_view name)
{
    const auto* found = std::find_if(
        std::begin(names), std::end(names), [&](const auto& cell) { return cell.name == name; });
    return found == std::end(names) ? nullptr : found;
}

}

#include "GalleryPickerCell.h"

#include "GalleryColor.h"
#include "picker/VKColorPickerView_B.h"
#include "picker/VKColorPickerView_H.h"
#include "picker/VKColorPickerView_S.h"

namespace gallery {

using namespace platform;

namespace {

constexpr CGFloat pickerHeight = 380;

// Rows name their cell's class under "cellClass"; a cell is made by this initialiser.
const auto registration = registerClass<GalleryPickerCell>("GalleryPickerCell")
                              .initialiser<long, std::string, Ref<PSSpecifier>>();

}

GalleryPickerCell::GalleryPickerCell(long style, std::string reuseIdentifier, Ref<PSSpecifier> specifier)
    : PSTableCell(style, std::move(reuseIdentifier), std::move(specifier))
{
    setSelectable(false);
    const auto* const property = this->specifier()->propertyForKey("picker");
    const auto kind = property && property->string() ? *property->string() : std::string();
    if (kind == "B")
        show<vekora::VKColorPickerView_B>();
    else if (kind == "S")
        show<vekora::VKColorPickerView_S>();
    else
        show<vekora::VKColorPickerView_H>();
}

GalleryPickerCell::~GalleryPickerCell()
{
    GalleryColor::shared().stop(_observer);
}

template <typename Picker> void GalleryPickerCell::show()
{
    auto& shared = GalleryColor::shared();
    // The cell owns the picker, so the picker's block may look at the cell without keeping it alive.
    const auto picker = std::make_shared<Picker>(
        CGRect { 0, 0, frame().width, pickerHeight }, shared.color(),
        [this](const UIColor& color) { GalleryColor::shared().setColor(color, _observer); }, nullptr);
    picker->setAutoresizingMask(UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleWidth
        | UIViewAutoresizingFlexibleRightMargin);
    contentView().addSubview(picker);
    _observer = shared.observe([view = picker.get()](const UIColor& color) { view->setColor(color); });
}

}

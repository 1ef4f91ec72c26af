#include "VekoraColorSelectorController.h"

#include "PreferenceStore.h"

namespace vekora {

using namespace platform;

namespace {

constexpr CGFloat rowHeight = 860;

const auto registration
    = registerClass<VekoraColorSelectorController>("VekoraColorSelectorController")
          .initialiser<CGSize>()
          .method(
              "setPreferenceValue:specifier:", &VekoraColorSelectorController::setPreferenceValueSpecifier)
          .method("readPreferenceValue:", &VekoraColorSelectorController::readPreferenceValue);

}

VekoraColorSelectorController::VekoraColorSelectorController(CGSize contentSize)
    : PSListController(contentSize)
{
    colorPagePreferences = loadPreferences();
}

void VekoraColorSelectorController::setPreferenceValueSpecifier(std::optional<PropertyValue>, PSSpecifier*) {
}

std::optional<PropertyValue> VekoraColorSelectorController::readPreferenceValue(PSSpecifier*)
{
    return std::nullopt;
}

const PSListController::Specifiers& VekoraColorSelectorController::specifiers()
{
    if (!_specifiers) {
        _specifiers = loadSpecifiersFromPlistNameTarget("VekoraColorSelector", this);
        if (!_specifiers->empty())
            describeColorRow(*_specifiers->front());
    }
    return *_specifiers;
}

void VekoraColorSelectorController::describeColorRow(PSSpecifier& row)
{
    const auto* key = specifier() ? specifier()->propertyForKey("title") : nullptr;
    const auto* preferred
        = colorPagePreferences ? colorPagePreferences->objectForKey("preferColorPicker") : nullptr;

    if (key)
        row.setPropertyForKey(*key, "key");
    else
        row.removePropertyForKey("key");
    row.setPropertyForKey(preferred ? *preferred : PropertyValue(true), "preferColorPicker");
    // The key heads the page on purpose.
    setTitle(key && key->string() ? *key->string() : std::string());
}

CGFloat VekoraColorSelectorController::tableViewHeightForRowAtIndexPath(UITableView&, NSIndexPath)
{
    return rowHeight;
}

}

#include "VekoraListController.h"

#include "PreferenceStore.h"
#include "RowColor.h"
#include "StatusText.h"

#include "platform/NSFileManager.h"
#include "platform/PSTextFieldSpecifier.h"

namespace vekora {

using namespace platform;

namespace {

constexpr std::string_view statusBarLibrary = "/Library/MobileSubstrate/DynamicLibraries/libstatusbar.dylib";
constexpr NSIndexPath buttonColorRow { .section = 1, .row = 0 };

const auto registration
    = registerClass<VekoraListController>("VekoraListController")
          .initialiser<CGSize>()
          .method("vekoraNow", &VekoraListController::vekoraNow)
          .method("clearVekora", &VekoraListController::clearVekora)
          .method("viewWillAppear:", &VekoraListController::viewWillAppear)
          .method("setPreferenceValue:specifier:", &VekoraListController::setPreferenceValueSpecifier)
          .method("readPreferenceValue:", &VekoraListController::readPreferenceValue);

/// Null when the specifier, or its property, is missing or no text.
const std::string* keyOf(const PSSpecifier* specifier)
{
    const auto* key = specifier ? specifier->propertyForKey("key") : nullptr;
    return key ? key->string() : nullptr;
}

}

VekoraListController::VekoraListController(CGSize contentSize)
    : PSListController(contentSize)
{
    mainPreferences = loadPreferences();
    seedOnFirstRun(*mainPreferences);
}

void VekoraListController::vekoraNow()
{
    if (mainPreferences) {
        const auto seconds = suppressionSeconds(mainPreferences->objectForKey("disableForMinutes"));
        mainPreferences->setValueForKey(true, "enabled");
        const auto end = suppressionEnd(NSDate::date(), seconds);
        mainPreferences->setObjectForKey(end, "disarmedUntil");
        writePreferences(*mainPreferences);
        if (statusSpecifier) {
            statusSpecifier->setName(suppressedUntilText(end));
            statusSpecifier->setPropertyForKey(true, "enabled");
        }
        reload();
    }
    handOverToToggleOrPost(FSSwitchState::On);
}

void VekoraListController::clearVekora()
{
    if (mainPreferences) {
        mainPreferences->removeObjectForKey("disarmedUntil");
        writePreferences(*mainPreferences);
        if (statusSpecifier)
            statusSpecifier->setName(alarmsEnabledText);
        reload();
    }
    handOverToToggleOrPost(FSSwitchState::Off);
}

void VekoraListController::viewWillAppear(bool animated)
{
    mainPreferences = loadPreferences();
    PSListController::viewWillAppear(animated);
    // The colour page may have changed the button's colour.
    reload();
}

void VekoraListController::setPreferenceValueSpecifier(
    std::optional<PropertyValue> value, PSSpecifier* specifier)
{
    const auto* key = keyOf(specifier);
    if (!key)
        return;
    mainPreferences = loadPreferences();
    mainPreferences->setValueForKey(value, *key);
    writePreferences(*mainPreferences);
    if (statusSpecifier && *key == "enabled")
        enabledDidChange(value && value->boolValue());
    else
        postPreferencesChanged();
}

void VekoraListController::enabledDidChange(bool enabled)
{
    statusSpecifier->setPropertyForKey(enabled, "enabled");
    if (enabled) {
        reload();
        postPreferencesChanged();
        return;
    }
    // "disarmedUntil" stays in the file: switched on again, the add-on goes on with its suppression.
    const auto toggleIsPresent = companionToggleIsPresent();
    if (toggleIsPresent)
        setCompanionToggle(FSSwitchState::Off);
    statusSpecifier->setName(alarmsEnabledText);
    reload();
    if (!toggleIsPresent)
        postPreferencesChanged();
}

std::optional<PropertyValue> VekoraListController::readPreferenceValue(PSSpecifier* specifier)
{
    const auto* key = keyOf(specifier);
    if (const auto* value = key && mainPreferences ? mainPreferences->objectForKey(*key) : nullptr)
        return *value;
    const auto* fallback = specifier ? specifier->propertyForKey("default") : nullptr;
    return fallback ? std::optional(*fallback) : std::nullopt;
}

const PSListController::Specifiers& VekoraListController::specifiers()
{
    if (!_specifiers) {
        _specifiers = loadSpecifiersFromPlistNameTarget("Vekora", this);
        if (!NSFileManager::defaultManager().fileExistsAtPath(statusBarLibrary)) {
            if (auto* iconOption = specifierForID("VKEnableIcon"))
                iconOption->setPropertyForKey(false, "enabled");
        }
        appendStatusRow();
        appendButtonRows();
    }
    return *_specifiers;
}

void VekoraListController::appendStatusRow()
{
    statusSpecifier = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        alarmsEnabledText, this, "", "", nullptr, PSCellType::StaticText, nullptr);
    statusSpecifier->setName(statusText(mainPreferences, NSDate::date()));
    statusSpecifier->setPropertyForKey(isEnabled(mainPreferences), "enabled");
    _specifiers->push_back(statusSpecifier);
}

void VekoraListController::appendButtonRows()
{
    _specifiers->push_back(PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        "Extra Alert View Button Options", this, "", "", nullptr, PSCellType::Group, nullptr));

    const auto color = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit("Button Color", this,
        "", "", NSClassFromString("VekoraColorSelectorController"), PSCellType::Link, nullptr);
    // The colour page takes its preference key from here, and its own title too.
    color->setPropertyForKey("buttonColor", "title");
    color->setPropertyForKey("buttonColor", "label");
    _specifiers->push_back(color);

    const auto text
        = PSTextFieldSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit("Button Text:", this,
            "setPreferenceValue:specifier:", "readPreferenceValue:", nullptr, PSCellType::EditText, nullptr);
    text->setPropertyForKey("Button Text:", "label");
    text->setPropertyForKey("buttonText", "key");
    text->setPropertyForKey(preferencesDomain, "defaults");
    text->setPropertyForKey("Vekora", "default");
    text->setPropertyForKey(true, "enabled");
    text->setPlaceholder("Vekora");
    _specifiers->push_back(text);
}

Ref<UITableViewCell> VekoraListController::tableViewCellForRowAtIndexPath(
    UITableView& table, NSIndexPath path)
{
    auto cell = PSListController::tableViewCellForRowAtIndexPath(table, path);
    if (cell && path == buttonColorRow) {
        const auto colors
            = rowColors(mainPreferences ? mainPreferences->objectForKey("buttonColor") : nullptr);
        cell->textLabel().setTextColor(colors.text);
        cell->setBackgroundColor(colors.background);
    }
    return cell;
}

}

#include "Device.h"
#include "NSMutableDictionary.h"
#include "PSCellName.h"
#include "PSListController.h"
#include "PSTextFieldSpecifier.h"

#include <algorithm>

namespace platform {

namespace {

/// A kind nobody knows is a row of text, so that one row's mistake costs no more than that row.
PSCellName cellNamed(std::string_view name)
{
    const auto* found = cellNameNamed(name);
    return found ? *found : PSCellName { name, PSCellType::StaticText, true };
}

const std::string* textAt(const PropertyList& item, std::string_view key)
{
    const auto found = item.find(key);
    return found == item.end() ? nullptr : found->second.string();
}

std::string textOr(const PropertyList& item, std::string_view key, std::string_view otherwise)
{
    const auto* text = textAt(item, key);
    return text ? *text : std::string(otherwise);
}

const PropertyArray* arrayAt(const PropertyList& item, std::string_view key)
{
    const auto found = item.find(key);
    return found == item.end() ? nullptr : found->second.array();
}

/// The device's language with less and less of its variety, then English: "zh_Hant_TW" is looked for as
/// zh_Hant_TW, zh-Hant-TW, zh_Hant, zh-Hant and zh.
std::vector<std::string> languages()
{
    std::vector<std::string> result;
    std::string name = Device::current().locale;
    name.erase(std::min(name.find_first_of("@."), name.size()));
    std::replace(name.begin(), name.end(), '-', '_');
    while (!name.empty()) {
        std::string dashed = name;
        std::replace(dashed.begin(), dashed.end(), '_', '-');
        result.push_back(name);
        if (dashed != name)
            result.push_back(dashed);
        const auto end = name.rfind('_');
        name.erase(end == std::string::npos ? 0 : end);
    }
    result.push_back("en");
    return result;
}

/// The texts of NAME.strings in the first language that has them.
class Texts {
public:
    Texts(const std::string& bundle, const std::string& name)
    {
        std::vector<std::string> folders;
        for (const auto& language : languages())
            folders.push_back(std::string(bundle).append("/").append(language).append(".lproj/"));
        folders.push_back(bundle + "/");
        for (const auto& folder : folders) {
            if (auto found = NSMutableDictionary::dictionaryWithContentsOfFile(folder + name + ".strings")) {
                _texts = std::move(*found);
                return;
            }
        }
    }

    std::string operator()(const std::string& text) const
    {
        const auto* translated = _texts.objectForKey(text);
        const auto* found = translated ? translated->string() : nullptr;
        return found ? *found : text;
    }

private:
    NSMutableDictionary _texts;
};

Ref<PSSpecifier> specifierFromItem(const PropertyList& item, const Texts& texts, NSObject* target)
{
    const auto cell = cellNamed(textOr(item, "cell", {}));
    const auto* label = textAt(item, "label");
    const bool hasDefaultAccess = cell.holdsValue && textAt(item, "key");
    auto set = textOr(item, "set", hasDefaultAccess ? "setPreferenceValue:specifier:" : "");
    auto get = textOr(item, "get", hasDefaultAccess ? "readPreferenceValue:" : "");
    const auto* detail = textAt(item, "detail");
    const auto make = [&](auto type) {
        return std::make_shared<typename decltype(type)::type>(label ? texts(*label) : std::string(), target,
            std::move(set), std::move(get), detail ? NSClassFromString(*detail) : nullptr, cell.type);
    };
    Ref<PSSpecifier> specifier;
    if (cell.type == PSCellType::EditText || cell.type == PSCellType::SecureEditText)
        specifier = make(std::type_identity<PSTextFieldSpecifier> {});
    else
        specifier = make(std::type_identity<PSSpecifier> {});

    for (const auto& [key, value] : item)
        specifier->setPropertyForKey(value, key);
    for (const char* key : { "footerText", "placeholder" }) {
        if (const auto* text = textAt(item, key))
            specifier->setPropertyForKey(texts(*text), key);
    }
    if (auto* field = dynamic_cast<PSTextFieldSpecifier*>(specifier.get()))
        field->setPlaceholder(texts(textOr(item, "placeholder", {})));
    specifier->setButtonAction(textOr(item, "action", {}));

    if (const auto* values = arrayAt(item, "validValues")) {
        const auto* given = arrayAt(item, "validTitles");
        std::vector<std::string> titles;
        for (std::size_t index = 0; given && index < std::min(given->size(), values->size()); ++index) {
            const auto& title = (*given)[index];
            titles.push_back(title.string() ? texts(*title.string()) : textOfPropertyValue(title));
        }
        specifier->setValuesTitles(*values, std::move(titles));
    }
    if (const auto* given = arrayAt(item, "shortTitles")) {
        PropertyArray titles = *given;
        for (auto& title : titles) {
            if (title.string())
                title = PropertyValue(texts(*title.string()));
        }
        specifier->setPropertyForKey(std::move(titles), "shortTitles");
    }
    return specifier;
}

}

PSListController::Specifiers PSListController::loadSpecifiersFromPlistNameTarget(
    std::string_view plistName, NSObject* target)
{
    const std::string name(plistName);
    const auto* ownClass = Class::ofObject(*this);
    if (!ownClass || ownClass->bundlePath().empty())
        return {};
    const auto& bundle = ownClass->bundlePath();
    const auto resource = NSMutableDictionary::dictionaryWithContentsOfFile(bundle + "/" + name + ".plist");
    if (!resource)
        return {};
    const Texts texts(bundle, name);
    if (const auto* title = textAt(resource->entries(), "title"))
        setTitle(texts(*title));
    _identifier = textOr(resource->entries(), "id", {});

    Specifiers result;
    if (const auto* items = arrayAt(resource->entries(), "items")) {
        for (const auto& item : *items) {
            if (const auto* row = item.dictionary())
                result.push_back(specifierFromItem(*row, texts, target));
        }
    }
    return result;
}

}

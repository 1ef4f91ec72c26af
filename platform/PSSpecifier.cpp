#include "PSSpecifier.h"

#include "Journal.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace platform {

namespace {

const auto registration = registerClass<PSSpecifier>("PSSpecifier");

}

std::string textOfPropertyValue(const PropertyValue& value)
{
    if (const auto* text = value.string())
        return *text;
    if (const auto* whole = std::get_if<std::int64_t>(&value.storage()))
        return std::to_string(*whole);
    if (!value.isNumber())
        return {};
    const double number = value.doubleValue();
    if (!std::isfinite(number))
        return {};
    char text[512];
    std::snprintf(text, sizeof text, "%.2f", number);
    std::string result = text;
    result.erase(result.find_last_not_of('0') + 1);
    if (result.back() == '.')
        result.pop_back();
    return result == "-0" ? "0" : result;
}

Ref<PSSpecifier> PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(std::string name,
    NSObject* target, std::string set, std::string get, const Class* detail, PSCellType cell, const Class*)
{
    return std::make_shared<PSSpecifier>(
        std::move(name), target, std::move(set), std::move(get), detail, cell);
}

PSSpecifier::PSSpecifier(std::string name, NSObject* target, std::string set, std::string get,
    const Class* detail, PSCellType cell)
    : _name(std::move(name))
    , _target(target)
    , _set(std::move(set))
    , _get(std::move(get))
    , _detail(detail)
    , _cellType(cell)
{
}

const PropertyValue* PSSpecifier::propertyForKey(std::string_view key) const
{
    const auto found = _properties.find(key);
    return found == _properties.end() ? nullptr : &found->second;
}

std::string PSSpecifier::textForKey(std::string_view key) const
{
    const auto* value = propertyForKey(key);
    const auto* text = value ? value->string() : nullptr;
    return text ? *text : std::string();
}

void PSSpecifier::setPropertyForKey(PropertyValue value, std::string_view key)
{
    _properties.insert_or_assign(std::string(key), std::move(value));
}

void PSSpecifier::removePropertyForKey(std::string_view key)
{
    if (const auto found = _properties.find(key); found != _properties.end())
        _properties.erase(found);
}

std::string PSSpecifier::identifier() const
{
    for (const char* key : { "id", "key" }) {
        const auto* value = propertyForKey(key);
        if (const auto* text = value ? value->string() : nullptr)
            return *text;
    }
    return _name;
}

bool PSSpecifier::isEnabled() const
{
    const auto* enabled = propertyForKey("enabled");
    return !enabled || enabled->boolValue();
}

void PSSpecifier::setValuesTitles(std::vector<PropertyValue> values, std::vector<std::string> titles)
{
    _values = std::move(values);
    _titles = std::move(titles);
    _titles.resize(std::min(_titles.size(), _values.size()));
    for (std::size_t index = _titles.size(); index < _values.size(); ++index)
        _titles.push_back(textOfPropertyValue(_values[index]));
}

const std::string* PSSpecifier::titleForValue(const PropertyValue& value) const
{
    for (std::size_t index = 0; index < _values.size(); ++index) {
        if (_values[index].isEqual(value))
            return &_titles[index];
    }
    return nullptr;
}

// Row and target stay alive for the length of a message: what it does may take either off the screen.
std::optional<PropertyValue> PSSpecifier::performGetter()
{
    const auto value = send(_get, { this });
    const auto* result = std::get_if<PropertyValue>(&value);
    return result ? std::optional(*result) : std::nullopt;
}

void PSSpecifier::performSetterWithValue(const PropertyValue& value)
{
    perform(_set, { value, this });
}

void PSSpecifier::performAction()
{
    perform(_action, { this });
}

void PSSpecifier::perform(const std::string& selector, std::initializer_list<Argument> arguments)
{
    if (auto& journal = Journal::shared(); target() && !selector.empty() && journal.isHeard())
        journal.record({ JournalEntry::Kind::Action, selector, target()->className() });
    send(selector, arguments);
}

Argument PSSpecifier::send(const std::string& selector, std::initializer_list<Argument> arguments)
{
    auto* const receiver = target();
    if (!receiver || selector.empty())
        return {};
    const auto keep = weak_from_this().lock();
    const auto keepReceiver = receiver->weak_from_this().lock();
    return receiver->performSelector(selector, arguments);
}

}

#pragma once

#include "Runtime.h"

#include <string>
#include <vector>

namespace platform {

/// What kind of row a specifier describes; the platform's numbers.
enum class PSCellType {
    Group = 0,
    Link = 1,
    LinkList = 2,
    ListItem = 3,
    TitleValue = 4,
    Slider = 5,
    Switch = 6,
    StaticText = 7,
    EditText = 8,
    Segment = 9,
    GiantIcon = 10,
    Giant = 11,
    SecureEditText = 12,
    Button = 13,
    EditTextView = 14,
    Spinner = 15,
};

/// How a value reads in a row: strings as they are, whole numbers without and others with up to two decimals.
/// Empty for what has no text of its own.
std::string textOfPropertyValue(const PropertyValue&);

/// One row of a page: its name, its kind, whom to ask for its value, and a bag of properties that a
/// resource's keys and code share.
class PSSpecifier : public NSObject {
public:
    /// Selectors may be empty (none), `detail` null (no page), as may the target.
    static Ref<PSSpecifier> preferenceSpecifierNamedTargetSetGetDetailCellEdit(std::string name,
        NSObject* target, std::string set, std::string get, const Class* detail, PSCellType cell,
        const Class* edit);

    PSSpecifier(std::string name, NSObject* target, std::string set, std::string get, const Class* detail,
        PSCellType cell);

    /// The row's text; shown after the page is reloaded.
    const std::string& name() const { return _name; }
    void setName(std::string name) { _name = std::move(name); }

    /// Null when there is none.
    const PropertyValue* propertyForKey(std::string_view key) const;
    std::string textForKey(std::string_view key) const; ///< Empty when there is none, or it is no text.
    void setPropertyForKey(PropertyValue, std::string_view key);
    void removePropertyForKey(std::string_view key);
    const PropertyList& properties() const { return _properties; }

    /// The property "id", else "key", else the name.
    std::string identifier() const;

    PSCellType cellType() const { return _cellType; }
    /// The page that holds the row. Not kept alive; null once it has gone.
    NSObject* target() const { return _target.get(); }
    const Class* detailControllerClass() const { return _detail; }
    void setDetailControllerClass(const Class* detail) { _detail = detail; }

    /// A button's or link's action, sent to the target with the specifier; empty for none.
    const std::string& buttonAction() const { return _action; }
    void setButtonAction(std::string action) { _action = std::move(action); }

    /// The row's "enabled" property; a row without one is enabled.
    bool isEnabled() const;

    /// Value and title pairs of a list of choices, by position. A value without a title of its own is titled
    /// by its text.
    const std::vector<PropertyValue>& values() const { return _values; }
    const std::vector<std::string>& titles() const { return _titles; }
    void setValuesTitles(std::vector<PropertyValue> values, std::vector<std::string> titles);
    /// The title of the value that is equal to this one; null when none is.
    const std::string* titleForValue(const PropertyValue&) const;

    /// Asks the target through the row's getter; nothing when there is none.
    std::optional<PropertyValue> performGetter();
    /// Hands the target a new value through the row's setter.
    void performSetterWithValue(const PropertyValue&);
    /// Sends the action to the target, with the specifier for a method that takes one.
    void performAction();

private:
    Argument send(const std::string& selector, std::initializer_list<Argument>);
    void perform(const std::string& selector, std::initializer_list<Argument>);

    std::string _name;
    WeakObject _target;
    std::string _set;
    std::string _get;
    std::string _action;
    const Class* _detail;
    PSCellType _cellType;
    PropertyList _properties;
    std::vector<PropertyValue> _values;
    std::vector<std::string> _titles;
};

}

#pragma once

#include "PSSpecifier.h"
#include "UITableViewCell.h"

namespace platform {

class UISwitch;
class UITextField;

/// The cell of a page's row. Made once for its specifier, as wide as the page, and filled again whenever the
/// page is reloaded. Subclasses are found by the name in the row's "cellClass" property.
class PSTableCell : public UITableViewCell {
public:
    PSTableCell(long style, std::string reuseIdentifier, Ref<PSSpecifier>);

    const Ref<PSSpecifier>& specifier() const { return _specifier; }

    /// Shows the specifier's present name, value and state.
    virtual void refreshCellContentsWithSpecifier(PSSpecifier&);

    /// The row was tapped.
    virtual void cellWasTapped() { }
    /// The control that a tap on the row is meant for (a switch, a text field); null when the row itself
    /// takes it.
    virtual UIView* control() const { return nullptr; }

private:
    Ref<PSSpecifier> _specifier;
};

}

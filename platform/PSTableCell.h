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

    /// The cell of a row: of the class that its "cellClass" names, else of the kind's own; a class that is
    /// unknown or no cell leaves the kind's own.
    static Ref<PSTableCell> cellForSpecifier(const Ref<PSSpecifier>&);

    /// The row was tapped.
    virtual void cellWasTapped() { }
    /// The control that a tap on the row is meant for (a switch, a text field); null when the row itself
    /// takes it.
    virtual UIView* control() const { return nullptr; }

protected:
    /// For rows whose control fills what the title leaves: the title takes its own width, but no more than
    /// this part of the room, and the control the rest.
    void layoutControlBesideTitle(UIView& control, Room, CGFloat longestTitle, CGFloat controlHeight);

private:
    Ref<PSSpecifier> _specifier;
};

}

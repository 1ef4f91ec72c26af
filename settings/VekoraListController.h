#pragma once

#include "platform/PSListController.h"

namespace vekora {

/// The main page: the rows of the resource "Vekora", then the status row and the options of the add-on's
/// extra button. It keeps every value in the preference file itself and tells the add-on's running parts.
class VekoraListController final : public platform::PSListController {
public:
    /// `initForContentSize:`; in points. Loads the preferences, and seeds the file on the first run.
    explicit VekoraListController(platform::CGSize);

    /// Suppresses alarms from now on, for as long as the preferences say, and switches the add-on on.
    void vekoraNow();
    /// Ends a suppression early; the add-on stays on.
    void clearVekora();

    void viewWillAppear(bool animated) override;
    /// Reads the file anew first, so that what others wrote meanwhile stays. Nothing takes the key out.
    void setPreferenceValueSpecifier(std::optional<platform::PropertyValue>, platform::PSSpecifier*) override;
    /// The row's "default" when the preferences hold nothing under its "key".
    std::optional<platform::PropertyValue> readPreferenceValue(platform::PSSpecifier*) override;
    /// Built once. The status text is not refreshed by the passing of time.
    const Specifiers& specifiers() override;
    /// Paints the row of the button's colour in that colour.
    platform::Ref<platform::UITableViewCell> tableViewCellForRowAtIndexPath(
        platform::UITableView&, platform::NSIndexPath) override;

private:
    void appendStatusRow();
    void appendButtonRows();
    void enabledDidChange(bool enabled);
};

}

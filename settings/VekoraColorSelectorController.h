#pragma once

#include "platform/PSListController.h"

namespace vekora {

/// The page with the one tall row that edits the button's colour. It keeps nothing: the row's cell reads and
/// writes the preference file by itself.
class VekoraColorSelectorController final : public platform::PSListController {
public:
    /// `initForContentSize:`; in points. Loads the preferences, from which the row is told how to lie.
    explicit VekoraColorSelectorController(platform::CGSize);

    /// Does nothing: values never pass through the page.
    void setPreferenceValueSpecifier(std::optional<platform::PropertyValue>, platform::PSSpecifier*) override;
    /// Always nothing.
    std::optional<platform::PropertyValue> readPreferenceValue(platform::PSSpecifier*) override;
    /// Built once. The opening row's "title" names the preference to edit, and heads the page.
    const Specifiers& specifiers() override;
    /// The same for every row.
    platform::CGFloat tableViewHeightForRowAtIndexPath(
        platform::UITableView&, platform::NSIndexPath) override;

private:
    void describeColorRow(platform::PSSpecifier&);
};

}

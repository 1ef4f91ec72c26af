#pragma once

#include "PSSpecifier.h"
#include "PSTableCell.h"
#include "UITableView.h"
#include "UIViewController.h"

namespace platform {

/// A page of rows described by specifiers. A group row opens a section and has no cell of its own; rows
/// before the first group form section 0. Numbers of sections and rows are worked out from the list when they
/// are asked for.
class PSListController : public UIViewController, public UITableViewDataSource {
public:
    /// `initForContentSize:`: as large as the opener's view, in points.
    explicit PSListController(CGSize contentSize);
    ~PSListController() override;

    using Specifiers = std::vector<Ref<PSSpecifier>>;

    /// The rows. A page overrides it to build `_specifiers` once and return them; by default it has none.
    virtual const Specifiers& specifiers();
    /// The rows of NAME.plist in the bundle that holds this page's class, titles localized from NAME.strings;
    /// the page takes its title and identifier from it. Nothing found is no row.
    Specifiers loadSpecifiersFromPlistNameTarget(std::string_view name, NSObject* target);
    /// The first of the built rows with this identifier, or null. Works while `specifiers` is still building.
    PSSpecifier* specifierForID(std::string_view identifier) const;

    /// Asks for the cells again and refreshes them; the rows stay the same. Does nothing before the page is
    /// loaded.
    void reload();
    /// Drops the rows and asks `specifiers` for new ones.
    void reloadSpecifiers();
    void reloadSpecifier(PSSpecifier*);

    /// By default through the file "/var/mobile/Library/Preferences/DEFAULTS.plist", where DEFAULTS is the
    /// row's "defaults"; a value that is not there is the row's "default". The setter also posts the row's
    /// "PostNotification".
    virtual void setPreferenceValueSpecifier(std::optional<PropertyValue>, PSSpecifier*);
    virtual std::optional<PropertyValue> readPreferenceValue(PSSpecifier*);

    /// The row that opened the page; null for the first page, and inside every initialiser.
    const Ref<PSSpecifier>& specifier() const { return _specifier; }
    void setSpecifier(Ref<PSSpecifier> specifier) { _specifier = std::move(specifier); }
    PSListController* parentController() const { return _parentController; }
    void setParentController(PSListController* parent) { _parentController = parent; }

    /// The stack that the page was opened on; set, like the two before, after the initialiser has returned.
    UINavigationController* rootController() const { return _rootController; }
    void setRootController(UINavigationController* root) { _rootController = root; }

    /// The "id" of the resource that the rows were loaded from; empty without one.
    const std::string& identifier() const { return _identifier; }

    CGSize contentSize() const { return _contentSize; }
    UITableView& table();

    /// Null for a group row, which has no place of its own.
    std::optional<NSIndexPath> indexPathForSpecifier(const PSSpecifier*) const;
    PSSpecifier* specifierAtIndexPath(NSIndexPath) const;
    /// The group row that opens the section; null when rows without one form it.
    PSSpecifier* groupOfSection(long section) const;

    void loadView() override;

    long numberOfSectionsInTableView(UITableView&) override;
    long tableViewNumberOfRowsInSection(UITableView&, long section) override;
    Ref<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView&, NSIndexPath) override;
    CGFloat tableViewHeightForRowAtIndexPath(UITableView&, NSIndexPath) override;
    std::string tableViewTitleForHeaderInSection(UITableView&, long section) override;
    std::string tableViewTitleForFooterInSection(UITableView&, long section) override;
    void tableViewDidSelectRowAtIndexPath(UITableView&, NSIndexPath) override;

protected:
    /// Not there until the rows are built.
    std::optional<Specifiers> _specifiers;

private:
    struct Place;
    Place placeOf(long section) const;
    void open(PSSpecifier&);

    CGSize _contentSize;
    std::string _identifier;
    Ref<PSSpecifier> _specifier;
    PSListController* _parentController = nullptr;
    UINavigationController* _rootController = nullptr;
    Ref<UITableView> _table;
    std::unordered_map<const PSSpecifier*, Ref<PSTableCell>> _cells;
};

}

#pragma once

#include "platform/PSListController.h"
#include "SettingsScreen.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace platform::tests {

/// A page of rows made in code that keeps its values itself and writes down what happens to it.
class ListPage : public PSListController {
public:
    explicit ListPage(CGSize size)
        : PSListController(size)
    {
        log += specifier() ? "made with a row; " : "made; ";
    }

    const Specifiers& specifiers() override
    {
        if (!_specifiers) {
            log += specifier() ? "specifiers for " + specifier()->name() + "; " : "specifiers; ";
            _specifiers = build(*this);
        }
        return *_specifiers;
    }
    void viewWillAppear(bool animated) override
    {
        log += isViewLoaded() ? "appear; " : "appear unloaded; ";
        PSListController::viewWillAppear(animated);
    }
    void setPreferenceValueSpecifier(std::optional<PropertyValue> value, PSSpecifier* row) override
    {
        values.insert_or_assign(row->identifier(), *value);
        ++stores;
        onStore(*this);
    }
    std::optional<PropertyValue> readPreferenceValue(PSSpecifier* row) override
    {
        const auto found = values.find(row->identifier());
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    Ref<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table, NSIndexPath path) override
    {
        ++cellsAskedFor;
        auto cell = PSListController::tableViewCellForRowAtIndexPath(table, path);
        if (colored == path) {
            cell->textLabel().setTextColor(UIColor::redColor());
            cell->setBackgroundColor(UIColor::blueColor());
        }
        return cell;
    }
    void act() { onAction(*this, nullptr); }
    void actWith(PSSpecifier* row) { onAction(*this, row); }

    Specifiers& list() { return *_specifiers; }

    static std::string log;
    static std::function<Specifiers(ListPage&)> build;
    std::function<void(ListPage&)> onStore = [](auto&) {};
    std::function<void(ListPage&, PSSpecifier*)> onAction = [](auto&, auto*) {};
    std::map<std::string, PropertyValue> values;
    std::optional<NSIndexPath> colored;
    int stores = 0;
    int cellsAskedFor = 0;
};

/// A row that asks the page for its value and gives it the new one.
Ref<PSSpecifier> makeRow(PSListController&, const std::string& name, PSCellType);

/// Shows such pages, whose rows are named by their place.
class ListControllerTest : public SettingsScreen {
protected:
    ListControllerTest();

    /// A page of these kinds of rows.
    Ref<ListPage> showKinds(std::vector<PSCellType> kinds);
    UITableView& table() { return top()->table(); }
    /// Of each section.
    static std::vector<long> rowCounts(PSListController&);
};

}

#pragma once

#include "platform/Device.h"
#include "platform/UILabel.h"
#include "platform/UITableView.h"
#include "platform/UIWindow.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace platform::tests {

/// Sections of rows as a test lists them, and what the table asked and told.
struct TableSource final : UITableViewDataSource {
    struct Section {
        std::string header;
        std::vector<CGFloat> rows;
        std::string footer = {};
    };
    std::vector<Section> sections;
    std::vector<NSIndexPath> selected;
    std::function<void(UITableViewCell&, NSIndexPath)> fill = [](auto&, auto) {};
    std::function<void(UITableView&)> onSelect = [](auto&) {};
    int cellsMade = 0;
    bool givesCells = true;

    long numberOfSectionsInTableView(UITableView&) override { return static_cast<long>(sections.size()); }
    long tableViewNumberOfRowsInSection(UITableView&, long section) override
    {
        return static_cast<long>(at(section).rows.size());
    }
    Ref<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table, NSIndexPath path) override
    {
        if (!givesCells)
            return nullptr;
        ++cellsMade;
        lastTable = &table;
        auto cell = std::make_shared<UITableViewCell>(UITableViewCellStyle::Value1, "");
        fill(*cell, path);
        return cell;
    }
    CGFloat tableViewHeightForRowAtIndexPath(UITableView&, NSIndexPath path) override
    {
        return at(path.section).rows[static_cast<std::size_t>(path.row)];
    }
    std::string tableViewTitleForHeaderInSection(UITableView&, long section) override
    {
        return at(section).header;
    }
    std::string tableViewTitleForFooterInSection(UITableView&, long section) override
    {
        return at(section).footer;
    }
    void tableViewDidSelectRowAtIndexPath(UITableView& table, NSIndexPath path) override
    {
        selected.push_back(path);
        onSelect(table);
    }

    Section& at(long section) { return sections[static_cast<std::size_t>(section)]; }
    UITableView* lastTable = nullptr;
};

/// A table that fills a window of 320 by 480 points at 2 pixels a point.
class TableViewTest : public testing::Test {
protected:
    TableViewTest()
    {
        window->setScale(2);
        window->addSubview(table);
    }
    ~TableViewTest() override { Device::current().rightToLeft = false; }

    void load(std::vector<TableSource::Section> sections)
    {
        source.sections = std::move(sections);
        table->reloadData();
        window->display();
    }
    void tap(CGPoint point)
    {
        window->touchBegan(point);
        window->touchEnded(point);
    }
    UITableViewCell& cell(long section, long row) { return *table->cellForRowAtIndexPath({ section, row }); }

    /// The first label with this text, or null.
    UILabel* label(const std::string& text, UIView* below = nullptr)
    {
        for (const auto& view : (below ? below : table.get())->subviews()) {
            auto* found = dynamic_cast<UILabel*>(view.get());
            if (found && found->text() == text)
                return found;
            if ((found = label(text, view.get())))
                return found;
        }
        return nullptr;
    }

    TableSource source;
    Ref<UIWindow> window = std::make_shared<UIWindow>(CGSize { 320, 480 });
    Ref<UITableView> table = std::make_shared<UITableView>(CGRect { 0, 0, 320, 480 }, source);
};

}

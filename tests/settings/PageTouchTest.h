#pragma once

#include "SettingsTest.h"

#include "platform/PSTableCell.h"
#include "platform/UINavigationController.h"
#include "platform/UITableView.h"
#include "platform/UIWindow.h"
#include "settings/VekoraListController.h"

/// The page in a window of 375 by 667 points, touched as by a finger.
class PageTouchTest : public SettingsTest {
protected:
    ~PageTouchTest() override;

    void open(const platform::PropertyList& preferences = { { "buttonColor", "#FF0000" } });

    /// Rows of the resource by their identifier.
    platform::NSIndexPath rowWithID(std::string_view identifier) const;
    platform::NSIndexPath statusRow() const;
    static constexpr platform::NSIndexPath colorRow { .section = 1, .row = 0 };
    static constexpr platform::NSIndexPath textRow { .section = 1, .row = 1 };

    /// As shown; brings the row into view first.
    platform::PSTableCell& cell(platform::NSIndexPath);
    std::string shownText(platform::NSIndexPath);
    std::string shownTextColor(platform::NSIndexPath);
    std::string shownBackground(platform::NSIndexPath);

    /// In the middle of the row, or of its control where it has one.
    void tap(platform::NSIndexPath);
    /// The row of the topmost page that shows this text.
    void tapRow(const std::string& text);
    void goBack();

    platform::PSListController& topPage() const;

    platform::Ref<platform::UIWindow> window;
    std::unique_ptr<platform::UINavigationController> navigation;
    platform::Ref<vekora::VekoraListController> page;

private:
    void tapMiddleOf(const platform::UIView&);
};

#pragma once

#include "UIScrollViewImpl.h"
#include "UITableView.h"

#include <vector>

namespace platform {

struct UITableView::Row {
    CGFloat y = 0;
    CGFloat height = 0;
    Ref<UITableViewCell> cell; ///< Null until it is needed.
};

struct UITableView::Section {
    std::string header;
    std::string footer;
    CGRect headerFrame;
    CGRect footerFrame;
    CGFloat top = 0; ///< Of the first row.
    CGFloat bottom = 0; ///< Of the last.
    std::vector<Row> rows;
    Ref<UILabel> headerLabel, footerLabel;
    CGFloat paperBottom = 0; ///< Further down than `bottom` where the last cell reaches out below it.
    Ref<UIView> paper; ///< Behind what reaches out.
    Ref<UIView> topLine, bottomLine;
};

struct UITableView::TableImpl : UIScrollView::ScrollImpl {
    using ScrollImpl::ScrollImpl;

    UITableViewDataSource* source = nullptr;
    std::vector<Section> sections;
    /// Cells and decorations of before the last reload, on screen until the new ones are there.
    std::vector<Ref<UIView>> oldViews;
    bool asking = false;
    CGFloat placedWidth = -1; ///< The width that the sections are placed for.
    CGFloat rowsBottom = 0; ///< Where rows, footers and the gap below them end.
    std::optional<NSIndexPath> selectedRow; ///< The finger is on it.
};

/// How far down a view with everything in it reaches, in its own coordinates, from its top.
CGFloat reachBelowTop(const UIView&);

}

#include "Device.h"
#include "Style.h"
#include "TextEngine.h"
#include "UITableViewImpl.h"
#include "UIWindow.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

/// Between a header's or footer's text and its rows.
constexpr CGFloat captionGap = 7;

Ref<UILabel> makeCaption(const std::string& text)
{
    auto label = std::make_shared<UILabel>();
    label->setText(text);
    label->setFont(UIFont::systemFontOfSize(style::smallFontSize));
    label->setTextColor(style::secondaryText());
    label->setNumberOfLines(0);
    return label;
}

double scaleOf(const UIView& view)
{
    return view.window() ? view.window()->scale() : Device::current().scale;
}

}

CGFloat reachBelowTop(const UIView& view)
{
    CGFloat reach = view.bounds().height;
    if (view.clipsToBounds())
        return reach;
    for (const auto& subview : view.subviews()) {
        if (!subview->isHidden())
            reach = std::max(reach, subview->frame().y + reachBelowTop(*subview));
    }
    return reach;
}

void UITableView::placeSections()
{
    auto& table = tableImpl();
    const CGFloat width = bounds().width;
    const double scale = scaleOf(*this);
    const auto toPixel = [&](CGFloat length) { return std::ceil(length * scale - 1e-6) / scale; };
    const CGFloat captionWidth = std::max(0.0, width - 2 * style::margin);
    const auto captionHeight = [&](Ref<UILabel>& label, const std::string& text) {
        if (!label)
            label = makeCaption(text);
        return toPixel(label->sizeThatFits({ captionWidth, 0 }).height);
    };

    CGFloat y = 0;
    for (auto& section : table.sections) {
        y += style::sectionGap;
        if (!section.header.empty()) {
            const CGFloat height = captionHeight(section.headerLabel, capitals(section.header));
            section.headerFrame = { style::margin, y - captionGap, captionWidth, height };
            y += height;
        }
        section.top = y;
        for (auto& row : section.rows) {
            row.y = y;
            y = toPixel(y + row.height);
        }
        section.bottom = y;
        if (!section.footer.empty()) {
            const CGFloat height = captionHeight(section.footerLabel, section.footer);
            section.footerFrame = { style::margin, y + captionGap, captionWidth, height };
            y += captionGap + height;
        }
    }
    table.rowsBottom = table.sections.empty() ? 0 : y + style::sectionGap;
    table.placedWidth = width;
    // Already now, so that the place scrolled to is kept when the rows are asked for again.
    setContentSize({ width, std::max(table.rowsBottom, std::min(contentSize().height, bounds().maxY())) });
}

void UITableView::placeDecorations(Section& section)
{
    const CGFloat width = bounds().width;
    const bool mirrored = Device::current().rightToLeft;
    for (auto [label, frame] : { std::pair(section.headerLabel, section.headerFrame),
             std::pair(section.footerLabel, section.footerFrame) }) {
        if (!label)
            continue;
        label->setTextAlignment(mirrored ? NSTextAlignment::Right : NSTextAlignment::Left);
        label->setFrame(frame);
        if (!label->superview())
            insertSubviewAtIndex(label, 0);
    }
    if (section.rows.empty())
        return;
    const CGFloat line = style::hairlineHeight / scaleOf(*this);
    const auto placeLine = [&](Ref<UIView>& view, CGFloat y) {
        if (!view) {
            view = std::make_shared<UIView>();
            view->setBackgroundColor(style::hairline());
            view->setUserInteractionEnabled(false);
            // Behind the cells: what reaches out of one is written over it.
            insertSubviewAtIndex(view, 0);
        }
        view->setFrame({ 0, y, width, line });
    };
    placeLine(section.topLine, section.top - line);
    placeLine(section.bottomLine, section.paperBottom);
    if (!section.paper) {
        section.paper = std::make_shared<UIView>();
        section.paper->setBackgroundColor(style::cellBackground());
        section.paper->setUserInteractionEnabled(false);
        insertSubviewAtIndex(section.paper, 0);
    }
    section.paper->setFrame({ 0, section.bottom, width, section.paperBottom - section.bottom });
}

void UITableView::layoutSubviews()
{
    const auto keep = weak_from_this().lock();
    auto& table = tableImpl();
    if (table.asking)
        return;
    if (table.placedWidth != bounds().width)
        placeSections();
    makeCells();
    dropOldCells();
    CGFloat reach = table.rowsBottom;
    for (auto& section : table.sections)
        section.paperBottom = section.bottom;
    const CGRect near = CGRectInset(bounds(), 0, -bounds().height);
    for (auto& section : table.sections) {
        for (std::size_t index = 0; index < section.rows.size(); ++index) {
            const auto& row = section.rows[index];
            if (!row.cell)
                continue;
            row.cell->setFrame({ 0, row.y, bounds().width, row.height });
            const CGFloat below = reachBelowTop(*row.cell);
            if (below <= row.height)
                continue;
            const CGFloat bottom = std::ceil(row.y + below + style::margin);
            reach = std::max(reach, bottom);
            // The table's last row is written on to the end on the same paper.
            if (&section == &table.sections.back() && &row == &section.rows.back()
                && section.footer.empty()) {
                section.paperBottom = bottom;
                reach = std::max(reach, bottom + style::sectionGap);
            }
        }
        const bool isNear = section.headerFrame.minY() <= near.maxY() || section.top <= near.maxY();
        if (isNear && std::max(section.bottom, section.footerFrame.maxY()) >= near.minY())
            placeDecorations(section);
    }
    setContentSize({ bounds().width, std::ceil(reach) });
}

}

#include "Style.h"
#include "UIAlertViewImpl.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr CGFloat boxWidth = 270;
constexpr CGFloat windowMargin = 10; // What stays free around the box, at least.
constexpr CGFloat bodyMargin = 19;
constexpr CGFloat sideMargin = 16;
constexpr CGFloat titleGap = 4;
constexpr CGFloat fieldGap = 13;
constexpr CGFloat fieldHeight = 30;
constexpr CGFloat fieldMargin = 7;
constexpr CGFloat buttonHeight = 44;
constexpr CGFloat smallestBody = 60; // What is seen of a long text above many buttons.
constexpr CGFloat noLimit = 1e6;

}

CGFloat UIAlertView::AlertImpl::layOutBody(CGFloat width, CGFloat hairline)
{
    const auto textWidth = std::max(0.0, width - 2 * sideMargin);
    auto y = bodyMargin;
    for (const auto& label : { title, message }) {
        if (label->isHidden())
            continue;
        if (y > bodyMargin)
            y += titleGap;
        const auto height = label->sizeThatFits({ textWidth, noLimit }).height;
        label->setFrame({ sideMargin, y, textWidth, height });
        y += height;
    }
    if (field) {
        if (y > bodyMargin)
            y += fieldGap;
        fieldFrame->setFrame({ sideMargin, y, textWidth, fieldHeight });
        fieldFrame->layer().setBorderWidth(hairline);
        field->setFrame({ fieldMargin, 0, std::max(0.0, textWidth - 2 * fieldMargin), fieldHeight });
        y += fieldHeight;
    }
    return y + bodyMargin;
}

bool UIAlertView::AlertImpl::buttonsFitSideBySide(CGFloat width) const
{
    return buttons.size() == 2 && std::all_of(buttons.begin(), buttons.end(), [&](const auto& button) {
        const auto title = button->titleLabel().sizeThatFits({ noLimit, noLimit });
        return title.width + 2 * alertButtonMargin <= width / 2
            && title.height + 2 * alertButtonMargin <= buttonHeight;
    });
}

CGFloat UIAlertView::AlertImpl::heightOfButton(std::size_t index, CGFloat width) const
{
    const auto titleHeight = buttons[index]
                                 ->titleLabel()
                                 .sizeThatFits({ std::max(1.0, width - 2 * alertButtonMargin), noLimit })
                                 .height;
    return std::max(buttonHeight, std::ceil(titleHeight + 2 * alertButtonMargin));
}

CGFloat UIAlertView::AlertImpl::layOutButtons(CGFloat top, CGFloat width, CGFloat hairline)
{
    if (buttonsFitSideBySide(width)) {
        const auto middle = std::floor(width / 2);
        buttons[0]->setFrame({ 0, top, middle, buttonHeight });
        buttons[1]->setFrame({ middle, top, width - middle, buttonHeight });
        hairlines[0]->setFrame({ 0, top, width, hairline });
        hairlines[1]->setFrame({ middle, top, hairline, buttonHeight });
        return buttonHeight;
    }
    // The cancel button stands last, next to the thumb.
    const auto first = settings.cancelButtonTitle ? 1 : 0;
    auto y = top;
    for (std::size_t place = 0; place < buttons.size(); ++place) {
        const auto index = (place + static_cast<std::size_t>(first)) % buttons.size();
        const auto height = heightOfButton(index, width);
        buttons[index]->setFrame({ 0, y, width, height });
        hairlines[index]->setFrame({ 0, y, width, hairline });
        y += height;
    }
    return y - top;
}

void UIAlertView::AlertImpl::layOut(CGSize area, double scale)
{
    const auto toPixels = [scale](CGFloat length) { return std::round(length * scale) / scale; };
    const auto hairline = style::hairlineHeight / scale;
    const auto width = std::clamp(area.width - 2 * windowMargin, 0.0, boxWidth);
    const auto bodyHeight = toPixels(layOutBody(width, hairline));
    const auto buttonsHeight = layOutButtons(0, width, hairline);
    const auto room = std::max(area.height - 2 * windowMargin - buttonsHeight, smallestBody);
    const auto visibleBody = std::min(bodyHeight, toPixels(room));
    layOutButtons(visibleBody, width, hairline);

    const auto height = visibleBody + buttonsHeight;
    // A little above the middle, where a keyboard would not cover it.
    const auto y = std::max(windowMargin, toPixels((area.height - height) / 3));
    box->setFrame({ toPixels((area.width - width) / 2), y, width, height });
    body->setFrame({ 0, 0, width, visibleBody });
    body->setContentSize({ width, bodyHeight });
}

}

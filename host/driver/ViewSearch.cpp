#include "ViewSearch.h"

#include "platform/PSTableCell.h"
#include "platform/UIAlertView.h"
#include "platform/UIButton.h"
#include "platform/UIScrollView.h"

namespace host {

using namespace platform;

namespace {

constexpr CGFloat leastAlpha = 0.01; ///< What is clearer takes no touches either.

bool isShownItself(const UIView& view)
{
    return !view.isHidden() && view.alpha() >= leastAlpha;
}

std::string shownText(UITextField& field)
{
    auto text = field.text();
    if (!field.isSecureTextEntry())
        return text;
    std::string bullets;
    for (const char byte : text) {
        if ((static_cast<unsigned char>(byte) & 0xC0) != 0x80) // The first byte of a character.
            bullets += "\u2022";
    }
    return bullets;
}

bool shows(UIView& view, std::string_view text)
{
    const auto shown = host::shownText(view);
    if (!shown)
        return false;
    if (*shown == text)
        return true;
    const auto* field = dynamic_cast<const UITextField*>(&view);
    return field && shown->empty() && field->placeholder() == text;
}

void collect(UIView& view, std::string_view text, std::vector<UIView*>& found)
{
    if (!isShownItself(view))
        return;
    const bool matches = shows(view, text);
    const bool standsForChildren = matches && dynamic_cast<UIControl*>(&view);
    if (!standsForChildren) {
        const auto& children = view.subviews();
        for (auto child = children.rbegin(); child != children.rend(); ++child)
            collect(**child, text, found);
    }
    if (matches)
        found.push_back(&view);
}

/// What lies below it cannot be seen or is not to be touched. A control that is laid over a text to take its
/// touches may be tinted a little.
bool hidesWhatLiesBelow(UIView& view)
{
    constexpr CGFloat hidingAlpha = 0.5;
    const auto& background = view.layer().backgroundColor();
    if (background && background->rgba()[3] >= hidingAlpha)
        return true;
    const auto text = host::shownText(view);
    return (text && !text->empty()) || dynamic_cast<UIAlertView*>(&view);
}

/// The least change of an offset that brings the span into the viewport.
CGFloat offsetToShow(CGFloat begin, CGFloat length, CGFloat offset, CGFloat viewport)
{
    const CGFloat middle = begin + length / 2;
    if (length > viewport)
        return middle >= offset && middle < offset + viewport ? offset : middle - viewport / 2;
    if (begin < offset)
        return begin;
    return begin + length > offset + viewport ? begin + length - viewport : offset;
}

/// Where the scroller has to go to show the view; nothing when it is there.
std::optional<CGFloat> offsetToShow(const UIView& view, const UIScrollView& scroller)
{
    const auto rect = view.convertRectToView(view.bounds(), &scroller);
    const auto offset = scroller.contentOffset().y;
    const auto y = offsetToShow(rect.y, rect.height, offset, scroller.bounds().height);
    return y == offset ? std::nullopt : std::optional(y);
}

}

std::optional<std::string> shownText(UIView& view)
{
    if (const auto* label = dynamic_cast<UILabel*>(&view))
        return label->text();
    if (const auto* button = dynamic_cast<UIButton*>(&view))
        return button->currentTitle();
    if (auto* field = dynamic_cast<UITextField*>(&view))
        return shownText(*field);
    return std::nullopt;
}

PSTableCell* cellAround(UIView* view)
{
    for (; view; view = view->superview()) {
        if (auto* cell = dynamic_cast<PSTableCell*>(view))
            return cell;
    }
    return nullptr;
}

std::vector<UIView*> viewsShowing(UIView& root, std::string_view text)
{
    std::vector<UIView*> found;
    collect(root, text, found);
    return found;
}

UIView* firstViewOfClass(UIView& root, std::string_view className)
{
    if (root.className() == className)
        return &root;
    for (const auto& child : root.subviews()) {
        if (auto* found = firstViewOfClass(*child, className))
            return found;
    }
    return nullptr;
}

UIView* foremostViewAt(UIView& root, CGPoint point)
{
    if (!isShownItself(root))
        return nullptr;
    const bool isInside = CGRectContainsPoint(rectInWindow(root), point);
    if (!isInside && root.clipsToBounds())
        return nullptr;
    const auto& children = root.subviews();
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
        if (auto* found = foremostViewAt(**child, point))
            return found;
    }
    return isInside ? &root : nullptr;
}

CGRect rectInWindow(const UIView& view)
{
    return view.convertRectToView(view.bounds(), nullptr);
}

CGPoint middleInWindow(const UIView& view)
{
    const auto rect = rectInWindow(view);
    return { rect.midX(), rect.midY() };
}

bool isInSight(const UIView& view, CGPoint point)
{
    if (!view.window() || !CGRectContainsPoint(view.window()->bounds(), point))
        return false;
    for (const UIView* around = view.superview(); around; around = around->superview()) {
        const bool clips = around->clipsToBounds() || dynamic_cast<const UIScrollView*>(around);
        if (clips && !CGRectContainsPoint(rectInWindow(*around), point))
            return false;
    }
    return true;
}

void scrollIntoSight(UIView& view)
{
    for (UIView* around = view.superview(); around; around = around->superview()) {
        auto* scroller = dynamic_cast<UIScrollView*>(around);
        const auto y = scroller ? offsetToShow(view, *scroller) : std::nullopt;
        if (y)
            scroller->setContentOffset({ scroller->contentOffset().x, *y });
    }
}

bool needsScrolling(const UIView& view)
{
    for (UIView* around = view.superview(); around; around = around->superview()) {
        const auto* scroller = dynamic_cast<UIScrollView*>(around);
        if (scroller && offsetToShow(view, *scroller))
            return true;
    }
    return false;
}

bool isCovered(UIWindow& window, const UIView& view, CGPoint point)
{
    UIView* hit = window.hitTestWithEvent(point, nullptr);
    if (!hit || hit->isDescendantOfView(view))
        return false;
    for (UIView* above = hit; above && !view.isDescendantOfView(*above); above = above->superview()) {
        if (hidesWhatLiesBelow(*above))
            return true;
    }
    return false;
}

}

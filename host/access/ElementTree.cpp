#include "ElementTree.h"

#include "ElementNames.h"
#include "ElementParts.h"
#include "host/driver/ViewSearch.h"
#include "platform/UIAlertView.h"
#include "platform/UIButton.h"
#include "platform/UINavigationController.h"
#include "platform/UIScrollView.h"
#include "platform/UISegmentedControl.h"
#include "platform/UITableView.h"
#include "platform/UIWindow.h"
#include "Surface.h"

#include <algorithm>

namespace host {

using namespace platform;

namespace {

Element readBar(UINavigationController& navigation)
{
    auto& back = navigation.backButton();
    const auto& bar = *back.superview();
    auto element = makeElement(bar, ElementRole::Bar, "Navigation bar");
    for (auto& part : elementsIn(bar)) {
        if (part.id.role == ElementRole::Text)
            part.id.role = ElementRole::Heading;
        if (part.id.get() == &back) {
            const auto title = spokenText(back.currentTitle());
            const auto arrowEnd = title.find(' ');
            const auto to = arrowEnd == std::string::npos ? std::string() : title.substr(arrowEnd + 1);
            part.name = to.empty() || to == "Back" ? "Back" : "Back to " + to;
        }
        element.children.push_back(std::move(part));
    }
    return element;
}

Element readPage(UIViewController& controller)
{
    auto& view = controller.view();
    auto page = makeElement(view, ElementRole::Page, controller.title());
    auto* const table = dynamic_cast<UITableView*>(&view);
    page.children = table ? elementsOfTable(*table) : elementsIn(view);
    if (page.name.empty())
        page.name = "Page";
    return page;
}

/// What the alert says first is its name; a field without another is named by the rest.
Element readAlert(UIAlertView& alert)
{
    const auto title = spokenText(alert.title().value_or(""));
    const auto message = spokenText(alert.message());
    auto element = makeElement(alert, ElementRole::Alert, title.empty() ? message : title);
    if (element.name.empty())
        element.name = "Alert";
    if (!title.empty())
        element.description = message;
    element.children = elementsIn(alert);
    for (auto& part : element.children) {
        if (part.id.role == ElementRole::TextField)
            part.name = message.empty() ? element.name : message;
    }
    return element;
}

CGRect rectOfSegment(const UISegmentedControl& segments, int index)
{
    const auto all = rectInWindow(segments);
    const auto width = all.width / static_cast<CGFloat>(std::max(1L, segments.numberOfSegments()));
    return { all.x + width * index, all.y, width, all.height };
}

}

Element readScreen(UIWindow& window, UINavigationController& navigation)
{
    Element root;
    root.id = { WeakObject(&window), ElementRole::Group };
    root.rect = window.bounds();
    if (auto* const alert = UIAlertView::topmost(); alert && alert->window() == &window) {
        root.children.push_back(readAlert(*alert));
        return root;
    }
    root.children.push_back(readBar(navigation));
    if (auto* const page = navigation.topViewController())
        root.children.push_back(readPage(*page));
    return root;
}

CGRect currentRect(const Element& element)
{
    const auto* const frame = static_cast<const UIView*>(element.frame.get());
    if (!frame)
        return {};
    if (element.id.role == ElementRole::Segment)
        return rectOfSegment(dynamic_cast<const UISegmentedControl&>(*frame), element.id.part);
    return rectInWindow(*frame);
}

CGRect clipAround(const Element& element)
{
    const auto* const frame = static_cast<const UIView*>(element.frame.get());
    if (!frame || !frame->window())
        return {};
    auto clip = frame->window()->bounds();
    for (const auto* around = frame->superview(); around; around = around->superview()) {
        if (around->isHidden())
            return {};
        if (around->clipsToBounds() || dynamic_cast<const UIScrollView*>(around))
            clip = CGRectIntersection(clip, rectInWindow(*around));
    }
    return clip;
}

CGRect visibleRect(const Element& element)
{
    return CGRectIntersection(currentRect(element), clipAround(element));
}

}

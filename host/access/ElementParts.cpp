#include "ElementParts.h"

#include "ElementNames.h"
#include "ElementTree.h"
#include "host/driver/ViewSearch.h"
#include "platform/Device.h"
#include "platform/UIAlertView.h"
#include "platform/UIButton.h"
#include "platform/UIImageView.h"
#include "platform/UISegmentedControl.h"
#include "platform/UISlider.h"
#include "platform/UISwitch.h"
#include "platform/UITableView.h"
#include "ReadingOrder.h"
#include "SliderSteps.h"
#include "Surface.h"

#include <algorithm>

namespace host {

using namespace platform;

namespace {

WeakObject lookAt(const UIView& view)
{
    return WeakObject(const_cast<UIView*>(&view));
}

/// Titles of its segments, in their order; it shows them in labels.
std::vector<std::string> titlesOf(const UISegmentedControl& segments)
{
    std::vector<std::string> titles;
    for (const auto& view : segments.subviews()) {
        if (const auto* const label = dynamic_cast<const UILabel*>(view.get()))
            titles.push_back(spokenText(label->text()));
    }
    return titles;
}

Element elementOfSegments(const UISegmentedControl& segments)
{
    auto element = makeElement(segments, ElementRole::Segments, nameFromNearbyLabel(segments));
    const auto titles = titlesOf(segments);
    for (std::size_t index = 0; index < titles.size(); ++index) {
        auto segment = makeElement(segments, ElementRole::Segment, titles[index], static_cast<int>(index));
        segment.enabled = segments.isEnabled();
        segment.chosen = static_cast<long>(index) == segments.selectedSegmentIndex();
        if (segment.chosen)
            element.description = segment.name;
        element.children.push_back(std::move(segment));
    }
    return element;
}

Element elementOfField(UITextField& field)
{
    auto name = nameFromNearbyLabel(field);
    auto element = makeElement(field, ElementRole::TextField, name.empty() ? field.placeholder() : name);
    element.text = shownText(static_cast<UIView&>(field)).value_or("");
    element.secret = field.isSecureTextEntry();
    if (element.name != field.placeholder())
        element.description = field.placeholder();
    return element;
}

std::string capitalised(std::string_view name)
{
    std::string text(name);
    if (!text.empty() && text.front() >= 'a' && text.front() <= 'z')
        text.front() = static_cast<char>(text.front() - 'a' + 'A');
    return text;
}

Element elementOfSurface(const Surface& surface)
{
    const auto name = std::string(surface.kind->name);
    auto element
        = makeElement(*surface.pad, surface.isField() ? ElementRole::Field : ElementRole::ColorBar, name);
    element.description = surface.summary();
    for (int part = 0; part < 2; ++part) {
        if (!surface.axis(part))
            continue;
        if (!surface.isField()) {
            element.id.part = part;
            element.value = surface.value(part);
            continue;
        }
        auto axis = makeElement(*surface.pad, ElementRole::Axis, capitalised(surface.axis(part)->name), part);
        axis.value = surface.value(part);
        axis.enabled = surface.pad->isEnabled();
        element.children.push_back(std::move(axis));
    }
    return element;
}

/// The parts of surfaces are told of by the surfaces.
std::vector<const UIView*> partsOfSurfaces(const UIView& container)
{
    std::vector<const UIView*> parts;
    for (const auto& view : container.subviews()) {
        auto* const control = dynamic_cast<UIControl*>(view.get());
        const auto surface = control ? surfaceOf(*control) : std::nullopt;
        if (surface && surface->ground != surface->pad)
            parts.push_back(surface->ground);
        if (surface)
            parts.push_back(surface->handle);
    }
    return parts;
}

}

Element makeElement(const UIView& view, ElementRole role, std::string name, int part)
{
    Element element;
    element.id = { lookAt(view), role, part };
    element.name = std::move(name);
    element.frame = lookAt(view);
    element.rect = currentRect(element);
    element.inSight = !visibleRect(element).isEmpty();
    return element;
}

Element elementOfControl(UIControl& control)
{
    auto element = [&] {
        if (const auto* toggle = dynamic_cast<const UISwitch*>(&control)) {
            auto made = makeElement(control, ElementRole::Switch, nameFromNearbyLabel(control));
            made.chosen = toggle->isOn();
            return made;
        }
        if (const auto* slider = dynamic_cast<const UISlider*>(&control)) {
            auto made = makeElement(control, ElementRole::Slider, nameFromNearbyLabel(control));
            made.value = { slider->value(), slider->minimumValue(), slider->maximumValue(), stepOf(*slider) };
            return made;
        }
        if (const auto* segments = dynamic_cast<const UISegmentedControl*>(&control))
            return elementOfSegments(*segments);
        if (auto* field = dynamic_cast<UITextField*>(&control))
            return elementOfField(*field);
        if (const auto surface = surfaceOf(control))
            return elementOfSurface(*surface);
        const auto* button = dynamic_cast<const UIButton*>(&control);
        return makeElement(
            control, ElementRole::Button, button ? nameOfButton(*button) : nameFromNearbyLabel(control));
    }();
    if (element.name.empty())
        element.name = control.className();
    element.enabled = control.isEnabled();
    return element;
}

std::vector<Element> elementsOf(UIView& view)
{
    if (!isShownItself(view) || dynamic_cast<UIAlertView*>(&view) || dynamic_cast<UIImageView*>(&view))
        return {};
    if (auto* const table = dynamic_cast<UITableView*>(&view)) {
        auto page = makeElement(view, ElementRole::Page, {});
        page.children = elementsOfTable(*table);
        return { page };
    }
    if (auto* const cell = dynamic_cast<UITableViewCell*>(&view))
        return { elementOfRow(*cell) };
    if (auto* const control = dynamic_cast<UIControl*>(&view))
        return { elementOfControl(*control) };
    if (const auto* const label = dynamic_cast<const UILabel*>(&view)) {
        auto text = spokenText(label->text());
        if (text.empty() || isCoveredByButton(*label))
            return {};
        return { makeElement(view, ElementRole::Text, std::move(text)) };
    }
    const auto* const picture = surfaceKindNamed(view.className());
    if (picture || (view.subviews().empty() && view.className() != "UIView")) {
        if (view.bounds().isEmpty())
            return {};
        return { makeElement(
            view, ElementRole::Picture, picture ? std::string(picture->name) : view.className()) };
    }
    return elementsIn(view);
}

std::vector<Element> inReadingOrder(std::vector<std::vector<Element>> blocks)
{
    std::erase_if(blocks, [](const auto& block) { return block.empty(); });
    std::vector<CGRect> places;
    for (const auto& block : blocks) {
        CGRect place;
        for (const auto& element : block)
            place = CGRectUnion(place, element.rect);
        places.push_back(place);
    }
    const auto direction
        = Device::current().rightToLeft ? ReadingDirection::RightToLeft : ReadingDirection::LeftToRight;
    std::vector<Element> ordered;
    for (const auto index : readingOrder(places, direction))
        std::move(blocks[index].begin(), blocks[index].end(), std::back_inserter(ordered));
    return ordered;
}

std::vector<Element> elementsIn(const UIView& container)
{
    const auto parts = partsOfSurfaces(container);
    std::vector<std::vector<Element>> blocks;
    for (const auto& view : container.subviews()) {
        if (std::find(parts.begin(), parts.end(), view.get()) == parts.end())
            blocks.push_back(elementsOf(*view));
    }
    return inReadingOrder(std::move(blocks));
}

}

#include "ElementNames.h"

#include "platform/Device.h"
#include "platform/UIButton.h"
#include "ReadingOrder.h"

#include <QString>

#include <algorithm>
#include <cmath>

namespace host {

using namespace platform;

namespace {

constexpr CGFloat leastAlpha = 0.01;
constexpr CGFloat slack = 3; // Points by which what lies over something may be smaller than it.
constexpr CGFloat farthestLabel = 60; // Points between a control and a label that names it.

bool holds(CGRect outer, CGRect inner)
{
    const auto roomy = CGRectInset(outer, -slack, -slack);
    return inner.minX() >= roomy.minX() && inner.maxX() <= roomy.maxX() && inner.minY() >= roomy.minY()
        && inner.maxY() <= roomy.maxY();
}

std::vector<const UILabel*> labelsBeside(const UIView& view)
{
    std::vector<const UILabel*> labels;
    if (!view.superview())
        return labels;
    for (const auto& sibling : view.superview()->subviews()) {
        const auto* const label = dynamic_cast<const UILabel*>(sibling.get());
        if (label && isShownItself(*label) && !label->text().empty())
            labels.push_back(label);
    }
    return labels;
}

bool isTitle(const UILabel& label, const UIButton& button)
{
    return button.currentTitle().empty() && holds(button.frame(), label.frame());
}

std::string joined(const std::vector<const UILabel*>& labels)
{
    std::vector<CGRect> frames;
    frames.reserve(labels.size());
    for (const auto* label : labels)
        frames.push_back(label->frame());
    const auto direction
        = Device::current().rightToLeft ? ReadingDirection::RightToLeft : ReadingDirection::LeftToRight;
    std::string text;
    for (const auto index : readingOrder(frames, direction))
        text += (text.empty() ? "" : " ") + spokenText(labels[index]->text());
    return text;
}

bool hasLetter(const std::string& text)
{
    const auto characters = QString::fromStdString(text);
    return std::any_of(
        characters.begin(), characters.end(), [](QChar character) { return character.isLetter(); });
}

CGFloat gap(CGFloat beginA, CGFloat endA, CGFloat beginB, CGFloat endB)
{
    return std::max({ 0.0, beginA - endB, beginB - endA });
}

}

bool isShownItself(const UIView& view)
{
    return !view.isHidden() && view.alpha() >= leastAlpha;
}

std::string spokenText(const std::string& text)
{
    auto spoken = QString::fromStdString(text);
    spoken.removeIf([](QChar character) { return character.category() == QChar::Other_Format; });
    return spoken.trimmed().toStdString();
}

bool isCoveredByButton(const UILabel& label)
{
    if (!label.superview())
        return false;
    const auto& siblings = label.superview()->subviews();
    return std::any_of(siblings.begin(), siblings.end(), [&](const auto& sibling) {
        const auto* const button = dynamic_cast<const UIButton*>(sibling.get());
        return button && isShownItself(*button) && isTitle(label, *button);
    });
}

std::string nameOfButton(const UIButton& button)
{
    if (auto title = spokenText(button.currentTitle()); !title.empty())
        return title;
    std::vector<const UILabel*> covered;
    for (const auto* label : labelsBeside(button)) {
        if (isTitle(*label, button))
            covered.push_back(label);
    }
    auto name = joined(covered);
    if (name.empty())
        return nameFromNearbyLabel(button).empty() ? button.className() : nameFromNearbyLabel(button);
    if (!hasLetter(name)) {
        if (const auto before = nameFromNearbyLabel(button); !before.empty())
            name = before + " " + name;
    }
    return name;
}

std::string nameFromNearbyLabel(const UIView& view)
{
    const auto frame = view.frame();
    const UILabel* nearest = nullptr;
    CGFloat least = farthestLabel;
    for (const auto* label : labelsBeside(view)) {
        const auto place = label->frame();
        if (label == &view || place.minY() > frame.midY() || isCoveredByButton(*label))
            continue;
        const auto distance = std::hypot(gap(place.minX(), place.maxX(), frame.minX(), frame.maxX()),
            gap(place.minY(), place.maxY(), frame.minY(), frame.maxY()));
        if (distance <= least && (!nearest || distance < least)) {
            nearest = label;
            least = distance;
        }
    }
    return nearest ? spokenText(nearest->text()) : std::string();
}

}

#include "DriverCommands.h"

#include "Json.h"
#include "platform/UIButton.h"
#include "platform/UISegmentedControl.h"
#include "platform/UISlider.h"
#include "platform/UISwitch.h"
#include "ViewSearch.h"

namespace host {

using namespace platform;

namespace {

void describeLabel(QJsonObject& node, UILabel& label)
{
    node["textColor"] = jsonFromColor(label.textColor().cgColor());
    node["alignment"] = static_cast<int>(label.textAlignment());
    node["lines"] = static_cast<qint64>(label.numberOfLines());
}

void describeField(QJsonObject& node, UITextField& field)
{
    node["textColor"] = jsonFromColor(field.textColor().cgColor());
    node["alignment"] = static_cast<int>(field.textAlignment());
}

void describeSlider(QJsonObject& node, UISlider& slider)
{
    node["value"] = static_cast<double>(slider.value());
    node["min"] = static_cast<double>(slider.minimumValue());
    node["max"] = static_cast<double>(slider.maximumValue());
}

template <typename View>
void describeAs(QJsonObject& node, UIView& view, void (*describe)(QJsonObject&, View&))
{
    if (auto* special = dynamic_cast<View*>(&view))
        describe(node, *special);
}

/// What only some kinds of view have.
void describeKind(QJsonObject& node, UIView& view)
{
    if (const auto text = shownText(view))
        node["text"] = jsonFromText(*text);
    describeAs<UILabel>(node, view, describeLabel);
    describeAs<UITextField>(node, view, describeField);
    describeAs<UISlider>(node, view, describeSlider);
    describeAs<UIButton>(node, view, [](QJsonObject& button, UIButton& of) {
        button["textColor"] = jsonFromColor(of.titleLabel().textColor().cgColor());
    });
    describeAs<UISwitch>(node, view, [](QJsonObject& toggle, UISwitch& of) { toggle["on"] = of.isOn(); });
    describeAs<UISegmentedControl>(node, view, [](QJsonObject& segments, UISegmentedControl& of) {
        segments["value"] = static_cast<qint64>(of.selectedSegmentIndex());
    });
    describeAs<UIControl>(
        node, view, [](QJsonObject& control, UIControl& of) { control["enabled"] = of.isEnabled(); });
}

void describeLayer(QJsonObject& node, const CALayer& layer)
{
    if (layer.backgroundColor())
        node["background"] = jsonFromColor(layer.backgroundColor());
    node["cornerRadius"] = layer.cornerRadius();
    node["borderWidth"] = layer.borderWidth();
    if (layer.borderWidth() > 0)
        node["borderColor"] = jsonFromColor(layer.borderColor());
    node["masksToBounds"] = layer.masksToBounds();
}

QJsonObject nodeOf(UIView& view)
{
    QJsonObject node {
        { "class", jsonFromText(view.className()) },
        { "frame", jsonFromRect(view.frame()) },
        { "onScreen", jsonFromRect(rectInWindow(view)) },
        { "hidden", view.isHidden() },
        { "alpha", view.alpha() },
        { "mask", static_cast<qint64>(view.autoresizingMask()) },
        { "tag", static_cast<qint64>(view.tag()) },
    };
    describeLayer(node, view.layer());
    describeKind(node, view);
    QJsonArray children;
    for (const auto& child : view.subviews())
        children.append(nodeOf(*child));
    node["children"] = children;
    return node;
}

QJsonObject tree(Driver& driver, Words words)
{
    auto* root = words.empty() ? &driver.window() : firstViewOfClass(driver.window(), words[0]);
    if (!root)
        throw CommandFailure("The window has no view of class " + quoted(words[0]) + ".");
    return { { "tree", nodeOf(*root) } };
}

constexpr DriverCommand commands[] = {
    { "tree", 0, 1, "at most one CLASS", tree },
};

}

std::span<const DriverCommand> treeCommands()
{
    return commands;
}

}

#include "DriverTree.h"
#include "DriverCommands.h"

#include "host/ViewFacts.h"
#include "Json.h"
#include "ViewSearch.h"

namespace host {

using namespace platform;

namespace {

template <typename T> void insert(QJsonObject& node, const char* name, const std::optional<T>& fact)
{
    if (!fact)
        return;
    if constexpr (std::is_same_v<T, std::string>)
        node[name] = jsonFromText(*fact);
    else if constexpr (std::is_same_v<T, CGColor>)
        node[name] = jsonFromColor(*fact);
    else if constexpr (std::is_same_v<T, long>)
        node[name] = static_cast<qint64>(*fact);
    else
        node[name] = *fact;
}

QJsonObject jsonFromFacts(const ViewFacts& facts)
{
    QJsonObject node {
        { "class", jsonFromText(facts.className) },
        { "frame", jsonFromRect(facts.frame) },
        { "onScreen", jsonFromRect(facts.onScreen) },
        { "hidden", facts.isHidden },
        { "alpha", facts.alpha },
        { "mask", static_cast<qint64>(facts.mask) },
        { "tag", static_cast<qint64>(facts.tag) },
        { "cornerRadius", facts.cornerRadius },
        { "borderWidth", facts.borderWidth },
        { "masksToBounds", facts.masksToBounds },
    };
    insert(node, "background", facts.background);
    insert(node, "borderColor", facts.borderColor);
    insert(node, "text", facts.text);
    insert(node, "textColor", facts.textColor);
    insert(node, "alignment", facts.alignment);
    insert(node, "lines", facts.lines);
    insert(node, "value", facts.value);
    insert(node, "min", facts.minimum);
    insert(node, "max", facts.maximum);
    insert(node, "on", facts.isOn);
    insert(node, "enabled", facts.isEnabled);
    return node;
}

}

QJsonObject treeOf(UIView& view)
{
    auto node = jsonFromFacts(ViewFacts::of(view));
    QJsonArray children;
    for (const auto& child : view.subviews())
        children.append(treeOf(*child));
    node["children"] = children;
    return node;
}

namespace {

QJsonObject tree(Driver& driver, Words words)
{
    auto* root = words.empty() ? &driver.window() : firstViewOfClass(driver.window(), words[0]);
    if (!root)
        throw CommandFailure("The window has no view of class " + quoted(words[0]) + ".");
    return { { "tree", treeOf(*root) } };
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

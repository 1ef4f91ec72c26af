#include "ViewTreeModel.h"

#include "host/ToolTip.h"
#include "ViewWords.h"

#include <QColor>

#include <algorithm>
#include <array>

namespace host {

using namespace platform;

struct ViewTreeModel::Node {
    WeakObject view;
    ViewFacts facts;
    Node* parent = nullptr;
    int row = 0;
    Nodes children {};

    bool isOf(const UIView* other) const { return view.get() == other; }
};

namespace {

std::vector<UIView*> childrenOf(const UIView& view)
{
    std::vector<UIView*> children;
    for (const auto& child : view.subviews())
        children.push_back(child.get());
    return children;
}

QVariant colorOf(const std::optional<CGColor>& color)
{
    if (!color)
        return {};
    const auto parts = color->rgba();
    return QColor::fromRgbF(static_cast<float>(parts[0]), static_cast<float>(parts[1]),
        static_cast<float>(parts[2]), static_cast<float>(parts[3]));
}

}

ViewTreeModel::ViewTreeModel(QObject* parent)
    : QAbstractItemModel(parent)
    , _root(std::make_unique<Node>())
{
}

ViewTreeModel::~ViewTreeModel() = default;

std::unique_ptr<ViewTreeModel::Node> ViewTreeModel::nodeOf(UIView& view, Node* parent)
{
    auto node = std::make_unique<Node>(Node { WeakObject(&view), ViewFacts::of(view), parent });
    for (auto* const child : childrenOf(view)) {
        node->children.push_back(nodeOf(*child, node.get()));
        node->children.back()->row = static_cast<int>(node->children.size()) - 1;
    }
    return node;
}

void ViewTreeModel::look(UIView& window)
{
    replaceChildren(*_root, { &window });
}

void ViewTreeModel::update(Node& node, UIView& view)
{
    if (auto facts = ViewFacts::of(view); !(facts == node.facts)) {
        node.facts = std::move(facts);
        emit dataChanged(indexOf(node), indexOf(node, ColumnCount - 1));
    }
    replaceChildren(node, childrenOf(view));
}

void ViewTreeModel::replaceChildren(Node& node, const std::vector<UIView*>& views)
{
    // What both begin and end with stays; what lies between is replaced.
    auto& nodes = node.children;
    const auto both = std::min(nodes.size(), views.size());
    std::size_t before = 0;
    while (before < both && nodes[before]->isOf(views[before]))
        ++before;
    std::size_t after = 0;
    while (after < both - before && nodes[nodes.size() - 1 - after]->isOf(views[views.size() - 1 - after]))
        ++after;

    const auto parent = indexOf(node);
    const auto first = static_cast<std::ptrdiff_t>(before);
    if (const auto gone = nodes.size() - before - after; gone > 0) {
        beginRemoveRows(parent, static_cast<int>(before), static_cast<int>(before + gone) - 1);
        nodes.erase(nodes.begin() + first, nodes.end() - static_cast<std::ptrdiff_t>(after));
        for (auto row = before; row < nodes.size(); ++row)
            nodes[row]->row = static_cast<int>(row);
        endRemoveRows();
    }
    for (std::size_t row = 0; row < nodes.size(); ++row)
        update(*nodes[row], *views[row < before ? row : views.size() - nodes.size() + row]);
    if (const auto more = views.size() - before - after; more > 0) {
        Nodes fresh;
        for (auto row = before; row < before + more; ++row)
            fresh.push_back(nodeOf(*views[row], &node));
        beginInsertRows(parent, static_cast<int>(before), static_cast<int>(before + more) - 1);
        nodes.insert(nodes.begin() + first, std::make_move_iterator(fresh.begin()),
            std::make_move_iterator(fresh.end()));
        for (auto row = before; row < nodes.size(); ++row)
            nodes[row]->row = static_cast<int>(row);
        endInsertRows();
    }
}

ViewTreeModel::Node& ViewTreeModel::nodeAt(const QModelIndex& index)
{
    return *static_cast<Node*>(index.internalPointer());
}

const ViewFacts& ViewTreeModel::facts(const QModelIndex& index) const
{
    return nodeAt(index).facts;
}

UIView* ViewTreeModel::view(const QModelIndex& index) const
{
    return index.isValid() ? dynamic_cast<UIView*>(nodeAt(index).view.get()) : nullptr;
}

QModelIndex ViewTreeModel::indexOf(const UIView& view) const
{
    return find(*_root, view);
}

QModelIndex ViewTreeModel::find(const Node& node, const UIView& view) const
{
    for (const auto& child : node.children) {
        if (child->isOf(&view))
            return indexOf(*child);
        if (const auto found = find(*child, view); found.isValid())
            return found;
    }
    return {};
}

QModelIndex ViewTreeModel::indexOf(const Node& node, int column) const
{
    return &node == _root.get() ? QModelIndex() : createIndex(node.row, column, &node);
}

QModelIndex ViewTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    const auto& node = parent.isValid() ? nodeAt(parent) : *_root;
    if (row < 0 || column < 0 || column >= ColumnCount || row >= static_cast<int>(node.children.size()))
        return {};
    return createIndex(row, column, node.children[static_cast<std::size_t>(row)].get());
}

QModelIndex ViewTreeModel::parent(const QModelIndex& index) const
{
    return index.isValid() ? indexOf(*nodeAt(index).parent) : QModelIndex();
}

int ViewTreeModel::rowCount(const QModelIndex& parent) const
{
    if (parent.column() > 0)
        return 0;
    return static_cast<int>((parent.isValid() ? nodeAt(parent) : *_root).children.size());
}

int ViewTreeModel::columnCount(const QModelIndex&) const
{
    return ColumnCount;
}

QVariant ViewTreeModel::data(const QModelIndex& index, int role) const
{
    using Words = QString (*)(const ViewFacts&);
    static constexpr std::array<Words, ColumnCount> words {
        [](const ViewFacts& facts) { return QString::fromStdString(facts.className); },
        [](const ViewFacts& facts) { return rectWords(facts.frame); },
        contentWords,
        [](const ViewFacts& facts) { return colorWords(facts.background); },
        visibilityWords,
        [](const ViewFacts& facts) { return maskWords(facts.mask); },
    };
    const auto& facts = this->facts(index);
    switch (role) {
    case Qt::DisplayRole:
        return words.at(static_cast<std::size_t>(index.column()))(facts);
    case Qt::ToolTipRole:
        return toolTipFor(words.at(static_cast<std::size_t>(index.column()))(facts));
    case Qt::DecorationRole:
        return index.column() == ColorColumn ? colorOf(facts.background) : QVariant();
    case Qt::ForegroundRole:
        return facts.isHidden ? QVariant(QColor(Qt::gray)) : QVariant();
    default:
        return {};
    }
}

QVariant ViewTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static constexpr std::array titles { "View", "Frame", "Shows", "Background", "Alpha", "Stretches" };
    if (orientation == Qt::Vertical || role != Qt::DisplayRole)
        return {};
    return QString::fromLatin1(titles.at(static_cast<std::size_t>(section)));
}

}

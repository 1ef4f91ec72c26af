#pragma once

#include "host/ViewFacts.h"
#include "platform/UIView.h"

#include <memory>
#include <QAbstractItemModel>
#include <vector>

namespace host {

/// A window's tree of views as it was when it was last looked at. It holds copies of what can be told of
/// them, and the views themselves weakly: one may go at any moment.
class ViewTreeModel final : public QAbstractItemModel {
public:
    enum Column {
        ClassColumn,
        FrameColumn,
        ContentColumn,
        ColorColumn,
        AlphaColumn,
        MaskColumn,
        ColumnCount
    };

    explicit ViewTreeModel(QObject* parent = nullptr);
    ~ViewTreeModel() override;

    /// Looks at the window's views again, and tells of the rows that differ and of no others.
    void look(platform::UIView& window);

    const ViewFacts& facts(const QModelIndex&) const;
    /// Null when it has gone.
    platform::UIView* view(const QModelIndex&) const;
    /// Invalid when the view was not there yet, or is there no more.
    QModelIndex indexOf(const platform::UIView&) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex&) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex&, int role) const override;
    QVariant headerData(int section, Qt::Orientation, int role) const override;

private:
    struct Node;
    using Nodes = std::vector<std::unique_ptr<Node>>;

    static std::unique_ptr<Node> nodeOf(platform::UIView&, Node* parent);
    static Node& nodeAt(const QModelIndex&);
    QModelIndex indexOf(const Node&, int column = 0) const;
    QModelIndex find(const Node&, const platform::UIView&) const;
    void update(Node&, platform::UIView&);
    void replaceChildren(Node&, const std::vector<platform::UIView*>& views);

    std::unique_ptr<Node> _root; ///< Around the window.
};

}

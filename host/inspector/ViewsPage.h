#pragma once

#include "LazyUpdate.h"

#include <QWidget>

class QPushButton;
class QTreeView;

namespace platform {
class UIView;
struct CGPoint;
}

namespace host {

class Phone;
class PhoneView;
class ViewDetails;
class ViewTreeModel;

/// The tree of the phone's views. The selected one, or the one under the mouse, is highlighted in the phone;
/// a view can also be picked there. It looks at the views while it is shown, a moment after they changed.
class ViewsPage final : public QWidget {
public:
    ViewsPage(Phone&, PhoneView&, QWidget* parent);
    ~ViewsPage() override;

    /// Whether the views changed since it looked at them.
    bool isBehind() const { return _look.isPending(); }

    bool eventFilter(QObject*, QEvent*) override;

protected:
    void showEvent(QShowEvent*) override;
    void hideEvent(QHideEvent*) override;

private:
    QTreeView* makeTree();
    void look();
    void setPicking(bool);
    void pick(platform::CGPoint);
    void showCurrent();
    /// In the phone; null for none.
    void highlight(const platform::UIView*);

    Phone& _phone;
    PhoneView& _view;
    ViewTreeModel* _model;
    QTreeView* _tree;
    ViewDetails* _details;
    QPushButton* _pick;
    LazyUpdate _look;
    bool _isPicking = false;
    int _listener;
};

}

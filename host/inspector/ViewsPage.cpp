#include "ViewsPage.h"

#include "host/driver/ViewSearch.h"
#include "host/PhoneView.h"
#include "PageParts.h"
#include "PlainDelegate.h"
#include "platform/Journal.h"
#include "ViewDetails.h"
#include "ViewTreeModel.h"
#include "WrappingLayout.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QTreeView>
#include <QVBoxLayout>

namespace host {

using namespace platform;

ViewsPage::ViewsPage(Phone& phone, PhoneView& view, QWidget* parent)
    : QWidget(parent)
    , _phone(phone)
    , _view(view)
    , _model(new ViewTreeModel(this))
    , _tree(makeTree())
    , _details(new ViewDetails(this))
    , _look([this] { look(); })
{
    auto* const top = new QWidget(this);
    auto* const row = new WrappingLayout(top);
    _pick = addButton(*row, "pick", "Pick in the Phone",
        "Then click a view in the phone to find it here; Escape ends it", this, &ViewsPage::setPicking);
    _pick->setCheckable(true);
    row->addStretch();
    auto* const column = new QVBoxLayout(this);
    column->addWidget(top);
    column->addWidget(_tree, 1);
    column->addWidget(_details);

    connect(_tree->selectionModel(), &QItemSelectionModel::currentChanged, this, &ViewsPage::showCurrent);
    connect(_tree, &QTreeView::entered, this,
        [this](const QModelIndex& index) { highlight(_model->view(index)); });
    connect(_model, &QAbstractItemModel::rowsInserted, this,
        [this](const QModelIndex& parent, int first, int last) {
            _tree->expand(parent);
            for (int index = first; index <= last; ++index)
                _tree->expandRecursively(_model->index(index, 0, parent));
        });
    _tree->viewport()->installEventFilter(this);
    _view.installEventFilter(this);
    _listener = Journal::shared().listen([this](const JournalEntry& entry) {
        if (entry.kind == JournalEntry::Kind::Display && isVisible())
            _look.request();
    });
}

ViewsPage::~ViewsPage()
{
    Journal::shared().stop(_listener);
}

QTreeView* ViewsPage::makeTree()
{
    auto* const tree = new QTreeView(this);
    tree->setAccessibleName(QStringLiteral("Views"));
    tree->setModel(_model);
    tree->setItemDelegate(new PlainDelegate(tree));
    tree->setUniformRowHeights(true);
    tree->setIndentation(9);
    tree->setMouseTracking(true);
    tree->setTabKeyNavigation(false);
    const auto letters = [&](int count) { return tree->fontMetrics().averageCharWidth() * count; };
    auto* const header = tree->header();
    header->resizeSection(ViewTreeModel::ClassColumn, letters(24));
    header->resizeSection(ViewTreeModel::FrameColumn, letters(15));
    header->resizeSection(ViewTreeModel::ContentColumn, letters(12));
    header->resizeSection(ViewTreeModel::ColorColumn, letters(10));
    header->resizeSection(ViewTreeModel::AlphaColumn, letters(5));
    header->resizeSection(ViewTreeModel::MaskColumn, letters(5)); // At least: it has the room that is left.
    return tree;
}

void ViewsPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    look();
}

void ViewsPage::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    _look.cancel();
    setPicking(false);
    highlight(nullptr);
}

void ViewsPage::look()
{
    _model->look(_phone.window());
    showCurrent();
}

void ViewsPage::showCurrent()
{
    const auto current = _tree->currentIndex();
    _details->show(current.isValid() ? std::optional(_model->facts(current)) : std::nullopt);
    highlight(_model->view(current));
}

void ViewsPage::highlight(const UIView* view)
{
    _view.setHighlight(view && isVisible() ? std::optional(rectInWindow(*view)) : std::nullopt);
}

void ViewsPage::setPicking(bool isPicking)
{
    _pick->setChecked(isPicking);
    if (isPicking == _isPicking)
        return;
    _isPicking = isPicking;
    _view.setMouseTracking(isPicking);
    _view.setCursor(isPicking ? Qt::CrossCursor : Qt::ArrowCursor);
    if (isPicking)
        _view.setFocus();
    else
        showCurrent();
}

void ViewsPage::pick(CGPoint point)
{
    look();
    setPicking(false);
    const auto* const view = foremostViewAt(_phone.window(), point);
    if (!view)
        return;
    const auto index = _model->indexOf(*view);
    _tree->setCurrentIndex(index);
    _tree->scrollTo(index, QAbstractItemView::PositionAtCenter);
}

bool ViewsPage::eventFilter(QObject* object, QEvent* event)
{
    if (object != &_view) {
        if (event->type() == QEvent::Leave)
            showCurrent(); // The mouse has left the tree.
        return false;
    }
    if (!_isPicking)
        return false;
    // What the mouse does in the phone is for the page, not for the phone.
    switch (event->type()) {
    case QEvent::MouseMove:
        highlight(
            foremostViewAt(_phone.window(), _view.pointFor(static_cast<QMouseEvent*>(event)->position())));
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        pick(_view.pointFor(static_cast<QMouseEvent*>(event)->position()));
        return true;
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape)
            return false;
        setPicking(false);
        return true;
    case QEvent::Leave:
        showCurrent();
        return false;
    default:
        return false;
    }
}

}

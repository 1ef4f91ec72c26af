#include "MainWindow.h"

#include "inspector/InspectorMemory.h"
#include "Line.h"
#include "PhoneView.h"
#include "platform/FSSwitchPanel.h"
#include "platform/Journal.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace host {

using namespace platform;

namespace {

constexpr const char* toggleIdentifier = "net.morvane.vekorafs";

QString toggleText(bool isOn)
{
    return isOn ? QStringLiteral("Companion toggle: on") : QStringLiteral("Companion toggle: off");
}

/// Empty while no toggle is installed.
QString presentToggleText()
{
    const auto* const panelClass = NSClassFromString("FSSwitchPanel");
    const auto shared = panelClass ? panelClass->performSelector("sharedPanel") : Argument();
    const auto* const panel = std::get_if<NSObject*>(&shared);
    if (!panel || !*panel)
        return {};
    const auto answer
        = (*panel)->performSelector("stateForSwitchIdentifier:", { PropertyValue(toggleIdentifier) });
    const auto* const state = std::get_if<PropertyValue>(&answer);
    return toggleText(state && state->boolValue());
}

QString textFor(const JournalEntry& entry)
{
    const auto name = QString::fromStdString(entry.name);
    switch (entry.kind) {
    case JournalEntry::Kind::Write:
        return (entry.succeeded ? QStringLiteral("Wrote %1") : QStringLiteral("Could not write %1"))
            .arg(name.section(QLatin1Char('/'), -1));
    case JournalEntry::Kind::Notification:
        return QStringLiteral("Posted %1").arg(name);
    case JournalEntry::Kind::Toggle:
        return QStringLiteral("Set toggle %1")
            .arg(entry.state ? QStringLiteral("on") : QStringLiteral("off"));
    case JournalEntry::Kind::Touch:
    case JournalEntry::Kind::Action:
    case JournalEntry::Kind::Paint:
    case JournalEntry::Kind::Display:
        break;
    }
    return {};
}

}

MainWindow::MainWindow(Phone& phone)
    : _phone(phone)
    , _splitter(new QSplitter(this))
    , _phoneSide(new QWidget(_splitter))
    , _view(new PhoneView(phone, _phoneSide))
    , _last(new Line(_phoneSide))
    , _toggle(new QLabel(_phoneSide))
    , _inspectorButton(new QToolButton(_phoneSide))
{
    layOut();
    _toggle->setFont(_last->font());
    _last->setText(QStringLiteral("Nothing written or posted yet"));
    showToggle(presentToggleText());
    _view->setFocus();
    auto* const quit = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q), this);
    connect(quit, &QShortcut::activated, this, &QWidget::close);
    auto* const showOrHide = new QShortcut(this);
    showOrHide->setKeys({ QKeySequence(Qt::CTRL | Qt::Key_I), QKeySequence(Qt::Key_F12) });
    connect(showOrHide, &QShortcut::activated, this, [this] { setInspectorShown(!inspectorIsShown()); });
    auto* const otherPanel = new QShortcut(this);
    otherPanel->setKeys({ QKeySequence(Qt::Key_F6), QKeySequence(Qt::CTRL | Qt::Key_Tab) });
    connect(otherPanel, &QShortcut::activated, this, &MainWindow::switchPanel);
    connect(_inspectorButton, &QToolButton::clicked, this, &MainWindow::setInspectorShown);
    showLastInspector();
    _environmentListener = _phone.listenToEnvironment([this] { showEnvironment(); });
    _listener = Journal::shared().listen([this](const JournalEntry& entry) {
        if (const auto text = textFor(entry); !text.isEmpty())
            _last->setText(text);
        if (entry.kind == JournalEntry::Kind::Toggle)
            showToggle(toggleText(entry.state != 0));
    });
}

MainWindow::~MainWindow()
{
    _phone.stopListening(_environmentListener);
    Journal::shared().stop(_listener);
    if (_inspector)
        rememberInspector();
}

void MainWindow::layOut()
{
    _inspectorButton->setText(QStringLiteral("Inspector"));
    _inspectorButton->setToolTip(QStringLiteral("Shows or hides the inspector (Ctrl+I, F12)"));
    _inspectorButton->setCheckable(true);
    _inspectorButton->setAutoRaise(true);
    _inspectorButton->setFocusPolicy(Qt::NoFocus); // Keys stay with the phone.
    _inspectorButton->setFont(_last->font());
    auto* const line = new QHBoxLayout;
    line->setContentsMargins(12, 3, 6, 3);
    line->setSpacing(12);
    line->addWidget(_last, 1);
    line->addWidget(_toggle);
    line->addWidget(_inspectorButton);
    auto* const column = new QVBoxLayout(_phoneSide);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(_view, 1);
    column->addLayout(line);
    _splitter->addWidget(_phoneSide);
    _splitter->setChildrenCollapsible(false);
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(_splitter);
}

void MainWindow::showLastInspector()
{
    const auto memory = InspectorMemory::load();
    _inspectorWidth = memory.width;
    // A window that is not sized by hand takes two thirds of the screen at most.
    resize(sizeHint().boundedTo(screen()->availableSize()));
    if (!memory.isShown)
        return;
    setInspectorShown(true);
    _inspector->setCurrentPage(memory.page);
}

bool MainWindow::inspectorIsShown() const
{
    return _inspector && !_inspector->isHidden();
}

void MainWindow::setInspectorShown(bool isShown)
{
    _inspectorButton->setChecked(isShown);
    if (isShown == inspectorIsShown())
        return;
    if (isShown && !_inspector) {
        _inspector = new Inspector(_phone, *_view, this);
        _inspector->hide();
        _splitter->addWidget(_inspector);
        _splitter->setStretchFactor(1, 1); // What the window gains or loses otherwise is the inspector's.
        _splitter->handle(1)->setAccessibleName(QStringLiteral("Divider"));
    }
    if (!isShown && _inspector->isAncestorOf(focusWidget()))
        _view->setFocus();
    if (!isShown)
        _inspectorWidth = _inspector->width();
    if (isMaximized() || isFullScreen()) {
        _inspector->setVisible(isShown);
        _splitter->setSizes({ width() - _splitter->handleWidth() - _inspectorWidth, _inspectorWidth });
    } else {
        changeWidth(isShown);
    }
    rememberInspector();
}

void MainWindow::changeWidth(bool showInspector)
{
    // The phone's width is held while the window gets another; else the screen's size would change twice.
    const auto phone = isVisible() ? _phoneSide->width() : width();
    const auto available = screen()->availableGeometry();
    _phoneSide->setFixedWidth(phone);
    if (showInspector) {
        const auto room = available.width() - phone - _splitter->handleWidth();
        const auto inspector = std::max(std::min(_inspectorWidth, room), Inspector::smallestWidth);
        _inspector->show();
        resize(phone + _splitter->handleWidth() + inspector, height());
        _splitter->setSizes({ phone, inspector });
        if (const auto beyond = frameGeometry().right() - available.right(); isVisible() && beyond > 0)
            move(std::max(available.left(), x() - beyond), y());
    } else {
        _inspector->hide();
        // Else the window could not become narrower than both.
        _splitter->refresh();
        layout()->activate();
        resize(phone, height());
    }
    _phoneSide->setMinimumWidth(0); // Its own layout's then counts again.
    _phoneSide->setMaximumWidth(QWIDGETSIZE_MAX);
}

void MainWindow::showToggle(const QString& text)
{
    _toggle->setText(text);
    _toggle->setVisible(!text.isEmpty());
}

void MainWindow::switchPanel()
{
    const bool isInPhone = _view->hasFocus();
    if (!isInPhone || !inspectorIsShown()) {
        _view->setFocus(Qt::ShortcutFocusReason);
        return;
    }
    // Where it was last, else the first that takes keys.
    auto* target = _inspector->focusWidget();
    for (auto* next = _inspector->nextInFocusChain(); !target && next != _inspector;
         next = next->nextInFocusChain()) {
        if (_inspector->isAncestorOf(next) && next->isVisible() && next->isEnabled()
            && (next->focusPolicy() & Qt::TabFocus))
            target = next;
    }
    if (target)
        target->setFocus(Qt::ShortcutFocusReason);
}

void MainWindow::showEnvironment()
{
    showToggle(presentToggleText());
    if (!_view->showsWholeScreen())
        fitPhone();
}

void MainWindow::fitPhone()
{
    // The screen has its size already; the ones that the view goes through on the way there are nobody's.
    _view->holdScreen(true);
    const auto wanted = _view->sizeHint();
    const auto whole = size() + wanted - _view->size();
    _view->updateSmallestSize();
    const auto inspector = inspectorIsShown() ? _inspector->width() : 0;
    _phoneSide->setFixedWidth(wanted.width());
    layout()->activate();
    resize(whole);
    if (inspector > 0)
        _splitter->setSizes({ wanted.width(), inspector });
    _phoneSide->setMinimumWidth(0);
    _phoneSide->setMaximumWidth(QWIDGETSIZE_MAX);
    _view->holdScreen(false);
}

void MainWindow::rememberInspector() const
{
    const auto isShown = inspectorIsShown();
    InspectorMemory { isShown, isShown ? _inspector->width() : _inspectorWidth, _inspector->currentPage() }
        .save();
}

}

#include "MainWindow.h"

#include "PhoneView.h"
#include "platform/FSSwitchPanel.h"
#include "platform/Journal.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QShortcut>
#include <QVBoxLayout>

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
        break;
    }
    return {};
}

}

/// A line of text that ends in an ellipsis where there is no room for it.
class Line final : public QWidget {
public:
    explicit Line(QWidget* parent)
        : QWidget(parent)
    {
        QFont font(QStringLiteral("Inter"));
        font.setPixelSize(12);
        setFont(font);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }
    void setText(const QString& text)
    {
        _text = text;
        setToolTip(text);
        update();
    }
    QSize sizeHint() const override
    {
        return { fontMetrics().horizontalAdvance(_text), fontMetrics().height() + 2 };
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.drawText(rect(), Qt::AlignVCenter, fontMetrics().elidedText(_text, Qt::ElideMiddle, width()));
    }

private:
    QString _text;
};

MainWindow::MainWindow(Phone& phone)
    : _view(new PhoneView(phone, this))
    , _last(new Line(this))
    , _toggle(new QLabel(this))
{
    auto* const line = new QHBoxLayout;
    line->setContentsMargins(12, 6, 12, 6);
    line->addWidget(_last, 1);
    line->addWidget(_toggle);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(_view, 1);
    column->addLayout(line);
    line->setSpacing(12);
    _toggle->setFont(_last->font());
    _last->setText(QStringLiteral("Nothing written or posted yet"));
    _toggle->setText(presentToggleText());
    _view->setFocus();
    connect(new QShortcut(QKeySequence::Quit, this), &QShortcut::activated, this, &QWidget::close);
    _listener = Journal::shared().listen([this](const JournalEntry& entry) {
        if (const auto text = textFor(entry); !text.isEmpty())
            _last->setText(text);
        if (entry.kind == JournalEntry::Kind::Toggle)
            _toggle->setText(toggleText(entry.state != 0));
    });
}

MainWindow::~MainWindow()
{
    Journal::shared().stop(_listener);
}

}

#include "Window.h"

#include "PhoneView.h"
#include "Pictures.h"
#include "platform/FSSwitchPanel.h"
#include "platform/Journal.h"
#include "platform/qt/NotifyCenter.h"
#include "WithoutDisplay.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace host {

using namespace platform;

namespace {

constexpr const char* pictureFolder = "pictures"; // Below the folder that the program is started in.
constexpr const char* toggleIdentifier = "net.morvane.vekorafs";

bool hasDisplay()
{
    const auto isSet = [](const char* name) {
        const auto* const value = std::getenv(name);
        return value && *value;
    };
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
}

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

/// The phone, and below it one line: what it told the rest of the system last, and the companion toggle's
/// state.
class MainWindow final : public QWidget {
public:
    explicit MainWindow(Phone& phone)
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
    ~MainWindow() override { Journal::shared().stop(_listener); }

private:
    PhoneView* _view;
    Line* _last;
    QLabel* _toggle;
    int _listener = 0;
};

void noteMissingBus()
{
    if (!sessionBusIsAvailable())
        std::fputs(
            "There is no session bus: notifications are shown here, but nobody else hears them.\n", stderr);
}

int writePictures(Phone& phone)
{
    const auto folder = std::filesystem::current_path() / pictureFolder;
    const auto files = writePicturesOfEveryPage(phone, folder);
    std::printf("There is no display. A picture of every page is in %s:\n", folder.c_str());
    for (const auto& file : files)
        std::printf("  %s\n", file.filename().c_str());
    return 0;
}

}

int runWindow(int argc, char** argv, PhoneOptions options, Scale scale)
{
    const auto onScreen = hasDisplay();
    const auto application
        = onScreen ? std::make_unique<QApplication>(argc, argv) : applicationWithoutDisplay(options.root);
    QApplication::setApplicationDisplayName(QStringLiteral("Settings"));

    if (onScreen && scale == Scale::OfTheScreen)
        options.scale = std::clamp(static_cast<int>(std::lround(application->devicePixelRatio())), 1, 3);
    Phone phone(options);
    const auto error = phone.openBundle();
    if (error)
        std::fprintf(stderr, "%s\n", error->c_str());
    if (!onScreen)
        return writePictures(phone);

    MainWindow window(phone);
    window.setWindowTitle(QStringLiteral("Vekora"));
    window.show();
    QTimer::singleShot(0, &window, noteMissingBus);
    const auto status = QApplication::exec();
    flushNotifications();
    return status;
}

}

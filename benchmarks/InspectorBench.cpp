// One step of a drag on the button colour page in the real window, drawn without a display: with the
// inspector closed, and open at each of its pages, with a timeline as full as it gets. Processor time of the
// whole program from one step to the next, in a fast drag, whose steps follow each other as they can, and in
// a slow one of 14 steps a second. They take turns in one run.

#include "host/inspector/Inspector.h"
#include "host/inspector/InspectorPages.h"
#include "host/MainWindow.h"
#include "host/PhoneView.h"
#include "platform/Journal.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <map>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int rounds = 5;
constexpr int fastSteps = 4000; // In a round, as the following: each takes more than a second.
constexpr int slowSteps = 20;
constexpr int fullTimeline = 100000;
constexpr auto slowPause = std::chrono::milliseconds(70);
constexpr QPoint buttonColorRow { 187, 490 };
constexpr QPoint fieldsMiddle { 187, 360 };
constexpr double goal = 1.5;

double processorSeconds()
{
    timespec time {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

class Drag {
public:
    explicit Drag(host::MainWindow& window)
        : _view(window.phoneView())
    {
    }

    void press(QPoint place) { send(QEvent::MouseButtonPress, place, Qt::LeftButton); }
    void release(QPoint place) { send(QEvent::MouseButtonRelease, place, Qt::NoButton); }

    /// Milliseconds a step, on average; the place goes round an ellipse, so that every step moves both ways.
    double measure(int steps, std::chrono::milliseconds pause)
    {
        const auto before = processorSeconds();
        for (int index = 0; index < steps; ++index) {
            _turn += 0.37;
            const QPointF place(
                fieldsMiddle.x() + 150 * std::cos(_turn), fieldsMiddle.y() + 100 * std::sin(_turn));
            send(QEvent::MouseMove, place, Qt::LeftButton);
            QApplication::processEvents();
            if (pause.count() > 0)
                restFor(pause);
        }
        return (processorSeconds() - before) * 1e3 / steps;
    }

private:
    static void restFor(std::chrono::milliseconds time)
    {
        QEventLoop loop;
        QTimer::singleShot(time, &loop, &QEventLoop::quit);
        loop.exec();
    }

    void send(QEvent::Type type, QPointF place, Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, place, _view.mapToGlobal(place), Qt::LeftButton, buttons, {});
        QApplication::sendEvent(&_view, &event);
    }

    host::PhoneView& _view;
    double _turn = 0;
};

double median(std::vector<double> values)
{
    std::nth_element(
        values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

/// Closed for an empty name.
void open(host::MainWindow& window, const std::string& page)
{
    window.setInspectorShown(!page.empty());
    if (!page.empty())
        window.inspector()->setCurrentPage(QString::fromStdString(page));
    QApplication::processEvents();
}

void run(host::Phone& phone)
{
    host::MainWindow window(phone);
    window.show();
    QApplication::processEvents();
    Drag drag(window);
    drag.press(buttonColorRow);
    drag.release(buttonColorRow);
    QApplication::processEvents();

    std::vector<std::string> pages { "" };
    for (const auto& page : host::inspectorPages())
        pages.emplace_back(page.name);
    std::map<std::string, std::vector<double>> fast, slow;
    // As at the end of a long day.
    open(window, "timeline");
    for (int index = 0; index < fullTimeline; ++index)
        platform::Journal::shared().record({ platform::JournalEntry::Kind::Notification, "full" });
    drag.press(fieldsMiddle);
    for (int round = 0; round <= rounds; ++round) {
        for (const auto& page : pages) {
            open(window, page);
            const auto quick = drag.measure(fastSteps, {});
            const auto rested = drag.measure(slowSteps, slowPause);
            if (round == 0)
                continue; // It warms everything up.
            fast[page].push_back(quick);
            slow[page].push_back(rested);
        }
    }
    drag.release(fieldsMiddle);
    for (const auto& page : pages) {
        const auto name = page.empty() ? std::string("closed") : "open at " + page;
        std::printf(
            "%-22s fast %6.3f ms a step, ratio %.2f   slow %6.3f ms a step, ratio %.2f (goal of both %.1f)\n",
            name.c_str(), median(fast[page]), median(fast[page]) / median(fast[""]), median(slow[page]),
            median(slow[page]) / median(slow[""]), goal);
    }
}

}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const auto folder
        = std::filesystem::temp_directory_path() / ("inspector-bench." + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    qputenv("HOME", folder.c_str());
    qputenv("XDG_CONFIG_HOME", (folder / "config").c_str());
    {
        QApplication application(argc, argv);
        host::PhoneOptions options;
        options.root = (folder / "root").string();
        options.scale = argc > 1 ? std::atoi(argv[1]) : 2;
        options.locale = "en_US";
        options.timeZone = "UTC";
        host::Phone phone(options);
        if (const auto error = phone.openBundle())
            std::fprintf(stderr, "%s\n", error->c_str());
        run(phone);
    }
    std::filesystem::remove_all(folder);
    return 0;
}

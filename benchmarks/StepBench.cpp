// One step of a drag, from the finger's new place to the finished picture of the window: on the pickers alone
// and on the whole button colour page, at 3 pixels a point, beside one mouse move on the toolkit's own colour
// dialog of as many pixels. They take turns in one run.

#include "picker/VKColorPickerView_B.h"
#include "picker/VKColorPickerView_H.h"
#include "picker/VKColorPickerView_S.h"
#include "platform/Device.h"
#include "platform/UIWindow.h"

#include <QApplication>
#include <QColorDialog>
#include <QMouseEvent>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

using namespace platform;

namespace {

constexpr int steps = 2000;
constexpr double scale = 3;
constexpr CGSize pickerSize { 375, 380 };

struct Times {
    double median;
    double p99;
};

// Milliseconds a step; the place goes round an ellipse, so that every step moves both ways.
Times measure(const std::function<void(double turn)>& step)
{
    std::vector<double> times;
    times.reserve(steps);
    for (int index = 0; index < steps; ++index) {
        const auto start = std::chrono::steady_clock::now();
        step(index * 0.37);
        times.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    std::sort(times.begin(), times.end());
    return { times[steps / 2], times[steps * 99 / 100] };
}

void report(const std::string& what, Times own, Times peer, double goalMedian, double goalP99)
{
    std::printf(
        "%-34s median %.3f ms (goal %.1f)  p99 %.3f ms (goal %.1f)  dialog %.3f ms, %.0f times as long\n",
        what.c_str(), own.median, goalMedian, own.p99, goalP99, peer.median, peer.median / own.median);
}

Times measureDialog()
{
    QColorDialog dialog;
    dialog.setOptions(QColorDialog::DontUseNativeDialog | QColorDialog::NoButtons);
    dialog.resize(static_cast<int>(pickerSize.width * scale), static_cast<int>(pickerSize.height * scale));
    dialog.show();
    QApplication::processEvents();
    QWidget* field = nullptr;
    for (auto* const widget : dialog.findChildren<QWidget*>()) {
        if (std::string(widget->metaObject()->className()).find("QColorPicker") != std::string::npos)
            field = widget;
    }
    if (!field)
        return { NAN, NAN };
    // The dialog's field keeps its own small size; made as large as ours, it paints as many pixels.
    field->setFixedSize(static_cast<int>((pickerSize.width - 20) * scale), 780);
    QApplication::processEvents();
    return measure([&](double turn) {
        const QPointF place(
            field->width() * (0.5 + 0.4 * std::cos(turn)), field->height() * (0.5 + 0.4 * std::sin(turn)));
        QMouseEvent move(
            QEvent::MouseMove, place, field->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(field, &move);
        QApplication::processEvents();
    });
}

template <typename Picker> void measurePicker(const char* name, Times dialog)
{
    const auto window = std::make_shared<UIWindow>(pickerSize);
    window->setScale(scale);
    int blocks = 0;
    const auto count = [&](const UIColor&) { ++blocks; };
    const auto picker = std::make_shared<Picker>(CGRect { 0, 0, pickerSize.width, pickerSize.height },
        UIColor::colorWithHueSaturationBrightnessAlpha(0.6, 0.7, 0.8, 1), count, count);
    window->addSubview(picker);
    window->display();

    const auto drag = [&](CGPoint middle, CGSize reach) {
        const auto place = [&](double turn) {
            return CGPoint { middle.x + reach.width * std::cos(turn),
                middle.y + reach.height * std::sin(turn) };
        };
        window->touchBegan(place(0));
        const auto times = measure([&](double turn) {
            window->touchMoved(place(turn));
            window->display();
        });
        window->touchEnded(place(0));
        return times;
    };
    const auto field = drag({ 187, 170 }, { 150, 100 });
    const auto bar = drag({ 187, 350 }, { 150, 10 });
    report(std::string("picker ") + name + ", field", field, dialog, 0.4, 1);
    report(std::string("picker ") + name + ", bar", bar, dialog, 0.4, 1);
    if (blocks < 2 * steps)
        std::printf("  (only %d of the steps changed the colour)\n", blocks);
}

}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    Device::current().scale = scale;
    const auto dialog = measureDialog();
    measurePicker<vekora::VKColorPickerView_B>("B", dialog);
    measurePicker<vekora::VKColorPickerView_H>("H", dialog);
    measurePicker<vekora::VKColorPickerView_S>("S", dialog);
    return 0;
}

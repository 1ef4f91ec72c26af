// The button colour page at 3 pixels a point, from the finger to the finished picture of the whole window:
// one step of a slider and of a picker, opening the page, and what the durable save at touch-up costs beside
// the bare system calls.

#include "host/Phone.h"
#include "host/WithoutDisplay.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <unistd.h>
#include <vector>

using platform::CGPoint;

namespace {

constexpr int steps = 1000;
constexpr int openings = 40;
constexpr int saves = 60;
constexpr CGPoint buttonColorRow { 187, 490 };

double milliseconds(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void report(const char* what, std::vector<double> times, const char* goal)
{
    std::sort(times.begin(), times.end());
    std::printf("%-36s median %.3f ms  p99 %.3f ms  %s\n", what, times[times.size() / 2],
        times[times.size() * 99 / 100], goal);
}

class Page {
public:
    explicit Page(host::Phone& phone)
        : _phone(phone)
    {
    }

    void tap(CGPoint point)
    {
        _phone.window().touchBegan(point);
        _phone.window().touchEnded(point);
        _phone.settle();
    }

    void measureDrag(const char* what, CGPoint middle, double reachX, double reachY)
    {
        const auto place = [&](double turn) {
            return CGPoint { middle.x + reachX * std::cos(turn), middle.y + reachY * std::sin(turn) };
        };
        std::vector<double> times;
        _phone.window().touchBegan(middle);
        for (int step = 0; step < steps; ++step) {
            times.push_back(milliseconds([&] {
                _phone.window().touchMoved(place(step * 0.37));
                _phone.settle();
            }));
        }
        _phone.window().touchEnded(middle);
        _phone.settle();
        report(what, std::move(times), "(goals: median 1, p99 2)");
    }

    void measureTouchUps(const char* what, CGPoint point)
    {
        std::vector<double> times;
        for (int save = 0; save < saves; ++save)
            times.push_back(milliseconds([&] { tap({ point.x + save % 50, point.y }); }));
        report(what, std::move(times), "");
    }

private:
    host::Phone& _phone;
};

void measureBareSave(const std::filesystem::path& folder)
{
    const std::vector<char> bytes(600, 'x');
    std::vector<double> times;
    for (int save = 0; save < saves; ++save) {
        times.push_back(milliseconds([&] {
            const auto temporary = folder / "bare.new";
            const auto file = open(temporary.c_str(), O_CREAT | O_WRONLY | O_TRUNC, 0644);
            if (write(file, bytes.data(), bytes.size()) < 0 || fsync(file) != 0)
                std::perror("save");
            close(file);
            std::filesystem::rename(temporary, folder / "bare");
            const auto parent = open(folder.c_str(), O_RDONLY | O_DIRECTORY);
            fsync(parent);
            close(parent);
        }));
    }
    report("bare calls of such a save", std::move(times), "");
}

}

int main()
{
    const auto root = std::filesystem::temp_directory_path() / ("page-bench." + std::to_string(getpid()));
    const auto application = host::applicationWithoutDisplay(root);
    {
        host::PhoneOptions options;
        options.root = root;
        options.scale = 3;
        options.locale = "en_US";
        options.timeZone = "UTC";
        host::Phone phone(options);
        if (const auto error = phone.openBundle()) {
            std::fprintf(stderr, "%s\n", error->c_str());
            return 1;
        }
        phone.settle();
        Page page(phone);
        std::vector<double> times;
        for (int opening = 0; opening < openings; ++opening) {
            times.push_back(milliseconds([&] { page.tap(buttonColorRow); }));
            phone.navigation().popViewController();
            phone.settle();
        }
        report("opening the page", std::move(times), "(goal: 25)");
        page.tap(buttonColorRow);
        page.measureDrag("picker field, whole page", { 187, 330 }, 120, 80);
        page.measureDrag("picker bar, whole page", { 187, 544 }, 120, 5);
        page.measureTouchUps("tap in the field with its save", { 150, 330 });
        measureBareSave(root / "private/var/mobile/Library/Preferences");
        phone.scrollAt({ 187, 400 }, 300);
        phone.settle();
        // Red stands at its right end, as the first tap left it somewhere; a drag from edge to edge finds its
        // thumb.
        for (double x = 30; x < 345; x += 4) {
            phone.window().touchBegan({ x, 327 });
            phone.window().touchMoved({ 187, 327 });
            phone.window().touchEnded({ 187, 327 });
        }
        phone.settle();
        page.measureDrag("slider, whole page", { 187, 327 }, 120, 0);
    }
    std::filesystem::remove_all(root);
    return 0;
}

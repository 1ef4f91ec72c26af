// From the moment that a build's last file is there to the moment that the window shows the new pages: with
// the project's own bundle, and a window that is open on the button colour page.

#include "host/Installation.h"
#include "host/PhoneView.h"
#include "host/reload/Reloader.h"
#include "host/WithoutDisplay.h"

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr int builds = 20;
constexpr double goal = 1000; // Milliseconds.
constexpr platform::CGPoint buttonColorRow { 187, 490 };

void tap(host::Phone& phone, platform::CGPoint point)
{
    phone.window().touchBegan(point);
    phone.window().touchEnded(point);
    phone.settle();
}

/// As a linker leaves it: another file under the same name.
void build(const fs::path& bundle)
{
    const auto module = bundle / "Vekora";
    fs::copy_file(module, bundle / ".new");
    fs::remove(module);
    fs::rename(bundle / ".new", module);
}

}

int main()
{
    char name[] = "/tmp/vekora-reload-bench-XXXXXX";
    const fs::path folder = ::mkdtemp(name);
    const auto bundle = folder / "Vekora.bundle";
    fs::copy(host::InstallationSources::ofThisBuild().bundle, bundle, fs::copy_options::recursive);
    {
        const auto application = host::applicationWithoutDisplay(folder / "root");
        host::PhoneOptions options;
        options.root = folder / "root";
        options.locale = "en_US";
        options.timeZone = "UTC";
        options.bundle = bundle;
        host::Phone phone(options);
        host::Reloader reloader(phone);
        reloader.open();
        host::PhoneView window(phone);
        reloader.watch(window);
        window.show();
        tap(phone, buttonColorRow);
        const auto pages = phone.navigation().viewControllers().size();
        while (!reloader.isWatching())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);

        std::vector<double> times;
        int gone = 0;
        phone.whenPagesGo([&] { ++gone; });
        for (int count = 1; count <= builds; ++count) {
            build(bundle);
            const auto start = std::chrono::steady_clock::now();
            while (gone < count)
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            phone.settle();
            times.push_back(
                std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
            if (phone.navigation().viewControllers().size() != pages)
                std::puts("The page was not found again.");
        }
        std::sort(times.begin(), times.end());
        std::printf("%-36s median %.0f ms  longest %.0f ms  (goal: %.0f)\n", "from the build to its page",
            times[times.size() / 2], times.back(), goal);
    }
    fs::remove_all(folder);
    return 0;
}

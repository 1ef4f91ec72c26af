#include "platform/CFNotificationCenter.h"
#include "platform/Device.h"
#include "platform/NSMutableDictionary.h"
#include "platform/qt/NotifyCenter.h"
#include "platform/qt/PropertyListFormat.h"
#include "platform/qt/SessionBus.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <map>
#include <QDBusMessage>
#include <string>
#include <unistd.h>
#include <vector>

// A stored edit of a row, as a page makes it, beside the bare system calls of such a write and one bus
// signal. Both lie in the build folder, since a folder in memory would have nothing to sync.

using namespace platform;

namespace {

constexpr const char* path = "/var/mobile/Library/Preferences/net.morvane.vekora.plist";
constexpr const char* notification = "net.morvane.vekora/preferences";

PropertyList preferences()
{
    return { { "buttonColor", "#FF0000" }, { "buttonText", "Vekora" }, { "colorPickerType", 0 },
        { "disableForMinutes", 60 }, { "disarmedUntil", NSDate(410641689) }, { "enabled", true },
        { "preferColorPicker", true } };
}

/// A device of its own, with the preferences of a user.
class Phone {
public:
    Phone()
        : _root(std::filesystem::absolute("save-bench-root"))
    {
        std::filesystem::create_directories(folder());
        if (!std::filesystem::exists(_root / "var"))
            std::filesystem::create_symlink("private/var", _root / "var");
        Device::current().root = _root.string();
        NSMutableDictionary(preferences()).writeToFileAtomically(path, true);
        (void)sessionBusIsAvailable(); // Connecting is not part of an edit.
    }
    ~Phone() { std::filesystem::remove_all(_root); }
    Phone(const Phone&) = delete;
    Phone& operator=(const Phone&) = delete;

    std::filesystem::path folder() const { return _root / "private/var/mobile/Library/Preferences"; }

private:
    std::filesystem::path _root;
};

void storedRowEdit(benchmark::State& state)
{
    const Phone phone;
    int minutes = 0;
    for (auto _ : state) {
        auto list = NSMutableDictionary::dictionaryWithContentsOfFile(path).value_or(PropertyList {});
        list.setObjectForKey(++minutes % 100, "disableForMinutes");
        if (!list.writeToFileAtomically(path, true))
            state.SkipWithError("the edit was not stored");
        CFNotificationCenterPostNotification(
            CFNotificationCenterGetDarwinNotifyCenter(), notification, nullptr, nullptr, true);
    }
    flushNotifications();
}

void bareSystemCalls(benchmark::State& state)
{
    const Phone phone;
    const auto bytes = xmlFromPropertyList(preferences()).value_or("");
    const auto folderName = phone.folder().string();
    const auto file = folderName + "/net.morvane.vekora.plist";
    const auto hidden = folderName + "/.hidden";
    const auto bus = connectToSessionBus(QStringLiteral("save-bench"));
    auto signal = QDBusMessage::createSignal(notifyPath, notifyInterface, notifySignal);
    signal << QString::fromUtf8(notification);
    for (auto _ : state) {
        const int written = ::open(hidden.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        bool succeeded = ::write(written, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size())
            && ::fsync(written) == 0 && ::rename(hidden.c_str(), file.c_str()) == 0;
        ::close(written);
        const int folder = ::open(folderName.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        succeeded = succeeded && ::fsync(folder) == 0;
        ::close(folder);
        if (!succeeded)
            state.SkipWithError("the file was not written");
        bus.send(signal);
    }
}

// In turns, so that a slow minute of the disk falls on both.
BENCHMARK(bareSystemCalls)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(storedRowEdit)->UseRealTime()->Unit(benchmark::kMicrosecond);

/// The usual table, and at its end how the medians compare.
class RatioReporter final : public benchmark::ConsoleReporter {
public:
    RatioReporter()
        : ConsoleReporter(OO_None) // Without colours, as it goes into files too.
    {
    }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const auto& run : runs) {
            if (run.aggregate_name == "median")
                _medians[run.run_name.function_name] = run.GetAdjustedRealTime();
        }
    }
    void Finalize() override
    {
        constexpr double goal = 1.3;
        if (_medians.size() < 2)
            return; // One of them was filtered out.
        std::printf("a stored edit takes %.2f times as long as the bare system calls (goal: at most %.1f)\n",
            _medians["storedRowEdit"] / _medians["bareSystemCalls"], goal);
    }

private:
    std::map<std::string, double> _medians;
};

}

int main(int argc, char** argv)
{
    std::vector<std::string> words(argv, argv + argc);
    words.insert(words.begin() + 1,
        { "--benchmark_repetitions=9", "--benchmark_enable_random_interleaving=true",
            "--benchmark_report_aggregates_only=true" });
    std::vector<char*> pointers;
    for (auto& word : words)
        pointers.push_back(word.data());
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
}

// Start of the script driver to the first full frame of the main page, beside an empty program of the same
// toolkit that shows one label: time from the start to the exit, and peak memory. They take turns in one run.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int rounds = 31;

struct Run {
    double milliseconds;
    double peakMebibytes;
};

Run runOnce(const std::vector<std::string>& command, const std::string& input)
{
    std::vector<char*> arguments;
    for (const auto& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const auto start = std::chrono::steady_clock::now();
    const auto child = fork();
    if (child == 0) {
        const auto in = open(input.c_str(), O_RDONLY);
        const auto nowhere = open("/dev/null", O_WRONLY);
        dup2(in, 0);
        dup2(nowhere, 1);
        dup2(nowhere, 2);
        execv(arguments[0], arguments.data());
        _exit(127);
    }
    int status = 0;
    rusage usage {};
    wait4(child, &status, 0, &usage);
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::fprintf(stderr, "%s failed.\n", command[0].c_str());
        std::exit(1);
    }
    return { took.count(), static_cast<double>(usage.ru_maxrss) / 1024 };
}

Run median(std::vector<Run> runs)
{
    const auto middle = [&](double Run::*member) {
        std::nth_element(runs.begin(), runs.begin() + rounds / 2, runs.end(),
            [&](const Run& a, const Run& b) { return a.*member < b.*member; });
        return runs[rounds / 2].*member;
    };
    return { middle(&Run::milliseconds), middle(&Run::peakMebibytes) };
}

}

int main(int argc, char** argv)
{
    const std::filesystem::path programs
        = argc > 1 ? argv[1] : std::filesystem::read_symlink("/proc/self/exe").parent_path();
    const auto folder = std::filesystem::temp_directory_path() / ("start-bench." + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    const auto script = folder / "script";
    if (auto* const file = std::fopen(script.c_str(), "w")) {
        std::fputs("settle\n", file);
        std::fclose(file);
    }
    const std::vector<std::string> pane = { programs / "vekora-host", "drive", "--root", folder / "root",
        "--locale", "en_US", "--timezone", "UTC" };
    const std::vector<std::string> peer = { programs / "empty_label" };
    runOnce(pane, script); // Makes the root, and warms both up.
    runOnce(peer, script);
    std::vector<Run> panes, peers;
    for (int round = 0; round < rounds; ++round) {
        panes.push_back(runOnce(pane, script));
        peers.push_back(runOnce(peer, script));
    }
    std::filesystem::remove_all(folder);
    const auto own = median(panes);
    const auto empty = median(peers);
    std::printf("start to the first frame   %7.1f ms   one label %7.1f ms   ratio %.2f (goal 1.5)\n",
        own.milliseconds, empty.milliseconds, own.milliseconds / empty.milliseconds);
    std::printf("peak memory                %7.1f MiB  one label %7.1f MiB  difference %.1f MiB (goal 15)\n",
        own.peakMebibytes, empty.peakMebibytes, own.peakMebibytes - empty.peakMebibytes);
    return 0;
}

#include "SheetCrew.h"

#include "host/crash/CrashHandler.h"
#include "host/ScratchFolder.h"
#include "host/WithoutDisplay.h"
#include "Interruption.h"
#include "SheetProcess.h"
#include "SheetWorker.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <new>
#include <poll.h>
#include <set>
#include <stdexcept>
#include <sys/mman.h>
#include <system_error>
#include <unistd.h>

namespace host {

namespace {

namespace fs = std::filesystem;

/// A number that all processes count up.
class SharedCounter {
public:
    SharedCounter()
        : _memory(::mmap(nullptr, sizeof(std::atomic<unsigned>), PROT_READ | PROT_WRITE,
            MAP_SHARED | MAP_ANONYMOUS, -1, 0))
    {
        if (_memory == MAP_FAILED)
            throw std::runtime_error("There is not enough memory.");
        _counter = new (_memory) std::atomic<unsigned>(0);
    }
    ~SharedCounter() { ::munmap(_memory, sizeof(std::atomic<unsigned>)); }
    SharedCounter(const SharedCounter&) = delete;
    SharedCounter& operator=(const SharedCounter&) = delete;

    unsigned next() const { return _counter->fetch_add(1); }

private:
    void* _memory;
    std::atomic<unsigned>* _counter;
};

/// Jobs that one worker does together, as their pictures are often the same: those of a phone at a scale. The
/// largest come first, so that all workers end at about the same time.
std::vector<std::vector<std::size_t>> portionsOf(const SheetPlan& plan)
{
    const auto jobs = plan.jobs();
    std::vector<std::vector<std::size_t>> portions(plan.phones.size() * plan.scales.size());
    for (std::size_t index = 0; index < jobs.size(); ++index)
        portions[jobs[index].phone * plan.scales.size() + jobs[index].scale].push_back(index);
    std::erase_if(portions, [](const auto& portion) { return portion.empty(); });
    const auto pixels = [&](const std::vector<std::size_t>& portion) {
        const auto& job = jobs[portion.front()];
        const auto& phone = plan.phones[job.phone];
        return phone.width * phone.height * plan.scales[job.scale] * plan.scales[job.scale];
    };
    std::stable_sort(portions.begin(), portions.end(),
        [&](const auto& one, const auto& other) { return pixels(one) > pixels(other); });
    return portions;
}

void work(
    const SheetPlan& plan, const fs::path& root, const SharedCounter& counter, const SheetProcess::Tell& tell)
{
    using Kind = SheetMessage::Kind;
    // Where a crash's teller finds the bundle.
    setCrashNote(root.string());
    auto place = SheetPlan::textOfBeginning();
    try {
        const auto application = applicationWithoutDisplay(root);
        SheetWorker worker(plan, root);
        const auto portions = portionsOf(plan);
        for (auto index = counter.next(); index < portions.size(); index = counter.next()) {
            for (const auto job : portions[index]) {
                tell({ .kind = Kind::JobBegins, .picture = { .job = job } });
                place = plan.textOf(job);
                const auto error = worker.render(job, [&](const SheetPicture& picture) {
                    tell({ .kind = Kind::Picture, .picture = picture });
                });
                if (error)
                    return tell({ .kind = Kind::Failure, .failure = *error });
                tell({ .kind = Kind::JobIsDone });
            }
        }
        tell({ .kind = Kind::End });
    } catch (const std::exception& exception) {
        tell({ .kind = Kind::Failure,
            .failure = place + ": the bundle threw an exception: " + exception.what() + "." });
    }
}

/// The processes, and what is known of each.
class Crew {
public:
    Crew(const SheetPlan& plan, const SheetCrew& orders)
        : _plan(plan)
        , _orders(orders)
        , _jobs(plan.jobs().size())
    {
        _orders.tick(0, _jobs);
        for (unsigned index = 0; index < orders.workers; ++index) {
            const auto root = _scratch.path() / std::to_string(index);
            fs::create_directory(root);
            auto process = std::make_unique<SheetProcess>(
                [&](const SheetProcess::Tell& tell) { work(plan, root, _counter, tell); },
                root.string() + ".printed");
            _members.push_back({ std::move(process), {} });
        }
    }

    void listen(const Interruption& interruption)
    {
        while (isAtWork()) {
            std::vector<pollfd> polled { { interruption.file(), POLLIN, 0 } };
            for (const auto& member : _members)
                polled.push_back({ member.process->pipe(), POLLIN, 0 });
            const auto count = ::poll(polled.data(), polled.size(), inMilliseconds(untilImpatience()));
            if (count < 0 && errno != EINTR)
                throw std::runtime_error(
                    "The processes can't be heard: " + std::generic_category().message(errno) + ".");
            interruption.check();
            for (std::size_t index = 0; index < _members.size(); ++index) {
                if (count > 0 && polled[index + 1].revents)
                    hear(_members[index]);
                else
                    checkPatience(_members[index]);
            }
        }
    }

    void passOnWhatWasPrinted() const
    {
        std::set<std::string> said;
        for (const auto& member : _members) {
            for (const auto& line : member.process->printed()) {
                if (said.insert(line).second)
                    _orders.say(line);
            }
        }
    }

private:
    using Clock = SheetProcess::Clock;

    struct Member {
        std::unique_ptr<SheetProcess> process;
        std::optional<std::size_t> job;
    };

    static int inMilliseconds(Clock::duration duration)
    {
        const auto number = std::chrono::ceil<std::chrono::milliseconds>(duration).count();
        return static_cast<int>(std::max<decltype(number)>(number, 0));
    }

    bool isAtWork() const
    {
        return std::any_of(_members.begin(), _members.end(),
            [](const Member& member) { return member.process->pipe() >= 0; });
    }

    Clock::duration untilImpatience() const
    {
        auto first = Clock::time_point::max();
        for (const auto& member : _members) {
            if (member.process->pipe() >= 0)
                first = std::min(first, member.process->lastHeard() + _orders.patience);
        }
        return first - Clock::now();
    }

    void checkPatience(const Member& member) const
    {
        if (member.process->pipe() >= 0 && Clock::now() >= member.process->lastHeard() + _orders.patience)
            fail(member, "a page took longer than " + std::to_string(_orders.patience.count()) + " seconds.");
    }

    void hear(Member& member)
    {
        member.process->listen([&](SheetMessage message) { take(member, std::move(message)); });
        if (member.process->pipe() >= 0)
            return;
        if (const auto ending = member.process->ending(); !ending.empty())
            fail(member, ending);
    }

    void take(Member& member, SheetMessage message)
    {
        using Kind = SheetMessage::Kind;
        if (message.kind == Kind::JobBegins)
            member.job = message.picture.job;
        else if (message.kind == Kind::Picture)
            _orders.take(std::move(message.picture));
        else if (message.kind == Kind::JobIsDone)
            _orders.tick(++_done, _jobs);
        else if (message.kind == Kind::Failure)
            throw std::runtime_error(message.failure);
    }

    [[noreturn]] void fail(const Member& member, const std::string& clause) const
    {
        throw std::runtime_error(
            (member.job ? _plan.textOf(*member.job) : SheetPlan::textOfBeginning()) + ": " + clause);
    }

    const SheetPlan& _plan;
    const SheetCrew& _orders;
    ScratchFolder _scratch { "sheet" }; ///< Goes after the processes.
    SharedCounter _counter;
    std::vector<Member> _members;
    std::size_t _done = 0;
    std::size_t _jobs;
};

}

void renderWithCrew(const SheetPlan& plan, const SheetCrew& orders, const Interruption& interruption)
{
    Crew crew(plan, orders);
    try {
        crew.listen(interruption);
    } catch (...) {
        crew.passOnWhatWasPrinted();
        throw;
    }
    crew.passOnWhatWasPrinted();
}

}

#include "SheetCrew.h"

#include "host/WithoutDisplay.h"
#include "SheetWorker.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <new>
#include <poll.h>
#include <QDataStream>
#include <QIODevice>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace host {

namespace {

namespace fs = std::filesystem;

enum class Message : quint8 { Picture, JobDone, Failure };

volatile std::sig_atomic_t isInterrupted = 0;

void interrupt(int)
{
    isInterrupted = 1;
}

/// A folder below the temporary one, for as long as it lives.
class Scratch {
public:
    Scratch()
    {
        auto name = (fs::temp_directory_path() / "vekora-sheet-XXXXXX").string();
        if (!::mkdtemp(name.data()))
            throw std::runtime_error("A folder below " + fs::temp_directory_path().string()
                + " can't be made: " + std::generic_category().message(errno) + ".");
        _path = name;
    }
    ~Scratch()
    {
        std::error_code error;
        fs::remove_all(_path, error);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    const fs::path& path() const { return _path; }

private:
    fs::path _path;
};

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

bool writeAll(int file, const QByteArray& bytes)
{
    for (qsizetype written = 0; written < bytes.size();) {
        const auto count
            = ::write(file, bytes.constData() + written, static_cast<std::size_t>(bytes.size() - written));
        if (count < 0 && errno != EINTR)
            return false;
        written += std::max<ssize_t>(count, 0);
    }
    return true;
}

template <typename... Fields> void send(int pipe, Message kind, const Fields&... fields)
{
    QByteArray body;
    QDataStream stream(&body, QIODevice::WriteOnly);
    stream << static_cast<quint8>(kind);
    (void(stream << fields), ...);
    QByteArray bytes;
    QDataStream outer(&bytes, QIODevice::WriteOnly);
    outer << body;
    // Whoever listened has gone, and with them the reason to go on.
    if (!writeAll(pipe, bytes))
        ::_exit(1);
}

void work(const SheetPlan& plan, const fs::path& root, const SharedCounter& counter, int pipe)
{
    try {
        const auto application = applicationWithoutDisplay(root);
        SheetWorker worker(plan, root);
        const auto portions = portionsOf(plan);
        for (auto index = counter.next(); index < portions.size(); index = counter.next()) {
            for (const auto job : portions[index]) {
                worker.render(job, [&](const SheetPicture& picture) {
                    send(pipe, Message::Picture, static_cast<quint32>(picture.job),
                        static_cast<quint32>(picture.page), QByteArray::fromStdString(picture.title),
                        picture.id, static_cast<qint32>(picture.width), static_cast<qint32>(picture.height),
                        picture.png);
                });
                send(pipe, Message::JobDone);
            }
        }
    } catch (const std::exception& exception) {
        send(pipe, Message::Failure, QByteArray(exception.what()));
    }
}

/// The processes. They go when it does, wherever they are.
class Crew {
public:
    Crew(const SheetPlan& plan, unsigned size, const fs::path& scratch)
    {
        for (unsigned index = 0; index < size; ++index) {
            const auto root = scratch / std::to_string(index);
            fs::create_directory(root);
            start(plan, root);
        }
    }
    ~Crew()
    {
        for (const auto& member : members)
            ::close(member.pipe);
        for (const auto& member : members) {
            if (!member.isReaped) {
                ::kill(member.process, SIGKILL);
                ::waitpid(member.process, nullptr, 0);
            }
        }
    }
    Crew(const Crew&) = delete;
    Crew& operator=(const Crew&) = delete;

    struct Member {
        pid_t process;
        int pipe;
        QByteArray heard {}; ///< What was not understood yet.
        bool isReaped = false;
    };
    std::vector<Member> members;

private:
    void start(const SheetPlan& plan, const fs::path& root)
    {
        int ends[2];
        if (::pipe(ends) != 0)
            throw std::runtime_error("A pipe can't be made: " + std::generic_category().message(errno) + ".");
        const auto parent = ::getpid();
        const auto process = ::fork();
        if (process < 0)
            throw std::runtime_error(
                "A process can't be made: " + std::generic_category().message(errno) + ".");
        if (process == 0) {
            // It must not outlive the one that takes the pictures.
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            if (::getppid() != parent)
                ::_exit(1);
            std::signal(SIGINT, SIG_IGN);
            std::signal(SIGPIPE, SIG_IGN);
            ::close(ends[0]);
            work(plan, root, _counter, ends[1]);
            // What the parent set up is the parent's to take down.
            std::fflush(nullptr);
            ::_exit(0);
        }
        ::close(ends[1]);
        members.push_back({ process, ends[0] });
    }

    SharedCounter _counter;
};

/// Takes what a worker says; false for a message that is not whole yet.
bool takeMessage(
    QByteArray& heard, const std::function<void(SheetPicture)>& take, const std::function<void()>& jobDone)
{
    QDataStream outer(heard);
    outer.startTransaction();
    QByteArray body;
    outer >> body;
    if (!outer.commitTransaction())
        return false;
    heard.remove(0, static_cast<qsizetype>(sizeof(quint32)) + body.size());
    QDataStream stream(body);
    quint8 kind = 0;
    stream >> kind;
    if (kind == static_cast<quint8>(Message::JobDone)) {
        jobDone();
    } else if (kind == static_cast<quint8>(Message::Failure)) {
        QByteArray sentence;
        stream >> sentence;
        throw std::runtime_error(sentence.toStdString());
    } else {
        quint32 job = 0;
        quint32 page = 0;
        QByteArray title;
        qint32 width = 0;
        qint32 height = 0;
        SheetPicture picture;
        stream >> job >> page >> title >> picture.id >> width >> height >> picture.png;
        picture.job = job;
        picture.page = page;
        picture.title = title.toStdString();
        picture.width = width;
        picture.height = height;
        take(std::move(picture));
    }
    return true;
}

void checkEnd(Crew::Member& member)
{
    int status = 0;
    ::waitpid(member.process, &status, 0);
    member.isReaped = true;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error("The bundle crashed while its pages were rendered.");
}

}

void renderWithCrew(const SheetPlan& plan, unsigned workers, const std::function<void(SheetPicture)>& take,
    const std::function<void(std::size_t done, std::size_t all)>& tick)
{
    const auto all = plan.jobs().size();
    std::size_t done = 0;
    isInterrupted = 0;
    struct sigaction action { };
    action.sa_handler = interrupt;
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);

    const Scratch scratch;
    Crew crew(plan, workers, scratch.path());
    for (std::size_t open = crew.members.size(); open > 0;) {
        std::vector<pollfd> polled;
        for (const auto& member : crew.members)
            polled.push_back({ member.isReaped ? -1 : member.pipe, POLLIN, 0 });
        if (::poll(polled.data(), polled.size(), -1) < 0 && errno != EINTR)
            throw std::runtime_error(
                "The workers can't be heard: " + std::generic_category().message(errno) + ".");
        if (isInterrupted)
            throw std::runtime_error("Interrupted.");
        for (std::size_t index = 0; index < polled.size(); ++index) {
            if (!polled[index].revents)
                continue;
            auto& member = crew.members[index];
            char buffer[1 << 16];
            const auto count = ::read(member.pipe, buffer, sizeof buffer);
            if (count > 0) {
                member.heard.append(buffer, count);
                while (takeMessage(member.heard, take, [&] { tick(++done, all); })) { }
            } else if (count == 0) {
                checkEnd(member);
                --open;
            }
        }
    }
}

}

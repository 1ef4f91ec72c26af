#include "SheetProcess.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace host {

namespace {

constexpr int exitAfterCrash = 2; // Of a program that tells of its crash.
constexpr std::string_view crashSign = " crashed: it ";

[[noreturn]] void fail(const std::string& what, int error)
{
    throw std::runtime_error(what + ": " + std::generic_category().message(error) + ".");
}

void writeAll(int file, const QByteArray& bytes)
{
    for (qsizetype written = 0; written < bytes.size();) {
        const auto count
            = ::write(file, bytes.constData() + written, static_cast<std::size_t>(bytes.size() - written));
        // Whoever listened has gone, and with them the reason to go on.
        if (count < 0 && errno != EINTR)
            ::_exit(1);
        written += std::max<ssize_t>(count, 0);
    }
}

void redirect(const char* path, int flags, std::initializer_list<int> files)
{
    constexpr mode_t ownersAlone = 0600;
    const int opened = ::open(path, flags | O_CLOEXEC, ownersAlone);
    for (const int file : files) {
        if (opened >= 0)
            ::dup2(opened, file);
    }
}

[[noreturn]] void workAsChild(const std::function<void(const SheetProcess::Tell&)>& work,
    const std::filesystem::path& printed, int pipe)
{
    std::signal(SIGPIPE, SIG_IGN);
    redirect("/dev/null", O_RDONLY, { STDIN_FILENO });
    redirect(printed.c_str(), O_WRONLY | O_CREAT | O_APPEND, { STDOUT_FILENO, STDERR_FILENO });
    // What pages of a sheet store is nobody's news.
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
    work([&](const SheetMessage& message) { writeAll(pipe, bytesFromMessage(message)); });
    // What the parent set up is the parent's to take down.
    std::fflush(nullptr);
    ::_exit(0);
}

std::vector<std::string> linesOf(const std::filesystem::path& path)
{
    std::vector<std::string> lines;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

}

SheetProcess::SheetProcess(const std::function<void(const Tell&)>& work, std::filesystem::path printed)
    : _printed(std::move(printed))
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        fail("A pipe can't be made", errno);
    const auto parent = ::getpid();
    _process = ::fork();
    if (_process == 0) {
        // It must not outlive the one that takes the pictures.
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (::getppid() != parent)
            ::_exit(1);
        ::close(ends[0]);
        workAsChild(work, _printed, ends[1]);
    }
    const int error = errno;
    ::close(ends[1]);
    _pipe = ends[0];
    if (_process < 0) {
        ::close(_pipe);
        fail("A process can't be made", error);
    }
}

SheetProcess::~SheetProcess()
{
    if (_pipe >= 0)
        ::close(_pipe);
    if (_process > 0) {
        ::kill(_process, SIGKILL);
        while (::waitpid(_process, nullptr, 0) < 0 && errno == EINTR) { }
    }
}

void SheetProcess::listen(const std::function<void(SheetMessage)>& take)
{
    char buffer[1 << 16];
    const auto count = ::read(_pipe, buffer, sizeof buffer);
    if (count < 0 && errno == EINTR)
        return;
    if (count <= 0) {
        ::close(_pipe);
        _pipe = -1;
        return;
    }
    _lastHeard = Clock::now();
    _heard.append(buffer, count);
    while (auto message = takeMessage(_heard)) {
        _hasSaidAll = message->kind == SheetMessage::Kind::End;
        take(std::move(*message));
    }
}

std::string SheetProcess::ending()
{
    int status = 0;
    while (::waitpid(_process, &status, 0) < 0 && errno == EINTR) { }
    _process = -1;
    if (WIFSIGNALED(status)) {
        const char* const name = ::sigabbrev_np(WTERMSIG(status));
        return std::string("the process that drew it was killed (SIG") + (name ? name : "?") + ").";
    }
    if (const auto lines = linesOf(_printed); WEXITSTATUS(status) == exitAfterCrash && !lines.empty()
        && lines.back().find(crashSign) != std::string::npos)
        return _crash = lines.back();
    return _hasSaidAll && WEXITSTATUS(status) == 0
        ? ""
        : "the bundle ended the program (status " + std::to_string(WEXITSTATUS(status)) + ").";
}

std::vector<std::string> SheetProcess::printed() const
{
    auto lines = linesOf(_printed);
    if (!_crash.empty())
        lines.pop_back();
    return lines;
}

}

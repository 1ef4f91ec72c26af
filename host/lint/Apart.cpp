#include "Apart.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace host {

namespace {

void append(std::string& bytes, std::size_t number)
{
    const auto plain = static_cast<std::uint32_t>(number);
    bytes.append(reinterpret_cast<const char*>(&plain), sizeof plain);
}

/// Takes numbers and texts off what has been read; false when they are not whole.
class Reader {
public:
    explicit Reader(const std::string& bytes)
        : _bytes(bytes)
    {
    }

    bool record(Record& record)
    {
        std::uint32_t count = 0;
        if (!number(count))
            return false;
        record.clear();
        for (std::uint32_t index = 0; index < count; ++index) {
            std::uint32_t length = 0;
            if (!number(length) || length > _bytes.size() - _place)
                return false;
            record.emplace_back(_bytes, _place, length);
            _place += length;
        }
        return true;
    }

private:
    bool number(std::uint32_t& result)
    {
        if (_bytes.size() - _place < sizeof result)
            return false;
        std::memcpy(&result, _bytes.data() + _place, sizeof result);
        _place += sizeof result;
        return true;
    }

    const std::string& _bytes;
    std::size_t _place = 0;
};

[[noreturn]] void workAsChild(const std::function<void(const RecordWriter&)>& work, int file)
{
    const RecordWriter tell(file);
    const rlimit none { 0, 0 };
    ::setrlimit(RLIMIT_CORE, &none);
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
    if (const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC); nowhere >= 0)
        ::dup2(nowhere, STDOUT_FILENO);
    try {
        work(tell);
    } catch (const std::exception& exception) {
        tell({ "exception", exception.what() });
    } catch (...) {
        tell({ "exception", "Something was thrown." });
    }
    tell({ "end" });
    ::_exit(0);
}

/// Reads until the child closes its end, or the time is up: then false.
bool readAll(int file, std::string& bytes, std::chrono::seconds longest)
{
    const auto deadline = std::chrono::steady_clock::now() + longest;
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now())
                              .count();
        if (left <= 0)
            return false;
        pollfd watched { file, POLLIN, 0 };
        if (::poll(&watched, 1, static_cast<int>(left)) <= 0)
            continue;
        char buffer[4096];
        const auto count = ::read(file, buffer, sizeof buffer);
        if (count == 0 || (count < 0 && errno != EINTR))
            return true;
        bytes.append(buffer, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
}

std::string nameOfSignal(int number)
{
    const char* name = ::sigabbrev_np(number);
    return name ? std::string("SIG") + name : "signal " + std::to_string(number);
}

}

void RecordWriter::operator()(const Record& record) const
{
    std::string bytes;
    append(bytes, record.size());
    for (const auto& text : record) {
        append(bytes, text.size());
        bytes += text;
    }
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const auto count = ::write(_file, bytes.data() + sent, bytes.size() - sent);
        if (count < 0 && errno != EINTR)
            return;
        sent += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
}

ApartResult runApart(const std::function<void(const RecordWriter&)>& work, std::chrono::seconds longest)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("No pipe can be made: " + std::generic_category().message(errno) + ".");
    const auto child = ::fork();
    if (child < 0) {
        const auto reason = std::generic_category().message(errno);
        ::close(ends[0]);
        ::close(ends[1]);
        throw std::runtime_error("No process can be started: " + reason + ".");
    }
    if (child == 0) {
        ::close(ends[0]);
        workAsChild(work, ends[1]);
    }
    ::close(ends[1]);
    std::string bytes;
    const bool ended = readAll(ends[0], bytes, longest);
    ::close(ends[0]);
    if (!ended)
        ::kill(child, SIGKILL);
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) { }

    ApartResult result;
    Reader reader(bytes);
    bool isWhole = false;
    for (Record record; reader.record(record);) {
        if (record.size() == 1 && record[0] == "end")
            isWhole = true;
        else
            result.records.push_back(record);
    }
    if (!ended)
        result.ending = "did not end within " + std::to_string(longest.count()) + " seconds";
    else if (WIFSIGNALED(status))
        result.ending = "crashed (" + nameOfSignal(WTERMSIG(status)) + ")";
    else if (!isWhole)
        result.ending = "ended the program (status " + std::to_string(WEXITSTATUS(status)) + ")";
    return result;
}

}

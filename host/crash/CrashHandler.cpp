#include "CrashHandler.h"

#include "CrashFrames.h"
#include "CrashText.h"
#include "CrashWriter.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <exception>
#include <sys/mman.h>
#include <unistd.h>

namespace host {

namespace {

constexpr int crashSignals[] = { SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGXCPU };
constexpr std::size_t stackSize = 512UL * 1024; // Bytes; sanitizers need a good part of it.
constexpr std::size_t longestNote = 64UL * 1024;
constexpr std::size_t longestPath = 4096;
constexpr std::size_t mostVariables = 4096;
constexpr unsigned longestWriting = 3; // Seconds.
constexpr int reportFile = 3; // The descriptor by which the program finds the report.

/// Everything that the handler needs, where it needs no memory to be asked for.
struct State {
    std::atomic<AfterCrash> after { AfterCrash::SayAndEnd };
    char program[longestPath] = {};
    char** arguments = nullptr;
    char* environment[mostVariables + 2] = {};
    char variable[64] = {};
    sigset_t signals {};

    char notes[2][longestNote] = {};
    std::size_t noteLengths[2] = {};
    std::atomic<int> note { 0 };
    char action[256] = {};
    char exception[256] = {}; ///< Its type's name as the compiler writes it.
    char what[512] = {};
    std::atomic<bool> mayExit { false };
    std::atomic<unsigned> status { 0 }; ///< See crashtext::status.

    std::atomic<int> stage { 0 }; ///< How many crashes have begun to be handled.
    std::atomic<pid_t> thread { 0 }; ///< Whose crash is handled.
    int report = -1;
};
State state;

template <std::size_t Size> void keep(char (&target)[Size], std::string_view text)
{
    const auto length = std::min(text.size(), Size - 1);
    std::memmove(target, text.data(), length);
    target[length] = '\0';
}

/// As one line, since the report is read line by line.
template <std::size_t Size> void keepLine(char (&target)[Size], std::string_view text)
{
    keep(target, text);
    constexpr auto isControl = [](char byte) { return (byte >= 0 && byte < ' ') || byte == 0x7f; };
    std::replace_if(target, target + std::strlen(target), isControl, ' ');
}

/// The report's end, which is known beforehand and costs nothing.
void writeNote(const CrashWriter& report)
{
    const auto note = state.note.load();
    report.text(crashtext::note);
    report.bytes(state.notes[note], state.noteLengths[note]);
}

[[noreturn]] void startAnew(int file)
{
    ::alarm(0);
    ::lseek(file, 0, SEEK_SET);
    ::dup2(file, reportFile);
    ::close_range(reportFile + 1, ~0U, CLOSE_RANGE_CLOEXEC);
    ::sigprocmask(SIG_SETMASK, &state.signals, nullptr);
    ::execve(state.program, state.arguments, state.environment);
    ::execve("/proc/self/exe", state.arguments, state.environment);
    ::_exit(EXIT_FAILURE);
}

void finish(int)
{
    const CrashWriter report(state.report);
    report.text("\n");
    writeNote(report);
    startAnew(state.report);
}

void dieOf(int signal)
{
    ::signal(signal, SIG_DFL);
    sigset_t mask;
    ::sigemptyset(&mask);
    ::sigaddset(&mask, signal);
    ::sigprocmask(SIG_UNBLOCK, &mask, nullptr);
    ::raise(signal);
}

void crashed(int signal, siginfo_t* info, void* data)
{
    auto& context = *static_cast<ucontext_t*>(data);
    const bool isOthers = info->si_code == SI_USER && info->si_pid != ::getpid();
    if (isOthers || (signal == SIGXCPU && info->si_code != SI_TIMER))
        return dieOf(signal);
    pid_t nobody = 0;
    if (!state.thread.compare_exchange_strong(nobody, ::gettid()) && nobody != ::gettid()) {
        for (;;)
            ::pause(); // Another thread's crash came first, and ends this one as well.
    }
    const int stage = state.stage.fetch_add(1);
    if (stage == 1 && state.report >= 0)
        return finish(signal); // A crash while this one was written down: what there is must do.
    if (stage >= 1)
        return dieOf(signal);

    state.report = ::memfd_create("crash", 0);
    if (state.report < 0)
        return dieOf(signal);
    // Whoever holds a lock that is needed below may never let go of it.
    struct sigaction late { };
    late.sa_handler = finish;
    late.sa_flags = SA_ONSTACK | SA_NODEFER;
    ::sigaction(SIGALRM, &late, nullptr);
    ::alarm(longestWriting);

    const CrashWriter report(state.report);
    const auto address = reinterpret_cast<std::uintptr_t>(info->si_addr);
    const auto distance
        = address > stackPointer(context) ? address - stackPointer(context) : stackPointer(context) - address;
    constexpr std::uintptr_t nearStack = 64UL * 1024;
    report.line(crashtext::after, state.after == AfterCrash::StartAgain ? "start" : "end");
    report.line(crashtext::signal, static_cast<std::uintptr_t>(signal));
    report.line(crashtext::address, address);
    report.line(crashtext::code, static_cast<std::uintptr_t>(info->si_code));
    report.line(crashtext::stackEnd, signal == SIGSEGV && distance < nearStack ? 1 : 0);
    report.line(crashtext::action, state.action);
    report.line(crashtext::exception, state.exception);
    report.line(crashtext::what, state.what);
    report.line(crashtext::status, state.status);
    report.text(crashtext::maps);
    report.contentsOf("/proc/self/maps");
    writeFrames(report, *info, context);
    writeNote(report);
    startAnew(state.report);
}

/// Of an exception that nobody catches, the thrower is still on the stack.
[[noreturn]] void terminated()
{
    if (const auto* type = abi::__cxa_current_exception_type()) {
        keep(state.exception, type->name());
        try {
            throw;
        } catch (const std::exception& exception) {
            keepLine(state.what, exception.what());
        } catch (...) {
        }
    }
    std::abort();
}

/// Whoever ends the program is still on the stack.
void ending(int status, void*)
{
    if (state.mayExit)
        return;
    constexpr unsigned bits = 0xff; // More of it nobody gets to know.
    state.status = (static_cast<unsigned>(status) & bits) + 1;
    std::abort();
}

void takeEnvironment()
{
    std::size_t count = 0;
    for (char** variable = environ; *variable && count < mostVariables; ++variable)
        state.environment[count++] = *variable;
    keep(state.variable, std::string(crashtext::variable) + "=" + std::to_string(reportFile));
    state.environment[count] = state.variable;
}

}

void handleCrashes(char** argv, AfterCrash after)
{
    state.after = after;
    state.arguments = argv;
    if (::readlink("/proc/self/exe", state.program, longestPath - 1) < 0)
        keep(state.program, "/proc/self/exe");
    takeEnvironment();
    ::sigprocmask(SIG_SETMASK, nullptr, &state.signals);

    auto* const memory
        = ::mmap(nullptr, stackSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory != MAP_FAILED) {
        stack_t stack {};
        stack.ss_sp = memory;
        stack.ss_size = stackSize;
        ::sigaltstack(&stack, nullptr);
    }
    struct sigaction action { };
    action.sa_sigaction = crashed;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK | SA_NODEFER;
    for (const int signal : crashSignals)
        ::sigaction(signal, &action, nullptr);
    std::set_terminate(terminated);
    ::on_exit(ending, nullptr);
}

void expectExit()
{
    state.mayExit = true;
}

void setAfterCrash(AfterCrash after)
{
    state.after = after;
}

void setCrashNote(std::string_view text)
{
    if (text.size() > longestNote)
        text = {};
    const int other = 1 - state.note;
    std::copy(text.begin(), text.end(), state.notes[other]);
    state.noteLengths[other] = text.size();
    state.note = other;
}

void setLastAction(std::string_view selector)
{
    keepLine(state.action, selector);
}

}

#include "CrashHandler.h"

#include "CrashText.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <exception>
#include <fcntl.h>
#include <sys/mman.h>
#include <ucontext.h>
#include <unistd.h>
#include <unwind.h>

namespace host {

namespace {

constexpr int crashSignals[] = { SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT };
constexpr std::size_t stackSize = 512UL * 1024; // Bytes; sanitizers need a good part of it.
constexpr std::size_t longestNote = 64UL * 1024;
constexpr std::size_t longestPath = 4096;
constexpr std::size_t mostVariables = 4096;
constexpr int mostFrames = 64;
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

    std::atomic<int> stage { 0 }; ///< How many crashes have begun to be handled.
    std::atomic<pid_t> thread { 0 }; ///< Whose crash is handled.
    int report = -1;
    std::uintptr_t frames[mostFrames] = {};
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

std::uintptr_t programCounter(const ucontext_t& context)
{
#if defined(__x86_64__)
    return static_cast<std::uintptr_t>(context.uc_mcontext.gregs[REG_RIP]);
#elif defined(__aarch64__)
    return context.uc_mcontext.pc;
#else
    static_cast<void>(context);
    return 0;
#endif
}

std::uintptr_t stackPointer(const ucontext_t& context)
{
#if defined(__x86_64__)
    return static_cast<std::uintptr_t>(context.uc_mcontext.gregs[REG_RSP]);
#elif defined(__aarch64__)
    return context.uc_mcontext.sp;
#else
    static_cast<void>(context);
    return 0;
#endif
}

/// As if the call of a function where there is none had not been made: what was called from there on says
/// nothing, who called it is on the stack.
void goBackToCaller(ucontext_t& context)
{
#if defined(__x86_64__)
    auto& stack = context.uc_mcontext.gregs[REG_RSP];
    context.uc_mcontext.gregs[REG_RIP] = *reinterpret_cast<const greg_t*>(stack) - 1;
    stack += sizeof(greg_t);
#elif defined(__aarch64__)
    context.uc_mcontext.pc = context.uc_mcontext.regs[30] - 4;
#else
    static_cast<void>(context);
#endif
}

_Unwind_Reason_Code takeFrame(_Unwind_Context* context, void* data)
{
    auto& count = *static_cast<int*>(data);
    // Of a call, the place after it; one before is the call's own line, and its function's for certain.
    int isPlaceItself = 0;
    const auto place = _Unwind_GetIPInfo(context, &isPlaceItself);
    state.frames[count++] = isPlaceItself || place == 0 ? place : place - 1;
    return count < mostFrames ? _URC_NO_REASON : _URC_END_OF_STACK;
}

/// Only what a signal's handler may call.
class Writer {
public:
    explicit Writer(int file)
        : _file(file)
    {
    }
    void text(const char* text) const { bytes(text, std::strlen(text)); }
    void bytes(const char* bytes, std::size_t count) const
    {
        while (count > 0) {
            const auto written = ::write(_file, bytes, count);
            if (written <= 0)
                return;
            bytes += written;
            count -= static_cast<std::size_t>(written);
        }
    }
    void line(const char* key, const char* value) const
    {
        text(key);
        text(value);
        text("\n");
    }
    void line(const char* key, std::uintptr_t number) const
    {
        constexpr int digits = 16;
        char value[digits + 1] = {};
        for (int digit = digits; digit-- > 0; number >>= 4U)
            value[digit] = "0123456789abcdef"[number & 0xfU];
        line(key, value);
    }
    void contentsOf(const char* path) const
    {
        const int file = ::open(path, O_RDONLY | O_CLOEXEC);
        char buffer[4096];
        for (ssize_t count = 0; (count = ::read(file, buffer, sizeof buffer)) > 0;)
            bytes(buffer, static_cast<std::size_t>(count));
        if (file >= 0)
            ::close(file);
    }

private:
    int _file;
};

void writeFrames(const Writer& report, const siginfo_t& info, ucontext_t& context)
{
    if (info.si_signo == SIGSEGV
        && programCounter(context) == reinterpret_cast<std::uintptr_t>(info.si_addr)) {
        report.line(crashtext::frame, programCounter(context));
        goBackToCaller(context);
    }
    const auto here = programCounter(context);
    int count = 0;
    _Unwind_Backtrace(takeFrame, &count);
    // Up to the place of the crash these are the handler's own.
    int first = 0;
    while (first < count && state.frames[first] != here)
        ++first;
    if (first == count)
        report.line(crashtext::frame, here);
    for (int index = first < count ? first : 0; index < count; ++index)
        report.line(crashtext::frame, state.frames[index]);
}

/// The report's end, which is known beforehand and costs nothing.
void writeNote(const Writer& report)
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
    const Writer report(state.report);
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
    if (info->si_code == SI_USER && info->si_pid != ::getpid())
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

    const Writer report(state.report);
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

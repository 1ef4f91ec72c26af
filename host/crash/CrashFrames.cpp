#include "CrashFrames.h"

#include "CrashText.h"

#include <unwind.h>

namespace host {

namespace {

constexpr int mostFrames = 64;
std::uintptr_t frames[mostFrames] = {}; // The handler has little stack, and no memory to ask for.

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
    frames[count++] = isPlaceItself || place == 0 ? place : place - 1;
    return count < mostFrames ? _URC_NO_REASON : _URC_END_OF_STACK;
}

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

void writeFrames(const CrashWriter& report, const siginfo_t& info, ucontext_t& context)
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
    while (first < count && frames[first] != here)
        ++first;
    if (first == count)
        report.line(crashtext::frame, here);
    for (int index = first < count ? first : 0; index < count; ++index)
        report.line(crashtext::frame, frames[index]);
}

}

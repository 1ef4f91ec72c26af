#pragma once

#include "CrashWriter.h"

#include <csignal>
#include <ucontext.h>

namespace host {

/// Where the crashed thread's stack ended.
std::uintptr_t stackPointer(const ucontext_t&);

/// The calls that led to a crash, the innermost first, as lines of its report. For the handler of its signal,
/// and for one thread only. The context may be changed: after a call of no function it is the caller's.
void writeFrames(const CrashWriter&, const siginfo_t&, ucontext_t&);

}

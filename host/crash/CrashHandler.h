#pragma once

#include <string_view>

/// What happens when the process crashes, by its own fault or a bundle's. Nothing in the process can be
/// trusted any more, so the handler does as little as can be done: it writes down where the crash was into
/// memory that outlives the program, and starts the program anew in the same process, which then tells what
/// happened (CrashReport.h).
namespace host {

enum class AfterCrash {
    StartAgain, ///< With the same words; for a window.
    SayAndEnd, ///< One sentence on standard error, and an exit status that is not 0.
};

/// From now on SIGSEGV, SIGBUS, SIGFPE, SIGILL and SIGABRT, and with them exceptions that nobody catches, are
/// crashes, on a stack of their own, as the usual one may be at its end. So is an end of the program that
/// `expectExit` has not announced, and work without end (WorkLimit.h). Signals that another process sends are
/// not. `argv` must stay as it is.
void handleCrashes(char** argv, AfterCrash);
/// From now on the program may end.
void expectExit();
void setAfterCrash(AfterCrash);

/// What the program is to know when it has been started anew, in the place of what was said before. Of texts
/// beyond 64 KiB nothing is kept.
void setCrashNote(std::string_view);
/// The action that was begun last, by its selector; whatever is in it, it counts as one line.
void setLastAction(std::string_view);

}

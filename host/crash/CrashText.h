#pragma once

/// How a crash is written down: one line for each of these, in any order, the note last and up to the end.
namespace host::crashtext {

constexpr const char* variable = "VEKORA_CRASH_REPORT"; ///< The report's file descriptor.
constexpr const char* after = "after ";
constexpr const char* signal = "signal ";
constexpr const char* address = "address ";
constexpr const char* code = "code ";
constexpr const char* stackEnd = "stack end ";
constexpr const char* action = "action ";
constexpr const char* exception = "exception ";
constexpr const char* what = "what ";
constexpr const char* status = "status "; ///< Of an exit: one more than it, as 0 is none.
constexpr const char* frame = "frame ";
/// What lies where in memory: lines as the kernel writes them, up to one of another kind.
constexpr const char* maps = "maps\n";
constexpr const char* note = "note\n";

}

#pragma once

#include "platform/qt/FileCalls.h"

#include <fcntl.h>
#include <functional>
#include <string_view>

/// Stands between the layer and the system while it lives: before each system call of a save, `decide` is
/// asked, and a number that is not 0 is the error that the call then fails with.
class CallHooks {
public:
    using Decide = std::function<int(std::string_view call, int file)>;

    explicit CallHooks(Decide decide)
    {
        shared() = { std::move(decide), platform::FileCalls::current() };
        auto& calls = platform::FileCalls::current();
        calls.openAt = [](int folder, const char* name, int flags, mode_t mode) {
            return pass(flags & O_CREAT ? "create" : "open", folder, &platform::FileCalls::openAt, folder,
                name, flags, mode);
        };
        hook<&platform::FileCalls::status>("status");
        hook<&platform::FileCalls::statusAt>("statusAt");
        hook<&platform::FileCalls::readLinkAt>("readLinkAt");
        hook<&platform::FileCalls::read>("read");
        hook<&platform::FileCalls::write>("write");
        hook<&platform::FileCalls::changeMode>("changeMode");
        hook<&platform::FileCalls::lock>("lock");
        hook<&platform::FileCalls::rename>("rename");
        hook<&platform::FileCalls::linkAt>("linkAt");
        hook<&platform::FileCalls::unlinkAt>("unlinkAt");
        calls.sync = [](int file) {
            struct stat status { };
            const bool isFolder = ::fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
            return pass(isFolder ? "sync folder" : "sync", file, &platform::FileCalls::sync, file);
        };
        calls.linkSymbolically = [](const char* target, int folder, const char* name) {
            return pass(
                "linkSymbolically", folder, &platform::FileCalls::linkSymbolically, target, folder, name);
        };
    }
    ~CallHooks() { platform::FileCalls::current() = shared().real; }
    CallHooks(const CallHooks&) = delete;
    CallHooks& operator=(const CallHooks&) = delete;

    /// The system's own calls.
    static const platform::FileCalls& real() { return shared().real; }

private:
    struct State {
        Decide decide;
        platform::FileCalls real;
    };
    static State& shared()
    {
        static State state;
        return state;
    }

    template <typename Result, typename... Arguments>
    static Result pass(std::string_view call, int file, Result (*platform::FileCalls::*member)(Arguments...),
        Arguments... arguments)
    {
        if (const int error = shared().decide(call, file)) {
            errno = error;
            return -1;
        }
        return (shared().real.*member)(arguments...);
    }

    /// For the calls whose first argument is a file.
    template <auto Member> static void hook(std::string_view name)
    {
        Hook<Member>::name = name;
        platform::FileCalls::current().*Member = Hook<Member>::function;
    }
    template <auto Member> struct Hook;
    template <typename Result, typename... Rest, Result (*platform::FileCalls::*Member)(int, Rest...)>
    struct Hook<Member> {
        static Result function(int file, Rest... rest) { return pass(name, file, Member, file, rest...); }
        static inline std::string_view name;
    };
};

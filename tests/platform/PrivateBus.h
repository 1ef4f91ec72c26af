#pragma once

#include "tests/support/TemporaryFolder.h"

#include <csignal>
#include <fcntl.h>
#include <optional>
#include <string>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

/// A session bus of a test's own: nothing but this test is on it. The environment names it while it lives.
class PrivateBus {
public:
    PrivateBus()
    {
        const auto configuration = _folder.path() / "bus.conf";
        writeTestFile(configuration,
            "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
            " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
            "<busconfig><type>session</type><listen>unix:dir="
                + _folder.path().string()
                + "</listen><auth>EXTERNAL</auth>\n"
                  "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>\n"
                  "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>\n");
        int pipe[2];
        if (::pipe(pipe) != 0)
            throw std::runtime_error("no pipe");
        _process = ::fork();
        if (_process == 0) {
            ::dup2(pipe[1], 3);
            ::dup2(::open("/dev/null", O_WRONLY), 2); // It complains of limits that it does not need.
            const auto option = "--config-file=" + configuration.string();
            ::execlp("dbus-daemon", "dbus-daemon", option.c_str(), "--nofork", "--nosyslog",
                "--print-address=3", static_cast<char*>(nullptr));
            ::_exit(127);
        }
        ::close(pipe[1]);
        // The daemon writes its address when it takes connections.
        char character = 0;
        while (::read(pipe[0], &character, 1) == 1 && character != '\n')
            _address += character;
        ::close(pipe[0]);
        if (const char* before = std::getenv(variable))
            _before = before;
        ::setenv(variable, _address.c_str(), 1);
    }

    ~PrivateBus()
    {
        if (_before)
            ::setenv(variable, _before->c_str(), 1);
        else
            ::unsetenv(variable);
        ::kill(_process, SIGKILL);
        ::waitpid(_process, nullptr, 0);
    }

    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    const std::string& address() const { return _address; }
    pid_t process() const { return _process; }

private:
    static constexpr const char* variable = "DBUS_SESSION_BUS_ADDRESS";

    TemporaryFolder _folder;
    pid_t _process = -1;
    std::string _address;
    std::optional<std::string> _before;
};

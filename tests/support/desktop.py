"""A desktop of a test's own, and the windows on it."""

import contextlib
import os
import subprocess
import sys
import tempfile
import time

DEADLINE = 60  # Seconds; of a machine with too much to do, too.


@contextlib.contextmanager
def desktop(size, with_bus=True):
    """An X server of that size ("800x900") without a window manager, and a session bus, or none. Gives an empty folder,
    which is the home folder too, and the environment to start programs in."""
    with tempfile.TemporaryDirectory() as scratch:
        runtime = os.path.join(scratch, "runtime")
        os.mkdir(runtime, 0o700)
        # It stays as it is when its last client goes: while it starts anew it turns others away.
        screen = _start("Xvfb", "-displayfd", "1", "-screen", "0", size + "x24", "-nolisten", "tcp", "-noreset")
        servers = [screen]
        try:
            environment = dict(os.environ, HOME=scratch, XDG_RUNTIME_DIR=runtime,
                               DISPLAY=":" + screen.stdout.readline().strip(), DBUS_SESSION_BUS_ADDRESS="disabled:")
            environment.pop("QT_QPA_PLATFORM", None)
            if with_bus:
                bus = _start("dbus-daemon", "--session", "--print-address=1", "--nofork", "--nopidfile")
                servers.append(bus)
                environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
            yield scratch, environment
        finally:
            for server in servers:
                server.terminate()
                server.wait()


def _start(*words):
    return subprocess.Popen(words, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)


def wait_for_window(environment, *words):
    """The number of the newest visible window that xdotool finds by these words. A search fails when a window goes
    while it looks at it, and is made again then."""
    deadline = time.monotonic() + DEADLINE
    while True:
        found = subprocess.run(["xdotool", "search", "--sync", "--onlyvisible", *words], env=environment, check=False,
                               capture_output=True, text=True, timeout=DEADLINE)
        if found.returncode == 0 and found.stdout.split():
            return found.stdout.split()[-1]
        if time.monotonic() > deadline:
            sys.exit(f"No window came that answers to {words}.")
        time.sleep(0.02)

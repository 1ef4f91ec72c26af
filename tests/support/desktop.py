"""A desktop of a test's own, and the windows on it."""

import contextlib
import os
import select
import shutil
import subprocess
import sys
import tempfile
import time

DEADLINE = 60  # Seconds; of a machine with too much to do, too.


@contextlib.contextmanager
def desktop(size, with_bus=True):
    """An X server of that size ("800x900") without a window manager, and a session bus, or none. Gives an empty folder,
    which is the home folder too, and the environment to start programs in."""
    with tempfile.TemporaryDirectory() as scratch, contextlib.ExitStack() as servers:
        environment = dict(os.environ, HOME=scratch, DBUS_SESSION_BUS_ADDRESS="disabled:")
        for name, folder in (("XDG_RUNTIME_DIR", "runtime"), ("XDG_CONFIG_HOME", "config"),
                             ("XDG_DATA_HOME", "data"), ("XDG_CACHE_HOME", "cache")):
            environment[name] = os.path.join(scratch, folder)
            os.mkdir(environment[name], 0o700)
        for name in ("QT_QPA_PLATFORM", "AT_SPI_BUS_ADDRESS"):
            environment.pop(name, None)
        environment["DISPLAY"] = servers.enter_context(screen(size))
        if with_bus:
            environment["DBUS_SESSION_BUS_ADDRESS"] = servers.enter_context(session_bus(environment))
        yield scratch, environment


@contextlib.contextmanager
def screen(size):
    """An X server; gives the name of its display. It stays as it is when its last client goes: while it starts anew it
    turns others away."""
    with _server("Xvfb", "-displayfd", "1", "-screen", "0", size + "x24", "-nolisten", "tcp", "-noreset") as number:
        yield ":" + number


@contextlib.contextmanager
def session_bus(environment):
    """A bus that starts its services in that environment; gives its address."""
    with _server("dbus-daemon", "--session", "--print-address=1", "--nofork", "--nopidfile",
                 environment=environment) as address:
        yield address


@contextlib.contextmanager
def _server(program, *words, environment=None):
    """A program that serves until the test ends, in whatever way that does. Gives the line that it prints when it can be
    used."""
    command = [shutil.which("setpriv"), "--pdeathsig", "TERM", shutil.which(program), *words]
    with tempfile.TemporaryFile("w+") as complaints:
        server = subprocess.Popen(command, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                  stderr=complaints, text=True)
        try:
            is_there = select.select([server.stdout], [], [], DEADLINE)[0]
            line = server.stdout.readline().strip() if is_there else ""
            if not line:
                complaints.seek(0)
                sys.exit(f"{program} does not start: {complaints.read().strip()}")
            yield line
        finally:
            server.terminate()
            server.wait()
            server.stdout.close()


def wait_for_window(environment, *words):
    """The number of the newest visible window that xdotool finds by these words. A search fails when a window goes
    while it looks at it, and is made again then."""
    deadline = time.monotonic() + DEADLINE
    while (left := deadline - time.monotonic()) > 0:
        try:
            found = subprocess.run(["xdotool", "search", "--sync", "--onlyvisible", *words], env=environment,
                                   check=False, capture_output=True, text=True, timeout=left)
        except subprocess.TimeoutExpired:
            break
        if found.returncode == 0 and found.stdout.split():
            return found.stdout.split()[-1]
        time.sleep(0.02)
    sys.exit(f"No window came that answers to {words}.")

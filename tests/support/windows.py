"""Finds a program's window on the X server of a test's own."""

import subprocess
import sys
import time

DEADLINE = 60  # Seconds; of a machine with too much to do, too.


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

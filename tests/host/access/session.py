"""A display and a session bus of a test's own, and the host's window on them."""

import contextlib
import os
import plistlib
import subprocess
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "support"))
from desktop import desktop, wait_for_window  # noqa: E402

DEADLINE = 60  # Seconds; far beyond what anything here takes.


def wait_for(what, condition):
    """The condition's first answer that is true."""
    end = time.monotonic() + DEADLINE
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > end:
            sys.exit(f"In vain it was waited for: {what}.")
        time.sleep(0.02)


class Session:
    """One window, with a home and a root that go with it."""

    def __init__(self, program, scratch, environment):
        self.program = program
        self.root = os.path.join(scratch, "root")
        self.environment = environment
        self.window = None
        self.complaints = os.path.join(scratch, "complaints")

    def open(self, *words):
        with open(self.complaints, "wb") as complaints:
            self.window = subprocess.Popen(
                [self.program, *words, "--root", self.root, "--timezone", "UTC", "--scale", "1"],
                env=self.environment, stderr=complaints)

    def x(self, *words):
        """What xdotool says."""
        return subprocess.run(["xdotool", *words], env=self.environment, check=True, capture_output=True,
                              text=True).stdout

    def take_keys(self):
        """Nobody manages windows here, so nobody gives them the keyboard."""
        window = wait_for_window(self.environment, "--name", "^Vekora|^Gallery")
        self.x("windowfocus", "--sync", window)

    def close(self):
        """Ends the window by its keys; nothing may have gone wrong in it."""
        self.take_keys()
        self.x("key", "ctrl+q")
        status = self.window.wait(DEADLINE)
        with open(self.complaints, encoding="utf-8") as complaints:
            said = complaints.read()
        if status != 0 or said:
            sys.exit(f"The window ended with {status}, and said: {said}")

    @property
    def file(self):
        return os.path.join(self.root, "private/var/mobile/Library/Preferences/net.morvane.vekora.plist")

    def stored(self, key):
        try:
            with open(self.file, "rb") as file:
                return plistlib.load(file).get(key)
        except FileNotFoundError:
            return None

    def store(self, key, value):
        """As another process does it."""
        with open(self.file, "rb") as file:
            values = plistlib.load(file)
        values[key] = value
        with open(self.file + ".new", "wb") as file:
            plistlib.dump(values, file)
        os.rename(self.file + ".new", self.file)


@contextlib.contextmanager
def session(program):
    with desktop("1200x950") as (scratch, environment):
        environment.update(LC_ALL="C.UTF-8", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        made = Session(program, scratch, environment)
        try:
            yield made
        finally:
            if made.window:
                if made.window.poll() is None:
                    made.window.terminate()
                made.window.wait()

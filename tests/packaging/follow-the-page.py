#!/usr/bin/env python3
"""Follows docs/your-own-pane.md letter for letter, in an empty folder and with an installed tree.
Usage: follow-the-page.py CMAKE BUILD SOURCE COMPILER, or "installed" for BUILD where the package is.

What the page's blocks mean:
- One after a line that is only `FOLDER/FILE`: is that file, whole.
- One marked "console" has commands, each after "$ ", and below each what it prints. "…" stands for any text, alone on a
  line for any lines. "(status N)" as the last line is the status that it ends with, else 0. A command that ends with "&"
  opens a window, which must come up and stay until the page ends; a build meanwhile must reach it.
- One after "From `gallery/FILE`:" is found in that file; so are further ones up to the next file that is named.
A block of any other kind is one that nobody would follow, and a failure."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import textwrap
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support"))
from desktop import screen, wait_for_window  # noqa: E402

CMAKE, BUILD, SOURCE, COMPILER = sys.argv[1:]
PAGE = pathlib.Path(SOURCE) / "docs/your-own-pane.md"
DEADLINE = 60  # Seconds; only a failure waits that long.


def blocks():
    """The text before each fenced block, its mark, and its lines."""
    before, mark, lines = [], None, []
    for line in PAGE.read_text().splitlines():
        fence = re.match(r"( *)```(\S*)$", line)
        if fence and mark is None:
            mark, lines = fence.group(2), []
        elif fence:
            yield "\n".join(before), mark, textwrap.dedent("\n".join(lines) + "\n")
            before, mark = [], None
        elif mark is None:
            before.append(line)
        else:
            lines.append(line)


def fits(shown, printed):
    pattern = "".join("(?:.*\n)*?" if line == "…\n" else re.escape(line).replace("…", ".*")
                      for line in shown.splitlines(keepends=True))
    return re.fullmatch(pattern, printed) is not None


class Reader:
    def __init__(self, top, environment):
        self.top = self.folder = top
        self.environment = environment
        self.windows = []
        self.excerpts_from = None

    def read(self, before, mark, text):
        file = re.search(r"^`([^`]+)`:\s*\Z", before.strip().split("\n")[-1] + "\n")
        source = re.findall(r"From\s+`([^`]+)`:", before)
        if source:
            self.excerpts_from = source[-1]
        if mark == "console":
            self.carry_out(text)
        elif file:
            place = self.top / file.group(1)
            if not place.parent.is_dir():
                sys.exit(f"There is no folder for {file.group(1)} yet.")
            place.write_text(text)
        elif self.excerpts_from:
            if not self.is_within(text):
                sys.exit(f"{self.excerpts_from} has no such lines:\n{text}")
        else:
            sys.exit(f"Nobody would know what to do with this block:\n{text}")

    def is_within(self, text):
        """Whether the file has these lines, further in."""
        lines = (pathlib.Path(SOURCE) / self.excerpts_from).read_text().splitlines()
        wanted = text.splitlines()
        return any(textwrap.dedent("\n".join(lines[start:start + len(wanted)])).strip("\n") == text.strip("\n")
                   for start in range(len(lines)))

    def carry_out(self, text):
        for command, shown in re.findall(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", text, re.M):
            print("$", command, flush=True)
            if command.endswith("&"):
                self.open_window(command.rstrip("& "))
                continue
            status = re.search(r"^\(status (\d+)\)\n\Z", shown, re.M)
            shown = shown[:status.start()] if status else shown
            done = subprocess.run(["bash", "-c", f"{command}\nstatus=$?; pwd >&3; exit $status"], cwd=self.folder,
                                  env=self.environment, stdin=subprocess.DEVNULL, capture_output=True, text=True,
                                  pass_fds=(3,))
            if done.returncode != (int(status.group(1)) if status else 0):
                sys.exit(f"It ended with {done.returncode}:\n{done.stdout}{done.stderr}")
            if not fits(shown, done.stdout):
                sys.exit(f"It should print\n{shown}but prints\n{done.stdout}{done.stderr}")
            os.lseek(3, 0, os.SEEK_SET)
            self.folder = pathlib.Path(os.read(3, 4096).decode().rstrip("\n"))
            os.ftruncate(3, 0)
            os.lseek(3, 0, os.SEEK_SET)
            if command.startswith("cmake --build") and self.windows:
                self.wait_until_window_has_it()

    def open_window(self, command):
        window = subprocess.Popen(["bash", "-c", "exec " + command], cwd=self.folder, env=self.environment,
                                  stdin=subprocess.DEVNULL)
        self.windows.append(window)
        wait_for_window(self.environment, "--pid", str(window.pid))

    def wait_until_window_has_it(self):
        """The window copies a bundle that was built anew below its root, and shows it from there."""
        built = (self.folder / "build/Hello.bundle/Root.plist").read_bytes()
        shown = self.folder / "phone/Library/PreferenceBundles/Hello.bundle/Root.plist"
        end = time.monotonic() + DEADLINE
        while shown.read_bytes() != built:
            if time.monotonic() > end:
                sys.exit("The window did not take the new build.")
            time.sleep(0.02)

    def close_windows(self):
        for window in self.windows:
            if window.poll() is not None:
                sys.exit(f"A window ended by itself with {window.returncode}.")
        self.kill_windows()

    def kill_windows(self):
        for window in self.windows:
            window.kill()
            window.wait()


def follow(top, environment):
    reader = Reader(top, environment)
    count = 0
    try:
        for block in blocks():
            reader.read(*block)
            count += 1
        reader.close_windows()
    finally:
        reader.kill_windows()
    if count < 15:
        sys.exit(f"The page has only {count} blocks.")


def main():
    with tempfile.TemporaryDirectory() as folder:
        scratch = pathlib.Path(folder).resolve()
        for name in ("top", "home", "run"):
            (scratch / name).mkdir(mode=0o700)
        if BUILD != "installed":
            subprocess.run([CMAKE, "--install", BUILD, "--prefix", scratch / "vekora"], check=True,
                           stdout=subprocess.DEVNULL)
        kept = {name: value for name, value in os.environ.items() if name in ("ASAN_OPTIONS", "LSAN_OPTIONS")}
        place = os.open(scratch / "place", os.O_RDWR | os.O_CREAT)
        os.dup2(place, 3)
        with screen("1600x1000") as display:
            follow(scratch / "top", kept | {
                "PATH": f"{scratch}/vekora/bin:{os.path.dirname(CMAKE)}:{os.environ['PATH']}", "HOME": f"{scratch}/home",
                "XDG_RUNTIME_DIR": f"{scratch}/run", "DBUS_SESSION_BUS_ADDRESS": "disabled:", "LC_ALL": "C.UTF-8",
                "TZ": "UTC", "CXX": COMPILER, "DISPLAY": display})


main()

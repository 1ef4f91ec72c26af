#!/usr/bin/env python3
"""A pane's author at work, end to end, in a real window: builds that are good, that crash here and there, that can't be
loaded, and good ones again. The process stays the same, and so do page and scroll position, which a click at one place of
the window shows: the row below it, and the build that it is from, are written to the device's files. Nothing waits for
time to pass, but for what is to happen.
Usage: reload-story.py PROGRAM FOLDER-OF-BUILDS"""

import os
import plistlib
import queue
import shutil
import subprocess
import sys
import threading
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "support"))
from desktop import desktop  # noqa: E402

PATIENCE = 300  # Seconds; a step takes a fraction of one, but for the one that ends what is endless.

ROWS = b"""<plist version="1.0"><dict><key>title</key><string>Pane</string><key>items</key><array>
<dict><key>cell</key><string>PSLinkCell</string><key>label</key><string>More</string>
<key>detail</key><string>PaneMorePage</string></dict></array></dict></plist>"""
INFO = b"""<plist version="1.0"><dict><key>CFBundleExecutable</key><string>Pane</string>
<key>NSPrincipalClass</key><string>PanePage</string></dict></plist>"""


class Story:
    def __init__(self, program, builds, scratch, environment):
        self.builds = builds
        self.bundle = os.path.join(scratch, "build", "Pane.bundle")
        self.tapped = os.path.join(scratch, "root/private/var/mobile/Library/Preferences/net.morvane.pane.plist")
        self.environment = environment
        self.words = [program, "--root", os.path.join(scratch, "root"), "--locale", "en_US", "--timezone", "UTC",
                      "--scale", "1", "--bundle", self.bundle]
        self.build("good1")
        self.open()

    def open(self):
        self.window = subprocess.Popen(self.words, env=self.environment, stderr=subprocess.PIPE, text=True)
        self.errors = queue.Queue()
        self.reader = threading.Thread(target=lambda: [self.errors.put(line) for line in self.window.stderr],
                                       daemon=True)
        self.reader.start()

    def build(self, name):
        """As from nothing: the folder has gone, and everything around it."""
        shutil.rmtree(os.path.dirname(self.bundle), ignore_errors=True)
        os.makedirs(self.bundle)
        for file, content in (("Info.plist", INFO), ("Pane.plist", ROWS)):
            with open(os.path.join(self.bundle, file), "wb") as out:
                out.write(content)
        self.link(name)

    def link(self, name, part=1.0):
        """As a linker does it: the old file goes first, and the new one grows."""
        module = os.path.join(self.bundle, "Pane")
        if os.path.exists(module):
            os.remove(module)
        with open(os.path.join(self.builds, name), "rb") as file:
            content = file.read()
        with open(module, "wb") as out:
            out.write(content[:int(len(content) * part)])

    def x(self, *words, check=True):
        return subprocess.run(["xdotool", *words], env=self.environment, check=check, capture_output=True, text=True,
                              timeout=PATIENCE).stdout

    def move_to(self, across, down):
        # After a crash it is another window. One that is just going away is not it.
        deadline = time.monotonic() + PATIENCE
        while time.monotonic() < deadline:
            for number in reversed(self.x("search", "--onlyvisible", "--name", "^Vekora", check=False).split()):
                if subprocess.run(["xdotool", "mousemove", "--window", number, str(across), str(down)],
                                  env=self.environment, capture_output=True).returncode == 0:
                    return
            time.sleep(0.02)
        sys.exit("There is no window.")

    def click(self, across, down):
        self.move_to(across, down)
        self.x("click", "1")

    def expect_row(self, row, build, down=560):
        """Clicks at one place until the row that is to be there says that it was tapped."""
        if os.path.exists(self.tapped):
            os.remove(self.tapped)
        deadline = time.monotonic() + PATIENCE
        found = None
        while time.monotonic() < deadline:
            self.click(150, down)
            time.sleep(0.02)
            try:
                with open(self.tapped, "rb") as file:
                    found = plistlib.load(file)
            except FileNotFoundError:
                continue
            if found == {"row": row, "build": build}:
                print(f"{row} of build {build} is where it is to be.")
                return
        sys.exit(f"Instead of {row} of build {build} there is {found}.")

    def expect_error(self, *parts):
        deadline = time.monotonic() + PATIENCE
        line = None
        while time.monotonic() < deadline:
            try:
                line = self.errors.get(timeout=PATIENCE)
            except queue.Empty:
                break
            if "session bus" in line:
                continue
            if all(part in line for part in parts):
                print(line, end="")
                return
            break
        sys.exit(f"It says {line!r}, which has nothing of {parts}.")

    def tell(self):
        # Opens the long page, whose first row lies at the same place.
        self.expect_row("First", 1, down=121)
        for _ in range(2):
            self.move_to(150, 300)
            self.x("click", "5")
        self.expect_row("Row 2", 1)

        self.link("good2")
        self.expect_row("Row 1", 2)  # It has a row more above.

        self.click(150, 130)
        self.expect_error("Pane.bundle crashed: it used memory at 0x0", "while performing readNothing",
                          "in pane::Wrongdoer::readNothing(), called by pane::PaneMorePage::readNothing()")
        self.link("good1")
        self.expect_row("Row 2", 1)

        self.link("crash_on_loading")
        self.expect_error("Pane.bundle crashed", "while it was loaded", "called by the initialisers of Pane.cpp")
        self.link("missing_symbol")
        self.expect_error("Pane.bundle/Pane has the unresolved symbol pane::functionThatNobodyWrote(int).")
        self.link("good2", 0.5)
        self.expect_error("Pane.bundle/Pane is not a loadable module (it ends after", "bytes, in the middle")
        self.link("crash_on_opening")
        self.expect_error("Pane.bundle crashed", "while its first page was opened")
        self.link("throws_on_opening")
        self.expect_error("threw std::runtime_error (“the cupboard is bare”), which nobody caught")
        self.link("exits_on_opening")
        self.expect_error("Pane.bundle crashed: it ended the program (exit status 7)",
                          "while its first page was opened, in pane::Wrongdoer::leave()")
        self.link("endless_on_loading")
        self.expect_error("Pane.bundle was stopped: it worked for 10 seconds without coming to an end",
                          "while it was loaded, in pane::Wrongdoer::goOnForEver(), called by the initialisers of")
        self.build("good2")
        self.expect_row("Row 1", 2)

        self.click(150, 481)
        self.expect_error("called functions without end until the stack was full", "neverReturn(int)")
        self.click(150, 20)  # The window that has the keys is the one that was clicked.
        self.x("key", "ctrl+r")
        self.expect_row("Row 1", 2)

        self.click(150, 393)
        self.expect_error("threw std::runtime_error (“the cupboard is bare”), which nobody caught",
                          "while performing complain", "in pane::Wrongdoer::complain()")
        self.link("good1")
        self.expect_row("Row 2", 1)

        if self.window.poll() is not None:
            sys.exit(f"The process has ended with {self.window.returncode}.")
        self.x("key", "ctrl+q")
        if self.window.wait(timeout=PATIENCE) != 0:
            sys.exit(f"The window ended with {self.window.returncode}.")


def lose_the_display():
    """The toolkit ends the program then, in the midst of it: that is no crash of anybody's."""
    with desktop("800x900", with_bus=False) as (scratch, environment):
        story = Story(sys.argv[1], sys.argv[2], scratch, environment)
        story.move_to(150, 20)
    status = story.window.wait(timeout=PATIENCE)
    story.reader.join()
    said = "".join(story.errors.queue)
    if status != 1 or "crashed" in said:
        sys.exit(f"Without a display it ended with {status}, and said: {said}")


def main():
    with desktop("800x900", with_bus=False) as (scratch, environment):
        story = Story(sys.argv[1], sys.argv[2], scratch, environment)
        try:
            story.tell()
        finally:
            story.window.kill()
            story.window.wait()
    lose_the_display()


main()

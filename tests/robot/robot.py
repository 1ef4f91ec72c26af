#!/usr/bin/env python3
"""Uses the real window through X events, by chance but reproducibly, for a number of events. The program must stay
alive and answer, say nothing on standard error, keep the preference file whole but for faults that were asked for, and
end with status 0. Usage:
robot.py [--heard] PROGRAM BUNDLE CRASHER EVENTS [SEED]; with --heard a screen reader's stand-in reads along, CRASHER is
a module that crashes when it is loaded, and ROBOT_SEED in the environment counts before SEED."""

import collections
import contextlib
import os
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time

from Xlib import error

from actions import Actions
from hand import Failure, Hand, private_folders
from looks import PreferenceLooks

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support"))
from desktop import screen, session_bus  # noqa: E402

FILE = "private/var/mobile/Library/Preferences/net.morvane.vekora.plist"
# What is said of a bundle that can't be opened or crashes, which the robot sees to from time to time.
OF_BUNDLES = re.compile(r"^There is no (such file|folder|Info\.plist)|^.*Vekora\.bundle(?!.* crashed)")
# The toolkit's word for whoever asks on the accessibility bus about something that has just gone.
OF_LISTENERS = re.compile(r"^qt\.accessibility\.atspi: WARNING .*(Accessible invalid|Could not find accessible)"
                          r"|^QAccessibleTable::child: Invalid index at")
CRASH = re.compile(r"^Vekora\.bundle crashed: ")

Folders = collections.namedtuple("Folders", "good bundle crasher inspector")


class Robot:
    def __init__(self, program, bundle, crasher, events, seed, scratch, environment):
        self.events = events
        self.seed = seed
        self.scratch = scratch
        self.chance = random.Random(seed)
        self.done = collections.deque(maxlen=12)
        self.counts = collections.Counter()
        self.environment = environment
        self.provide_opener()
        good = os.path.join(scratch, "good", "Vekora.bundle")
        shutil.copytree(bundle, good)
        self.folders = Folders(good, os.path.join(scratch, "build", "Vekora.bundle"), crasher,
                               os.path.join(self.environment["XDG_CONFIG_HOME"], "vekora", "inspector.ini"))
        shutil.copytree(good, self.folders.bundle)
        root = os.path.join(scratch, "root")
        self.looks = PreferenceLooks(os.path.join(root, FILE))
        self.command = [program, "--root", root, "--bundle", self.folders.bundle, "--locale", "en_US",
                        "--timezone", "UTC", "--scale", "1"]
        self.errors_path = os.path.join(scratch, "errors")
        self.process = None
        self.actions = None
        self.is_heard = False

    def provide_opener(self):
        """For whoever opens a file in the user's program: there is one, and it does nothing."""
        opener = os.path.join(self.environment["PATH"], "xdg-open")
        with open(opener, "w", encoding="utf-8") as file:
            file.write("#!/bin/sh\nexit 0\n")
        os.chmod(opener, 0o755)

    def run(self, listener=None):
        self.is_heard = listener is not None
        with open(self.errors_path, "wb") as errors:
            self.process = subprocess.Popen(self.command, env=self.environment, cwd=self.scratch, stderr=errors,
                                            stdout=errors)
        try:
            self.hand = Hand(self.environment["DISPLAY"], self.looks.look, self.process)
            self.hand.wait_for_window("Vekora")
            self.actions = Actions(self.hand, self.looks, self.chance, self.folders)
            self.check_that_it_reaches_everything()
            self.use_by_chance()
            if listener:
                self.check_listener(listener)
            self.quit()
            self.check_errors()
        except (Failure, error.XError) as failure:
            self.check_errors()  # What it said itself says more.
            raise failure if isinstance(failure, Failure) else Failure(f"The window has gone: {failure}")
        finally:
            for process in filter(None, (listener, self.process)):
                if process.poll() is None:
                    process.kill()
                    process.wait()

    def check_listener(self, listener):
        try:
            count = int(listener.communicate(timeout=60)[0] or 0)
        except subprocess.TimeoutExpired:
            raise Failure("The screen reader's stand-in does not end.") from None
        if count < 20:
            raise Failure(f"Only {count} objects were heard on the accessibility bus.")
        print(f"{count} objects were heard on the accessibility bus", flush=True)

    # Before chance takes over: whether the controls are where the robot expects them.

    def until(self, claim, sentence):
        end = time.monotonic() + 60
        while not claim():
            self.hand.sync()
            if time.monotonic() > end:
                raise Failure(sentence)

    def check_that_it_reaches_everything(self):
        inspector, hand, looks = self.actions.inspector, self.hand, self.looks
        self.until(lambda: looks.entries, "The preference file was never seeded.")
        inspector.enter("size", "414x736")
        self.until(lambda: hand.size()[1] > 736, "The window does not follow the phone's size.")
        inspector.enter("size", "375x667")
        self.until(lambda: hand.size()[1] < 736, "The window does not follow the phone's size back.")
        before = hand.picture(0, 0, 375, 667)
        inspector.enter("locale", "ar_EG")
        self.until(lambda: hand.picture(0, 0, 375, 667) != before, "Another locale is not to be seen.")
        inspector.step("direction", "Down")
        inspector.step("direction", "Up")
        inspector.enter("locale", "en_US")
        self.until(lambda: hand.picture(0, 0, 375, 667) == before, "The first locale does not look as it did.")
        inspector.step("scale", "Down")
        self.until(lambda: hand.size()[1] > 2 * 667, "The window does not follow the scale.")
        inspector.step("scale", "Up")
        self.until(lambda: hand.size()[1] < 2 * 667, "The window does not follow the scale back.")
        self.check_faults()

    def check_faults(self):
        inspector, hand, looks = self.actions.inspector, self.hand, self.looks
        whole = looks.content
        looks.may_be_halved = True
        inspector.push("half-written")
        self.until(lambda: looks.content == whole[:len(whole) // 2], "The file was not halved.")
        looks.may_vanish = True
        inspector.push("vanish")
        self.until(lambda: looks.content is None, "The file did not vanish.")
        inspector.push("readonly")
        inspector.show(False)
        hand.click(334, 121)
        if looks.content is not None:
            raise Failure("A read-only folder was written.")
        inspector.push("off")
        inspector.show(False)
        hand.click(334, 121)
        self.until(lambda: looks.entries, "The file was not written when it could be again.")

    # By chance.

    def use_by_chance(self):
        table = self.actions.table()
        weights = [weight for weight, _, _ in table]
        begin = self.hand.events
        start = time.monotonic()
        memory = []
        strict = strict_open = 0  # Actions that must leave a whole file, and those of them beside the inspector.
        while self.hand.events - begin < self.events:
            if len(memory) * self.events <= 10 * (self.hand.events - begin):
                memory.append(self.memory())
            _, action, blame = self.chance.choices(table, weights)[0]
            self.done.append(action.__name__)
            self.counts[action.__name__] += 1
            may_vanish, may_be_halved = self.actions.faults_of(blame)
            self.looks.expect_no_fault()
            self.looks.may_vanish |= may_vanish
            self.looks.may_be_halved |= may_be_halved
            strict += not may_vanish
            strict_open += not may_vanish and self.actions.inspector.is_open()
            action()
            self.hand.put_in_order()
        seconds = time.monotonic() - start
        rate = (self.hand.events - begin) / max(seconds, 1e-9)
        looks = self.looks
        print(f"{self.hand.events - begin} events, {rate:.0f} a second; {looks.count} looks at the file, "
              f"{looks.versions} versions, {looks.missing} times gone, {looks.halved} times half", flush=True)
        print(f"It had to stay whole in {strict} of {sum(self.counts.values())} actions, {strict_open} of them with "
              "the inspector open", flush=True)
        memory.append(self.memory())
        print("Resident memory in MiB: " + " ".join(f"{kib / 1024:.0f}" for kib in memory), flush=True)
        print(", ".join(f"{name} {count}" for name, count in sorted(self.counts.items())), flush=True)

    def memory(self):
        with open(f"/proc/{self.process.pid}/status", encoding="utf-8") as file:
            return int(re.search(r"VmRSS:\s+(\d+)", file.read()).group(1))

    def quit(self):
        self.hand.put_in_order()
        self.hand.key_without_answer("q", "Control_L")
        try:
            status = self.process.wait(timeout=300)
        except subprocess.TimeoutExpired:
            raise Failure("The window does not close by Ctrl+Q.") from None
        if status != 0:
            raise Failure(f"The program ended with {status}.")

    def check_errors(self):
        with open(self.errors_path, encoding="utf-8", errors="replace") as file:
            said = file.read().splitlines()
        crashes = sum(bool(CRASH.match(line)) for line in said)
        if crashes > self.actions.crashes if self.actions else crashes:
            raise Failure("A bundle crashed that should not:\n" + "\n".join(filter(CRASH.match, said)))
        expected = [OF_BUNDLES, CRASH] + [OF_LISTENERS] * self.is_heard
        lines = [line for line in said if not any(pattern.match(line) for pattern in expected)]
        if lines:
            raise Failure("The program said:\n" + "\n".join(lines[:200]))


def start_listener(environment):
    return subprocess.Popen([sys.executable, os.path.join(os.path.dirname(os.path.abspath(__file__)), "listener.py")],
                            env=environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                            text=True)


def main():
    words = sys.argv[1:]
    is_heard = words[0] == "--heard"
    words = words[is_heard:]
    program, bundle, crasher = (os.path.abspath(path) for path in words[:3])
    events = int(words[3])
    given = os.environ.get("ROBOT_SEED") or (words[4] if len(words) > 4 else "")
    seed = int(given) if given else random.SystemRandom().randrange(10**6)
    print(f"Seed {seed}", flush=True)
    with tempfile.TemporaryDirectory() as scratch, contextlib.ExitStack() as servers:
        environment = private_folders(scratch)
        environment["DISPLAY"] = servers.enter_context(screen("2200x2300"))
        environment["DBUS_SESSION_BUS_ADDRESS"] = servers.enter_context(session_bus(environment))
        robot = None
        try:
            robot = Robot(program, bundle, crasher, events, seed, scratch, environment)
            if is_heard:
                robot.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
                robot.run(listener=start_listener(environment))
            else:
                robot.run()
        except Failure as failure:
            done = " ".join(robot.done) if robot else ""
            sys.exit(f"{failure}\nSeed {seed}, after {robot.hand.events if robot else 0} events; last: {done}")


main()

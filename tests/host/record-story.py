#!/usr/bin/env python3
"""A recording, end to end: a real window is used through X events while it is recorded, and its replay without a window
comes to the same preference file, the same views and the same picture, to the bit. Nothing waits for time to pass: each
step is over when the recording tells of it. Usage: record-story.py PROGRAM"""

import glob
import hashlib
import json
import os
import re
import shlex
import subprocess
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support"))
from desktop import desktop, wait_for_window  # noqa: E402

PREFERENCES = "private/var/mobile/Library/Preferences/net.morvane.vekora.plist"
LONGEST_WAIT = 60  # Seconds; only a failure waits that long.


def start(*words, **more):
    return subprocess.Popen(words, stdout=subprocess.PIPE, text=True, **more)


def digest_of(path):
    with open(path, "rb") as file:
        return hashlib.sha256(file.read()).hexdigest()


def story(program, scratch, environment):
    options = ["--locale", "en_US", "--timezone", "UTC", "--scale", "1", "--now", "2014-01-05T10:17:42.6Z",
               "--size", "375x500"]
    recording = os.path.join(scratch, "recording.txt")
    root = os.path.join(scratch, "recorded")
    window = start(program, "--root", root, "--record", recording, *options, env=environment)

    def x(*words):
        return subprocess.run(["xdotool", *words], env=environment, check=True, capture_output=True, text=True).stdout

    def script():
        with open(recording, encoding="utf-8") as file:
            return "".join(line for line in file if not line.startswith("#"))

    def expect(pattern):
        end = time.monotonic() + LONGEST_WAIT
        while not re.search(pattern, script()):
            if time.monotonic() > end or window.poll() is not None:
                sys.exit(f"The recording has nothing of {pattern!r}:\n{script()}")
            time.sleep(0.01)

    number = wait_for_window(environment, "--name", "^Vekora")

    def click(across, down):
        x("mousemove", "--window", number, str(across), str(down), "click", "1")

    def drag(start, end, steps):
        x("mousemove", "--window", number, str(start[0]), str(start[1]), "mousedown", "1")
        for step in range(1, steps + 1):
            x("mousemove", "--window", number, *(str(a + (b - a) * step // steps) for a, b in zip(start, end)))
        x("mouseup", "1")

    try:
        click(334, 121)
        expect(r'tap "Enabled"\n$')
        click(120, 209)
        expect(r'tap "Vekora Now"\n$')
        x("mousemove", "--window", number, "187", "300", "click", "5")
        expect(r"scroll [\d.]+\n$")
        drag((187, 400), (187, 250), 6)
        click(187, 5)  # On the bar: what glides stands still.
        expect(r"scroll [\d.]+\n(tap|drag|press) .*\n$")
        click(187, 442)
        expect(r'tap "Button Text:"\n$')
        x("key", "ctrl+a")
        x("type", "Hi $5")
        x("key", "shift+Left", "ctrl+z", "Return")
        expect(r'key Return\n$')
        x("mousemove", "--window", number, "187", "300", *["click", "4"] * 6)
        expect(r"scroll -92\n$")
        click(187, 490)
        expect(r"tap 187 490\n$")
        drag((100, 300), (175, 325), 10)
        expect(r"(drag 100 300 175 325 10|release 175 325)\n$")
        click(187, 120)
        expect(r'tap "#[0-9A-F]{6}"\n$')
        click(130, 320)
        x("key", "Escape")
        x("key", "Escape")
        expect(r"back\n$")
        print(script())
        x("key", "ctrl+q")
        if window.wait() != 0:
            sys.exit(f"The window ended with {window.returncode}.")
    finally:
        window.kill()

    with open(recording, encoding="utf-8") as file:
        whole = file.read()
    # As the recording says, word for word: it makes a root of its own.
    command = whole.splitlines()[1].removeprefix("# ./run")
    replays = os.path.join(scratch, "replays")
    os.mkdir(replays)
    replay = subprocess.run(shlex.quote(program) + command, shell=True, env=dict(environment, TMPDIR=replays),
                            capture_output=True, text=True)
    if replay.returncode != 0:
        sys.exit(f"The replay failed: {replay.stdout[-500:]}{replay.stderr}")
    came_to = json.loads(replay.stdout.splitlines()[-1])
    for part in ("prefs", "tree", "picture"):
        if not came_to[part] or came_to[part] not in whole:
            sys.exit(f"The replay came to another {part} than the window:\n{whole}{replay.stdout}")
    files = [os.path.join(root, PREFERENCES), *glob.glob(os.path.join(replays, "*", PREFERENCES))]
    if len(files) != 2 or digest_of(files[0]) != digest_of(files[1]):
        sys.exit("The preference files differ.")


def main():
    with desktop("800x900", with_bus=False) as (scratch, environment):
        story(sys.argv[1], scratch, environment)


main()

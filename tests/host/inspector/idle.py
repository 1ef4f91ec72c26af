#!/usr/bin/env python3
"""A window that nobody touches uses no processor time: the real window is opened on a screen of its own, with the
inspector closed and at each of its pages, and used a little. When it has come to rest, all its threads together must
not wake up once in two seconds, as the system counts it.
Usage: idle.py PROGRAM"""

import os
import re
import subprocess
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "support"))
from desktop import desktop, wait_for_window  # noqa: E402

PAGES = ["", "file", "timeline", "views", "environment"]
OBSERVED = 2  # Seconds: what is measured, not a wait for anything.
LOOKS = 3  # What a busy screen or bus still sends wakes it up once; a timer each time.
QUIET = 0.5  # Seconds without a wake-up that count as rest.
DEADLINE = 60  # Seconds to come to rest in.


def start(*words, **more):
    return subprocess.Popen(words, stdout=subprocess.PIPE, text=True, **more)


def wake_ups(process):
    """How often each thread has been given a processor so far, by number and name."""
    counts = {}
    folder = f"/proc/{process.pid}/task"
    for task in os.listdir(folder):
        with open(f"{folder}/{task}/status", encoding="utf-8") as file:
            status = file.read()
        name = re.search(r"^Name:\s*(.*)$", status, re.M).group(1)
        counts[f"{task} {name}"] = sum(map(int, re.findall(r"ctxt_switches:\s*(\d+)", status)))
    return counts


def come_to_rest(process):
    deadline = time.monotonic() + DEADLINE
    before = wake_ups(process)
    while time.monotonic() < deadline:
        time.sleep(QUIET)
        now = wake_ups(process)
        if now == before:
            return
        before = now
    sys.exit(f"The window does not come to rest: {before}")


def check(program, page, scratch, environment):
    configuration = os.path.join(scratch, "config " + page)
    os.makedirs(os.path.join(configuration, "vekora"))
    if page:
        with open(os.path.join(configuration, "vekora", "inspector.ini"), "w", encoding="utf-8") as file:
            file.write(f"[General]\nshown=true\nwidth=620\npage={page}\n")
    environment = dict(environment, XDG_CONFIG_HOME=configuration)
    window = start(program, "--root", os.path.join(scratch, "root"), "--locale", "en_US", "--timezone", "UTC",
                   "--scale", "1", env=environment)

    def x(*words):
        return subprocess.run(["xdotool", *words], env=environment, check=True, capture_output=True, text=True).stdout

    try:
        number = wait_for_window(environment, "--name", "^Vekora")
        come_to_rest(window)
        size = x("getwindowgeometry", number)
        if (int(re.search(r"Geometry: (\d+)x", size).group(1)) > 600) != bool(page):
            sys.exit(f"With the inspector at {page!r} the window has an odd size: {size}")
        # Switched on, the page shows what was written, and the inspector what happened.
        untouched = wake_ups(window)
        x("mousemove", "--window", number, "334", "121", "click", "1")
        deadline = time.monotonic() + DEADLINE
        while wake_ups(window) == untouched:
            if time.monotonic() > deadline:
                sys.exit("The click never arrived.")
            time.sleep(0.01)
        for _ in range(LOOKS):
            come_to_rest(window)
            before = wake_ups(window)
            time.sleep(OBSERVED)
            after = wake_ups(window)
            if after == before:
                break
        else:
            changed = {name: after.get(name, 0) - before.get(name, 0) for name in {*before, *after}
                       if after.get(name) != before.get(name)}
            sys.exit(f"With the inspector {'at ' + page if page else 'closed'} it woke up: {changed}")
        print(f"{page or 'closed'}: {len(after)} threads, no wake-up in {OBSERVED} seconds")
    finally:
        window.kill()
        window.wait()


def main():
    with desktop("1200x900") as (scratch, environment):
        for page in PAGES:
            check(sys.argv[1], page, scratch, environment)


main()

#!/usr/bin/env python3
"""One edit, end to end, in a real window: a pane is used through X events while an observer in another process says what
it hears on the session bus. Nothing waits for time to pass: each step is over when the observer has told of it.
Usage: window-story.py PROGRAM"""

import os
import re
import subprocess
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support"))
from desktop import desktop, wait_for_window  # noqa: E402


def start(*words, **more):
    return subprocess.Popen(words, stdout=subprocess.PIPE, text=True, **more)


def expect(observer, pattern):
    line = observer.stdout.readline()
    if not re.search(pattern, line):
        sys.exit(f"The observer told of {line!r}, which has nothing of {pattern!r}.")
    print(line, end="")


def story(program, scratch, environment):
    root = os.path.join(scratch, "root")
    observer = start(program, "observe", "--root", root, env=environment, stderr=subprocess.PIPE)
    if not observer.stderr.readline().startswith("Listening"):
        sys.exit("The observer does not listen.")
    window = start(program, "--root", root, "--locale", "en_US", "--timezone", "UTC", "--scale", "1", env=environment)

    def x(*words):
        return subprocess.run(["xdotool", *words], env=environment, check=True, capture_output=True, text=True).stdout

    number = wait_for_window(environment, "--name", "^Vekora")

    def click(across, down):
        x("mousemove", "--window", number, str(across), str(down), "click", "1")

    try:
        click(334, 121)
        expect(observer, r'"enabled": absent -> true')
        click(187, 209)
        expect(observer, r'"disarmedUntil": absent -> "')
        click(187, 490)
        x("mousemove", "--window", number, "100", "300", "mousedown", "1")
        for step in range(1, 11):
            x("mousemove", "--window", number, str(100 + 15 * step), str(300 + 5 * step))
        x("mouseup", "1")
        expect(observer, r'"buttonColor": "#FF0000" -> "#[0-9A-F]{6}"$')
        x("key", "Escape")
        click(187, 534)
        x("key", "ctrl+a")
        x("type", "Hi there")
        x("key", "Return")
        expect(observer, r'"buttonText": "Vekora" -> "Hi there"$')
        x("key", "ctrl+q")
        if window.wait() != 0:
            sys.exit(f"The window ended with {window.returncode}.")
        observer.terminate()
        if observer.wait() != 0:
            sys.exit(f"The observer ended with {observer.returncode}.")
    finally:
        for process in (window, observer):
            process.kill()


def main():
    with desktop("800x900") as (scratch, environment):
        story(sys.argv[1], scratch, environment)


main()

#!/usr/bin/env python3
"""A sheet while it is made: its bar on a terminal, and what is left when it is interrupted. Nothing waits for time to
pass. Usage: sheet-story.py PROGRAM HARM_BUNDLE"""

import os
import pty
import re
import signal
import subprocess
import sys
import tempfile
import time

DEADLINE = 120  # Seconds; only a failure waits that long.
SMALL = ["--phones", "320x480", "--scales", "1", "--locales", "en_US"]


def expect(condition, *what):
    if not condition:
        sys.exit(" ".join(str(word) for word in what))


def wait_until(condition, what):
    end = time.monotonic() + DEADLINE
    while not condition():
        expect(time.monotonic() < end, "This never came:", what)
        time.sleep(0.02)


def status_of(process):
    """State and parent; none of a process that is not there."""
    try:
        with open(f"/proc/{process}/stat", encoding="utf-8") as file:
            state, parent = file.read().rsplit(")", 1)[1].split()[:2]
        return state, int(parent)
    except (FileNotFoundError, ProcessLookupError):
        return None, None


def children_of(parent):
    processes = [int(name) for name in os.listdir("/proc") if name.isdigit()]
    return [process for process in processes if status_of(process)[1] == parent]


def has_ended(process):
    return status_of(process)[0] in (None, "Z")


def on_terminal(words, environment):
    """What it writes to a terminal that is its standard error, and what to its standard output."""
    terminal, end = pty.openpty()
    with subprocess.Popen(words, stdout=subprocess.PIPE, stderr=end, env=environment) as process:
        os.close(end)
        seen = b""
        try:
            while piece := os.read(terminal, 65536):
                seen += piece
        except OSError:
            pass  # Nobody has its other end open any more.
        os.close(terminal)
        output = process.stdout.read()
    expect(process.returncode == 0, words, "ended with", process.returncode, seen)
    return seen.decode(), output.decode()


def percents(seen, deed):
    return [int(number) for number in re.findall(deed + r" \[[# ]{40}\] +(\d+) %", seen)]


def bar(program, folder, environment):
    words = [program, "sheet", os.path.join(folder, "sheet.html"), *SMALL]
    seen, output = on_terminal(words, environment)
    shown = percents(seen, "Rendering")
    expect(shown == sorted(set(shown)) and shown[0] == 0 and shown[-1] == 100, "The bar went", shown)
    expect(seen.endswith("\r\x1b[K") and "\n" not in seen, "The bar is still there:", repr(seen))
    expect(output == "13 pictures.\n", "The output is", output)

    seen, output = on_terminal(words, dict(environment, TERM="dumb"))
    expect(seen == "", "A dumb terminal was shown", repr(seen))
    ran = subprocess.run(words, env=environment, capture_output=True, check=True)
    expect(ran.stderr == b"", "No terminal was shown", ran.stderr)


def comparison(program, folder, environment):
    old, new = (os.path.join(folder, name) for name in ("old.html", "new.html"))
    subprocess.run([program, "sheet", old, *SMALL], env=environment, capture_output=True, check=True)
    with open(old, encoding="utf-8") as file:
        text = file.read()
    # Every page as if it had looked like the first.
    entries = re.findall(r'"([0-9a-f]{32})",320,\d+\]', text)
    for mark in set(entries[1:]) - {entries[0]}:
        text = text.replace(f'"{mark}",320,', f'"{entries[0]}",320,')
    with open(old, "w", encoding="utf-8") as file:
        file.write(text)
    seen, output = on_terminal([program, "sheet", new, "--against", old, *SMALL], environment)
    shown = percents(seen, "Comparing")
    expect(shown == sorted(shown) and shown[0] == 0 and shown[-1] == 100, "The second bar went", shown)
    expect("1 same, 12 changed" in output, "The output is", output)


def start_hanging(program, bundle, folder, environment, **more):
    """A sheet that never ends, once its processes are there: one for each phone, as long as it hangs."""
    out = os.path.join(folder, "sheet.html")
    with open(out, "w", encoding="utf-8") as file:
        file.write("as it was")
    # pylint: disable-next=consider-using-with
    process = subprocess.Popen([program, "sheet", out, "--bundle", bundle, *SMALL, "--phones", "320x480,320x568",
                                "--patience", "3600"],
                               env=dict(environment, HARM="hang"), stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                               start_new_session=True, **more)
    wait_until(lambda: len(children_of(process.pid)) >= 2 or process.poll() is not None, "the processes")
    expect(process.poll() is None, "The sheet ended before it was to.")
    return process, children_of(process.pid)


def interruption(program, bundle, environment, send, expected, **more):
    with tempfile.TemporaryDirectory() as folder, tempfile.TemporaryDirectory() as temporary:
        process, children = start_hanging(program, bundle, folder, dict(environment, TMPDIR=temporary), **more)
        send(process.pid)
        output, errors = process.communicate(timeout=DEADLINE)
        expect(process.returncode == -expected, "Signal", expected, "ended it with", process.returncode)
        expect(errors == b"Interrupted: no sheet was written.\n" and output == b"", "It said", errors, output)
        expect(all(has_ended(child) for child in children), "Children are left.")
        expect(os.listdir(folder) == ["sheet.html"], "The folder holds", os.listdir(folder))
        with open(os.path.join(folder, "sheet.html"), encoding="utf-8") as file:
            expect(file.read() == "as it was", "The old sheet is gone.")
        expect(os.listdir(temporary) == [], "What was temporary is left:", os.listdir(temporary))


def interruptions(program, bundle, environment):
    # As Ctrl-C in a terminal: everybody gets it.
    interruption(program, bundle, environment, lambda process: os.killpg(process, signal.SIGINT), signal.SIGINT)
    for one in (signal.SIGTERM, signal.SIGHUP):
        interruption(program, bundle, environment, lambda process, one=one: os.kill(process, one), one)

    def ignored_then_not(process):
        os.kill(process, signal.SIGINT)
        os.kill(process, signal.SIGTERM)
    # Behind a shell's "&" Ctrl-C is not meant for it.
    interruption(program, bundle, environment, ignored_then_not, signal.SIGTERM,
                 preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_IGN))


def sudden_death(program, bundle, environment):
    with tempfile.TemporaryDirectory() as folder:
        process, children = start_hanging(program, bundle, folder, dict(environment, TMPDIR=folder))
        process.kill()
        process.communicate(timeout=DEADLINE)
        wait_until(lambda: all(has_ended(child) for child in children), "the end of the processes")
        with open(os.path.join(folder, "sheet.html"), encoding="utf-8") as file:
            expect(file.read() == "as it was", "The old sheet is gone.")


def main():
    program, bundle = sys.argv[1:]
    with tempfile.TemporaryDirectory() as home:
        environment = dict(os.environ, HOME=home, TERM="xterm", DBUS_SESSION_BUS_ADDRESS="disabled:", DISPLAY=":nowhere")
        bar(program, home, environment)
        comparison(program, home, environment)
        interruptions(program, bundle, environment)
        sudden_death(program, bundle, environment)


if __name__ == "__main__":
    main()

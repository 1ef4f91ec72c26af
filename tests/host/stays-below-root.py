#!/usr/bin/env python3
"""Runs a script of every kind of change under a tracer, and fails when anything outside the root is made, written,
renamed, removed or otherwise changed. Usage: stays-below-root.py PROGRAM"""

import os
import re
import subprocess
import sys
import tempfile

SCRIPT = """
rows
tap "Enabled"
tap "Vekora Now"
row 0 1
tap "8 Hours"
back
row 1 1
clear
type "Snooze"
key Return
tap "Button Color"
drag 100 300 250 350
tap 187 119
paste "#00ff80"
answer "Save"
back
tap "Let Alarms Ring Again"
prefs
"""

CALLS = ("open,openat,openat2,creat,mkdir,mkdirat,rename,renameat,renameat2,unlink,unlinkat,rmdir,link,linkat,symlink,"
         "symlinkat,chmod,fchmodat,chown,lchown,fchownat,truncate,mknod,mknodat,utimensat,setxattr,lsetxattr,chdir")
# Devices, and what the kernel shows of the process itself.
HARMLESS = re.compile(r"^(/dev/(null|tty|shm/)|/proc/|/sys/)")


def traced_changes(log):
    """Paths that a successful call changes. Descriptors are shown with their paths, so relative names can be joined."""
    for line in open(log, errors="replace"):
        call = re.match(r"^\d+\s+(\w+)\((.*)\)\s+=\s+(-?\d+)", line)
        if not call or int(call.group(3)) < 0:
            continue
        name, arguments = call.group(1), call.group(2)
        if name in ("open", "openat", "openat2") and not re.search(r"O_(WRONLY|RDWR|CREAT|TRUNC|TMPFILE)", arguments):
            continue
        if name == "chdir":
            continue
        folder = None
        # A link's first argument is only the text that it holds.
        skip = 1 if name.startswith("symlink") else 0
        for part in re.finditer(r'(\d+|AT_FDCWD)<([^>]*)>|"([^"]*)"', arguments):
            if part.group(2) is not None:
                folder = part.group(2)
            elif skip:
                skip -= 1
            else:
                yield name, os.path.normpath(os.path.join(folder or os.getcwd(), part.group(3)))


def main():
    program = sys.argv[1]
    with tempfile.TemporaryDirectory() as scratch:
        scratch = os.path.realpath(scratch)
        root, home, log = (os.path.join(scratch, name) for name in ("root", "home", "log"))
        os.mkdir(home)
        environment = {"PATH": os.environ["PATH"], "HOME": home, "DBUS_SESSION_BUS_ADDRESS": "disabled:",
                       # The leak checker can't work under a tracer.
                       "ASAN_OPTIONS": "detect_leaks=0"}
        result = subprocess.run(
            ["strace", "-f", "-y", "-s", "4096", "-e", "trace=" + CALLS, "-o", log, program, "drive", "--root", root,
             "--locale", "en_US", "--timezone", "UTC", "--toggle", "--statusbar"],
            input=SCRIPT, text=True, capture_output=True, env=environment)
        if result.returncode != 0:
            sys.exit(f"The script failed with {result.returncode}:\n{result.stdout[-2000:]}{result.stderr[-2000:]}")
        changes = list(traced_changes(log))
        below = [path for _, path in changes if path == root or path.startswith(root + "/")]
        outside = [(name, path) for name, path in changes
                   if not (path == root or path.startswith(root + "/")) and not HARMLESS.match(path)]
        if len(below) < 20:
            sys.exit("The tracer saw next to nothing; the test would prove nothing.")
        if outside:
            sys.exit("Outside the root:\n" + "\n".join(f"  {name} {path}" for name, path in outside))
        print(f"{len(below)} changes, all below the root.")


main()

#!/usr/bin/env python3
"""Makes the Debian package of a build and looks into it: what it needs, what it holds, and whether that runs.
Usage: debian-package.py CPACK BUILD"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

CPACK, BUILD = sys.argv[1:]


def run(*words, **more):
    done = subprocess.run([str(word) for word in words], capture_output=True, text=True, **more)
    if done.returncode != 0:
        sys.exit(f"{words} ended with {done.returncode}:\n{done.stdout}{done.stderr}")
    return done.stdout


def expect(is_so, text):
    if not is_so:
        sys.exit(text)


def check_fields(package):
    fields = dict(re.findall(r"^(\S+): (.*)$", run("dpkg-deb", "-f", package), re.M))
    expect(fields["Package"] == "vekora-host" and fields["Section"] == "devel", f"It is {fields}")
    for needed in ("fonts-inter", "libc6", "libicu72", "libplist3", "libqt6gui6", "libqt6widgets6", "libstdc++6"):
        expect(re.search(rf"(^|, ){re.escape(needed)}($|,| )", fields["Depends"]), f"It does not depend on {needed}.")
    expect(re.search(r".+ <.+@.+>", fields["Maintainer"]), "Nobody maintains it.")
    expect("postinst" not in run("dpkg-deb", "-I", package), "It does something when it is installed.")


def check_contents(package):
    for line in run("dpkg-deb", "-c", package).splitlines():
        mode, owner, *_, path = line.split(maxsplit=5)
        expect(owner == "root/root", f"{path} is {owner}'s.")
        expect("w" not in mode[4:], f"{path} can be written by others: {mode}")
        expect(path.startswith("./usr/") or path in ("./", "./usr/"), f"It holds {path}.")


def check_program(tree, scratch):
    environment = {"PATH": os.environ["PATH"], "HOME": str(scratch), "XDG_RUNTIME_DIR": str(scratch),
                   "DBUS_SESSION_BUS_ADDRESS": "disabled:"} | {
                       name: os.environ[name] for name in ("ASAN_OPTIONS", "LSAN_OPTIONS") if name in os.environ}
    program = tree / "usr/bin/vekora-host"
    expect(run(program, "--version", env=environment).startswith("vekora "), "It does not know its version.")
    for bundle in ("Vekora", "Gallery"):
        run(program, "lint", tree / f"usr/lib/vekora/{bundle}.bundle", env=environment)
    answer = run(program, "drive", "--root", scratch / "root", input="page\n", env=environment)
    expect('"class":"VekoraListController"' in answer, f"The pane answers {answer}")


def main():
    with tempfile.TemporaryDirectory() as folder:
        scratch = pathlib.Path(folder)
        # A folder that others may enter, as the package's folders are made with what is allowed here.
        os.umask(0o022)
        run(CPACK, "--config", f"{BUILD}/CPackConfig.cmake", "-B", scratch / "package")
        packages = list((scratch / "package").glob("*.deb"))
        expect(len(packages) == 1, f"There are {len(packages)} packages.")
        check_fields(packages[0])
        check_contents(packages[0])
        run("dpkg-deb", "-x", packages[0], scratch / "tree")
        check_program(scratch / "tree", scratch)


main()

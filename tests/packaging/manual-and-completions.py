#!/usr/bin/env python3
"""Compares what help, the man page and the shells' completions know of commands and options.
Usage: manual-and-completions.py PROGRAM FOLDER"""

import pathlib
import re
import shutil
import subprocess
import sys

PROGRAM, FOLDER = sys.argv[1], pathlib.Path(sys.argv[2])


def output(*words, **more):
    return subprocess.run(words, check=True, capture_output=True, text=True, **more).stdout


def section(text, title):
    return re.search(rf"^{title}\n((?:  .*\n)+)", text, re.M).group(1)


def names(lines, pattern):
    return set(re.findall(rf"^  ({pattern})", lines, re.M))


def expect(what, found, wanted):
    if found != wanted:
        sys.exit(f"{what}: superfluous are {sorted(found - wanted)}, missing are {sorted(wanted - found)}.")


def bash(*words):
    """What bash offers for the last word."""
    script = 'source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _vekora_host; printf "%s\\n" "${COMPREPLY[@]}"'
    return set(output("bash", "-uc", script, "bash", str(FOLDER / "vekora-host.bash"), "vekora-host", *words).split())


def main():
    help_text = output(PROGRAM, "--help")
    commands = names(section(help_text, "Commands"), r"[a-z]+")
    options = names(section(help_text, "Options"), r"--[a-z-]+")
    if not {"drive", "lint", "observe"} <= commands or not {"--root", "--help", "--version"} <= options:
        sys.exit("The help lacks commands or options.")
    of_command = {name: names(section(output(PROGRAM, "help", name), "Options"), r"--[a-z-]+") for name in commands}
    expect("Options of any command", set().union(*of_command.values()), options)

    page = (FOLDER / "vekora-host.1").read_text()
    listed = re.findall(r"^\.TP\n\\fB(.*?)\\fR", page, re.M)
    plain = {name.replace("\\-", "-") for name in listed}
    expect("Options of the man page", {name for name in plain if re.fullmatch(r"--[a-z-]+", name)}, options)
    expect("Commands of the man page", {name for name in plain if re.fullmatch(r"[a-z]+", name)}, commands)
    if shutil.which("man"):
        warnings = subprocess.run(["man", "--warnings", "-l", str(FOLDER / "vekora-host.1")], capture_output=True,
                                  text=True, env={"PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8", "MANWIDTH": "100"})
        if warnings.returncode != 0 or warnings.stderr:
            sys.exit(f"The man page: {warnings.stderr}")

    expect("Commands of bash", bash(""), commands)
    expect("Commands of bash that begin so", bash("l"), {name for name in commands if name.startswith("l")})
    for name in commands:
        expect(f"Options of bash after {name}", bash(name, "-"), of_command[name])
    expect("Values of bash", bash("drive", "--scale", ""), {"1", "2", "3"})
    expect("Values of bash after =", bash("drive", "--scale", "=", "2"), {"2"})
    expect("Topics of bash", bash("help", ""), commands)
    if "vekora-host" not in bash("--root", str(FOLDER.parent)[:-1]) and str(FOLDER.parent) not in bash(
            "--root", str(FOLDER.parent)[:-1]):
        sys.exit("bash offers no folder.")

    zsh = (FOLDER / "_vekora-host").read_text()
    expect("Options of zsh", set(re.findall(r"^ +'(--[a-z-]+)=?\[", zsh, re.M)), options)
    expect("Commands of zsh", set(re.findall(r"^([a-z]+)\)$", zsh, re.M)), commands)
    fish = (FOLDER / "vekora-host.fish").read_text()
    expect("Options of fish", {"--" + name for name in re.findall(r" -l ([a-z-]+)", fish)}, options)
    expect("Commands of fish", set(re.findall(r" -a ([a-z]+) -d", fish)), commands)
    for shell, file in (("zsh", "_vekora-host"), ("fish", "vekora-host.fish")):
        if shutil.which(shell):
            output(shell, "-n", str(FOLDER / file))


main()

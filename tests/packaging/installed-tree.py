#!/usr/bin/env python3
"""Installs the build into a folder, moves that elsewhere, and uses the program there: nothing of the build's or the
sources' folders may be looked at. Usage: installed-tree.py CMAKE BUILD SOURCE COMPILER"""

import gzip
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

CMAKE, BUILD, SOURCE, COMPILER = sys.argv[1:]


def fail(text):
    sys.exit(text)


def run(*words, **more):
    return subprocess.run([str(word) for word in words], check=True, capture_output=True, text=True, **more)


def traced(log, environment, *words, status=0, **more):
    """Runs the program under a tracer, and looks which files it asked for."""
    done = subprocess.run(["strace", "-f", "-y", "-s", "4096", "-e", "trace=%file", "-o", str(log), *map(str, words)],
                          env=environment, capture_output=True, text=True, **more)
    if done.returncode != status:
        fail(f"{words} ended with {done.returncode}: {done.stderr}")
    for line in log.read_text(errors="replace").splitlines():
        for path in re.findall(r'"(/[^"]*)"', line):
            if path.startswith((BUILD + "/", SOURCE + "/")):
                fail(f"{words} looks into the build or the sources: {line}")
    return done.stdout


def check_program(prefix, scratch, environment):
    program = prefix / "bin/vekora-host"
    version = run(program, "--version", env=environment).stdout
    if not re.fullmatch(r"vekora [0-9.]+\n", version):
        fail(f"It calls itself {version!r}.")
    options = ("--root", scratch / "root", "--locale", "en_US", "--timezone", "UTC", "--toggle")
    script = 'tap "Enabled"\nprefs\ntap "Button Color"\npage\n'
    output = traced(scratch / "drive.log", environment, program, "drive", *options, input=script)
    answers = [json.loads(line) for line in output.splitlines()]
    if len(answers) != 4 or answers[1]["prefs"]["enabled"] is not True:
        fail(f"The installed pane answers {output}")
    if answers[3]["class"] != "VekoraColorSelectorController":
        fail(f"The colour page is {answers[3]}")
    gallery = prefix / "lib/vekora/Gallery.bundle"
    output = traced(scratch / "gallery.log", environment, program, "drive", *options, "--bundle", gallery, input="page\n")
    if json.loads(output)["title"] != "Gallery":
        fail(f"The gallery answers {output}")
    for bundle in ("Vekora", "Gallery"):
        output = traced(scratch / "lint.log", environment, program, "lint", prefix / f"lib/vekora/{bundle}.bundle")
        if ": no findings in " not in output:
            fail(output)


def check_run_paths(prefix):
    count = 0
    for file in sorted(prefix.rglob("*")):
        if not file.is_file() or file.read_bytes()[:4] != b"\x7fELF":
            continue
        count += 1
        paths = re.findall(r"(?:RUNPATH|RPATH).*\[(.*)\]", run("readelf", "-d", file).stdout)
        wanted = ["$ORIGIN/../lib/vekora/lib"] if file.name == "vekora-host" else []
        if paths != wanted:
            fail(f"{file} looks for libraries in {paths}")
    if count != 5:
        fail(f"There are {count} programs, libraries and modules.")


def check_headers(prefix, scratch):
    """They name nothing that is not there, and compile without the sources and the desktop's toolkit."""
    folder = prefix / "include/vekora"
    headers = sorted(file.relative_to(folder) for file in folder.rglob("*.h"))
    if len(headers) < 40:
        fail(f"There are only {len(headers)} headers.")
    for header in headers:
        text = (folder / header).read_text()
        for name in re.findall(r'#include "([^"]+)"', text):
            if not (folder / header).parent.joinpath(name).is_file() and not (folder / name).is_file():
                fail(f"{header} includes {name}, which is not installed.")
        if re.search(r"#include [<\"]Q|\bQ[A-Z][a-z]+[A-Z]?\w*\b(?!\()", re.sub(r"//.*", "", text)):
            fail(f"{header} names a type of the toolkit.")
    source = scratch / "all.cpp"
    source.write_text("".join(f'#include "{header}"\n' for header in headers))
    run(COMPILER, "-std=c++20", "-fsyntax-only", "-Wall", "-Wextra", "-Wpedantic", "-Werror", "-I", folder, source)


def check_desktop(prefix):
    file = prefix / "share/applications/vekora-host.desktop"
    if shutil.which("desktop-file-validate"):
        run("desktop-file-validate", file)
    else:
        fail("desktop-file-validate is not there.")
    entry = file.read_text()
    icon = re.search(r"^Icon=(.*)$", entry, re.M).group(1)
    program = re.search(r"^Exec=(\S+)", entry, re.M).group(1)
    if not os.access(prefix / "bin" / program, os.X_OK):
        fail(f"The desktop's entry starts {program}.")
    for size in (48, 64, 128, 256):
        png = (prefix / f"share/icons/hicolor/{size}x{size}/apps/{icon}.png").read_bytes()
        if png[:8] != b"\x89PNG\r\n\x1a\n" or png[16:24] != 2 * size.to_bytes(4, "big"):
            fail(f"The icon of {size} pixels is none.")
    if "<svg" not in (prefix / f"share/icons/hicolor/scalable/apps/{icon}.svg").read_text():
        fail("The scalable icon is none.")


def check_documents(prefix):
    page = gzip.decompress((prefix / "share/man/man1/vekora-host.1.gz").read_bytes()).decode()
    if not page.startswith(".TH VEKORA\\-HOST 1 "):
        fail("The man page is none.")
    for name in ("copyright", "changelog.gz", "README.md", "docs/driver.md", "examples/gallery/CMakeLists.txt"):
        if not (prefix / "share/doc/vekora-host" / name).is_file():
            fail(f"{name} is not installed.")
    for name in ("bash-completion/completions/vekora-host", "fish/vendor_completions.d/vekora-host.fish",
                 "zsh/vendor-completions/_vekora-host"):
        if "vekora-host" not in (prefix / "share" / name).read_text():
            fail(f"{name} completes something else.")


def main():
    with tempfile.TemporaryDirectory() as folder:
        scratch = pathlib.Path(folder)
        run(CMAKE, "--install", BUILD, "--prefix", scratch / "first")
        prefix = scratch / "moved here"
        (scratch / "first").rename(prefix)
        environment = {name: os.environ[name] for name in ("PATH", "ASAN_OPTIONS") if name in os.environ}
        environment |= {"HOME": folder, "XDG_RUNTIME_DIR": folder, "TMPDIR": folder, "DBUS_SESSION_BUS_ADDRESS": "disabled:"}
        check_run_paths(prefix)
        check_program(prefix, scratch, environment)
        check_headers(prefix, scratch)
        check_desktop(prefix)
        check_documents(prefix)


main()

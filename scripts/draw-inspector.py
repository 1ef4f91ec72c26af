#!/usr/bin/env python3
"""Draws the README's picture of the inspector: the real window on a screen of its own, with a view picked in the phone.
Usage: draw-inspector.py PROGRAM ROOT OUT.png"""

import os
import struct
import subprocess
import sys
import tempfile
import time
import zlib

from Xlib import X, display

PICKED = (334, 121)  # The first row's switch, in the phone at one pixel a point.
PICK_BUTTON = (440, 50)
SETTLED = 3  # Looks in a row at which the window has not changed.


def start(*words, **more):
    return subprocess.Popen(words, stdout=subprocess.PIPE, text=True, stderr=subprocess.DEVNULL, **more)


def grab(window):
    """The window's pixels, as rows of red, green and blue, and their number."""
    size = window.get_geometry()
    data = window.get_image(0, 0, size.width, size.height, X.ZPixmap, 0xFFFFFFFF).data
    rows = []
    for y in range(size.height):
        row = data[y * size.width * 4:(y + 1) * size.width * 4]
        pixels = bytearray(3 * size.width)
        pixels[0::3], pixels[1::3], pixels[2::3] = row[2::4], row[1::4], row[0::4]
        rows.append(bytes(pixels))
    return size.width, rows


def grab_settled(window):
    last, same = grab(window), 0
    while same < SETTLED:
        time.sleep(0.2)
        now = grab(window)
        last, same = now, same + 1 if now == last else 0
    return last


def write_png(path, width, rows):
    def chunk(kind, content):
        return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))

    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n")
        file.write(chunk(b"IHDR", struct.pack(">IIBBBBB", width, len(rows), 8, 2, 0, 0, 0)))
        file.write(chunk(b"IDAT", zlib.compress(b"".join(b"\0" + row for row in rows), 9)))
        file.write(chunk(b"IEND", b""))


def main():
    if len(sys.argv) != 4:
        sys.exit("Usage: draw-inspector.py PROGRAM ROOT OUT.png")
    program, root, out = sys.argv[1:]
    with tempfile.TemporaryDirectory() as scratch:
        os.mkdir(os.path.join(scratch, "vekora"))
        with open(os.path.join(scratch, "vekora", "inspector.ini"), "w", encoding="utf-8") as file:
            file.write("[General]\nshown=true\npage=views\n")
        screen = start("Xvfb", "-displayfd", "1", "-screen", "0", "1280x900x24", "-nolisten", "tcp", "-noreset")
        environment = dict(os.environ, HOME=scratch, XDG_CONFIG_HOME=scratch, DBUS_SESSION_BUS_ADDRESS="disabled:",
                           DISPLAY=":" + screen.stdout.readline().strip())
        environment.pop("QT_QPA_PLATFORM", None)
        host = start(program, "--root", root, "--locale", "en_US", "--timezone", "Europe/Berlin", "--scale", "1",
                     "--now", "2014-01-05T10:17:42", "--statusbar", env=environment)

        def x(*words):
            return subprocess.run(["xdotool", *map(str, words)], env=environment, check=True, capture_output=True,
                                  text=True).stdout

        try:
            number = x("search", "--sync", "--onlyvisible", "--name", "^Vekora").split()[-1]
            window = display.Display(environment["DISPLAY"]).create_resource_object("window", int(number))
            for place in (PICK_BUTTON, PICKED):
                grab_settled(window)
                x("mousemove", "--window", number, *place, "click", 1)
            grab_settled(window)
            x("mousemove", "--window", number, 187, 620)  # Nothing is pointed at.
            write_png(out, *grab_settled(window))
        finally:
            for process in (host, screen):
                process.terminate()
                process.wait()


main()

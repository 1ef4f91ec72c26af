#!/usr/bin/env python3
"""Draws the bundle's pictures: the marker of the pickers' bars and the icon of the add-on's entry.

    scripts/draw-images.py [FOLDER]          writes them (by default into resources/)
    scripts/draw-images.py --check [FOLDER]  fails when one there has other pixels than would be written

Needs nothing beyond the standard library. Lengths are points; each picture is drawn at one, two and three
pixels a point from the same shapes, which are given by their signed distance: negative inside.
"""

import math
import pathlib
import struct
import sys
import zlib

SCALES = (1, 2, 3)


def rounded_box(x, y, center_x, center_y, half_width, half_height, radius):
    dx = abs(x - center_x) - half_width + radius
    dy = abs(y - center_y) - half_height + radius
    return math.hypot(max(dx, 0), max(dy, 0)) + min(max(dx, dy), 0) - radius


def disc(x, y, center_x, center_y, radius):
    return math.hypot(x - center_x, y - center_y) - radius


def stroke(x, y, x1, y1, x2, y2, half_width):
    """A line with round ends."""
    dx, dy = x2 - x1, y2 - y1
    along = ((x - x1) * dx + (y - y1) * dy) / (dx * dx + dy * dy)
    along = min(max(along, 0), 1)
    return math.hypot(x - x1 - along * dx, y - y1 - along * dy) - half_width


def over(color, alpha, below):
    """Source-over of a plain colour on straight red, green, blue and alpha."""
    below_alpha = below[3] * (1 - alpha)
    total = alpha + below_alpha
    if total == 0:
        return (0.0, 0.0, 0.0, 0.0)
    return tuple((c * alpha + b * below_alpha) / total for c, b in zip(color, below)) + (total,)


WHITE = (1.0, 1.0, 1.0)
BLACK = (0.0, 0.0, 0.0)
NIGHT_TOP = (0.36, 0.35, 0.86)
NIGHT_BOTTOM = (0.16, 0.15, 0.45)


def marker(x, y, coverage):
    """A long white ring with dark edges; the bar shows through its middle."""
    from_ring = abs(rounded_box(x, y, 8, 24, 4.75, 21.75, 4.75))
    pixel = (0.0, 0.0, 0.0, 0.0)
    pixel = over(BLACK, 0.7 * coverage(from_ring - 2.25), pixel)
    return over(WHITE, coverage(from_ring - 1.25), pixel)


def icon(x, y, coverage):
    """An alarm clock, struck through, on a night sky."""
    height = y / 29
    sky = tuple(top + (bottom - top) * height for top, bottom in zip(NIGHT_TOP, NIGHT_BOTTOM))
    pixel = over(sky, coverage(rounded_box(x, y, 14.5, 14.5, 14.5, 14.5, 6.5)), (0.0, 0.0, 0.0, 0.0))

    face = abs(disc(x, y, 14.5, 15.5, 7.5)) - 1
    hands = min(stroke(x, y, 13, 14, 13, 10.5, 0.8), stroke(x, y, 13, 14, 10, 14, 0.8))
    # The bells sit beside the face, apart from it by a gap.
    bells = max(min(disc(x, y, 8.25, 8.5, 2.75), disc(x, y, 20.75, 8.5, 2.75)),
                -disc(x, y, 14.5, 15.5, 9.5))
    clock = min(face, hands, bells)
    strike = stroke(x, y, 6.5, 23.5, 22.5, 7.5, 1)
    clock = max(clock, 1 - strike)
    return over(WHITE, coverage(min(clock, strike)), pixel)


PICTURES = (("Selector", 16, 48, marker), ("icon", 29, 29, icon))


def draw(width, height, paint, scale):
    """Rows of straight red, green, blue and alpha bytes."""
    def coverage(distance):
        return min(max(0.5 - distance * scale, 0), 1)

    rows = []
    for row in range(int(height * scale)):
        line = bytearray()
        for column in range(int(width * scale)):
            pixel = paint((column + 0.5) / scale, (row + 0.5) / scale, coverage)
            line += bytes(math.floor(component * 255 + 0.5) for component in pixel)
        rows.append(bytes(line))
    return rows


def chunk(kind, content):
    return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))


def png(rows):
    header = struct.pack(">IIBBBBB", len(rows[0]) // 4, len(rows), 8, 6, 0, 0, 0)
    content = b"".join(b"\0" + row for row in rows)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(content, 9))
            + chunk(b"IEND", b""))


def unpacked(data):
    """A file's chunks with the pixels unpacked: another zlib may pack the same pixels otherwise."""
    chunks, offset = [], 8
    while offset < len(data):
        length, kind = struct.unpack(">I4s", data[offset:offset + 8])
        content = data[offset + 8:offset + 8 + length]
        chunks.append((kind, zlib.decompress(content) if kind == b"IDAT" else content))
        offset += 12 + length
    return chunks


def main():
    arguments = sys.argv[1:]
    check = arguments[:1] == ["--check"]
    default = pathlib.Path(__file__).resolve().parent.parent / "resources"
    folder = pathlib.Path(*arguments[check:]) if arguments[check:] else default
    wrong = []
    for name, width, height, paint in PICTURES:
        for scale in SCALES:
            file = folder / (name + ("" if scale == 1 else f"@{scale}x") + ".png")
            picture = png(draw(width, height, paint, scale))
            if not check:
                file.write_bytes(picture)
            elif not file.is_file() or unpacked(file.read_bytes()) != unpacked(picture):
                wrong.append(file)
    for file in wrong:
        print(f"{file} is not what this script draws", file=sys.stderr)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())

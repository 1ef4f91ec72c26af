#!/usr/bin/env python3
"""Draws the program's icon from its vekora-host.svg, which has only rectangles and circles of one colour each.

    packaging/draw-icon.py          writes vekora-host-SIZE.png beside it
    packaging/draw-icon.py --check  fails when one there has other pixels than would be written

Needs nothing beyond the standard library.
"""

import importlib.util
import pathlib
import sys
import xml.etree.ElementTree

HERE = pathlib.Path(__file__).resolve().parent
SIZES = (48, 64, 128, 256)
SIDE = 128  # Of the drawing.
NAMESPACE = "{http://www.w3.org/2000/svg}"


def drawing_tools():
    specification = importlib.util.spec_from_file_location("draw_images", HERE.parent / "scripts" / "draw-images.py")
    module = importlib.util.module_from_spec(specification)
    specification.loader.exec_module(module)
    return module


def shapes(tools):
    """Each shape's signed distance and its colour, back to front."""
    for element in xml.etree.ElementTree.parse(HERE / "vekora-host.svg").getroot():
        kind = element.tag.removeprefix(NAMESPACE)
        if kind == "title":
            continue
        fill = element.get("fill")
        color = tuple(int(fill[place:place + 2], 16) / 255 for place in (1, 3, 5))
        number = {name: float(element.get(name)) for name in element.keys() if name != "fill"}
        if kind == "rect":
            yield (lambda x, y, n=number: tools.rounded_box(
                x, y, n["x"] + n["width"] / 2, n["y"] + n["height"] / 2, n["width"] / 2, n["height"] / 2, n["rx"])), color
        elif kind == "circle":
            yield (lambda x, y, n=number: tools.disc(x, y, n["cx"], n["cy"], n["r"])), color
        else:
            sys.exit(f"The drawing has a {kind}, which this script can't draw.")


def main():
    tools = drawing_tools()
    drawing = list(shapes(tools))

    def paint(x, y, coverage):
        pixel = (0.0, 0.0, 0.0, 0.0)
        for distance, color in drawing:
            pixel = tools.over(color, coverage(distance(x, y)), pixel)
        return pixel

    wrong = 0
    for size in SIZES:
        # The tools take a size in points and pixels a point; here a point is a unit of the drawing.
        scale = size / SIDE
        picture = tools.png(tools.draw(SIDE, SIDE, paint, scale))
        file = HERE / f"vekora-host-{size}.png"
        if "--check" not in sys.argv[1:]:
            file.write_bytes(picture)
        elif not file.is_file() or tools.unpacked(file.read_bytes()) != tools.unpacked(picture):
            print(f"{file} is not what this script draws", file=sys.stderr)
            wrong = 1
    return wrong


if __name__ == "__main__":
    sys.exit(main())

#!/usr/bin/env python3
"""Draws windows/quorvane.ico and linux/quorvane.png from quorvane.svg, with ImageMagick's convert.

ImageMagick reads SVG only with a renderer beside it; the shapes used here it can draw itself.
"""
import pathlib
import subprocess
import xml.etree.ElementTree as xml

FOLDER = pathlib.Path(__file__).resolve().parent
SIZES = (256, 64, 48, 40, 32, 24, 20, 16)
OVERSAMPLING = 4


def primitive(shape):
    if shape.tag.endswith("rect"):
        x, y, width, height, rx = (float(shape.get(name)) for name in ("x", "y", "width", "height", "rx"))
        return f"roundrectangle {x},{y} {x + width},{y + height} {rx},{rx}"
    return f"path '{shape.get('d')}'"


def drawing(svg):
    for shape in svg:
        yield " ".join((
            f"fill {shape.get('fill', 'none')} stroke {shape.get('stroke', 'none')}",
            f"stroke-width {shape.get('stroke-width', '1')}",
            f"stroke-linejoin {shape.get('stroke-linejoin', 'miter')}",
            f"stroke-linecap {shape.get('stroke-linecap', 'butt')}",
            primitive(shape)))


def picture(shapes, size):
    scale = size * OVERSAMPLING / 256
    commands = f"scale {scale},{scale} " + " ".join(shapes)
    big = f"{size * OVERSAMPLING}x{size * OVERSAMPLING}"
    return ["(", "-size", big, "xc:none", "-draw", commands, "-filter", "Box", "-resize", f"{size}x{size}", ")"]


def main():
    shapes = list(drawing(xml.parse(FOLDER / "quorvane.svg").getroot()))
    pictures = [part for size in SIZES for part in picture(shapes, size)]
    subprocess.run(["convert", *pictures, "-depth", "8", str(FOLDER / "windows" / "quorvane.ico")], check=True)
    # Not every desktop can draw an SVG.
    subprocess.run(["convert", *picture(shapes, SIZES[0]), "-depth", "8", "-strip",
                    str(FOLDER / "linux" / "quorvane.png")], check=True)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Draws windows/quorvane.ico, the installer's pictures beside it, linux/quorvane.png and linux/icons from quorvane.svg, with
ImageMagick's convert.

ImageMagick reads SVG only with a renderer beside it; the shapes used here it can draw itself.
"""
import pathlib
import subprocess
import xml.etree.ElementTree as xml

FOLDER = pathlib.Path(__file__).resolve().parent
SIZES = (256, 64, 48, 40, 32, 24, 20, 16)
LINUX_SIZES = (16, 22, 24, 32, 48, 64, 128, 256)
# The installer's pictures: width and height, the background, and the size of the icon in the middle.
INSTALLER = {"installer_side": ("164x314", "#E0F7E4", 112), "installer_header": ("150x57", "white", 48)}
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
    for size in LINUX_SIZES:
        subprocess.run(["convert", *picture(shapes, size), "-depth", "8", "-strip",
                        str(FOLDER / "linux" / "icons" / f"{size}.png")], check=True)
    for name, (canvas, colour, size) in INSTALLER.items():
        subprocess.run(["convert", "-size", canvas, f"xc:{colour}", *picture(shapes, size), "-gravity", "center", "-composite",
                        "-colors", "256", "-type", "Palette", "-compress", "none", f"BMP3:{FOLDER / 'windows' / name}.bmp"], check=True)


if __name__ == "__main__":
    main()

"""Takes a picture of every window on small screens: small_screens.py linux|windows SIZE PERCENT FOLDER.

SIZE is that of the screen without task bars, such as 1024x560, and PERCENT its scale. The environment is that of the desktop stories: QV_PROGRAM, and for Windows QV_TOOLS and
QV_PREFIX. tools/small_screens.sh runs it for the sizes that the program is made for."""

import os
import sys
import time

import pictures
import desktop

SUBFOLDERS = ["Documents", "Photos", "Projects"]


def fill(place):
    place.write({f"{folder}/{number:03}/file {number}.txt": b"text\n" * number for folder in SUBFOLDERS for number in range(60)},
                1_700_000_000_000_000_000)
    lines = [place.seen(place.source), place.seen(place.target), *(f" {number} " for number in (0, 0, 0, 1, 0, 0)),
             "cache", f" {len(SUBFOLDERS)} ", *SUBFOLDERS, ""]
    os.makedirs(place.settings, exist_ok=True)
    with open(os.path.join(place.settings, "qvr.usr"), "w", encoding="utf-8", newline="\r\n") as file:
        file.write("\n".join(lines) + "\n")


def take_whole_screen(screen, _title, path):
    time.sleep(1.5)
    screen.run("import", "-window", "root", path)


def linux(size, percent, prefix):
    import accessible
    screen = accessible.Screen(size)
    screen.environment["QT_FONT_DPI"] = str(96 * int(percent) // 100)
    place = desktop.Place()
    fill(place)
    program = accessible.Program(place.home, [], screen)
    try:
        pictures.take_all(program, prefix)
    finally:
        program.end()
        screen.end()
        place.remove()


def windows(size, percent, prefix):
    import wine_desktop
    screen = desktop.Screen(size)
    wine = wine_desktop.Wine(screen)
    wine.call("reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels", "/t", "REG_DWORD", "/d",
              str(96 * int(percent) // 100), "/f")
    wine.end()  # the scale is read at its start
    wine = wine_desktop.Wine(screen)
    place = wine_desktop.Place(wine)
    fill(place)
    program = wine_desktop.Program(wine, [])
    try:
        pictures.take_all(program, prefix)
    finally:
        program.end()
        wine.end()
        screen.end()
        place.remove()


if __name__ == "__main__":
    pictures.take = take_whole_screen
    kind, size, percent, folder = sys.argv[1:]
    os.makedirs(folder, exist_ok=True)
    {"linux": linux, "windows": windows}[kind](size, percent, os.path.join(folder, f"{kind}-{size}-{percent}-"))

"""Takes the pictures of the windows for the documentation: pictures.py linux ROOT PREFIX, or pictures.py windows PREFIX.
PREFIX is how the pictures' paths begin. The setup of the last run is saved already, on Linux below ROOT."""

import os
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "desktop"))
import desktop  # noqa: E402

MAIN, BACK_UP = "Quorvane", "Back up new and modified"


def take(screen, title, path):
    """Once nothing changes in the window any more, with its frame."""
    screen.run("xdotool", "mousemove", "1590", "1090")
    window = screen.run("xdotool", "search", "--onlyvisible", "--name", f"{title}$").stdout.split()[-1]
    before, now = None, b""
    while now != before:
        time.sleep(0.4)
        before = now
        screen.run("import", "-frame", "-window", window, path)
        with open(path, "rb") as file:
            now = file.read()
    screen.run("mogrify", "-strip", "+dither", "-colors", "64", "-define", "png:compression-level=9", path)


def take_all(program, prefix):
    def picture(title, name):
        take(program.screen, title, prefix + name + ".png")

    program.find(MAIN, "Quit")
    picture(MAIN, "main-window")
    program.press(MAIN, "Setup")
    program.find(MAIN, "Save setup")
    picture(MAIN, "setup-commands")
    program.press(MAIN, "Not now")
    program.press(MAIN, "Select included subfolders")
    program.find("Select subfolders", "Accept")
    picture("Select subfolders", "select-subfolders")
    program.press("Select subfolders", "Cancel")
    program.wait_until_closed("Select subfolders")
    program.press(MAIN, BACK_UP)
    program.find("Confirm operation", "Start backup")
    picture("Confirm operation", "confirmation")
    program.press("Confirm operation", "Start backup")
    program.find(BACK_UP, "Close")
    picture(BACK_UP, "report-window")
    program.press(BACK_UP, "Close")
    program.wait_until_closed(BACK_UP)
    program.press(MAIN, "Help")
    program.find("Help", "Find next")
    picture("Help", "help")


def linux(root, prefix):
    import accessible
    screen = accessible.Screen()
    program = accessible.Program(os.path.join(root, "settings"), [], screen)
    try:
        take_all(program, prefix)
    finally:
        program.end()
        screen.end()


def windows(root, prefix):
    import wine_desktop
    screen = desktop.Screen()
    wine = wine_desktop.Wine(screen)
    wine.drive("q", root)
    program = wine_desktop.Program(wine, [])
    try:
        take_all(program, prefix)
    finally:
        program.end()
        wine.end()
        screen.end()


if __name__ == "__main__":
    {"linux": linux, "windows": windows}[sys.argv[1]](*sys.argv[2:])

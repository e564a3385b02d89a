"""Takes the pictures of the windows for the documentation: pictures.py ROOT FOLDER; the sample lies below ROOT."""

import os
import sys
import time

tests = os.path.join(os.path.dirname(__file__), "..", "tests", "desktop")
sys.path[:0] = [tests, os.path.join(tests, "linux")]
import accessible  # noqa: E402
import desktop  # noqa: E402

MAIN, BACK_UP = "Quorvane", "Back up new and modified"


def take(screen, title, path):
    """Once nothing changes in the window any more, with its frame."""
    screen.run("xdotool", "mousemove", "1590", "1090")
    window = screen.run("xdotool", "search", "--onlyvisible", "--name", f"^{title}$").stdout.split()[-1]
    before, now = None, b""
    while now != before:
        time.sleep(0.4)
        before = now
        screen.run("import", "-frame", "-window", window, path)
        with open(path, "rb") as file:
            now = file.read()
    screen.run("mogrify", "-strip", "+dither", "-colors", "64", "-define", "png:compression-level=9", path)


def main(root, folder):
    def picture(title, name):
        take(screen, title, os.path.join(folder, name + ".png"))

    screen = accessible.Screen()
    program = accessible.Program(os.path.join(root, "settings"), [], screen)
    try:
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
        title = desktop.wait_until(
            lambda: next((name for name in program.titles() if name != MAIN), None), "the help")
        picture(title, "help")
    finally:
        program.end()
        screen.end()


if __name__ == "__main__":
    main(*sys.argv[1:])

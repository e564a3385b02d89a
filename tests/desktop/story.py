"""What the stories of all desktops share: files, expected copies and the life of the program."""

import os
import unittest

import desktop

MAIN, BACK_UP = "Quorvane", "Back up new and modified"
LAST_YEAR = 1_700_000_000_250_000_000

# The files of the stories of an unattended run.
INCLUDED = {
    "at the top": b"top\n",
    "empty.txt": b"",
    "Letters/one.txt": b"Dear reader\r\n",
    "Letters/2024/Grüße 🎂  zwei.txt": "Grüße".encode(),
    "Letters/2024/a/b/c/deep.csv": b"1;2\n" * 1000,
    "Pictures/big.jpg": bytes(range(256)) * 12_000,
    "Pictures/no extension": b"\x00\xff",
}
FOLDERS = ["Letters", "Pictures"]


class Story(unittest.TestCase):
    maxDiff = 2000

    def setUp(self):
        self.place = self.make_place()
        self.addCleanup(self.place.remove)

    def write(self, files):
        self.place.write(files, LAST_YEAR)

    def check_copies(self, expected):
        lock = os.path.join(self.place.target, ".quorvane-lock")
        desktop.wait_until(lambda: not os.path.exists(lock), "the run to let go of the target")  # after its last word
        times = {path: (data, LAST_YEAR) for path, data in expected.items()}
        self.assertEqual(self.place.copies(), times)

    def save_setup(self, folders=(), target=None, skip=""):
        """Writes the setup of the last run: everything below the `folders` of the source is included."""
        lines = [self.place.seen(self.place.source), target or self.place.seen(self.place.target)]
        lines += [f" {number} " for number in (0, 0, 0, int(bool(folders)), 0, 0)]
        lines += [skip, f" {len(folders)} ", *folders, ""]
        os.makedirs(self.place.settings, exist_ok=True)
        with open(os.path.join(self.place.settings, "qvr.usr"), "w", encoding="utf-8", newline="\r\n") as file:
            file.write("\n".join(lines) + "\n")

    def start(self, *words):
        """The program with these words as its command line. The text that is waited for comes late in the start-up."""
        self.program = self.make_program(words)
        self.addCleanup(self.program.end)
        self.program.find_label("Some applications and system programs", MAIN)

    def end(self, ending, exit_code):
        """Again until it works: for a second after a file dialog the main window takes no presses."""
        def ended():
            ending()
            return desktop.within(2, self.program.ended)
        desktop.wait_until(ended, "the end of the program", 60)
        self.assertEqual(self.program.exit_code(), exit_code)
        self.assertEqual(self.program.complaints(), [])

    def quit(self, exit_code=0):
        self.end(lambda: self.program.press_if_usable(MAIN, "Quit"), exit_code)

    def close(self, exit_code):
        self.end(lambda: self.program.close(MAIN), exit_code)

    def check_result(self, **expected):
        result = self.program.wait_for_result()
        self.assertEqual({name: result.get(name) for name in expected}, expected, self.program.lines())

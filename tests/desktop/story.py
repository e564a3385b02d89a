"""What the stories of all desktops share: files, expected copies and the life of the program."""

import os
import shutil
import unittest
import unittest.mock

import desktop

MAIN, BACK_UP = "Quorvane", "Back up new and modified"
LAST_YEAR = 1_700_000_000_250_000_000

# The files of the stories; those below "Left out" belong to no included folder.
INCLUDED = {
    "at the top": b"top\n",
    "empty.txt": b"",
    "Letters/one.txt": b"Dear reader\r\n",
    "Letters/2024/Grüße 🎂  zwei.txt": "Grüße".encode(),
    "Letters/2024/a/b/c/deep.csv": b"1;2\n" * 1000,
    "Pictures/big.jpg": bytes(range(256)) * 12_000,
    "Pictures/no extension": b"\x00\xff",
}
LEFT_OUT = {"Left out/secret.txt": b"not me", "Left out/more/secret.txt": b"nor me"}
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


class Unattended:
    """Stories of an unattended run, to be told on each desktop."""

    def test_the_program_alone_copies_what_is_included_stays_open_and_has_its_help(self):
        alone = os.path.join(self.place.home, "alone", os.path.basename(desktop.PROGRAM))
        os.mkdir(os.path.dirname(alone))
        only_file = unittest.mock.patch.object(desktop, "PROGRAM", shutil.copy(desktop.PROGRAM, alone))
        only_file.start()
        self.addCleanup(only_file.stop)
        self.write({**INCLUDED, **LEFT_OUT})
        self.save_setup(FOLDERS)
        self.start("nightly")
        size = sum(len(data) for data in INCLUDED.values())
        self.check_result(status="ok", new="7", modified="0", copied="7", failed="0", bytes=str(size))
        self.check_copies(INCLUDED)
        self.program.find(BACK_UP, "Close")
        self.assertFalse(self.program.ended(), "the program stays open until its window is closed")
        self.program.press(MAIN, "Help")
        desktop.wait_until(lambda: self.program.first("Help", lambda box: box.role == desktop.TEXT and
                                                      "A FIRST BACKUP" in box.text), "the help")
        self.close(0)

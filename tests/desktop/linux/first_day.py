"""The first days of somebody with Quorvane, lived through the windows of the real program."""

import os
import unittest

import accessible
import desktop
from gi.repository import Atspi

MAIN, REPORT, SELECT, CONFIRM = "Quorvane", "Back up new and modified", "Select subfolders", "Confirm operation"
BACK_UP = "Back up new and modified"
SKIPPED = "/drafts/"
LAST_YEAR = 1_700_000_000.25

BACKED_UP = {
    "index.txt": b"where everything lies\n",
    "Letters/one.txt": b"Dear reader\r\n",
    "Letters/Grüße/zwei.txt": "Grüße".encode(),
    "Photos/2024/list.TXT": b"1\n2\n" * 5000,
    "Projects/rocket/empty.txt": b"",
    "Tax/2023/sums.txt": b"12;13\n",
}
LEFT_OUT = {
    "Letters/picture.jpg": b"another extension",
    "Letters/drafts/two.txt": b"a path to be skipped",
    "Projects/no extension": b"no extension",
    **{f"Box {number:02}/note.txt": b"not selected" for number in range(1, 31)},
}
SELECTED = ["Letters", "Photos", "Projects", "Tax"]


class FirstDay(unittest.TestCase):
    maxDiff = 2000

    @classmethod
    def setUpClass(cls):
        cls.screen = accessible.Screen()
        cls.addClassCleanup(cls.screen.end)

    def setUp(self):
        self.place = desktop.Place()
        self.addCleanup(self.place.remove)
        for path, data in {**BACKED_UP, **LEFT_OUT}.items():
            self.place.write(path, data, LAST_YEAR)
        self.expected = {}

    # --- Steps

    def start(self, *words):
        self.program = accessible.Program(self.place.home, words, self.screen)
        self.addCleanup(self.program.end)
        self.program.find(MAIN, "Quit")

    def quit(self):
        # For a second after a file dialog the main window takes no presses.
        desktop.wait_until(lambda: self.press_until_it_ends("Quit"), "the end of the program", 60)
        self.assertEqual(self.program.exit_code(), 0)
        # Qt's own talk about the table of a file dialog that is read while it is filled.
        errors = [line for line in self.program.error_text().splitlines() if not line.startswith("QAccessibleTable")]
        self.assertEqual(errors, [])

    def press_until_it_ends(self, button):
        item = self.program.look_for(MAIN, button, accessible.BUTTON)
        if item:
            Atspi.Action.do_action(item, 0)
        return self.program.ended_within(2)

    def answer(self, title, button):
        self.program.press(title, button)
        self.program.wait_until_closed(title)

    def name_a_path(self, dialog, label, path, button):
        """In a dialog for folders or files."""
        self.program.type(dialog, label, path)
        self.answer(dialog, button)

    def choose_folder(self, which, path):
        self.program.press(MAIN, f"{which} disk or folder")
        self.name_a_path(f"Select the {which.lower()} disk or folder", "Directory:", path, "Choose")
        self.program.wait_for_text(MAIN, f"{which} folder", path)

    def answer_box_of(self, part, button):
        """Answers the message that holds the part."""
        [title] = desktop.wait_until(lambda: self.program.message_holding(part), f"the message {part!r}")
        self.program.press(title, button)
        desktop.wait_until(lambda: not self.program.message_holding(part), f"the message {part!r} to go")

    def create_target_subfolder(self, name):
        self.program.press(MAIN, "Create subfolder")
        prompt = f"What is the new subfolder of {self.place.target} to be called?"
        self.program.type_into_message(prompt, name)
        self.answer_box_of(prompt, "OK")
        self.place.target = os.path.join(self.place.target, name)
        self.answer_box_of("The folder has been created: " + self.place.target, "OK")
        self.answer_box_of(f"use the new folder {self.place.target} as the target folder?", "Yes")
        self.program.wait_for_text(MAIN, "Target folder", self.place.target)
        self.program.wait_for_label(MAIN, "The target folder is empty.")

    def select_subfolders(self):
        self.program.wait_for_label(MAIN, "There are 34 subfolders, none selected")
        self.program.press(MAIN, "Select included subfolders")
        self.program.find(SELECT, "Accept")
        self.screen.key("End")
        for name in reversed(SELECTED):
            self.program.tick(SELECT, name)
        self.answer(SELECT, "Accept")
        self.program.wait_for_label(MAIN, "There are 34 subfolders, 4 selected")
        self.program.tick(MAIN, "Include all subfolders of these 4 subfolders")

    def set_filters(self):
        self.program.type(MAIN, "File extension", "txt")
        self.program.type(MAIN, "Filepaths to skip, parted by commas", SKIPPED)

    def check(self, *lines):
        self.program.press(MAIN, "Check backup state")
        self.read_report("Check backup state", *lines)

    def back_up(self, *lines):
        self.program.press(MAIN, BACK_UP)
        self.read_report(REPORT, *lines)

    def read_report(self, title, *lines):
        self.program.find(title, "Close")
        report = self.program.text(title, "Report")
        for line in lines:
            self.assertIn(line, report)
        self.answer(title, "Close")
        self.check_copies()

    def check_copies(self):
        times = {path: (data, int(LAST_YEAR * 1e9)) for path, data in self.expected.items()}
        self.assertEqual(self.place.copies(), times)

    def check_setup_is_shown(self):
        self.program.wait_for_text(MAIN, "Source folder", self.place.source)
        self.program.wait_for_text(MAIN, "Target folder", self.place.target)
        self.program.wait_for_label(MAIN, "There are 34 subfolders, 4 selected")
        self.assertEqual(self.program.text(MAIN, "File extension"), "txt")
        self.assertEqual(self.program.text(MAIN, "Filepaths to skip, parted by commas"), SKIPPED)
        self.assertTrue(self.program.ticked(MAIN, "Include all subfolders of these 4 subfolders"))

    def set_everything_up(self):
        self.assertEqual(self.program.text(MAIN, "Source folder"), "")
        self.choose_folder("Source", self.place.source)
        self.choose_folder("Target", self.place.target)
        self.create_target_subfolder("Copies")
        self.select_subfolders()
        self.set_filters()

    def back_up_with_a_pause(self):
        self.program.tick(MAIN, "Pause after first copy of files from a folder")
        self.program.press(MAIN, BACK_UP)
        self.program.tick(CONFIRM, "Do not show this again while the program runs")
        self.answer(CONFIRM, "Start backup")
        self.program.find(REPORT, "Continue")
        self.assertEqual(list(self.place.copies()), ["index.txt"])
        self.program.press(REPORT, "Continue")
        self.expected = dict(BACKED_UP)
        self.read_report(REPORT, f"Number of files copied: {len(BACKED_UP)}")
        self.program.tick(MAIN, "Pause after first copy of files from a folder")

    def change_files(self):
        changed = {"Letters/one.txt": b"Dear reader, again\r\n", "Tax/2024/new.txt": b"1;2\n"}
        for path, data in changed.items():
            self.place.write(path, data, LAST_YEAR)
        self.expected.update(changed)

    def save_clear_and_load(self, path):
        self.program.press(MAIN, "Setup")
        self.program.press(MAIN, "Save setup")
        self.program.press(MAIN, "Save setup in setup file")
        self.name_a_path("Save setup in setup file", "File name:", path, "Save")
        self.program.wait_for_text(MAIN, "Setup file in use", path)
        self.program.press(MAIN, "Setup")
        self.program.press(MAIN, "Clear setup")
        desktop.wait_until(lambda: self.program.text(MAIN, "Target folder") == "", "the setup to be cleared")
        self.program.press(MAIN, "Setup")
        self.program.press(MAIN, "Load setup")
        self.program.press(MAIN, "Load setup from setup file")
        self.name_a_path("Load setup from setup file", "File name:", path, "Open")
        self.check_setup_is_shown()

    # --- Stories

    def test_from_the_first_start_to_an_unattended_backup(self):
        self.start()
        self.set_everything_up()
        self.check("Number of files not backed up: 6")
        self.back_up_with_a_pause()
        self.change_files()
        self.back_up("Number of files copied: 2")
        self.save_clear_and_load(os.path.join(self.place.root, "mine.qvr"))
        self.program.tick(MAIN, "On quit save setup for next run")
        self.quit()

        self.start()
        self.check_setup_is_shown()
        self.program.find_label_beginning(MAIN, "Previous run: ")
        self.quit()

        os.remove(os.path.join(self.place.target, "Letters", "one.txt"))
        self.start("nightly")
        self.assertEqual(self.program.wait_for_result()["copied"], "1")
        self.check_copies()
        self.screen.close_window(MAIN)
        self.assertEqual(self.program.exit_code(), 0)


if __name__ == "__main__":
    unittest.main()

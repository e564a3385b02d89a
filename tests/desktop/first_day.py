"""The first days of somebody with Quorvane, lived through the windows of the real program on each desktop."""

import os
import shutil
import unittest.mock

import desktop
from desktop import CHECK
from story import BACK_UP, MAIN

SELECT, CONFIRM = "Select subfolders", "Confirm operation"
EXTENSION, SKIP = "Back up only files with extension", "Skip filepaths containing (separate with commas)"
PAUSE = "Pause after first copy of files from a folder"
SKIPPED = "/drafts/"

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


class FirstDay:
    """A story to be told on each desktop. They add how their dialogs are answered (`answer_folder_dialog`,
    `answer_file_dialog`), and may add words to the last, unattended start and what comes of them."""

    last_words = ()

    def hear_last_words(self):
        pass

    def keep_only_the_program_file(self):
        alone = os.path.join(self.place.home, "alone", os.path.basename(desktop.PROGRAM))
        os.mkdir(os.path.dirname(alone))
        only_file = unittest.mock.patch.object(desktop, "PROGRAM", shutil.copy(desktop.PROGRAM, alone))
        only_file.start()
        self.addCleanup(only_file.stop)

    def answer_box_of(self, part, button):
        """Answers the message that holds the part."""
        self.program.press(self.program.find_label(part).title, button)
        desktop.wait_until(lambda: not self.program.look_for_label(part), f"the message {part!r} to go")

    def choose_folder(self, which, path):
        self.program.press(MAIN, f"{which} disk or folder")
        self.answer_folder_dialog(f"Select the {which.lower()} disk or folder", self.place.seen(path))
        self.program.wait_for_text(MAIN, f"{which} folder", self.place.seen(path))

    def select_subfolders(self):
        self.program.find_label("There are 34 subfolders, none selected", MAIN)
        self.program.press(MAIN, "Select included subfolders")
        self.program.find(SELECT, "Accept")

        def at_the_end():
            self.program.press_key(SELECT, "End")
            return desktop.within(2, lambda: self.program.look_for(SELECT, SELECTED[-1], CHECK))
        desktop.wait_until(at_the_end, "the end of the list")
        for name in SELECTED:
            self.program.tick(SELECT, name)
        self.program.answer(SELECT, "Accept")
        self.program.find_label("There are 34 subfolders, 4 selected", MAIN)
        self.program.tick(MAIN, "Include all subfolders of these 4 subfolders")

    def set_everything_up(self):
        self.assertEqual(self.program.text(MAIN, "Source folder"), "")
        self.choose_folder("Source", self.place.source)
        self.choose_folder("Target", self.place.target)
        self.program.find_label("The target folder is empty.", MAIN)
        self.select_subfolders()
        self.program.type(MAIN, EXTENSION, "txt")
        self.program.type(MAIN, SKIP, SKIPPED)

    def check_setup_is_shown(self):
        self.program.wait_for_text(MAIN, "Source folder", self.place.seen(self.place.source))
        self.program.wait_for_text(MAIN, "Target folder", self.place.seen(self.place.target))
        self.program.find_label("There are 34 subfolders, 4 selected", MAIN)
        self.assertEqual((self.program.text(MAIN, EXTENSION), self.program.text(MAIN, SKIP)), ("txt", SKIPPED))
        self.assertTrue(self.program.find(MAIN, "Include all subfolders of these 4 subfolders", CHECK).ticked)

    def operate(self, operation, *lines):
        self.program.press(MAIN, operation)
        self.read_report(operation, *lines)

    def read_report(self, title, *lines):
        self.program.find(title, "Close")
        report = self.program.text(title, "Report")
        for line in lines:
            self.assertIn(line, report)
        self.program.answer(title, "Close")
        self.check_copies(self.expected)

    def back_up_with_a_pause(self):
        self.program.tick(MAIN, PAUSE)
        self.program.press(MAIN, BACK_UP)
        self.program.tick(CONFIRM, "Do not show this again while the program runs")
        self.program.answer(CONFIRM, "Start backup")
        self.program.find(BACK_UP, "Continue")
        self.assertCountEqual(self.place.copies(), ["index.txt", ".quorvane-unfinished", ".quorvane-lock"])
        self.assertFalse(self.program.find(MAIN, BACK_UP).usable, "one operation at a time")
        self.program.close(BACK_UP)
        self.answer_box_of("Cancel the backup?", "No")
        self.program.press(BACK_UP, "Continue")
        self.expected = dict(BACKED_UP)
        self.read_report(BACK_UP, f"Number of files copied: {len(BACKED_UP)}")
        self.program.tick(MAIN, PAUSE)

    def press_setup(self, *buttons):
        for button in ("Setup", *buttons):
            self.program.press(MAIN, button)

    def save_clear_and_load(self, path):
        self.press_setup("Save setup", "Save setup in setup file")
        self.answer_file_dialog("Save setup in setup file", path, "Save")
        self.program.wait_for_text(MAIN, "Setup file in use", path)
        self.press_setup("Clear setup")
        self.program.wait_for_text(MAIN, "Target folder", "")
        self.press_setup("Load setup", "Load setup from setup file")
        self.answer_file_dialog("Load setup from setup file", path, "Open")
        self.check_setup_is_shown()

    def test_from_the_first_start_to_an_unattended_backup(self):
        self.keep_only_the_program_file()
        self.write({**BACKED_UP, **LEFT_OUT})
        self.expected = {}
        self.start()
        self.set_everything_up()
        self.operate("List included subfolders", "Letters", "Tax")
        self.operate("Check backup state", "Number of files not backed up: 6")
        self.back_up_with_a_pause()
        changed = {"Letters/one.txt": b"Dear reader, again\r\n", "Tax/2024/new.txt": b"1;2\n"}
        self.write(changed)
        self.expected.update(changed)
        self.operate(BACK_UP, "Number of files copied: 2")
        self.save_clear_and_load(self.place.seen(os.path.join(self.place.root, "mine.qvr")))
        self.program.tick(MAIN, "On quit save setup for next run")
        self.quit()

        self.start()
        self.check_setup_is_shown()
        self.program.find_label("Previous run: ", MAIN)
        self.quit()

        os.remove(os.path.join(self.place.target, "Letters", "one.txt"))
        self.start("nightly", *self.last_words)
        self.check_result(status="ok", new="1", modified="0", copied="1", failed="0", bytes="20")
        self.check_copies(self.expected)
        self.hear_last_words()
        self.program.press(MAIN, "Help")
        desktop.wait_until(lambda: self.program.first("Help", lambda box: box.role == desktop.TEXT and
                                                      "A FIRST BACKUP" in box.text), "the help")
        self.close(0)

"""What becomes of copies that went bad without anybody noticing."""

import os

from desktop import CHECK
from first_day import CONFIRM
from story import BACK_UP, FOLDERS, INCLUDED, LAST_YEAR, MAIN

CHECK_STATE, COMPARE = "Check backup state", "Compare contents, too (reads every file on both sides)"
READ_BACK = "Read every copy back and compare it"


class DamagedCopies:
    """A story to be told on each desktop."""

    def flip_one_byte(self, path):
        data = self.place.copies()[path][0]
        with open(os.path.join(self.place.target, path), "wb") as file:
            file.write(data[:-2] + bytes([data[-2] ^ 1]) + data[-1:])
        os.utime(file.name, ns=(LAST_YEAR, LAST_YEAR))

    def report_of(self, operation):
        self.program.find(operation, "Close")
        report = self.program.text(operation, "Report")
        self.program.answer(operation, "Close")
        return report

    def check(self):
        self.program.press(MAIN, CHECK_STATE)
        return self.report_of(CHECK_STATE)

    def test_one_other_byte_is_found_by_the_check_and_repaired_by_the_backup_once_contents_are_compared(self):
        self.write(INCLUDED)
        self.save_setup(FOLDERS)
        self.start("nightly")
        self.check_result(copied="7")
        self.program.answer(BACK_UP, "Close")
        self.flip_one_byte("Pictures/big.jpg")
        self.assertIn("All files backed up.", self.check())
        self.program.press(MAIN, BACK_UP)
        self.program.find_label("To be read: 7 files, 2.93 Mb on each side.", CONFIRM)
        self.program.tick(CONFIRM, COMPARE)
        self.program.answer(CONFIRM, "Cancel")
        line = "Same size and time, other content: " + self.place.seen(os.path.join(self.place.source, "Pictures", "big.jpg"))
        report = self.check()
        self.assertIn(line, report)
        self.assertNotIn("All files backed up.", report)
        self.program.press(MAIN, BACK_UP)
        self.assertTrue(self.program.find(CONFIRM, COMPARE, CHECK).ticked)
        self.program.tick(CONFIRM, READ_BACK)
        self.program.answer(CONFIRM, "Start backup")
        report = self.report_of(BACK_UP)
        self.assertIn(line, report)
        self.assertIn("Number of copies that were read back from the disk: 1", report)
        self.check_copies(INCLUDED)
        self.assertIn("All files backed up.", self.check())
        self.quit()

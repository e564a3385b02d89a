"""What a user of the Linux program lives through, seen from outside: windows, report, exit codes and copies."""

import os
import unittest

import desktop

LAST_YEAR = 1_700_000_000.25

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


class Stories(unittest.TestCase):
    maxDiff = 2000

    def setUp(self):
        self.place = desktop.Place()
        self.addCleanup(self.place.remove)
        for path, data in {**INCLUDED, **LEFT_OUT}.items():
            self.place.write(path, data, LAST_YEAR)

    def screen(self):
        screen = desktop.Screen()
        self.addCleanup(screen.end)
        return screen

    def start(self, screen=None):
        program = desktop.Program(self.place.home, ["nightly"], screen)
        self.addCleanup(program.end)
        return program

    def check_copies(self, expected):
        times = {path: (data, int(LAST_YEAR * 1e9)) for path, data in expected.items()}
        self.assertEqual(self.place.copies(), times)

    def check_result(self, program, **expected):
        result = program.wait_for_result()
        self.assertEqual({name: result.get(name) for name in expected}, expected, program.lines)

    def back_up_without_a_screen(self, exit_code, **expected):
        program = self.start()
        self.check_result(program, **expected)
        self.assertEqual(program.exit_code(), exit_code)
        return program.lines

    def test_an_unattended_run_copies_what_is_included_and_stays_open(self):
        self.place.save_setup(FOLDERS)
        screen = self.screen()
        program = self.start(screen)
        size = sum(len(data) for data in INCLUDED.values())
        self.check_result(program, status="ok", new="7", modified="0", copied="7", failed="0", bytes=str(size))
        self.check_copies(INCLUDED)
        screen.wait_for_window("Back up new and modified")
        screen.wait_for_window("Quorvane")
        self.assertIsNone(program.process.poll(), "the program stays open until its window is closed")
        screen.close_window("Quorvane")
        self.assertEqual(program.exit_code(), 0)
        self.assertEqual(program.error_text(), "")

    def test_a_missing_target_is_refused_with_exit_code_4(self):
        self.place.save_setup(FOLDERS, target=os.path.join(self.place.root, "gone"))
        screen = self.screen()
        program = self.start(screen)
        self.check_result(program, status="refused", copied="0")
        screen.wait_for_window("Quorvane")
        screen.close_window("Quorvane")
        self.assertEqual(program.exit_code(), 4)
        self.assertFalse(os.path.exists(os.path.join(self.place.root, "gone")))

    def test_without_a_screen_the_run_ends_by_itself(self):
        self.place.save_setup(FOLDERS)
        self.back_up_without_a_screen(0, status="ok", copied="7")
        self.check_copies(INCLUDED)

    def test_a_second_run_copies_only_what_is_new_or_modified(self):
        self.place.save_setup(FOLDERS)
        self.back_up_without_a_screen(0, status="ok", copied="7")
        changed = {"Letters/one.txt": b"Dear reader, again\r\n", "Pictures/new.jpg": b"new"}
        for path, data in changed.items():
            self.place.write(path, data, LAST_YEAR)
        self.back_up_without_a_screen(0, status="ok", new="1", modified="1", copied="2", bytes="23")
        self.check_copies({**INCLUDED, **changed})
        self.back_up_without_a_screen(0, status="ok", new="0", modified="0", copied="0", bytes="0")

    def test_a_file_that_cannot_be_read_is_named_and_gives_exit_code_2(self):
        os.chmod(os.path.join(self.place.source, "Letters/one.txt"), 0)
        self.place.save_setup(FOLDERS)
        lines = self.back_up_without_a_screen(2, status="failed", copied="6", failed="1")
        self.assertIn("one.txt", "".join(line for line in lines if "permission" in line))
        self.check_copies({path: data for path, data in INCLUDED.items() if path != "Letters/one.txt"})

    def test_a_link_that_leads_nowhere_is_a_warning_with_exit_code_1(self):
        os.symlink("nowhere", os.path.join(self.place.source, "Letters", "dangling"))
        self.place.save_setup(FOLDERS)
        lines = self.back_up_without_a_screen(1, status="warnings", copied="7", failed="0")
        self.assertIn("dangling", "".join(lines))

    def test_filters_of_the_setup_hold_in_an_unattended_run(self):
        self.place.save_setup(FOLDERS, skip="/2024/, nothing", extension="TXT")
        self.back_up_without_a_screen(0, status="ok", copied="2")
        self.check_copies({path: INCLUDED[path] for path in ("empty.txt", "Letters/one.txt")})


if __name__ == "__main__":
    unittest.main()

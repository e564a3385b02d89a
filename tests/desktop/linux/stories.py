"""What a user of the Linux program lives through, seen from outside: windows, report, exit codes and copies."""

import os
import types
import unittest

import accessible
import desktop
from first_day import FirstDay
from story import FOLDERS, INCLUDED, Story


def setUpModule():
    OnLinux.screen = accessible.Screen()
    unittest.addModuleCleanup(OnLinux.screen.end)


class OnLinux:
    def make_place(self):
        return desktop.Place()

    def make_program(self, words):
        return accessible.Program(self.place.home, words, self.screen)


class WithoutAScreen(OnLinux, Story):
    def test_the_run_ends_by_itself_and_names_what_it_could_not_copy(self):
        self.write(INCLUDED)
        os.chmod(os.path.join(self.place.source, "Letters/one.txt"), 0)
        os.symlink("nowhere", os.path.join(self.place.source, "Letters", "dangling"))
        self.save_setup(FOLDERS, skip="/2024/, nothing")
        no_large_files = ["prlimit", "--fsize=1000000", desktop.PROGRAM]
        program = accessible.Program(self.place.home, ["nightly"], None, no_large_files)
        self.addCleanup(program.end)
        self.assertEqual(program.exit_code(), 2)
        result = program.wait_for_result()
        self.assertEqual((result["status"], result["copied"], result["failed"]), ("failed", "3", "2"))
        report = "\n".join(program.lines())
        self.assertRegex(report, "(?s)one.txt.*permission.*big.jpg.*larger")
        self.assertIn("dangling", report)
        left_out = ("Letters/one.txt", "Letters/2024", "Pictures/big.jpg")
        self.check_copies({path: data for path, data in INCLUDED.items() if not path.startswith(left_out)})

    def test_neither_a_display_nor_a_reader_that_is_gone_stops_the_run(self):
        self.write(INCLUDED)
        self.save_setup(FOLDERS)
        for command in (["bash", "-o", "pipefail", "-c", '"$0" "$@" | :', desktop.PROGRAM], [desktop.PROGRAM]):
            program = accessible.Program(self.place.home, ["nightly"], types.SimpleNamespace(environment={"DISPLAY": ":9999"}), command)
            self.addCleanup(program.end)
            self.assertEqual(program.exit_code(), 0)
            self.check_copies(INCLUDED)
        self.assertEqual(program.wait_for_result()["status"], "ok")

    def test_a_display_that_goes_away_ends_the_program_with_a_word_and_not_as_if_all_were_backed_up(self):
        screen = desktop.Screen()
        program = accessible.Program(self.place.home, [], screen)
        self.addCleanup(program.end)
        desktop.wait_until(lambda: "Quorvane" in screen.run("wmctrl", "-l").stdout, "the main window")
        screen.end()
        self.assertEqual(program.exit_code(), 2)
        self.assertIn("its display went away", program.complaints()[-1])


class LinuxFirstDay(OnLinux, FirstDay, Story):
    def answer_folder_dialog(self, title, path):
        self.answer_file_dialog(title, path, "Choose", "Directory:")

    def answer_file_dialog(self, title, path, button, label="File name:"):
        self.program.type(title, label, path)
        self.program.answer(title, button)

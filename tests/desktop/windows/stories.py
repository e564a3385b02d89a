"""What a user of the Windows program lives through, seen from outside: windows, report, exit codes and copies."""

import os
import pathlib
import re
import subprocess
import unittest

import desktop
import wine_desktop
from desktop import TEXT
from first_day import FirstDay
from story import FOLDERS, INCLUDED, Story

LAST_CALL = '/s /c "Cancellation possible.\r\nSee comment below"'


def setUpModule():
    screen = desktop.Screen()
    unittest.addModuleCleanup(screen.end)
    Disks.allowed = wine_desktop.may_mount()  # before Wine starts: it has to see what is mounted
    OnWindows.wine = wine_desktop.Wine(screen)
    unittest.addModuleCleanup(OnWindows.wine.end)


class OnWindows:
    def make_place(self):
        return wine_desktop.Place(self.wine)

    def make_program(self, words):
        return wine_desktop.Program(self.wine, words)


class WindowsUnattended(OnWindows, Story):
    def test_where_nobody_sees_its_windows_it_ends_by_itself(self):
        self.write(INCLUDED)
        self.save_setup(FOLDERS)
        command = f'"Z:{desktop.PROGRAM}" nightly'.replace("/", "\\")
        self.assertEqual(self.wine.ask("run unseen", "0", command)[-1], "0")
        self.check_copies(INCLUDED)


class WindowsFirstDay(OnWindows, FirstDay, Story):
    def answer_folder_dialog(self, title, path):
        dialog = self.program.find_label(title).title
        window = self.program.first(dialog, lambda control: control.id == "0")
        folder = path.rsplit("\\", 1)[1]
        desktop.wait_until(lambda: self.wine.ask("browse", window.number, path) == [folder], f"{folder!r} to be selected")
        self.program.answer(dialog, "OK")

    def answer_file_dialog(self, title, path, button):
        self.program.find(title, button)
        box = self.program.first(title, lambda control: control.role == TEXT)
        self.wine.ask("type", box.number, path)
        self.program.answer(title, button)

    def calls(self):
        """The words with which shutdown was called."""
        path = pathlib.Path(self.place.root, "shutdown.txt")
        text = path.read_bytes().decode() if path.exists() else ""
        return [re.sub(r'^.*shutdown\.exe"? ', "", call) for call in text.split("\0")[:-1]]

    last_words = ("shutdown",)

    def hear_last_words(self):
        desktop.wait_until(lambda: self.calls() == [LAST_CALL], "the shutdown")
        self.program.click(self.program.find_label("Click here to cancel the shutdown."))
        self.answer_box_of("Shutdown cancelled", "OK")
        desktop.wait_until(lambda: self.calls() == [LAST_CALL, "/a"], "the end of the shutdown")


class ProgramFile(unittest.TestCase):
    def test_the_program_is_one_small_file_with_all_that_windows_asks_for(self):
        tables = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", desktop.PROGRAM], capture_output=True, text=True,
                                check=True).stdout
        system = {"advapi32", "comctl32", "comdlg32", "gdi32", "kernel32", "msvcrt", "ole32", "oleaut32", "shell32",
                  "shlwapi", "user32", "uxtheme", "dwmapi"}
        self.assertEqual({name.lower() for name in re.findall(r"DLL Name: (\S+)\.dll", tables, re.I)} - system, set())
        self.assertIn("Subsystem\t\t00000002\t(Windows GUI)", tables)
        program = pathlib.Path(desktop.PROGRAM).read_bytes()
        self.assertLess(len(program), 3_000_000)
        self.assertIn("VS_VERSION_INFO".encode("utf-16-le"), program)
        self.assertIn(b"Microsoft.Windows.Common-Controls", program)


class Disks(OnWindows, Story):
    def setUp(self):
        if not self.allowed:
            self.skipTest("this system lets nobody but its administrator mount a disk for the test")
        super().setUp()

    def mount(self, *words):
        self.assertTrue(wine_desktop.mount(*words, self.place.target))

    def back_up(self, folders):
        self.wine.drive("t", self.place.target)
        self.addCleanup(subprocess.run, ["umount", "--lazy", self.place.target], check=False)
        self.save_setup(folders, target="T:\\")
        self.start("nightly")

    def test_a_disk_that_fills_up_holds_only_whole_files_and_the_run_goes_on(self):
        # A file that is larger than what is free is not begun; that the disk has no room for one more name only the
        # system knows, and says so when the file is made.
        files = {f"Zebras/{number:02}": b"fits" for number in range(20)}
        self.write({"Letters/big.bin": bytes(3_000_000), **files})
        self.mount("-t", "tmpfs", "-o", "size=2m,nr_inodes=12", "tmpfs")
        self.back_up(["Letters", "Zebras"])
        self.check_result(status="failed", new="21")
        report = "\n".join(self.program.lines())
        self.assertIn("Insufficient space on the target drive for this file.", report)
        self.assertIn("The target disk is full. Free up space on it, or choose another target. (112: ", report)
        copied = {path: files[path] for path in self.place.copies()}
        self.assertTrue(copied)
        self.check_copies(copied)
        self.close(2)

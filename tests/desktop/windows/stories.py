"""What a user of the Windows program lives through, seen from outside: windows, report, exit codes and copies."""

import os
import unittest

import wine_desktop
from wine_desktop import Program, Window, Wine

import desktop

LAST_YEAR = 1_700_000_000.25
ALL, MODIFIED = "Back up all files in setup", "Back up new and modified"

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


class WindowsStory(unittest.TestCase):
    maxDiff = 2000

    def setUp(self):
        self.mounts = self.needs_disks and wine_desktop.may_mount()
        if self.needs_disks and not self.mounts:
            self.skipTest("this system lets nobody but its administrator mount a disk for the test")
        self.place = desktop.Place()
        self.addCleanup(self.place.remove)
        if self.mounts:
            self.addCleanup(wine_desktop.unmount, self.place.target)
        self.wine = Wine()
        self.addCleanup(self.wine.end)
        self.wine.prepare()
        self.wine.drive("q", self.place.root)
        self.main = Window(self.wine, "Quorvane")

    needs_disks = False

    def write(self, files):
        for path, data in files.items():
            self.place.write(path, data, LAST_YEAR)

    def save_setup(self, folders=FOLDERS, target="Q:\\target", suppress=0, save_on_quit=0, pause=0):
        lines = ["Q:\\source", target]
        lines += [f" {number} " for number in (suppress, save_on_quit, 0, int(bool(folders)), 0, pause)]
        lines += ["", f" {len(folders)} ", *folders, ""]
        os.makedirs(self.wine.settings, exist_ok=True)
        with open(os.path.join(self.wine.settings, "qvr.usr"), "w", encoding="utf-8", newline="\r\n") as file:
            file.write("\n".join(lines) + "\n")

    def start(self, *words):
        program = Program(self.wine, os.path.join(self.place.root, "output.txt"), words)
        self.addCleanup(program.end)
        self.main.wait()
        return program

    def begin(self, button, title):
        """Clicks an operation and says yes to it; gives the report's window."""
        self.main.click(button)
        Window(self.wine, "Confirm operation").wait().click("cmdStart")
        return self.report(title)

    def report(self, title):
        report = Window(self.wine, title)
        desktop.wait_until(lambda: "txbText" in report.controls(), f"the report {title!r}")
        return report

    def finish(self, report, part="", seconds=30):
        """Waits for the operation's end, closes the report and gives its text."""
        text = report.wait_for_text("txbText", part, seconds)
        report.click_captioned("cmdCancelClose", "Close", seconds)
        report.wait_until_gone()
        return text

    def quit(self, program):
        self.main.click("cmdQuit")
        self.assertEqual(program.exit_code(), 0)
        self.main.wait_until_gone()

    def check_copies(self, expected):
        self.assertEqual({path: data for path, (data, _) in self.place.copies().items()}, expected)
        for path, (_, modified) in self.place.copies().items():
            self.assertEqual(modified // 100, int(LAST_YEAR * 1e9) // 100, f"{path}: Windows keeps 100 ns")


class Stories(WindowsStory):
    def test_the_four_operations_run_from_the_saved_setup(self):
        self.write({**INCLUDED, **LEFT_OUT})
        self.save_setup()
        program = self.start()
        self.main.click("cmdListSubFolders")
        listed = self.finish(self.report("Counting files and folders"), "Letters")
        self.assertIn("Pictures", listed)
        self.assertNotIn("Left out", listed)
        self.main.click("cmdCheckBackupState")
        self.finish(self.report("Check backup state"), "Letters")
        self.assertEqual(self.place.copies(), {}, "checking copies nothing")
        self.finish(self.begin("cmdBackupAllFiles", ALL))
        self.check_copies(INCLUDED)
        changed = {"Letters/one.txt": b"Dear reader, again\r\n", "Pictures/new.jpg": b"new"}
        self.write(changed)
        self.finish(self.begin("cmdBackupModifiedFiles", MODIFIED))
        self.check_copies({**INCLUDED, **changed})
        self.quit(program)

    def test_a_paused_backup_goes_on_or_is_cancelled_by_its_buttons(self):
        self.write(INCLUDED)
        self.save_setup(pause=1)
        program = self.start()
        report = self.begin("cmdBackupAllFiles", ALL)
        desktop.wait_until(lambda: report.controls().get("cmdPauseContinue", ("", "", ""))[2] == "Continue", "the pause")
        self.assertFalse(self.main.usable("cmdBackupAllFiles"), "one operation at a time")
        report.click_captioned("cmdCancelClose", "Cancel operation")
        report.click_captioned("cmdCancelClose", "Close")
        report.wait_until_gone()
        copied = {path: data for path, (data, _) in self.place.copies().items()}
        self.assertTrue(copied and len(copied) < len(INCLUDED), sorted(copied))
        self.check_copies({path: INCLUDED[path] for path in copied})
        report = self.begin("cmdBackupModifiedFiles", MODIFIED)
        report.click_captioned("cmdPauseContinue", "Continue")
        while not report.usable("cmdCancelClose") or report.controls()["cmdCancelClose"][2] != "Close":
            if report.controls()["cmdPauseContinue"][:3:2] == (True, "Continue"):
                report.click("cmdPauseContinue")
        self.finish(report)
        self.check_copies(INCLUDED)
        self.quit(program)

    def test_quitting_saves_the_setup_and_the_next_start_shows_it(self):
        self.save_setup(save_on_quit=1)
        self.write(INCLUDED)
        program = self.start()
        self.main.wait_for_text("txbDirectory 1", "Q:\\target")
        self.main.ask("type", "txbExcludedFilepaths", "cache/")
        self.main.wait_for_text("txbExcludedFilepaths", "cache/")
        self.quit(program)
        program = self.start()
        self.main.wait_for_text("txbDirectory 1", "Q:\\target")
        self.assertEqual(self.main.text("txbExcludedFilepaths"), "cache/")
        self.assertEqual(self.main.text("txbDirectory 0"), "Q:\\source")
        self.assertRegex(self.main.text("lblPreviousRun"), r"^Previous run: .*\d+:\d\d")
        self.quit(program)

    def test_an_unattended_run_prints_its_report_and_waits_to_be_closed(self):
        self.write({**INCLUDED, **LEFT_OUT})
        self.save_setup()
        program = self.start("nightly")
        result = program.wait_for_result()
        size = sum(len(data) for data in INCLUDED.values())
        self.assertEqual((result["status"], result["copied"], result["bytes"]), ("ok", "7", str(size)))
        self.check_copies(INCLUDED)
        self.report(MODIFIED)
        self.assertIsNone(program.process.poll(), "the program stays open until its window is closed")
        self.main.close()
        self.assertEqual(program.exit_code(), 0)
        self.main.wait_until_gone()

    def test_a_missing_target_is_refused_with_exit_code_4(self):
        self.write(INCLUDED)
        self.save_setup(target="Q:\\gone")
        program = self.start("nightly")
        self.assertEqual(program.wait_for_result()["status"], "refused")
        self.main.close()
        self.assertEqual(program.exit_code(), 4)
        self.assertFalse(os.path.exists(os.path.join(self.place.root, "gone")))

    def test_the_program_is_one_small_file_with_all_that_windows_asks_for(self):
        libraries, tables = wine_desktop.names_of_libraries(wine_desktop.PROGRAM)
        system = {"advapi32", "comctl32", "comdlg32", "gdi32", "kernel32", "msvcrt", "ole32", "oleaut32", "shell32",
                  "shlwapi", "user32", "uxtheme", "dwmapi"}
        self.assertEqual({name.lower().removesuffix(".dll") for name in libraries} - system, set())
        self.assertIn("Subsystem\t\t00000002\t(Windows GUI)", tables)
        with open(wine_desktop.PROGRAM, "rb") as file:
            program = file.read()
        self.assertLess(len(program), 3_000_000)
        self.assertIn("VS_VERSION_INFO".encode("utf-16-le"), program)
        self.assertIn(b"Microsoft.Windows.Common-Controls", program)


class Disks(WindowsStory):
    needs_disks = True

    def test_a_disk_that_fills_up_holds_only_whole_files_and_the_run_goes_on(self):
        small = {"Letters/one.txt": b"Dear reader\r\n", "Zebras/last.txt": b"fits"}
        self.write({**small, "Letters/big.bin": bytes(3_000_000)})
        self.assertTrue(wine_desktop.mount("-t", "tmpfs", "-o", "size=2m", "tmpfs", self.place.target))
        self.wine.drive("t", self.place.target)
        self.save_setup(["Letters", "Zebras"], target="T:\\")
        program = self.start("nightly")
        result = program.wait_for_result()
        self.assertEqual((result["status"], result["copied"], result["failed"]), ("failed", "2", "1"), program.lines())
        self.assertIn("Insufficient space on the target drive for this file.", "\n".join(program.lines()))
        self.check_copies(small)
        self.main.close()
        self.assertEqual(program.exit_code(), 2)

    def test_a_write_protected_disk_is_refused_and_stays_as_it_is(self):
        self.write(INCLUDED)
        self.assertTrue(wine_desktop.mount("--bind", self.place.target, self.place.target))
        self.assertTrue(wine_desktop.mount("-o", "remount,bind,ro", self.place.target))
        self.wine.drive("t", self.place.target)
        self.save_setup(target="T:\\")
        program = self.start("nightly")
        self.assertEqual(program.wait_for_result()["status"], "refused", program.lines())
        self.assertIn("write-protected", "\n".join(program.lines()))
        self.main.close()
        self.assertEqual(program.exit_code(), 4)
        self.assertEqual(self.place.copies(), {})


if __name__ == "__main__":
    unittest.main()

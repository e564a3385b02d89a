"""What a user of the Linux program lives through, seen from outside: windows, report, exit codes and copies."""

import glob
import os
import subprocess
import unittest

import accessible
import desktop
from damaged_copies import DamagedCopies
from first_day import FirstDay
from held_runs import HeldRuns
from story import FOLDERS, INCLUDED, Story, Unattended

# These take the place of the system's own, for the program alone. The wait before a shutdown keeps the command line of
# the shell that waits, and never says that it is over.
STAND_INS = {"sleep": """#!/bin/sh
cp /proc/$PPID/cmdline "$XDG_CONFIG_HOME/waiting.$PPID"
exec timeout 100 tail -f /dev/null
""", "shutdown": """#!/bin/sh
echo "$@" >>"$XDG_CONFIG_HOME/shutdown.txt"
"""}
WITH_STAND_INS = """for name in sleep shutdown; do
  mount --bind "$XDG_CONFIG_HOME/bin/$name" "$(PATH=/usr/sbin:/usr/bin:/sbin:/bin command -v $name)" || exit 90
done
exec setpriv --ambient-caps=-all --inh-caps=-all "$0" "$@"
"""
OF_ITS_OWN = ["unshare", "--user", "--map-current-user", "--keep-caps", "--mount", "sh", "-c", WITH_STAND_INS]


def setUpModule():
    OnLinux.screen = accessible.Screen()
    unittest.addModuleCleanup(OnLinux.screen.end)


class OnLinux:
    def make_place(self):
        return desktop.Place()

    def make_program(self, words):
        command = self.with_stand_ins() if "shutdown" in words else [desktop.PROGRAM]
        return accessible.Program(self.place.home, words, self.screen, command)

    def with_stand_ins(self):
        """How to start the program so that it cannot switch this computer off."""
        folder = os.path.join(self.place.home, "bin")
        os.makedirs(folder, exist_ok=True)
        for name, script in STAND_INS.items():
            with open(os.path.join(folder, name), "w", encoding="utf-8") as file:
                file.write(script)
            os.chmod(file.name, 0o700)
        if subprocess.run([*accessible.without_roots_rights(), *OF_ITS_OWN, "true"], env={**os.environ, "XDG_CONFIG_HOME": self.place.home}, check=False,
                          capture_output=True).returncode:
            self.skipTest("this system has no shutdown, or lets nobody put another program in its place for a test")
        return [*OF_ITS_OWN, desktop.PROGRAM]


class LinuxRuns(OnLinux, DamagedCopies, HeldRuns, Story):
    pass


class LinuxUnattended(OnLinux, Unattended, Story):
    pass


class GoneScreen:
    environment = {"DISPLAY": ":9999"}


class WithoutAScreen(OnLinux, Story):
    def test_the_run_ends_by_itself_and_names_what_it_could_not_copy(self):
        self.write(INCLUDED)
        os.chmod(os.path.join(self.place.source, "Letters/one.txt"), 0)
        os.symlink("nowhere", os.path.join(self.place.source, "Letters", "dangling"))
        self.save_setup(FOLDERS, skip="/2024/, nothing")
        program = accessible.Program(self.place.home, ["nightly"])
        self.addCleanup(program.end)
        self.assertEqual(program.exit_code(), 2)
        result = program.wait_for_result()
        self.assertEqual((result["status"], result["copied"], result["failed"]), ("failed", "4", "1"))
        report = "\n".join(program.lines())
        self.assertRegex(report, "one.txt.*permission")
        self.assertIn("dangling", report)
        left_out = ("Letters/one.txt", "Letters/2024")
        self.check_copies({path: data for path, data in INCLUDED.items() if not path.startswith(left_out)})

    def test_neither_a_display_nor_a_reader_that_is_gone_stops_the_run(self):
        self.write(INCLUDED)
        self.save_setup(FOLDERS)
        for command in (["bash", "-o", "pipefail", "-c", '"$0" "$@" | :', desktop.PROGRAM], [desktop.PROGRAM]):
            program = accessible.Program(self.place.home, ["nightly"], GoneScreen, command)
            self.addCleanup(program.end)
            self.assertEqual(program.exit_code(), 0)
            self.check_copies(INCLUDED)
        self.assertEqual(program.wait_for_result()["status"], "ok")


    def test_a_shutdown_is_in_the_hands_of_the_system_when_the_program_has_ended(self):
        self.write(INCLUDED)
        self.save_setup(FOLDERS)
        program = accessible.Program(self.place.home, ["shutdown"], command=self.with_stand_ins())
        self.addCleanup(program.end)
        self.assertEqual(program.exit_code(), 0)
        with open(os.path.join(self.place.home, "shutdown.txt"), encoding="utf-8") as file:
            self.assertEqual(file.read(), "-P +1\n")


class LinuxFirstDay(OnLinux, FirstDay, Story):
    def answer_folder_dialog(self, title, path):
        self.answer_file_dialog(title, path, "Choose", "Directory:")

    def answer_file_dialog(self, title, path, button, label="File name:"):
        self.program.type(title, label, path)
        self.program.answer(title, button)

    def check_shutdown_is_pending(self):
        desktop.wait_until(lambda: self.waiting_shell()[:2] == ["sh", "-c"], "the shutdown")
        self.assertEqual(self.waiting_shell()[4], "Cancellation possible.\r\nSee comment below")

    def waiting_shell(self):
        """Its command line."""
        for path in glob.glob(os.path.join(self.place.home, "waiting.*")):
            self.shell = path.rsplit(".", 1)[1]
            with open(path, encoding="utf-8", newline="") as file:
                return file.read().split("\0")
        return []

    def check_shutdown_is_called_off(self):
        desktop.wait_until(lambda: not os.path.exists("/proc/" + self.shell), "the end of the wait")

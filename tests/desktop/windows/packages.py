"""The packages for Windows as cpack makes them: installed, used and removed, each in a Wine prefix of its own."""

import filecmp
import glob
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree
import zipfile

import desktop
from wine_desktop import WINE

BUILD, CPACK = os.environ.get("QV_BUILD", ""), os.environ.get("QV_CPACK", "cpack")
UNINSTALL = r"\Software\Microsoft\Windows\CurrentVersion\Uninstall\Quorvane"


def make_packages(folder):
    subprocess.run([CPACK, "-B", folder], cwd=BUILD, check=True, stdout=subprocess.DEVNULL,
                   env={**os.environ, "SOURCE_DATE_EPOCH": "1700000000"})
    return sorted(path for path in glob.glob(folder + "/quorvane-*") if os.path.isfile(path))


@unittest.skipUnless(shutil.which("makensis"), "the installer is made by NSIS, which is not installed")
class Packages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.root = tempfile.mkdtemp(prefix="quorvane-packages-")
        cls.addClassCleanup(shutil.rmtree, cls.root)
        cls.prefix = os.path.join(cls.root, "wine")
        cls.archive, cls.installer = make_packages(os.path.join(cls.root, "first"))
        cls.wine("cmd", "/c", "exit")
        cls.addClassCleanup(cls.wine, "--stop")
        cls.user, = glob.glob(cls.prefix + "/drive_c/users/[!P]*")
        cls.data = os.path.join(cls.user, "AppData/Roaming/Quorvane")
        os.makedirs(cls.data)
        for folder in ("source", "target"):
            os.mkdir(os.path.join(cls.prefix, "drive_c", folder))
        pathlib.Path(cls.prefix, "drive_c/source/letter.txt").write_bytes(b"Dear reader")
        pathlib.Path(cls.data, "qvr.usr").write_bytes(b"C:\\source\r\nC:\\target\r\n" + b" 0 \r\n" * 6 + b"\r\n 0 \r\n\r\n")

    @classmethod
    def wine(cls, *words):
        return subprocess.run([WINE, cls.prefix, *words], stdin=subprocess.DEVNULL, capture_output=True, check=False)

    def check_backup_by(self, program):
        target = os.path.join(self.prefix, "drive_c/target/letter.txt")
        screen = os.path.join(os.path.dirname(WINE), "on_screen.sh")
        backup = subprocess.Popen([screen, WINE, self.prefix, program, "nightly"], stdout=subprocess.DEVNULL)
        desktop.within(60, lambda: os.path.exists(target))
        self.wine("--stop")
        backup.wait()
        self.assertEqual(pathlib.Path(target).read_bytes(), b"Dear reader")
        os.remove(target)

    def test_the_installer_installs_and_takes_away_only_what_it_brought(self):
        everybody = os.path.join(self.prefix, "drive_c/ProgramData/Microsoft/Windows")
        self.check_installation("/CurrentUser", os.path.join(self.user, "AppData/Local/Programs"), "HKCU", self.user)
        self.check_installation("/AllUsers", os.path.join(self.prefix, "drive_c/Program Files"), "HKLM", everybody)
        self.assertTrue(os.path.exists(os.path.join(self.data, "qvr.usr")), "the user's setup stays")

    def check_installation(self, mode, programs, root, menus):
        self.assertEqual(self.wine(self.installer, "/S", mode).returncode, 0)
        folder = os.path.join(programs, "Quorvane")
        seen = "C:" + folder.split("/drive_c", 1)[1].replace("/", "\\")
        self.assertEqual(sorted(os.listdir(folder)),
                         ["LICENSE.txt", "quorvane-task.xml", "quorvane.exe", "uninstall.exe"])
        entries = self.wine("reg", "query", root + UNINSTALL).stdout.decode()
        for name in ("QuietUninstallString", "EstimatedSize", "DisplayVersion"):
            self.assertIn(name, entries)
        self.assertTrue(glob.glob(menus + "/**/Start Menu/Programs/Quorvane.lnk", recursive=True))
        task = xml.etree.ElementTree.parse(os.path.join(folder, "quorvane-task.xml"))
        command = task.find(".//{*}Exec/{*}Command").text
        self.assertEqual(command.strip('"').lower(), (seen + r"\quorvane.exe").lower())
        self.check_backup_by(os.path.join(folder, "quorvane.exe"))
        self.wine(os.path.join(folder, "uninstall.exe"), "/S", mode, "_?=" + seen)
        left = os.listdir(folder) if os.path.exists(folder) else []
        self.assertLessEqual(set(left), {"uninstall.exe"})
        self.assertNotEqual(self.wine("reg", "query", root + UNINSTALL).returncode, 0)

    def test_the_portable_archive_is_the_program_its_task_and_its_licence(self):
        with zipfile.ZipFile(self.archive) as archive:
            names = sorted(map(os.path.basename, archive.namelist()))
            self.assertEqual(names[-3:], ["LICENSE.txt", "quorvane-task.xml", "quorvane.exe"])
            archive.extractall(self.root)
        program, = glob.glob(self.root + "/quorvane-*/quorvane.exe")
        self.check_backup_by(program)

    def test_the_same_program_makes_the_same_archive_later(self):
        again = make_packages(os.path.join(self.root, "second"))
        self.assertTrue(filecmp.cmp(again[0], self.archive, shallow=False))

"""Drives the real Windows program under Wine: a screen in memory, a prefix with drives, and windows seen by winctl."""

import ctypes
import glob
import os
import shutil
import subprocess

import desktop
from desktop import BUTTON, CHECK, LABEL, TEXT

TOOLS, PREFIX = os.environ.get("QV_TOOLS", ""), os.environ.get("QV_PREFIX", "")
WINE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "wine.sh")

CHECK_BOX, KINDS = 0x2, 0xF  # BS_CHECKBOX, BS_TYPEMASK of <winuser.h>
NEW_MOUNTS, NEW_USER = 0x00020000, 0x10000000  # CLONE_NEWNS, CLONE_NEWUSER of <sched.h>

# Text boxes by their names in the code.
BOXES = {"txbDirectory 0": "Source folder", "txbDirectory 1": "Target folder", "txbFileExtension": "Back up only files with extension",
         "txbExcludedFilepaths": "Skip filepaths containing (separate with commas)", "txbSetupFile": "Setup file in use",
         "txbText": "Report"}


def may_mount():
    """Gives this process mounts of its own, which end with it; whether the system allows that."""
    user, group = os.getuid(), os.getgid()
    if ctypes.CDLL(None).unshare(NEW_MOUNTS | (0 if user == 0 else NEW_USER)) != 0:
        return False
    if user != 0:
        for name, text in (("setgroups", "deny"), ("uid_map", f"0 {user} 1"), ("gid_map", f"0 {group} 1")):
            with open(f"/proc/self/{name}", "w", encoding="ascii") as file:
                file.write(text)
    return mount("--make-rprivate", "/")


def mount(*words):
    return subprocess.run(["mount", *words], capture_output=True, check=False).returncode == 0


class Wine:
    """Wine anew, because it shows everything on the screen of its first program. `drive` names a folder."""

    def __init__(self, screen):
        self.stop()
        self.screen = screen
        self.environment = {**os.environ, **self.screen.environment, "QV_SHUTDOWN_CALLS": r"Q:\shutdown.txt"}
        # The shell's dialogs show only the drives that were there when Wine was started, in a prefix that others may
        # have made.
        self.call("cmd", "/c", "exit")
        self.stop()
        self.drive("q", PREFIX)
        self.winctl = subprocess.Popen([WINE, PREFIX, os.path.join(TOOLS, "winctl.exe")], env=self.environment,
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE, encoding="utf-8")
        self.ask("look")
        shutil.copy(os.path.join(TOOLS, "winctl.exe"), os.path.join(PREFIX, "drive_c/windows/system32/shutdown.exe"))
        users = [folder for folder in glob.glob(os.path.join(PREFIX, "drive_c/users/*/AppData/Roaming"))
                 if "/Public/" not in folder]
        self.settings = os.path.join(users[0], "Quorvane")

    def call(self, *words):
        subprocess.run([WINE, PREFIX, *words], env=self.environment, stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)

    def forget(self):
        """What the program kept before."""
        self.call("reg", "delete", r"HKCU\Software\Quorvane", "/f")
        shutil.rmtree(self.settings, ignore_errors=True)

    def ask(self, *words):
        """The lines of winctl's answer."""
        self.winctl.stdin.write("\t".join(words) + "\n")
        self.winctl.stdin.flush()
        lines = []
        while line := self.winctl.stdout.readline():
            if line == "\f\n":
                return lines
            lines.append(line[:-1])
        raise AssertionError(f"winctl ended at {words}")

    def drive(self, letter, folder):
        link = os.path.join(PREFIX, "dosdevices", letter + ":")
        if os.path.islink(link):
            os.unlink(link)
        os.symlink(folder, link)

    def stop(self):
        for how in ("-k", "-w"):
            subprocess.run(["wineserver", how], env={**os.environ, "WINEPREFIX": PREFIX}, check=False, timeout=30,
                           stderr=subprocess.DEVNULL)

    def end(self):
        self.winctl.communicate()
        self.stop()


class Place(desktop.Place):
    """The folder is drive Q:."""

    def __init__(self, wine):
        super().__init__()
        self.settings = wine.settings
        wine.forget()
        wine.drive("q", self.root)

    def seen(self, path):
        return "Q:" + path.removeprefix(self.root).replace("/", "\\")


class Control:
    def __init__(self, wine, line):
        self.wine = wine
        self.title, self.number, kind, style, usable, self.id, name = line.replace("\v", "\n").split("\t")
        self.usable = usable == "1"
        is_check_box = int(style) & KINDS in (CHECK_BOX, CHECK_BOX + 1)
        self.role = {"Button": CHECK if is_check_box else BUTTON, "Edit": TEXT, "Static": LABEL}.get(kind, kind)
        self.name = BOXES.get(name, name) if kind == "Edit" else name.replace("&", "")

    ticked = property(lambda self: self.wine.ask("ticked", self.number) == ["1"])
    text = property(lambda self: self.wine.ask("text", self.number)[0].replace("\v", "\n"))

    def press(self):
        self.wine.ask("click", self.number)
        return True


class Program(desktop.Program):
    noise = "wine: "

    def __init__(self, wine, words):
        self.wine = wine
        super().__init__([WINE, PREFIX, desktop.PROGRAM, *words], wine.environment, wine.screen)

    def everything(self):
        return [Control(self.wine, line) for line in self.wine.ask("look")]

    def titles(self):
        return [control.title for control in self.everything()]

    def controls(self, title=None):
        return (control for control in self.everything() if title is None or control.title.endswith(title))

    def look_for(self, title, name, role=BUTTON):
        """The box for the answer to a question goes by the question."""
        return super().look_for(title, name, role) or super().look_for(title, "answer", role)

    def toggle(self, title, name):
        self.find(title, name, CHECK).press()

    def type(self, title, name, text):
        self.wine.ask("type", self.find(title, name, TEXT).number, text)
        self.wait_for_text(title, name, text)

    def click(self, control):
        control.press()

    def close(self, title):
        for window in self.controls(title):
            if window.id == "0":
                self.wine.ask("close", window.number)

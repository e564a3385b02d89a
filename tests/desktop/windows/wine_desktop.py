"""Drives the real Windows program under Wine: a screen in memory, a prefix with drives, and windows seen by winctl."""

import ctypes
import glob
import os
import re
import shutil
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(1, os.path.join(HERE, "..", "linux"))
import desktop  # noqa: E402  (the screen and the folders are those of the other desktop)

PROGRAM = os.environ.get("QV_PROGRAM", "")
WINCTL = os.environ.get("QV_WINCTL", "")
PREFIX = os.environ.get("QV_PREFIX", "")
WINE = os.path.join(HERE, "..", "..", "wine.sh")

NEW_MOUNTS, NEW_USER = 0x00020000, 0x10000000  # CLONE_NEWNS, CLONE_NEWUSER of <sched.h>


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


def unmount(folder):
    subprocess.run(["umount", "--lazy", folder], capture_output=True, check=False)


class Wine:
    """The prefix of these tests and a screen. `drive` names a folder; `end` stops everything that runs here."""

    def __init__(self):
        self.screen = desktop.Screen()
        self.environment = {**os.environ, **self.screen.environment}

    def prepare(self):
        """Starts Wine, with nothing left of what the program kept before."""
        self.call("cmd", "/c", "exit")
        self.call("reg", "delete", r"HKCU\Software\Quorvane", "/f")
        users = [folder for folder in glob.glob(os.path.join(PREFIX, "drive_c/users/*/AppData/Roaming"))
                 if "/Public/" not in folder]
        self.settings = os.path.join(users[0], "Quorvane")
        shutil.rmtree(self.settings, ignore_errors=True)

    def call(self, *command, seconds=60):
        """The output goes through a file: Wine's services would hold a pipe open for long after the command's end."""
        with tempfile.TemporaryFile(mode="w+", encoding="utf-8", newline="") as output:
            done = subprocess.run([WINE, PREFIX, *command], env=self.environment, stdin=subprocess.DEVNULL,
                                  stdout=output, stderr=subprocess.DEVNULL, check=False, timeout=seconds)
            output.seek(0)
            return done.returncode, output.read()

    def drive(self, letter, folder):
        link = os.path.join(PREFIX, "dosdevices", letter.lower() + ":")
        if os.path.islink(link):
            os.unlink(link)
        os.symlink(folder, link)

    def end(self):
        subprocess.run(["wineserver", "-k"], env={**self.environment, "WINEPREFIX": PREFIX}, check=False)
        subprocess.run(["wineserver", "-w"], env={**self.environment, "WINEPREFIX": PREFIX}, check=False, timeout=30)
        self.screen.end()


class Window:
    """A window of the program, by its title. Every call looks at it anew."""

    def __init__(self, wine, title):
        self.wine, self.title = wine, title

    def ask(self, command, *words, seconds=60):
        """What winctl prints; None when the window or the control is not there."""
        code, answer = self.wine.call(WINCTL, command, self.title, *words, seconds=seconds)
        return answer if code == 0 else None

    def wait(self, seconds=30):
        if self.ask("wait", str(seconds), seconds=seconds + 30) is None:
            raise AssertionError(f"the window {self.title!r} does not come; there are: "
                                 + self.wine.call(WINCTL, "windows")[1])
        return self

    def wait_until_gone(self, seconds=30):
        if self.ask("gone", str(seconds), seconds=seconds + 30) is None:
            raise AssertionError(f"the window {self.title!r} stays")

    def text(self, control):
        found = self.ask("text", control)
        return None if found is None else found.removesuffix("\n").replace("\r\n", "\n")

    def controls(self):
        """Control name -> (visible, enabled, text without the marks of its access key)."""
        lines = self.ask("list") or ""
        found = re.findall(r"^name=(\S(?:.*?\S)?) id=.* visible=(\d) enabled=(\d) .* text=(.*)$", lines, re.MULTILINE)
        return {name: (visible == "1", enabled == "1", text.replace("&", "")) for name, visible, enabled, text in found}

    def usable(self, control):
        visible, enabled, _ = self.controls().get(control, (False, False, ""))
        return visible and enabled

    def click(self, control, seconds=30):
        """As soon as the user could."""
        desktop.wait_until(lambda: self.usable(control), f"{control} of {self.title!r}", seconds)
        if self.ask("click", control) is None:
            raise AssertionError(f"{control} of {self.title!r} went away")

    def click_captioned(self, control, caption, seconds=30):
        desktop.wait_until(lambda: self.controls().get(control, ("",))[-1] == caption and self.usable(control),
                           f"{control} of {self.title!r} to say {caption!r}", seconds)
        self.ask("click", control)

    def wait_for_text(self, control, part, seconds=30):
        return desktop.wait_until(lambda: (lambda text: text if text and part in text else None)(self.text(control)),
                                  f"{part!r} in {control} of {self.title!r}", seconds)

    def close(self):
        self.ask("close")


class Program:
    """The program, started with `words` as its command line. Its standard output goes to a file."""

    def __init__(self, wine, output, words=()):
        self.output = output
        with open(output, "wb") as file:
            self.process = subprocess.Popen([WINE, PREFIX, PROGRAM, *words], env=wine.environment,
                                            stdin=subprocess.DEVNULL, stdout=file, stderr=subprocess.DEVNULL)

    def lines(self):
        with open(self.output, encoding="utf-8") as file:
            return file.read().splitlines()

    def wait_for_result(self, seconds=60):
        """The fields of the RESULT line, as texts."""
        found = desktop.wait_until(lambda: [line for line in self.lines() if line.startswith("RESULT ")]
                                   or self.process.poll() is not None, "the RESULT line", seconds)
        if found is True:
            raise AssertionError(f"the program ended without a RESULT line: {self.lines()}")
        return dict(re.findall(r"(\w+)=(\S*)", found[-1]))

    def exit_code(self, seconds=30):
        try:
            return self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise AssertionError("the program is still running") from None

    def end(self):
        desktop.end_process(self.process)


def names_of_libraries(program):
    """The libraries that a program needs, and the rest of what objdump says of it."""
    text = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", program], capture_output=True, text=True,
                          check=True).stdout
    return re.findall(r"DLL Name: (\S+)", text), text

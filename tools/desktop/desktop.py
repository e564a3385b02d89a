"""Drives the real program from outside: a screen in memory, the program on it, its windows and its files."""

import os
import re
import shutil
import subprocess
import tempfile
import time

PROGRAM = os.environ.get("QV_PROGRAM", "")

BUTTON, CHECK, TEXT, LABEL = "push button", "check box", "text", "label"


def wait_until(condition, what, seconds=30):
    """Asks again and again until `condition` gives something true, and returns that."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        found = condition()
        if found:
            return found
        time.sleep(0.05)
    raise AssertionError(f"waited {seconds} s in vain for {what}")


def within(seconds, condition):
    """Whether the condition comes true in that time."""
    try:
        return wait_until(condition, "", seconds)
    except AssertionError:
        return False


def end_process(process):
    if process.poll() is None:
        process.kill()
    process.wait()


class Screen:
    """An X server with a window manager; `environment` leads programs to it."""

    def __init__(self, size="1600x1100"):
        reader, writer = os.pipe()
        # Without -noreset the server throws everybody out when its only client leaves, such as a first look of wmctrl.
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", size + "x24", "-nolisten", "tcp", "-noreset"],
            pass_fds=[writer], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as numbers:
            number = numbers.readline().strip()
        if not number:
            raise AssertionError("Xvfb did not start")
        self.environment = {"DISPLAY": ":" + number}
        self.manager = subprocess.Popen(["openbox"], env={**os.environ, **self.environment},
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            wait_until(lambda: self.run("wmctrl", "-m").returncode == 0, "the window manager")
        except AssertionError:
            self.end()
            raise

    def run(self, *command):
        return subprocess.run(command, env={**os.environ, **self.environment}, stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, check=False)

    def end(self):
        end_process(self.manager)
        end_process(self.server)


class Program:
    """The program, started by a command, and its windows, which go by the end of their title. A control has a `title`
    (its window's), a `name`, a `role` and a `text`, is `usable` and `ticked` or not, and can be pressed."""

    vanished = ()  # what is raised when a window closes while it is read
    noise = ()  # how errors begin that are none of the program's

    def __init__(self, command, environment, screen):
        self.screen = screen
        self.output, self.errors = tempfile.TemporaryFile(), tempfile.TemporaryFile()
        self.process = subprocess.Popen(command, env=environment, stdin=subprocess.DEVNULL, stdout=self.output,
                                        stderr=self.errors)

    @staticmethod
    def content(file):
        return os.pread(file.fileno(), 1 << 24, 0).decode()  # without moving the place where the program writes

    def lines(self):
        return self.content(self.output).splitlines()

    def wait_for_result(self):
        """The fields of the RESULT line, as texts."""
        def last_line():
            ended = self.ended()
            return [line for line in self.lines() if line.startswith("RESULT ")] or ended
        found = wait_until(last_line, "the RESULT line", 60)
        if found is True:
            raise AssertionError(f"no RESULT line: {self.lines()} {self.content(self.errors)}")
        return dict(re.findall(r"(\w+)=(\S*)", found[-1]))

    def complaints(self):
        return [line for line in self.content(self.errors).splitlines() if not line.startswith(self.noise)]

    def ended(self):
        return self.process.poll() is not None

    def exit_code(self):
        wait_until(self.ended, "the end of the program")
        return self.process.returncode

    def end(self):
        end_process(self.process)
        self.output.close()
        self.errors.close()

    def controls(self, title=None):
        """Those that show in the windows of a title, or in all."""
        raise NotImplementedError

    def first(self, title, wanted):
        try:
            return next(filter(wanted, self.controls(title)), None)
        except self.vanished:
            return None

    def look_for(self, title, name, role=BUTTON):
        return self.first(title, lambda control: control.role == role and control.name == name)

    def find(self, title, name, role=BUTTON):
        return wait_until(lambda: self.look_for(title, name, role), f"{role} {name!r} in {title!r}", 60)

    def look_for_label(self, part, title=None):
        return self.first(title, lambda control: control.role == LABEL and part in control.name)

    def find_label(self, part, title=None):
        return wait_until(lambda: self.look_for_label(part, title), f"label {part!r}")

    def press_if_usable(self, title, name):
        def press(control):
            return control.role == BUTTON and control.name == name and control.usable and control.press()
        return self.first(title, press)

    def press(self, title, name):
        """As soon as the button is there and can be used."""
        wait_until(lambda: self.press_if_usable(title, name), f"{name!r} in {title!r} to be usable", 60)

    def full(self, title):
        """The report says before its title how far the run is."""
        return next((name for name in self.titles() if name.endswith(title)), title)

    def activate(self, title):
        self.screen.run("wmctrl", "-F", "-a", self.full(title))

    def press_key(self, title, name):
        self.activate(title)
        self.screen.run("xdotool", "key", name)

    def tick(self, title, name):
        """Changes a check box. Again when that got lost, as on a busy screen it may."""
        wanted = not self.find(title, name, CHECK).ticked

        def is_wanted():
            return self.find(title, name, CHECK).ticked == wanted

        def ticked():
            if not is_wanted():
                self.toggle(title, name)
            return within(4, is_wanted)
        wait_until(ticked, f"the tick of {name!r}", 60)

    def text(self, title, name):
        return self.find(title, name, TEXT).text

    def wait_for_text(self, title, name, text):
        wait_until(lambda: self.text(title, name) == text, f"{text!r} in {name!r}")

    def is_open(self, title):
        try:
            return any(name.endswith(title) for name in self.titles())
        except self.vanished:
            return True

    def wait_until_closed(self, title):
        wait_until(lambda: not self.is_open(title), f"the end of {title!r}")

    def answer(self, title, button):
        self.press(title, button)
        self.wait_until_closed(title)


class Place:
    """A fresh folder with a home for the program's settings, a source and a target; `remove` takes it away."""

    def __init__(self):
        self.root = tempfile.mkdtemp(prefix="quorvane-desktop-")
        self.home, self.source, self.target = (os.path.join(self.root, name) for name in ("home", "source", "target"))
        for folder in (self.home, self.source, self.target):
            os.mkdir(folder, 0o700)
        self.settings = os.path.join(self.home, "Quorvane")

    def seen(self, path):
        """A path of the folder as the program knows it."""
        return path

    def write(self, files, modified):
        """Files of the source, last modified so many nanoseconds after 1970."""
        for path, data in files.items():
            full = os.path.join(self.source, path)
            os.makedirs(os.path.dirname(full), exist_ok=True)
            with open(full, "wb") as file:
                file.write(data)
            os.utime(full, ns=(modified, modified))

    def copies(self):
        """Every file of the target: path -> (bytes, time of last modification in ns)."""
        found = {}
        for folder, _, files in os.walk(self.target):
            for name in files:
                full = os.path.join(folder, name)
                with open(full, "rb") as file:
                    found[os.path.relpath(full, self.target)] = (file.read(), os.stat(full).st_mtime_ns)
        return found

    def remove(self):
        shutil.rmtree(self.root)

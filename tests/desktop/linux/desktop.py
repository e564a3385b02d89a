"""Drives the real program from outside: a screen in memory, the program on it, its windows and its setup file."""

import os
import queue
import re
import shutil
import subprocess
import tempfile
import threading
import time

PROGRAM = os.environ.get("QV_PROGRAM", "")


def wait_until(condition, what, seconds=30):
    """Asks again and again until `condition` gives something true, and returns that."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        found = condition()
        if found:
            return found
        time.sleep(0.02)
    raise AssertionError(f"waited {seconds} s in vain for {what}")


def end_process(process):
    if process.poll() is None:
        process.kill()
    process.wait()


class Screen:
    """An X server with a window manager; `environment` leads programs to it."""

    def __init__(self):
        reader, writer = os.pipe()
        # Without -noreset the server throws everybody out when its only client leaves, such as a first look of wmctrl.
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", "1600x1100x24", "-nolisten", "tcp", "-noreset"],
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

    def titles(self):
        """The titles of the windows that are open."""
        lines = self.run("wmctrl", "-l").stdout.splitlines()
        return [line.split(None, 3)[3] for line in lines if len(line.split(None, 3)) == 4]

    def wait_for_window(self, title):
        wait_until(lambda: title in self.titles(), f"the window {title!r}")

    def close_window(self, title):
        """What a click on the cross in the window's corner does."""
        self.run("wmctrl", "-F", "-c", title)

    def end(self):
        end_process(self.manager)
        end_process(self.server)


def without_roots_rights():
    """Root may read every file; without these powers it is refused like any other user."""
    if os.geteuid() != 0:
        return []
    powers = "-dac_override,-dac_read_search"
    return ["setpriv", f"--bounding-set={powers}", f"--inh-caps={powers}"]


class Program:
    """The program, started with `words` as its command line; what it prints is gathered in `lines`."""

    def __init__(self, home, words, screen=None):
        environment = {name: value for name, value in os.environ.items()
                       if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
        environment.update(XDG_CONFIG_HOME=home, XDG_RUNTIME_DIR=home, LC_ALL="C.UTF-8")
        environment.update(screen.environment if screen else {})
        self.lines = []
        self.arrived = queue.Queue()
        self.errors = tempfile.TemporaryFile(mode="w+", encoding="utf-8")
        self.process = subprocess.Popen(without_roots_rights() + [PROGRAM, *words], env=environment, text=True,
                                        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=self.errors)
        self.reader = threading.Thread(target=self.read_lines)
        self.reader.start()

    def read_lines(self):
        for line in self.process.stdout:
            self.arrived.put(line.rstrip("\r\n"))
        self.arrived.put(None)

    def wait_for_result(self, seconds=60):
        """The fields of the RESULT line, as texts."""
        try:
            while not self.lines or not self.lines[-1].startswith("RESULT "):
                line = self.arrived.get(timeout=seconds)
                if line is None:
                    raise AssertionError(f"the program ended without a RESULT line: {self.lines} {self.error_text()}")
                self.lines.append(line)
        except queue.Empty:
            raise AssertionError(f"no RESULT line came: {self.lines} {self.error_text()}") from None
        return dict(re.findall(r"(\w+)=(\S*)", self.lines[-1]))

    def error_text(self):
        self.errors.seek(0)
        return self.errors.read()

    def exit_code(self, seconds=30):
        try:
            return self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise AssertionError("the program is still running") from None

    def end(self):
        end_process(self.process)
        self.reader.join()
        self.process.stdout.close()
        self.errors.close()


class Place:
    """A fresh folder with a home for the program's settings, a source and a target; `remove` takes it away."""

    def __init__(self):
        self.root = tempfile.mkdtemp(prefix="quorvane-desktop-")
        self.home, self.source, self.target = (os.path.join(self.root, name) for name in ("home", "source", "target"))
        for folder in (self.home, self.source, self.target):
            os.mkdir(folder, 0o700)

    def save_setup(self, folders=(), target=None, skip="", extension="", since=0):
        """Writes the setup of the last run: everything below the `folders` of the source is included."""
        lines = [self.source, target or self.target]
        lines += [f" {number} " for number in (0, 0, 0, int(bool(folders)), since, 0)]
        lines += [skip, f" {len(folders)} ", *folders, extension]
        os.makedirs(os.path.join(self.home, "Quorvane"), exist_ok=True)
        with open(os.path.join(self.home, "Quorvane", "qvr.usr"), "w", encoding="utf-8", newline="\r\n") as file:
            file.write("\n".join(lines) + "\n")

    def write(self, path, data, seconds):
        """A file of the source, last modified `seconds` after 1970 (fractions count)."""
        full = os.path.join(self.source, path)
        os.makedirs(os.path.dirname(full), exist_ok=True)
        with open(full, "wb") as file:
            file.write(data)
        os.utime(full, ns=(int(seconds * 1e9),) * 2)

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

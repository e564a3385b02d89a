"""Uses the program's windows as a screen reader does: finds controls by name and role, reads them and presses them."""

import os
import signal
import subprocess
import tempfile

import desktop
import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  (the version has to be chosen first)


class Screen(desktop.Screen):
    """A screen with the message bus on which programs describe their windows. One in a process: the library that
    reads the bus stays with the first that it finds."""

    def __init__(self, size="1600x1100"):
        super().__init__(size)
        self.folder = tempfile.TemporaryDirectory(prefix="quorvane-bus-")
        bus = ["dbus-daemon", "--session", "--nofork", "--print-address=1",
               "--address=unix:path=" + os.path.join(self.folder.name, "bus")]
        self.environment.update(XDG_RUNTIME_DIR=self.folder.name, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self.bus = subprocess.Popen(bus, env={**os.environ, **self.environment}, text=True,
                                    stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.bus.stdout.readline().strip()
        os.environ.update(self.environment)
        # The program looks for the second bus, that of the screen readers, only once: asking for it starts it.
        ask = ["dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus", "/org/a11y/bus",
               "org.a11y.Bus.GetAddress"]
        desktop.wait_until(lambda: self.run(*ask).returncode == 0, "the bus of the screen readers")
        Atspi.init()

    def left_running(self):
        """The bus of the screen readers outlives the one that started it; its address lies in our folder."""
        for number in filter(str.isdigit, os.listdir("/proc")):
            try:
                with open(f"/proc/{number}/cmdline", "rb") as words:
                    if self.folder.name.encode() + b"/" in words.read():
                        yield int(number)
            except OSError:
                pass  # it has ended

    def end(self):
        desktop.end_process(self.bus)
        self.bus.stdout.close()
        for number in self.left_running():
            os.kill(number, signal.SIGTERM)
        super().end()
        self.folder.cleanup()


def children(item):
    return [child for child in (item.get_child_at_index(i) for i in range(item.get_child_count())) if child]


def everything_below(item):
    for child in children(item):
        yield child
        yield from everything_below(child)


class Control:
    def __init__(self, title, item):
        self.title, self.item = title, item

    def has(self, state):
        return self.item.get_state_set().contains(state)

    name = property(lambda self: self.item.get_name())
    role = property(lambda self: self.item.get_role_name())
    text = property(lambda self: Atspi.Text.get_text(self.item, 0, -1))
    usable = property(lambda self: self.has(Atspi.StateType.SENSITIVE))
    ticked = property(lambda self: self.has(Atspi.StateType.CHECKED))
    showing = property(lambda self: self.has(Atspi.StateType.SHOWING))

    def press(self):
        return Atspi.Action.do_action(self.item, 0)


def without_roots_rights():
    """Root may read every file; without these powers it is refused like any other user."""
    if os.geteuid() != 0:
        return []
    powers = "-dac_override,-dac_read_search"
    return ["setpriv", f"--bounding-set={powers}", f"--inh-caps={powers}"]


class Program(desktop.Program):
    vanished = GLib.Error
    noise = "QAccessibleTable"  # Qt about a file dialog that is read while it is filled

    def __init__(self, home, words, screen=None, command=()):
        environment = {name: value for name, value in os.environ.items()
                       if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
        environment.update(XDG_CONFIG_HOME=home, XDG_RUNTIME_DIR=home, LC_ALL="C.UTF-8")
        environment.update(screen.environment if screen else {})
        super().__init__([*without_roots_rights(), *(command or [desktop.PROGRAM]), *words], environment, screen)

    def windows(self):
        """The windows that are open, with their titles; a message may have that of the main window."""
        everything = Atspi.get_desktop(0)
        everything.clear_cache()  # it grows old, because nothing here listens for changes
        for program in children(everything):
            if program.get_process_id() == self.process.pid:
                program.clear_cache()
                return [(item.get_name(), item) for item in children(program) if Control("", item).showing]
        return []

    def titles(self):
        return [name for name, _ in self.windows()]

    def controls(self, title=None):
        for name, window in self.windows():
            if title is None or name.endswith(title):
                yield from (control for control in (Control(name, item) for item in everything_below(window))
                            if control.showing)

    def focus(self, title, name, role):
        """Asks for it again and again: a window that is going away may still take the focus back."""
        def focused():
            control = self.find(title, name, role)
            if sum(name.endswith(title) for name in self.titles()) == 1:
                self.activate(title)
            Atspi.Component.grab_focus(control.item)
            return desktop.within(1, lambda: control.has(Atspi.StateType.FOCUSED))
        desktop.wait_until(focused, f"the focus of {name!r}", 60)

    def toggle(self, title, name):
        """By the keyboard: the bus changes a check box without telling the program of it."""
        self.focus(title, name, desktop.CHECK)
        self.screen.run("xdotool", "key", "space")

    def type(self, title, name, text):
        """In the place of what the box holds. Again when a key got lost, as on a busy screen it may."""
        def typed():
            self.focus(title, name, desktop.TEXT)
            self.screen.run("xdotool", "key", "ctrl+a", "type", "--delay", "5", text)
            return desktop.within(4, lambda: self.text(title, name) == text)
        desktop.wait_until(typed, f"{text!r} to be typed", 60)

    def close(self, title):
        """What a click on the cross in the window's corner does."""
        self.screen.run("wmctrl", "-F", "-c", self.full(title))

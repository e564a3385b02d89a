"""Uses the program's windows as a screen reader does: finds controls by name and role, reads them and presses them."""

import os
import signal
import subprocess
import tempfile
import time

import desktop
import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  (the version has to be chosen first)

BUTTON, CHECK, TEXT, LABEL, LIST = "push button", "check box", "text", "label", "combo box"


class Screen(desktop.Screen):
    """A screen with the message bus on which programs describe their windows. One in a process: the library that
    reads the bus stays with the first that it finds."""

    def __init__(self):
        super().__init__()
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

    def type(self, text):
        self.run("xdotool", "type", "--delay", "5", text)

    def key(self, name):
        self.run("xdotool", "key", name)

    def picture(self, path):
        self.run("import", "-window", "root", path)

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


def has(item, state):
    return item.get_state_set().contains(state)


def showing(item):
    return has(item, Atspi.StateType.SHOWING)


def text_of(item):
    return Atspi.Text.get_text(item, 0, -1)


def may_vanish(read):
    """A window can close while it is read: then it holds nothing."""
    def attempt(*arguments):
        try:
            return read(*arguments)
        except GLib.Error:
            return None
    return attempt


class Program(desktop.Program):
    """The program with its windows."""

    def __init__(self, home, words, screen):
        super().__init__(home, words, screen)
        self.screen = screen

    @may_vanish
    def windows(self):
        """The windows that are open, with their titles; a message may have that of the main window."""
        everything = Atspi.get_desktop(0)
        everything.clear_cache()  # it grows old, because nothing here listens for changes
        for program in children(everything):
            if program.get_process_id() == self.process.pid:
                program.clear_cache()
                return [(window.get_name(), window) for window in children(program) if showing(window)]
        return []

    def items_of(self, title):
        for name, window in self.windows() or ():
            if name == title:
                yield from everything_below(window)

    @may_vanish
    def look_for(self, title, name, role):
        for item in self.items_of(title):
            if item.get_role_name() == role and showing(item) and name in (None, item.get_name()):
                return item
        return None

    def find(self, title, name, role=BUTTON):
        return desktop.wait_until(lambda: self.look_for(title, name, role), f"{role} {name!r} in {title!r}", 60)

    def press(self, title, name):
        """Presses a button as soon as it is there and can be used."""
        button = self.find(title, name)
        desktop.wait_until(lambda: has(button, Atspi.StateType.SENSITIVE), f"{name!r} to be usable")
        Atspi.Action.do_action(button, 0)

    def focus(self, title, name, role):
        item = self.find(title, name, role)
        if self.screen.titles().count(title) == 1:
            self.screen.run("wmctrl", "-F", "-a", title)
        Atspi.Component.grab_focus(item)
        desktop.wait_until(lambda: has(item, Atspi.StateType.FOCUSED), f"the focus of {name!r}")
        return item

    def tick(self, title, name):
        """Changes a check box by the keyboard."""
        box = self.focus(title, name, CHECK)
        wanted = not self.ticked(title, name)
        self.screen.key("space")
        desktop.wait_until(lambda: has(box, Atspi.StateType.CHECKED) == wanted, f"the tick of {name!r}")

    def ticked(self, title, name):
        return has(self.find(title, name, CHECK), Atspi.StateType.CHECKED)

    def type(self, title, name, text):
        """Types into a box in place of what it holds; again when a key got lost, as on a busy screen it may."""
        box = self.focus(title, name, TEXT)

        def typed():
            self.screen.key("ctrl+a")
            self.screen.type(text)
            end = time.monotonic() + 4
            while text_of(box) != text and time.monotonic() < end:
                time.sleep(0.05)
            return text_of(box) == text
        desktop.wait_until(typed, f"{text!r} to be typed", 60)

    def text(self, title, name, role=TEXT):
        return text_of(self.find(title, name, role))

    def wait_for_text(self, title, name, part, role=TEXT):
        """Waits until the box or label holds the part, and returns its whole text."""
        def held():
            item = self.look_for(title, name, role)
            text = text_of(item) if item else ""
            return text if part in text else None
        return desktop.wait_until(held, f"{part!r} in {name!r}", 90)

    def wait_for_label(self, title, text):
        self.find(title, text, LABEL)

    def ended_within(self, seconds):
        try:
            self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            return False
        return True

    def described(self):
        """Everything that shows, a line each."""
        return [f"{title}: {item.get_role_name()} {item.get_name()!r}" for title, window in self.windows()
                for item in everything_below(window) if showing(item)]

    @may_vanish
    def message_holding(self, part):
        """The title of a window that holds a label with the part, as the only one of a list."""
        for title, window in self.windows() or ():
            if any(item.get_role_name() == LABEL and part in item.get_name() for item in everything_below(window)):
                return [title]
        return []

    def type_into_message(self, question, text):
        [title] = desktop.wait_until(lambda: self.message_holding(question), f"the question {question!r}")
        self.type(title, question, text)

    def find_label_beginning(self, title, beginning):
        def labels():
            return [item for item in self.items_of(title) if item.get_name().startswith(beginning)]
        return desktop.wait_until(may_vanish(labels), f"{beginning!r} in {title!r}")

    def wait_until_closed(self, title):
        desktop.wait_until(lambda: title not in [name for name, _ in self.windows() or [(title, None)]], f"the end of {title!r}")

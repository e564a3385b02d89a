"""Every window as a screen reader tells it: what can be focused has a name, and no two have the same."""

import collections
import unittest

import accessible
import desktop
from gi.repository import Atspi

MAIN = "Quorvane"
PARTS = ("list item", "scroll bar")  # of a list or a text that has the name


def spoken(item):
    """The name of a list is its choice; what it is for, its label tells."""
    labels = [relation.get_target(0).get_name() for relation in item.get_relation_set()
              if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY]
    return " ".join(labels) if item.get_role_name() == accessible.LIST else item.get_name()


class SpokenNames(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.screen = accessible.Screen()
        cls.addClassCleanup(cls.screen.end)

    def setUp(self):
        self.place = desktop.Place()
        self.addCleanup(self.place.remove)
        for number in range(1, 40):
            self.place.write(f"Folder {number:02}/below/file.txt", b"file", 1_700_000_000)
        self.place.save_setup(["Folder 01", "Folder 02"], skip="cache")
        self.program = accessible.Program(self.place.home, [], self.screen)
        self.addCleanup(self.program.end)

    def check(self, title, control):
        self.program.find(title, control)
        names = collections.Counter(
            (spoken(item), item.get_role_name()) for item in self.program.items_of(title)
            if accessible.showing(item) and accessible.has(item, Atspi.StateType.FOCUSABLE)
            and item.get_role_name() not in PARTS)
        self.assertEqual([role for name, role in names if not name.strip()], [], f"no name in {title!r}")
        spoken_twice = [name for name, count in collections.Counter(name for name, _ in names.elements()).items()
                        if count > 1]
        self.assertEqual(spoken_twice, [], f"in {title!r}")

    def test_in_the_main_window(self):
        self.check(MAIN, "Remove the selected subfolder")

    def test_in_the_setup_commands(self):
        self.program.press(MAIN, "Setup")
        self.check(MAIN, "Restore setup")
        self.program.press(MAIN, "Load setup")
        self.check(MAIN, "Load setup from setup file")

    def test_in_the_selection_of_subfolders(self):
        self.program.press(MAIN, "Select included subfolders")
        self.check("Select subfolders", "Accept")

    def test_in_the_confirmation_and_the_report(self):
        self.program.press(MAIN, "Back up new and modified")
        self.check("Confirm operation", "Start backup")
        self.program.press("Confirm operation", "Start backup")
        self.check("Back up new and modified", "Close")

    def test_in_the_help(self):
        self.program.press(MAIN, "Help")
        title = desktop.wait_until(
            lambda: next((name for name, _ in self.program.windows() or () if name != MAIN), None), "the help")
        self.check(title, "Find next")


if __name__ == "__main__":
    unittest.main()

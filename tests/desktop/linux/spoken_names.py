"""Every window as a screen reader tells it: whatever shows has a name, and nothing that can be focused has
that of another."""

import collections

import desktop
from gi.repository import Atspi
from stories import OnLinux, setUpModule  # noqa: F401  (the screen of this module too)
from story import BACK_UP, MAIN, Story

PARTS = ("list item", "scroll bar")  # of a list or a text that has the name


def spoken(control):
    """The name of a list is its choice; what it is for, its label tells. The group around it says less."""
    targets = [relation.get_target(index) for relation in control.item.get_relation_set()
               if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY
               for index in range(relation.get_n_targets())]
    labels = [target.get_name() for target in targets if target.get_role_name() == "label"]
    return " ".join(labels) if control.role == "combo box" else control.name


class SpokenNames(OnLinux, Story):
    def check(self, title, control):
        self.program.find(title, control)
        roles = [item.get_role_name() for name, item in self.program.windows() if name.endswith(title)]
        self.assertIn(roles[0], ("frame", "window", "dialog"), f"{title!r} is told to be a window")
        shown = list(self.program.controls(title))
        nameless = [control.role for control in shown if control.role == "filler" or not spoken(control).strip()]
        self.assertEqual(nameless, [], f"in {title!r}")
        names = [spoken(control) for control in shown
                 if control.has(Atspi.StateType.FOCUSABLE) and control.role not in PARTS]
        spoken_twice = [name for name, count in collections.Counter(names).items() if count > 1]
        self.assertEqual(spoken_twice, [], f"in {title!r}")

    def test_in_every_window(self):
        self.write({f"Folder {number:02}/below/file.txt": b"file" for number in range(1, 40)})
        self.save_setup(["Folder 01", "Folder 02"], skip="cache")
        self.start()
        self.check(MAIN, "Remove the selected subfolder")
        self.program.press(MAIN, "Setup")
        self.check(MAIN, "Restore setup")
        self.program.press(MAIN, "Load setup")
        self.check(MAIN, "Load setup from setup file")
        self.program.press(MAIN, "Not now")
        self.program.press(MAIN, "Select included subfolders")
        self.check("Select subfolders", "Accept")
        self.program.answer("Select subfolders", "Cancel")
        self.program.press(MAIN, BACK_UP)
        self.check("Confirm operation", "Start backup")
        self.program.press("Confirm operation", "Start backup")
        self.check(BACK_UP, "Close")
        self.program.answer(BACK_UP, "Close")
        self.program.press(MAIN, "Help")
        title = desktop.wait_until(
            lambda: next((name for name in self.program.titles() if name != MAIN), None), "the help")
        self.check(title, "Find next")

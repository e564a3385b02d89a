"""What may happen to the windows of a run while it works: closed, minimised, answered with one key too many."""

import desktop
from first_day import CONFIRM, PAUSE
from story import MAIN

ALL = "Back up all files in setup"


class HeldRuns:
    """Stories to be told on each desktop."""

    def begin(self, operation):
        self.program.press(MAIN, operation)
        self.program.press(CONFIRM, "Start backup")
        self.program.wait_until_closed(CONFIRM)

    def wait_for_window_on_top(self, title):
        def name():
            windows = self.program.screen.run("xprop", "-root", "_NET_CLIENT_LIST_STACKING").stdout.split()
            return self.program.screen.run("xdotool", "getwindowname", windows[-1]).stdout.strip()
        desktop.wait_until(lambda: name().endswith(title), f"{title!r} to be on top")

    def minimise(self, title):
        window = self.program.screen.run("xdotool", "search", "--onlyvisible", "--name", title + "$").stdout.split()[-1]
        self.program.screen.run("xdotool", "windowminimize", "--sync", window)

    def test_enter_twice_starts_a_run_and_one_that_is_minimised_comes_back_before_the_main_window(self):
        files = {f"Letters/{number}": b"Dear reader" for number in range(300)}
        self.write(files)
        self.save_setup(["Letters"])
        self.start()
        self.program.press(MAIN, ALL)
        self.program.find(CONFIRM, "Start backup")
        self.program.activate(CONFIRM)
        desktop.wait_until(lambda: self.program.screen.run("xdotool", "getactivewindow", "getwindowname").stdout.strip() == CONFIRM, "the keyboard")
        self.program.screen.run("xdotool", "key", "--delay", "30", "Return", "Return")
        self.program.find(ALL, "Close")
        self.program.answer(ALL, "Close")
        self.program.tick(MAIN, PAUSE)
        self.begin(ALL)
        self.program.find(ALL, "Continue")
        for title in (ALL, MAIN):
            self.minimise(title)
        self.program.press(ALL, "Continue")
        self.program.find(ALL, "Close")
        self.wait_for_window_on_top(ALL)
        self.check_copies(files)

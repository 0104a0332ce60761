"""Kiosk windows on several screens. Skipped where there is no virtual display to be had."""

import signal
import unittest

from display import DisplayedTest, has_tools
from programs import isolate_network, wait_for

WIDTH, HEIGHT = 1280, 720
# From the left to the right; the middle one is the main screen.
PLACES = {"LEFT": 0, "MIDDLE": WIDTH, "RIGHT": 2 * WIDTH}


@unittest.skipUnless(has_tools("xrandr"), "no virtual display here")
class KioskTest(DisplayedTest):
    SCREEN = f"{3 * WIDTH}x{HEIGHT}"

    def arrange_screens(self):
        for name in ("MIDDLE", "LEFT", "RIGHT"):
            self.plug_in(name)

    def plug_in(self, name):
        """The server's one output is the main screen's; the others have none."""
        mark, output = ("*", "screen") if name == "MIDDLE" else ("", "none")
        self.ask("xrandr", "--setmonitor", mark + name, f"{WIDTH}/340x{HEIGHT}/190+{PLACES[name]}+0", output)

    def unplug(self, name):
        self.ask("xrandr", "--delmonitor", name)

    def places(self, tarvel):
        """Each window's title, with the screen that it covers or the place it has."""
        found = {}
        for window in self.windows_of(tarvel):
            title = self.ask("xdotool", "getwindowname", window).strip()
            rows = self.ask("xdotool", "getwindowgeometry", "--shell", window).splitlines()
            shape = {key: int(value) for key, value in (row.split("=") for row in rows if "=" in row)}
            covered = [name for name, x in PLACES.items()
                       if (shape.get("X"), shape.get("Y"), shape.get("WIDTH"), shape.get("HEIGHT")) == (x, 0, WIDTH, HEIGHT)]
            found[title] = covered[0] if covered else shape
        return found

    def expect_places(self, tarvel, *screens):
        expected = {f"{rink['name']} — Today": screen for rink, screen in zip(self.rinks, screens)}
        wait_for(lambda: self.places(tarvel) == expected, f"{expected}, not {self.places(tarvel)}")

    def test_three_windows_take_three_screens_and_each_comes_back_with_its_own(self):
        self.fill_catalogue()
        self.rinks = self.demo.state()["rinks"][:len(PLACES)]
        state = self.read_state()
        state.update(kioskMode=True, openWindows=[{"className": "TodayWindowController", "rinkID": rink["rink"]}
                                                  for rink in self.rinks])
        self.write_state(state)
        tarvel = self.start_tarvel()
        self.expect_places(tarvel, "RIGHT", "LEFT", "MIDDLE")
        for gone in PLACES:
            self.unplug(gone)
            # The desktop gathers the windows on the screens that are left.
            wait_for(lambda: gone not in self.places(tarvel).values(), "the window's going")
            self.plug_in(gone)
            self.expect_places(tarvel, "RIGHT", "LEFT", "MIDDLE")
        for blinking in PLACES:
            self.blink(blinking, tarvel)
            self.expect_places(tarvel, "RIGHT", "LEFT", "MIDDLE")
        self.quit(tarvel)

    def blink(self, name, tarvel):
        """Off and on while the program does something else, so that it finds the same screens as before; the desktop alone
        has seen it, and has moved the window."""
        tarvel.process.send_signal(signal.SIGSTOP)
        try:
            self.unplug(name)
            wait_for(lambda: name not in self.places(tarvel).values(), "the window's going")
            self.plug_in(name)
        finally:
            tarvel.process.send_signal(signal.SIGCONT)


if __name__ == "__main__":
    isolate_network()
    unittest.main()

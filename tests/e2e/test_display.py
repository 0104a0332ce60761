"""The application on a screen, as its user sees it. Skipped where there is no virtual one to be had."""

import os
import subprocess
import unittest

from display import DisplayedTest, has_tools
from programs import isolate_network, wait_for

RINK = 11
SURFACE = 2000  # pixels
SURFACES_OF_A_WEEK = 10  # a window with no week in it has four or five


@unittest.skipUnless(has_tools(), "no virtual display here")
class DisplayTest(DisplayedTest):
    def window_of(self, tarvel):
        """The id of its visible window, or nothing."""
        return self.windows_of(tarvel)[:1]

    def close_by_key(self, window, tarvel):
        """Presses the window manager's key for closing a window, which it may not heed yet; true once that has ended
        the program."""
        self.ask("xdotool", "windowactivate", window, "key", "alt+F4")
        return tarvel.process.poll() is not None

    def surfaces(self):
        """How many colours cover a surface of the screen."""
        picture = os.path.join(self.folder, "screen.png")
        self.ask("import", "-window", "root", picture)
        counts = self.ask("convert", picture, "-format", "%c", "histogram:info:-").splitlines()
        return sum(int(line.partition(":")[0]) >= SURFACE for line in counts if line.strip())

    def test_the_week_is_drawn_from_the_store_when_the_server_is_down(self):
        self.fill_rink(self.demo.rink(RINK))
        self.demo.end()
        tarvel = self.start_tarvel()
        wait_for(lambda: self.surfaces() >= SURFACES_OF_A_WEEK, "the week on the screen")
        self.quit(tarvel)
        wait_for(lambda: self.surfaces() <= 1, "an empty screen")

    def test_closing_the_last_window_quits(self):
        tarvel = self.start_tarvel()
        (window,) = wait_for(lambda: self.window_of(tarvel), "the window")
        wait_for(lambda: self.close_by_key(window, tarvel), "the end")
        self.assertEqual(tarvel.wait(), 0)
        self.assertEqual(tarvel.lines[-1], "----- Quit Tarvel -----")
        state = self.read_state()
        self.assertEqual(state["openWindows"], [])
        self.assertIn("frame", state["windowSettings"]["MainWindowController"])
        tarvel = self.start_tarvel()
        wait_for(lambda: self.window_of(tarvel), "the window")
        self.quit(tarvel)
        self.assertEqual(len(self.read_state()["openWindows"]), 1)

    def test_a_second_start_brings_the_window_back_to_sight(self):
        tarvel = self.start_tarvel()
        (window,) = wait_for(lambda: self.window_of(tarvel), "the window")
        self.ask("xdotool", "windowminimize", "--sync", window)
        wait_for(lambda: not self.window_of(tarvel), "the window's going")
        second = subprocess.run([os.environ["TARVEL"]], env=self.environment, stdin=subprocess.DEVNULL,
                                capture_output=True, check=False, timeout=60)
        self.assertEqual((second.returncode, second.stdout), (0, b""))
        self.assertEqual(wait_for(lambda: self.window_of(tarvel), "the window"), [window])
        self.quit(tarvel)


if __name__ == "__main__":
    isolate_network()
    unittest.main()

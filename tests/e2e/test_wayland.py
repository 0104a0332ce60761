"""The application under a Wayland compositor, which tells no window where it is. Skipped where there is none."""

import os
import shutil
import unittest

from programs import Process, ProgramTest, isolate_network, wait_for

WIDTH, HEIGHT = 1280, 800
FRAME = "70 40 1100 720 0 0 1600 1000"  # of a screen that isn't there any more
SOCKET = "tarvel-test"
RINK = 11


@unittest.skipUnless(shutil.which("weston"), "no Wayland compositor here")
class WaylandTest(ProgramTest):
    def setUp(self):
        super().setUp()
        compositor = Process(["weston", "--backend=headless-backend.so", f"--width={WIDTH}", f"--height={HEIGHT}",
                              "--socket=" + SOCKET, "--idle-time=0"], self.environment)
        self.addCleanup(compositor.destroy)
        self.addCleanup(compositor.end)
        socket = os.path.join(self.environment["XDG_RUNTIME_DIR"], SOCKET)
        wait_for(lambda: os.path.exists(socket), "the compositor")
        self.environment.update(WAYLAND_DISPLAY=SOCKET, QT_QPA_PLATFORM="wayland")

    def run_once(self):
        tarvel = self.start_tarvel()
        tarvel.wait_for_line("next ")
        self.quit(tarvel)
        self.assertEqual(tarvel.errors, [])
        return self.read_state()

    def set_window(self, **settings):
        state = self.read_state()
        state["openWindows"][0].update(settings)
        self.write_state(state)

    def test_a_window_keeps_its_size_and_the_place_it_last_had(self):
        first = self.run_once()["openWindows"][0]["frame"].split()
        x, y, width, height = map(int, first[:4])
        self.assertEqual(first[4:], ["0", "0", str(WIDTH), str(HEIGHT)])
        self.assertLessEqual(abs((WIDTH - width) // 2 - x), 1)
        self.assertLessEqual(abs((HEIGHT - height) // 2 - y), 1)
        for _ in range(2):
            self.set_window(frame=FRAME)
            self.assertEqual(self.run_once()["openWindows"][0]["frame"], FRAME)

    def test_a_kiosk_covers_the_screen(self):
        self.fill_catalogue()
        state = self.read_state()
        window = {"className": "TodayWindowController", "rinkID": RINK, "frame": FRAME}
        state.update(kioskMode=True, openWindows=[window])
        self.write_state(state)
        state = self.run_once()
        self.assertTrue(state["kioskMode"])
        self.assertEqual([window["className"] for window in state["openWindows"]], ["TodayWindowController"])
        self.assertEqual(state["openWindows"][0]["frame"], f"0 0 {WIDTH} {HEIGHT} 0 0 {WIDTH} {HEIGHT}")


if __name__ == "__main__":
    isolate_network()
    unittest.main()

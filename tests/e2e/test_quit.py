"""How the application ends, what it leaves, and how it comes back."""

import datetime
import os
import signal
import subprocess
import unittest

from programs import TARVEL, Process, ProgramTest, isolate_network

RINK = 17

APPLICATION_KEYS = {
    "windowSettings": dict, "openWindows": list, "kioskMode": bool, "skipBetaCycle": int,
    "errorKind": int, "errorLog": str, "mismatchError": bool, "prevMismatchError": bool,
    "updateReminderDueDate": int, "applicationUpdateRequired": bool, "applicationWebsiteURL": str,
    "lastRefreshTimeStamp": datetime.datetime, "defsFileDate": datetime.datetime,
    "rinksFileDate": datetime.datetime, "recentRinks": list,
}
RINK_KEYS = {
    "rinkID": int, "firstWeek": int, "lastWeek": int, "dismissedNotices": list,
    "errorKind": int, "errorLog": str, "mismatchError": bool, "prevMismatchError": bool,
    "mainFileDate": datetime.datetime, "lastRefreshTimeStamp": datetime.datetime,
    "lastViewed": datetime.datetime, "chimeVenueID": int, "weeklyVenueID": int, "dailyVenueIDs": list,
}
WINDOW_KEYS = {
    "className": str, "frame": str, "rinkID": int, "currentPaneKind": int, "scheduleViewOption": int,
    "fitVertically": bool, "showSessionTimes": bool, "galleryViewPhotoHeight": float,
    "albumViewPhotoHeight": float, "showRinks": bool, "showCalendar": bool,
}


class QuitTest(ProgramTest):
    def assert_types(self, dictionary, types):
        for key, expected in types.items():
            with self.subTest(key):
                self.assertIs(type(dictionary[key]), expected)

    def test_each_signal_quits_in_order(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(number):
                tarvel = self.start_tarvel()
                tarvel.wait_for_line("next master refresh in ")
                self.quit(tarvel, number)
                ending = tarvel.lines[tarvel.lines.index("saveAppState"):]
                self.assertEqual(ending, ["saveAppState", "File saved: " + self.state_path,
                                          "----- Quit Tarvel -----"])

    def test_two_windows_come_back_each_as_it_was(self):
        self.fill_catalogue()
        state = self.read_state()
        template = state["openWindows"][0]
        chosen = [
            dict(template, rinkID=RINK, currentPaneKind=1, scheduleViewOption=1, fitVertically=False,
                 showSessionTimes=True, showRinks=False, showCalendar=False, dailyFontSizeMultiScroll=14.5),
            dict(template, rinkID=14, currentPaneKind=2, showRinks=True, weeklyFontSizeFit=7.5,
                 galleryViewPhotoHeight=180.0),
            dict(template, rinkID=999_999, currentPaneKind=1, showRinks=False),
        ]
        state["openWindows"] = chosen
        self.write_state(state)
        for _ in range(2):
            tarvel = self.start_tarvel()
            tarvel.wait_for_line("next master refresh in ")
            self.quit(tarvel)
        windows = {window["rinkID"]: window for window in self.read_state()["openWindows"]}
        kept = [key for key in chosen[0] if key != "frame"]
        for window in chosen[:2]:
            for key in kept:
                if key in window:
                    with self.subTest(rink=window["rinkID"], key=key):
                        self.assertEqual(windows[window["rinkID"]][key], window[key])
        self.assertTrue(windows[0]["showRinks"], "a window whose rink has gone shows the list")

    def test_the_state_file_has_its_keys_and_types(self):
        self.fill_rink(self.demo.rink(RINK))
        with open(self.state_path, "rb") as file:
            self.assertTrue(file.read(5) == b"<?xml")
        state = self.read_state()
        self.assert_types(state, APPLICATION_KEYS)
        self.assertNotIn("tarvelServerURL", state, "the default address isn't kept")
        self.assertNotIn("errorTimeStamp", state)
        self.assertEqual([rink["rinkID"] for rink in state["recentRinks"]], [RINK])
        self.assert_types(state["recentRinks"][0], RINK_KEYS)
        self.assertEqual(len(state["openWindows"]), 1)
        self.assert_types(state["openWindows"][0], WINDOW_KEYS)
        self.assertEqual(state["openWindows"][0]["rinkID"], RINK)

    def test_the_window_comes_back_where_it_was(self):
        self.fill_catalogue()
        state = self.read_state()
        numbers = state["openWindows"][0]["frame"].split()
        # Another place, well within the screen: x, y, width and height.
        for index, change in enumerate((13, 40, 0, -90)):
            numbers[index] = str(int(numbers[index]) + change)
        state["openWindows"][0]["frame"] = " ".join(numbers)
        self.write_state(state)
        for _ in range(2):
            tarvel = self.start_tarvel()
            tarvel.wait_for_line("next master refresh in ")
            self.quit(tarvel)
            self.assertEqual(self.read_state()["openWindows"][0]["frame"].split()[:4], numbers[:4])

    def test_a_damaged_state_file_is_a_first_start(self):
        self.fill_catalogue()
        with open(self.state_path, "r+b") as file:
            file.truncate(200)
        tarvel = self.start_tarvel()
        tarvel.wait_for_line("received root file")
        self.quit(tarvel)
        self.assertEqual(len(self.read_state()["openWindows"]), 1)

    def test_the_clean_up_keeps_what_is_used(self):
        self.fill_rink(self.demo.rink(RINK))
        folder = f"rink-{RINK}"
        kept = ["appState_testing.plist", "logos/extra.txt", f"{folder}/docCollection.b1",
                f"{folder}/venue-99_schedules.b1", f"{folder}/Photos/12-800.jpg", f"{folder}/Documents/plan.pdf"]
        removed = ["notes.txt", "rinks2.json", "older/deep/a.b1", f"{folder}/master.b1", f"{folder}/a.jpg",
                   f"{folder}/Photos/12.jpg", f"{folder}/Photos/12-thumb.jpg", f"{folder}/Albums/a.jpg",
                   "rink-4711/main.b1", ".defs.b1.part"]
        for name in kept + removed:
            os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
            with open(self.path(name), "wb"):
                pass
        published = self.stored_files()
        tarvel = self.start_tarvel()
        tarvel.wait_for_line("next master refresh in ")
        self.quit(tarvel)
        for name in kept:
            self.assertTrue(os.path.exists(self.path(name)), name)
        for name in removed:
            self.assertFalse(os.path.exists(self.path(name)), name)
        self.assertFalse(os.path.exists(self.path("older")))
        self.assertFalse(os.path.exists(self.path("rink-4711")))
        for line in ("remove file: " + self.path("notes.txt"), "removed file: " + self.path("rinks2.json"),
                     "removed folder: " + self.path("rink-4711"), "remove folder: " + self.path("older"),
                     "     remove file: " + self.path(folder, "master.b1"),
                     "     remove folder: " + self.path(folder, "Albums"),
                     "        remove file: " + self.path(folder, "Photos", "12.jpg")):
            self.assertIn(line, tarvel.lines)
        left = [name for name in published if name not in removed]
        self.assertEqual([name for name in left if not os.path.exists(self.path(name))], [])

    def test_a_second_start_shows_the_first(self):
        first = self.start_tarvel()
        first.wait_for_line("next master refresh in ")
        second = Process([TARVEL], self.environment)
        self.addCleanup(second.destroy)
        self.assertEqual(second.wait(), 0)
        self.assertEqual(second.lines, [])
        self.assertIsNone(first.process.poll())
        first.end(signal.SIGKILL)
        third = self.start_tarvel()
        third.wait_for_line("next master refresh in ")
        self.quit(third)

    def test_two_starts_at_once_leave_one(self):
        starts = [Process([TARVEL], self.environment) for _ in range(3)]
        for start in starts:
            self.addCleanup(start.destroy)
        runs = [start for start in starts if self.still_runs(start)]
        self.assertEqual(len(runs), 1)
        self.quit(runs[0])

    @staticmethod
    def still_runs(start):
        """True once it has launched, false once it has ended without."""
        while start.process.poll() is None:
            if any(line.startswith("next master refresh in ") for line in start.lines):
                return True
            try:
                start.process.wait(0.02)
            except subprocess.TimeoutExpired:
                pass
        return False


if __name__ == "__main__":
    isolate_network()
    unittest.main()

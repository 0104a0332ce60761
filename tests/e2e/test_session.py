"""The end of the desktop's session, told by a session manager."""

import unittest

from display import DisplayedTest, has_tools
from programs import isolate_network, wait_for
from session import SessionManager


@unittest.skipUnless(has_tools(), "without a virtual display")
class SessionTest(DisplayedTest):
    def test_the_end_of_the_session_saves_and_quits_in_order(self):
        manager = SessionManager()
        self.addCleanup(manager.close)
        tarvel = self.start_tarvel(SESSION_MANAGER=manager.address)
        wait_for(lambda: manager.saved == 1 and self.windows_of(tarvel), "the program's registration and its window")
        self.assertEqual(manager.properties["RestartCommand"][0], b"tarvel")
        manager.end_session()
        self.assertEqual(tarvel.wait(), 0)
        self.assertEqual(tarvel.lines[-1], "----- Quit Tarvel -----")
        self.assertEqual([window["className"] for window in self.read_state()["openWindows"]], ["MainWindowController"])

        tarvel = self.start_tarvel(SESSION_MANAGER=manager.address)
        wait_for(lambda: self.windows_of(tarvel), "the window's return")
        self.quit(tarvel)


if __name__ == "__main__":
    isolate_network()
    unittest.main()

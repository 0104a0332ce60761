"""The end of the desktop's session, told by a session manager."""

import os
import pwd
import unittest

from display import DisplayedTest, has_tools
from programs import TARVEL, Process, isolate_network, wait_for
from session import SessionManager

RINKS = {17, 14}


@unittest.skipUnless(has_tools(), "without a virtual display")
class SessionTest(DisplayedTest):
    def test_the_end_of_the_session_saves_and_quits_in_order(self):
        self.fill_catalogue()
        state = self.read_state()
        state["openWindows"] = [dict(state["openWindows"][0], rinkID=rink) for rink in RINKS]
        self.write_state(state)
        manager = SessionManager()
        self.addCleanup(manager.close)
        self.environment["SESSION_MANAGER"] = manager.address
        tarvel = self.start_tarvel()
        wait_for(lambda: manager.saved == 1 and len(self.windows_of(tarvel)) == 2, "its registration and its windows")
        program = os.path.realpath(TARVEL).encode()
        user = pwd.getpwuid(os.getuid()).pw_name.encode()
        for name, values in (("Program", [program]), ("UserID", [user]), ("RestartCommand", [program]),
                             ("CloneCommand", [program]), ("DiscardCommand", [])):
            self.assertEqual(manager.properties.get(name, []), values, name)
        manager.end_session()
        self.assertEqual(tarvel.wait(), 0)
        self.assertEqual(tarvel.lines[-1], "----- Quit Tarvel -----")
        self.assertEqual({window["rinkID"] for window in self.read_state()["openWindows"]}, RINKS)

        # The next session starts it as it was told to.
        tarvel = Process(manager.properties["RestartCommand"], {**self.environment, "PATH": "/nonexistent"})
        self.addCleanup(tarvel.destroy)
        wait_for(lambda: len(self.windows_of(tarvel)) == 2, "the windows' return")
        self.quit(tarvel)
        self.assertEqual({window["rinkID"] for window in self.read_state()["openWindows"]}, RINKS)


if __name__ == "__main__":
    isolate_network()
    unittest.main()

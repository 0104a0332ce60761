"""What a start asks the server for."""

import collections
import json
import subprocess
import unittest

from programs import ProgramTest, isolate_network, wait_for, weeks_of

RINK = 11
OWN_NETWORK = isolate_network()


class StartTest(ProgramTest):
    def test_a_first_start_asks_for_the_catalogue_and_then_for_the_index(self):
        tarvel = self.start_tarvel()
        wait_for(lambda: "/root.b1" in self.demo.finished_requests(), "/root.b1")
        tarvel.wait_for_line("received root file")
        tarvel.wait_for_line("next master refresh in ", count=2)
        self.quit(tarvel)
        entries = [entry for entry in json.loads(self.demo.get("/control/requests"))
                   if not entry["path"].startswith("/logos/")]
        self.assertEqual(sorted(entry["path"] for entry in entries[:2]), ["/defs.b1", "/rinks.b1"])
        self.assertEqual([entry["path"] for entry in entries[2:]], ["/root.b1"])
        pause = entries[2]["time"] - entries[0]["time"]
        self.assertGreater(pause, 1.5)
        self.assertLess(pause, 5.0)
        self.assertEqual([entry["status"] for entry in entries], [200, 200, 200])

    def test_a_rink_that_is_shown_asks_for_the_weeks_of_its_three_pages(self):
        rink = self.demo.rink(RINK)
        self.fill_catalogue()
        self.show_rink(RINK)
        self.demo.clear_requests()
        tarvel = self.start_tarvel()
        tarvel.wait_for_line("received weekly schedule file for", count=3)
        tarvel.wait_for_line(f"next refresh for {rink['name']} in ")
        self.quit(tarvel)

        counts = collections.Counter(self.demo.requests())
        self.assertEqual(set(counts.values()), {1}, counts)
        folder = "/" + rink["dataPath"] + "/"
        names = {path[len(folder):] for path in counts if path.startswith(folder)}
        self.assertLessEqual({"master.b1", "main.b1"}, names)
        schedules = [name for name in names if name.endswith("_schedules.b1")]
        self.assertEqual(len(schedules), 1, "the venue that is shown, and no other")
        venue = schedules[0].removesuffix("_schedules.b1")
        self.assertEqual({name for name in names if "_week-" in name},
                         {f"{venue}_week-{sunday}.b1" for sunday in weeks_of(rink)})

    @unittest.skipUnless(OWN_NETWORK, "the system gives no network of the test's own")
    def test_a_refresh_that_found_no_connection_is_tried_again_when_the_network_is_back(self):
        self.demo.destroy()
        tarvel = self.start_tarvel()
        tarvel.wait_for_line("next master refresh in 10:00")
        self.start_demo()
        subprocess.run(["ip", "route", "add", "default", "dev", "lo"], check=True)
        self.addCleanup(subprocess.run, ["ip", "route", "delete", "default"], check=True)
        tarvel.wait_for_line("the network is back")
        tarvel.wait_for_line("received root file")
        self.quit(tarvel)


if __name__ == "__main__":
    unittest.main()

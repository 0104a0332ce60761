"""What the application keeps, and what it asks for again."""

import collections
import os
import unittest

import b1
from programs import ProgramTest, isolate_network, weeks_of

RINK = 14


class StoreTest(ProgramTest):
    def setUp(self):
        super().setUp()
        self.rink = self.demo.rink(RINK)
        self.folder_url = "/" + self.rink["dataPath"] + "/"
        self.fill_rink(self.rink)
        self.demo.clear_requests()

    def refresh(self):
        """A run whose refreshes, of the catalogue and of the rink, have ended."""
        self.make_due()
        tarvel = self.start_tarvel()
        tarvel.wait_for_line("next refresh for " + self.rink["name"], count=2)
        tarvel.wait_for_line("next master refresh in ", count=2)
        self.quit(tarvel)
        return tarvel

    def stored(self):
        result = {}
        for name in self.stored_files():
            with open(self.path(name), "rb") as file:
                result[name] = (file.read(), b1.modification_date(self.path(name)))
        return result

    def test_every_file_has_exactly_the_promised_date(self):
        promises = b1.root_promises(self.demo.get("/root.b1"))
        folder = f"rink-{RINK}/"
        promises[folder + "main.b1"] = b1.master_promise(self.demo.get(self.folder_url + "master.b1"))
        for index in [name for name in self.stored_files(folder) if "_week-" not in name]:
            with open(self.path(index), "rb") as file:
                content = file.read()
            read = b1.main_promises if index.endswith("main.b1") else b1.week_promises
            promises.update({folder + name: date for name, date in read(content).items()})
        names = self.stored_files()
        self.assertEqual(len([name for name in names if "_week-" in name]), 3)
        self.assertLessEqual({"defs.b1", "rinks.b1", folder + "main.b1"}, set(names))
        for name in names:
            with self.subTest(name):
                self.assertEqual(b1.own_date(self.path(name)), promises[name])
                self.assertEqual(b1.modification_date(self.path(name)), promises[name])

    def test_nothing_is_asked_for_before_it_is_due(self):
        tarvel = self.start_tarvel()
        master = tarvel.wait_for_line("next master refresh in ")
        rink = tarvel.wait_for_line("next refresh for " + self.rink["name"])
        self.quit(tarvel)
        self.assertRegex(master, r" in 4[78]:\d\d:\d\d\.\d$")
        self.assertRegex(rink, r" in (3:5\d:\d\d\.\d|4:00:00\.0)$")
        self.assertEqual(self.demo.requests(), [])

    def test_an_unchanged_server_is_asked_for_the_two_indexes(self):
        before = self.stored()
        self.refresh()
        self.assertEqual(collections.Counter(self.demo.requests()),
                         {"/root.b1": 1, self.folder_url + "master.b1": 1})
        self.assertEqual(self.stored(), before)

    def test_a_changed_week_is_fetched_with_the_files_that_promise_it(self):
        venue = next(name for name in self.stored_files() if name.endswith("_schedules.b1"))
        venue = os.path.basename(venue).removesuffix("_schedules.b1")
        week = weeks_of(self.rink)[1]
        self.demo.control("replace-week", rink=RINK, venue=venue.removeprefix("venue-"), week=week)
        self.demo.clear_requests()
        self.refresh()
        self.assertEqual(self.demo.requests().count("/root.b1"), 1)
        self.assertEqual(
            [path.removeprefix(self.folder_url) for path in self.demo.requests() if path.startswith(self.folder_url)],
            ["master.b1", "main.b1", f"{venue}_schedules.b1", f"{venue}_week-{week}.b1"])

    def test_with_the_server_down_the_store_serves(self):
        before = self.stored()
        self.demo.end()
        tarvel = self.refresh()
        requested = [line for line in tarvel.lines if line.startswith("Requesting file from server: ")]
        self.assertEqual({line.rpartition("/")[2] for line in requested}, {"root.b1", "master.b1"})
        self.assertEqual(self.stored(), before)
        state = self.read_state()
        connection_error = 1
        self.assertEqual(state["errorKind"], connection_error)
        self.assertEqual(state["recentRinks"][0]["errorKind"], connection_error)
        self.assertNotEqual(state["errorLog"], "")


if __name__ == "__main__":
    isolate_network()
    unittest.main()

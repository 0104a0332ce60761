"""The application as someone finds it who neither sees it nor has a mouse: read from outside, over the bus of the
desktop's assistive technology, with that bus's own client library. Skipped where there is no such bus to be had."""

import datetime
import os
import subprocess
import tempfile
import unittest
import zoneinfo

import b1
from display import DisplayedTest, has_tools
from programs import PATIENCE, isolate_network, own_etc, set_machine_zone, wait_for, weeks_of

try:
    import gi
    gi.require_version("Atspi", "2.0")
    import gi.repository.GLib
except (ImportError, ValueError):
    gi = None

RINK = 11
PUBLIC_SESSION = 1
A_MINUTE = 60 + PATIENCE  # a clock shows what is new with the next of its minutes
DEPTH = 40  # of the tree, more than any window has


def long_date(date):
    return f"{date:%A}, {date:%B} {date.day}, {date.year}"


def clock(minutes):
    hours, minute = divmod(minutes % 1440, 60)
    return f"{(hours + 11) % 12 + 1}:{minute:02} {'am' if hours < 12 else 'pm'}"


@unittest.skipUnless(gi and has_tools("dbus-daemon"), "no assistive technology here")
class ScreenReaderTest(DisplayedTest):
    @classmethod
    def setUpClass(cls):
        """One bus for all: the client library stays with the one that it finds at its first use."""
        super().setUpClass()
        folder = tempfile.TemporaryDirectory(prefix="tarvel-bus-")
        cls.addClassCleanup(folder.cleanup)
        environment = {"PATH": os.environ["PATH"], "XDG_RUNTIME_DIR": folder.name}
        bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address"],
                               env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL, text=True)
        cls.addClassCleanup(bus.stdout.close)
        cls.addClassCleanup(bus.wait)
        cls.addClassCleanup(bus.terminate)
        os.environ.update(environment, DBUS_SESSION_BUS_ADDRESS=bus.stdout.readline().strip())
        os.environ.pop("DISPLAY", None)
        from gi.repository import Atspi
        cls.atspi = Atspi
        Atspi.init()

    def setUp(self):
        super().setUp()
        self.environment.update(DBUS_SESSION_BUS_ADDRESS=os.environ["DBUS_SESSION_BUS_ADDRESS"],
                                QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")

    def children(self, node):
        """None for those that go while they are read."""
        try:
            return [child for child in (node.get_child_at_index(i) for i in range(node.get_child_count())) if child]
        except gi.repository.GLib.Error:
            return []

    def shows(self, node):
        return node.get_state_set().contains(self.atspi.StateType.SHOWING)

    def walk(self, node, depth=DEPTH):
        """All that shows below the node."""
        for child in self.children(node) if depth else []:
            try:
                if not self.shows(child):
                    continue
                yield child
            except gi.repository.GLib.Error:
                continue
            yield from self.walk(child, depth - 1)

    def application(self):
        for application in self.children(self.atspi.get_desktop(0)):
            if (application.get_name() or "").lower() == "tarvel":
                application.set_cache_mask(self.atspi.Cache.NONE)
                return application
        return None

    def find(self, role, name):
        """What has that role and name, once it shows."""
        def found():
            return next((node for node in self.walk(self.application())
                         if (node.get_role_name(), node.get_name()) == (role, name)), None)
        return wait_for(found, f"the {role} {name}")

    def act(self, node, *wanted):
        action = self.atspi.Action
        names = [action.get_action_name(node, i) for i in range(action.get_n_actions(node))]
        (index,) = [i for i, name in enumerate(names) if name in wanted]
        action.do_action(node, index)

    def press(self, node):
        self.act(node, "Press", "Toggle")

    def rows(self, *wanted):
        """The names of the cells of each row of the week, once it has those rows."""
        def read():
            table = self.find("table", "Weekly schedule")
            rows = {row.get_name(): [cell.get_name() for cell in self.children(row)] for row in self.children(table)}
            return rows if all(name in rows for name in wanted) else None
        return wait_for(read, f"the days {wanted}")

    def cell(self, table, name):
        """Also one that has to be scrolled to."""
        return next(cell for row in self.children(self.find("table", table)) for cell in self.children(row)
                    if cell.get_name() == name)

    def published(self, rink, saturday):
        """The public sessions that the server publishes for that day of the rink's first venue, as they are said."""
        sunday = saturday - datetime.timedelta(days=6)
        week = self.demo.get(f"/{rink['dataPath']}/venue-{rink['venues'][0]['venue']}_week-{sunday}.b1")
        return [f"Public Session, {clock(item.time)} to {clock(item.time + item.duration)}"
                for item in b1.week_items(week) if item.day == 6 and item.kind == PUBLIC_SESSION]

    def test_a_day_without_eyes_and_without_a_mouse(self):
        """Next Saturday's public sessions of a chosen rink are found, and the page is turned."""
        rink = self.demo.rink(RINK)
        today = datetime.datetime.now(zoneinfo.ZoneInfo(rink["timeZone"])).date()
        saturday = today + datetime.timedelta(days=(5 - today.weekday()) % 7 or 7)
        tarvel = self.start_tarvel()
        wait_for(self.application, "the application on the bus")
        self.press(self.find("list item", rink["name"]))
        self.press(self.find("radio button", "Schedule"))
        this_saturday = today + datetime.timedelta(days=(5 - today.weekday()) % 7)
        self.rows(long_date(this_saturday))
        if saturday != this_saturday:
            self.press(self.find("push button", "Next"))
        spoken = wait_for(lambda: self.rows(long_date(saturday))[long_date(saturday)], "the sessions of the day")
        expected = self.published(rink, saturday)
        self.assertTrue(expected, "the demo publishes none")
        public = [name for name in spoken if name.startswith("Public Session")]
        self.assertEqual([", ".join(name.split(", ")[:2]) for name in public], expected)
        for name in public:
            self.assertTrue(name.endswith(long_date(saturday)), name)
        self.press(self.find("push button", "Next"))
        days = [long_date(saturday + datetime.timedelta(days=days)) for days in range(1, 8)]
        week = self.rows(*days)
        self.assertEqual(list(week), days)
        self.walk_by_keys(max(week.values(), key=len))
        self.quit(tarvel)

    def test_the_clock_of_a_rink_without_a_zone_follows_the_machines(self):
        restore = own_etc()
        if not restore:
            self.skipTest("the system gives no /etc of the test's own")
        self.addCleanup(restore)
        self.fill_catalogue()
        # A zone that this machine's data lack stands for none; the file stays the one that was promised.
        path, times = self.path("rinks.b1"), os.stat(self.path("rinks.b1"))
        with open(path, "r+b") as file:
            content = file.read()
            file.seek(0)
            file.write(content.replace(b"America/", b"Nowhere/"))
        os.utime(path, ns=(times.st_atime_ns, times.st_mtime_ns))
        self.show_rink(RINK)
        set_machine_zone("Asia/Tokyo")
        tarvel = self.start_tarvel()
        wait_for(self.application, "the application on the bus")
        for zone in ("Asia/Tokyo", "Europe/Moscow"):
            set_machine_zone(zone)
            wait_for(lambda: self.face_time() == self.time_in(zone), f"the time in {zone}", A_MINUTE)
        self.quit(tarvel)

    def face_time(self):
        faces = [node.get_name() for node in self.walk(self.application()) if node.get_role_name() == "image"]
        return next((name.removeprefix("Clock, ") for name in faces if name.startswith("Clock, ")), None)

    @staticmethod
    def time_in(zone):
        now = datetime.datetime.now(zoneinfo.ZoneInfo(zone))
        return clock(now.hour * 60 + now.minute)

    def test_what_changes_is_told(self):
        """A notice, another week and a failure are heard of, and lists of other windows are walked by keys."""
        rink = self.demo.rink(RINK)
        tarvel = self.start_tarvel()
        wait_for(self.application, "the application on the bus")
        self.press(self.find("list item", rink["name"]))
        self.press(self.find("radio button", "Schedule"))
        week = [name for names in wait_for(self.rows, "the week").values() for name in names]
        self.listen()
        for verb, parameters, *expected in (
                ("add-notice", {"rink": RINK, "summary": "Closed", "detail": "All day."},
                 "object:state-changed:showing", "notification", lambda name: name.startswith("Closed\nAll day.\n")),
                ("replace-week", {"rink": RINK, "venue": rink["venues"][0]["venue"], "week": str(weeks_of(rink)[1])},
                 "object:children-changed:add", "table row", lambda name: name not in week),
                ("fault", {"rule": f"status=500*9:/{rink['dataPath']}/master.b1"},
                 "object:property-change:accessible-description", "push button", "The last refresh has failed".__eq__)):
            with self.subTest(verb):
                self.demo.control(verb, **parameters)
                self.ask("xdotool", "key", "F5")
                self.hear(*expected)
        for keys, name in ((("ctrl+shift+t",), "Today's schedule"),
                           (("alt+t", "Up", "Up", "Return", "alt+d", "Return"), "Live objects")):
            with self.subTest(name):
                for key in keys:
                    self.ask("xdotool", "key", key)
                self.walk_down([row for row in self.children(self.find("list", name)) if row.get_name()])
        self.quit(tarvel)

    def walk_down(self, parts):
        """From the first of them to the second."""
        names = [part.get_name() for part in parts]
        self.act(parts[0], "SetFocus")
        self.hear_focus(names[0])
        self.ask("xdotool", "key", "Down")
        self.hear_focus(names[1])

    def walk_by_keys(self, sessions):
        """From the first of a day's sessions to the second, and to the day by itself."""
        self.listen()
        self.walk_down([self.cell("Weekly schedule", name) for name in sessions[:2]])
        states = self.cell("Weekly schedule", sessions[1]).get_state_set()
        self.assertTrue(states.contains(self.atspi.StateType.FOCUSED))
        self.ask("xdotool", "key", "Return")
        day = self.find("table", "Daily schedule")
        wait_for(lambda: [cell.get_name() for row in self.children(day) for cell in self.children(row)] == sessions,
                 "the day's sessions")
        self.hear_focus(sessions[1])

    def listen(self):
        """From here on events are heard: kind, role of the source, and the name or description that it is about."""
        def note(event):
            try:
                about = event.any_data if event.type.startswith("object:children") else event.source
                text = about.get_description() if event.type.endswith("description") else about.get_name()
                if event.detail1 or event.type.startswith("object:property"):
                    self.heard.append((event.type, event.source.get_role_name(), text))
            except gi.repository.GLib.Error:
                pass  # of what has gone meanwhile
        self.heard = []
        self.listener = self.atspi.EventListener.new(note)
        for kind in ("state-changed", "children-changed", "property-change"):
            self.listener.register("object:" + kind)

    def hear(self, kind, role, fits):
        """Waits until that is said of such a part."""
        def said():
            gi.repository.GLib.MainContext.default().iteration(False)
            return any(event[0] == kind and role in (None, event[1]) and fits(event[2]) for event in self.heard)
        wait_for(said, f"{kind} of {role}, not among {self.heard[-9:]}")
        self.heard.clear()

    def hear_focus(self, name):
        self.hear("object:state-changed:focused", None, name.__eq__)


if __name__ == "__main__":
    isolate_network()
    unittest.main(warnings="ignore")

"""The application as someone finds it who neither sees it nor has a mouse: read from outside, over the bus of the
desktop's assistive technology, with that bus's own client library. Skipped where there is no such bus to be had."""

import datetime
import os
import subprocess
import unittest
import zoneinfo

import b1
from display import DisplayedTest, has_tools
from programs import isolate_network, wait_for

try:
    import gi
    gi.require_version("Atspi", "2.0")
    import gi.repository.GLib
except (ImportError, ValueError):
    gi = None

RINK = 11
PUBLIC_SESSION = 1
DEPTH = 40  # of the tree, more than any window has


def long_date(date):
    return f"{date:%A}, {date:%B} {date.day}, {date.year}"


def clock(minutes):
    hours, minute = divmod(minutes % 1440, 60)
    return f"{(hours + 11) % 12 + 1}:{minute:02} {'am' if hours < 12 else 'pm'}"


@unittest.skipUnless(gi and has_tools("dbus-daemon"), "no assistive technology here")
class ScreenReaderTest(DisplayedTest):
    def setUp(self):
        super().setUp()
        bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address"],
                               env=self.environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL, text=True)
        self.addCleanup(bus.stdout.close)
        self.addCleanup(bus.wait)
        self.addCleanup(bus.terminate)
        address = bus.stdout.readline().strip()
        self.environment.update(DBUS_SESSION_BUS_ADDRESS=address, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        # The client library finds the bus by them, at its first use.
        os.environ.update({name: self.environment[name]
                           for name in ("DBUS_SESSION_BUS_ADDRESS", "DISPLAY", "XDG_RUNTIME_DIR")})
        from gi.repository import Atspi
        self.atspi = Atspi
        Atspi.init()

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

    def walk_by_keys(self, sessions):
        """From the first of a day's sessions to the second, and to the day by itself."""
        self.listen()
        self.act(self.cell("Weekly schedule", sessions[0]), "SetFocus")
        self.hear(sessions[0])
        self.ask("xdotool", "key", "Down")
        self.hear(sessions[1])
        states = self.cell("Weekly schedule", sessions[1]).get_state_set()
        self.assertTrue(states.contains(self.atspi.StateType.FOCUSED))
        self.ask("xdotool", "key", "Return")
        day = self.find("table", "Daily schedule")
        wait_for(lambda: [cell.get_name() for row in self.children(day) for cell in self.children(row)] == sessions,
                 "the day's sessions")
        self.hear(sessions[1])

    def listen(self):
        """From here on what gets the focus is heard."""
        self.heard = []
        self.listener = self.atspi.EventListener.new(
            lambda event: self.heard.append(event.source.get_name()) if event.detail1 else None)
        self.listener.register("object:state-changed:focused")

    def hear(self, name):
        """Waits until the part of that name is said to have the focus."""
        def said():
            gi.repository.GLib.MainContext.default().iteration(False)
            return name in self.heard
        wait_for(said, f"the focus on {name}")
        self.heard.clear()


if __name__ == "__main__":
    isolate_network()
    unittest.main(warnings="ignore")

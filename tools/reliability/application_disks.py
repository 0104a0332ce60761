#!/usr/bin/env python3
"""Runs the application, windows and all, on a small disk of its own that is full or read-only.

It must show what it has while no server answers, and lose nothing by its quit; show what is new while nothing can be
saved, and tell of that in its log; save both once it may again; and be up to date after the next run. The window is
read over the bus of assistive technology where there is one, and a screen to be had.
"""

import argparse
import os
import sys

import desk
import store as s
from disks import TROUBLES, SmallDisk, may_mount
from programs import PATIENCE, wait_for, weeks_of

import test_accessibility as accessibility

WITH_WINDOW = (accessibility.gi and accessibility.has_tools("dbus-daemon") and
               "--without-window" not in sys.argv)


class ShownDesk(desk.Desk, accessibility.ScreenReaderTest if WITH_WINDOW else object):
    """Its windows are on a screen, and can be read."""

    def week(self):
        """Each day's sessions as the window tells them; nothing while it shows no week."""
        try:
            table = next((node for node in self.walk(self.application())
                          if (node.get_role_name(), node.get_name()) == ("table", "Weekly schedule")), None)
            return {day.get_name(): [session.get_name() for session in self.children(day)]
                    for day in self.children(table)} if table else {}
        except accessibility.gi.repository.GLib.Error:  # of what goes while it is read
            return {}

    def wait_for_week(self, fits, what):
        """The week, once the window shows one that fits, and shows it still at the next look."""
        def shown():
            week = self.week() if self.application() else {}
            return week if week and fits(week) and week == self.week() else None
        try:
            return wait_for(shown, what, PATIENCE) if WITH_WINDOW else None
        except AssertionError as in_vain:
            raise s.Damage(f"{in_vain}; what shows is {self.week()}") from in_vain


class Trouble:
    def __init__(self, station, disk):
        self.desk = station
        self.disk = disk
        self.before = None
        station.fill()
        self.contents = s.known(s.published(station.tree))

    def whole_store(self):
        """All that stands there, the program's own files included."""
        store = self.desk.store
        return {path: s.read(os.path.join(store, path)) if kind == "file" else kind
                for path, kind in s.entries(store).items()}

    def shown(self, fits, what):
        """The week that the window of another run shows."""
        tarvel = self.desk.start_tarvel()
        week = self.desk.wait_for_week(fits, what)
        tarvel.destroy()
        return week

    def run_without_server(self, week):
        self.desk.demo.control("fault", rule="down:/*")
        tarvel = self.desk.start_tarvel()
        self.desk.wait_for_week(lambda now: now == week, "the week of the store")
        wait_for(lambda: desk.is_refreshed(tarvel.lines), "refreshes that fail", PATIENCE)
        self.desk.wait_for_week(lambda now: now == week, "the week after refreshes that fail")
        self.desk.quit(tarvel)
        self.check_told(tarvel.lines, s.STATE)
        if self.whole_store() != self.before:
            raise s.Damage("a quit without room has changed the store")

    def run_with_news(self, old_week):
        """What the window shows of what could not be stored."""
        self.desk.demo.control("clear-faults")
        rink = self.desk.rink
        for sunday in weeks_of(rink):
            self.desk.demo.control("replace-week", rink=desk.RINK, venue=rink["venues"][0]["venue"], week=sunday)
        for path, content in s.published(self.desk.tree).items():
            self.contents.setdefault(path, set()).add(content)
        tarvel = self.desk.start_tarvel()
        wait_for(lambda: desk.is_refreshed(tarvel.lines), "the refreshes", PATIENCE)
        week = self.desk.wait_for_week(lambda now: now != old_week, "the new week")
        self.check_told(tarvel.lines, "main.b1", f"week-{weeks_of(rink)[1]}.b1")
        if self.whole_store() != self.before:
            raise s.Damage("the store has changed")
        self.disk.mend()
        self.desk.quit(tarvel)
        if not any("Unable to save file: " in text for text in s.read_log(self.desk.path(s.LOG))):
            raise s.Damage("the log that was saved has no word of it")
        s.check_whole(self.desk.store, self.contents)
        self.desk.check_state()
        return week

    @staticmethod
    def check_told(lines, *names):
        for name in names:
            if not any("Unable to save file: " in line and name in line for line in lines):
                raise s.Damage(f"no word of {name} in\n" + "\n".join(lines))

    def check(self):
        week = self.shown(lambda now: any(now.values()), "a week with sessions")
        self.desk.make_due()
        self.before = self.whole_store()
        self.disk.spoil()
        self.run_without_server(week)
        new_week = self.run_with_news(week)
        self.desk.run_refreshed()
        s.check_whole(self.desk.store, self.contents)
        self.desk.check_up_to_date()
        self.shown(lambda now: now == new_week, "the week that was shown before it could be stored")


def share(trouble):
    if not may_mount():
        return False
    with ShownDesk() as station:
        disk = SmallDisk(station.environment["XDG_DATA_HOME"], trouble)
        station.addCleanup(disk.unmount)
        try:
            Trouble(station, disk).check()
        except (s.Damage, AssertionError) as damage:
            raise s.Damage(f"{trouble} disk: {damage}") from damage
        return True


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--without-window", action="store_true", help="only the store and the log are looked at")
    parser.parse_args()
    for trouble in TROUBLES:
        if not all(desk.in_parallel(share, [(trouble,)])):
            return print("not tried, as this system lets nobody mount")
        print(f"{trouble} disk: shown, told of, nothing lost, healed"
              + ("" if WITH_WINDOW else " (the window itself not looked at)"), flush=True)
    return None


if __name__ == "__main__":
    main()

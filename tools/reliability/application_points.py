#!/usr/bin/env python3
"""Kills the application, windows and all, before calls that change the disk, and starts it again.

Two runs are cut short: a first start, and one that finds everything new and shows a week and an album. The changes of
one whole run are counted, and every n-th is where another run is killed, each second time in the middle of it if it is
a write. After each kill the store must be right and the state must still know the rink; after the next run no temporary
file may be left, and everything must be up to date.
"""

import argparse
import collections
import copy
import os
import signal

import desk
import store as s
from programs import PATIENCE, weeks_of, wait_for

SCHEDULE_PANE, PHOTOS_PANE = 1, 3


class Points:
    def __init__(self, station):
        self.desk = station
        station.fill()
        state = station.read_state()
        album = copy.deepcopy(state["openWindows"][0])
        album["currentPaneKind"] = PHOTOS_PANE
        state["openWindows"].append(album)
        station.write_state(state)
        station.make_due()
        self.filled = os.path.join(station.folder, "filled")
        s.copy(station.store, self.filled)
        old = s.published(station.tree)
        self.publish_anew()
        self.new = s.published(station.tree)
        self.contents = s.known(old, self.new)

    def publish_anew(self):
        control, rink = self.desk.demo.control, self.desk.rink
        for week in weeks_of(rink):
            control("replace-week", rink=desk.RINK, venue=rink["venues"][0]["venue"], week=week)
        control("rename-rink", rink=desk.RINK, name="Another Name")
        control("add-notice", rink=desk.RINK, summary="News", detail="x" * 3000)

    def prepare(self, before):
        s.drop(self.desk.store)
        if before:
            s.copy(before, self.desk.store)

    def has_pictures(self, lines):
        """Whether every picture that was asked for is stored, or was refused."""
        refused = {line.split(" ")[2] for line in list(lines) if line.startswith("download failed: ")}
        wanted = {line.rpartition(" ")[2] for line in list(lines) if line.startswith("Requesting file from server: ")}
        stored = {os.path.basename(path) for path in s.entries(self.desk.store)}
        return all(os.path.basename(url) in stored for url in wanted - refused if url.endswith((".jpg", ".png")))

    def run(self, before, **faults):
        """A run to the end of its refreshes, or until it is killed; its exit status."""
        disturbed = s.faults_environment(self.desk.store, CHANGES=1, **faults) if faults else {}
        tarvel = self.desk.launch(**disturbed)
        wait_for(lambda: tarvel.process.poll() is not None or
                 (desk.is_refreshed(tarvel.lines, rinks=bool(before)) and self.has_pictures(tarvel.lines)),
                 "a run", PATIENCE)
        status = tarvel.end(signal.SIGTERM)
        tarvel.destroy()
        return status

    def count(self, before):
        """The kinds of the calls that change the disk in a whole run."""
        self.prepare(before)
        trace = os.path.join(self.desk.folder, "trace")
        if self.run(before, TRACE=trace) != 0:
            raise s.Damage("an undisturbed run fails")
        with open(trace, encoding="utf-8") as file:
            calls = [line.split(" ", 2)[1] for line in file]
        os.remove(trace)
        return calls

    def kill(self, before, point, torn):
        """Whether the run came as far as that."""
        self.prepare(before)
        status = self.run(before, KILL=point, **({"TEAR": 1} if torn else {}))
        if status not in (0, -signal.SIGKILL):
            raise s.Damage(f"it ended with {status}")
        s.check_whole(self.desk.store, self.contents, temporaries=1)
        if before:
            self.desk.check_state()
        if os.path.exists(self.desk.state_path):
            self.desk.make_due()
        if self.run(before) != 0:
            raise s.Damage("the next run fails")
        s.check_whole(self.desk.store, self.contents)
        if before:
            self.desk.check_up_to_date()
            self.desk.check_state()
        else:
            s.check_current(self.desk.store, self.new, ["rinks.b1", "defs.b1", s.STATE])
        return status != 0


def share(every, offset, job, jobs):
    """What was counted and killed, by the run's name."""
    done = {}
    with desk.Desk() as station:
        points = Points(station)
        for name, before in (("a first start", ""), ("everything new", points.filled)):
            calls = points.count(before)
            killed = []
            for point in range(1 + offset % every, len(calls) + 1, every)[job::jobs]:
                try:
                    killed.append(points.kill(before, point, torn=point // every % 2 == 1))
                except (s.Damage, AssertionError) as damage:
                    raise s.Damage(f"{name}, change {point}: {damage}") from damage
            done[name] = calls, killed
    return done


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--every", type=int, default=1, help="kill at each n-th call that changes the disk")
    parser.add_argument("--seed", type=int, default=0, help="which of the n")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    arguments = parser.parse_args()
    done = desk.in_parallel(share, [(arguments.every, arguments.seed, job, arguments.jobs)
                                    for job in range(arguments.jobs)])
    for name, (calls, _) in done[0].items():
        kinds = ", ".join(f"{count} {kind}" for kind, count in sorted(collections.Counter(calls).items()))
        killed = [was for part in done for was in part[name][1]]
        print(f"{name}: {len(calls)} changes ({kinds}); killed {sum(killed)} times, {len(killed) - sum(killed)} runs "
              "ended before; all came right")


if __name__ == "__main__":
    main()

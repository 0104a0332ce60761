#!/usr/bin/env python3
"""Kills the engine before each of its calls to the disk, and starts it again.

Three runs are cut short: a first start, one that finds everything new, and one that drops a rink of long ago. After
each kill the store must be right, the state the old or the new; after the next run no temporary file may be left and
the store must hold what an undisturbed run leaves.
"""

import argparse
import collections
import dataclasses
import os
import sys
import tempfile

import store as s

RINK = 17     # two venues
OLD_RINK = 47
MUTATING = {"create", "write", "sync", "rename", "remove", "attributes"}


@dataclasses.dataclass
class Case:
    name: str
    before: str  # the store as the run finds it; none for a first start
    site: str
    files: dict  # as published now
    contents: dict  # that may be in the store on the way
    now: float


class Points:
    def __init__(self, folder):
        self.folder = folder
        self.old_site, self.new_site = os.path.join(folder, "site-old"), os.path.join(folder, "site-new")
        s.publish(self.old_site, seed=20)
        s.publish(self.new_site, seed=21)
        old, new = s.published(self.old_site), s.published(self.new_site)
        filled, two = os.path.join(folder, "filled"), os.path.join(folder, "two")
        s.run_well(filled, self.old_site, [RINK])
        s.run_well(two, self.old_site, [RINK, OLD_RINK])
        self.cases = [
            Case("first start", "", self.old_site, old, s.known(old), s.NOW),
            Case("everything new", filled, self.new_site, new, s.known(old, new), s.NOW + 3 * s.DAY),
            Case("a rink dropped", two, self.old_site, old, s.known(old), s.NOW + 30 * s.DAY),
        ]

    def path(self, *parts):
        return os.path.join(self.folder, "-".join(map(str, parts)).replace(" ", "-"))

    def prepare(self, case, store):
        if case.before:
            s.copy(case.before, store)

    def reference(self, case):
        """The undisturbed run: its calls by number, and the store that it leaves."""
        store, trace = self.path(case.name, "reference"), self.path(case.name, "trace")
        self.prepare(case, store)
        s.run_well(store, case.site, [RINK], case.now, TRACE=trace)
        with open(trace, encoding="utf-8") as file:
            calls = [line.split(" ", 2)[1] for line in file]
        s.check_current(store, case.files)
        return calls, s.snapshot(store)

    def kill(self, case, point, torn, expected):
        """The state that the kill left. Raises `Damage`."""
        store = self.path(case.name, point, "torn" if torn else "")
        self.prepare(case, store)
        try:
            faults = {"KILL": point, **({"TEAR": 1} if torn else {})}
            done = s.run(store, case.site, [RINK], case.now, **faults)
            if done.returncode != -9:
                raise s.Damage(f"wasn't killed, but ended with {done.returncode}")
            s.check_whole(store, case.contents, temporaries=1)
            state_path = os.path.join(store, s.STATE)
            state = s.read(state_path) if os.path.exists(state_path) else b""
            s.run_well(store, case.site, [RINK], case.now + s.DAY / 2)
            s.check_current(store, case.files)
            if s.snapshot(store) != expected:
                raise s.Damage("the next run doesn't leave what an undisturbed one does")
            return state
        except s.Damage as damage:
            raise s.Damage(f"{case.name}, call {point}{' torn' if torn else ''}: {damage}") from damage
        finally:
            s.drop(store)

    def check(self, case, every, offset, jobs):
        calls, expected = self.reference(case)
        points = [(number, torn) for number, kind in enumerate(calls, 1)
                  if every == 1 or kind in MUTATING
                  for torn in ((False, True) if kind == "write" else (False,))]
        points = points[offset % every::every]
        states = set(s.check_all(self.kill, [(case, *point, expected) for point in points], jobs))
        old = s.read(os.path.join(case.before, s.STATE)) if case.before else b""
        if len(states - {old}) > 2:  # saved once on the way, and at the quit
            raise s.Damage(f"{case.name}: {len(states)} different states")
        kinds = ", ".join(f"{count} {kind}" for kind, count in sorted(collections.Counter(calls).items()))
        print(f"{case.name}: {len(calls)} calls ({kinds}); killed at {len(points)} points, all came right", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--every", type=int, default=1,
                        help="kill at each n-th call that changes the disk; 1 is every call, those that only look included")
    parser.add_argument("--seed", type=int, default=0, help="which of the n")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory(prefix="tarvel-points-", dir=s.scratch_parent()) as folder:
        points = Points(folder)
        for case in points.cases:
            points.check(case, arguments.every, arguments.seed, arguments.jobs)


if __name__ == "__main__":
    try:
        main()
    except s.Damage as found:
        sys.exit(f"DAMAGE: {found}")

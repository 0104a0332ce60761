#!/usr/bin/env python3
"""Runs the engine on a disk that is full, read-only or broken, and on stores in which something stands in the place of
a file or a folder. Each run must end by itself and leave the store right; nothing outside of the store may change; and
the first run after the trouble must bring the store up to date.
"""

import argparse
import errno
import os
import sys
import tempfile

import store as s
from disks import TROUBLES, SmallDisk, may_mount

RINK = 17
RINK_FOLDER = f"rink-{RINK}"
# One file of each kind, and a temporary file beside some.
FILES = ["rinks.b1", "defs.b1", s.STATE, s.LOG, f"logos/{RINK}.png", f"{RINK_FOLDER}/main.b1",
         f"{RINK_FOLDER}/notices.b1", f"{RINK_FOLDER}/photoCollection.b1", f"{RINK_FOLDER}/venue-1_schedules.b1",
         f"{RINK_FOLDER}/venue-1_week-{s.TODAY}.b1", f"{RINK_FOLDER}/Photos/1701-1.jpg", ".rinks.b1.part",
         f".{s.STATE}.part", f"{RINK_FOLDER}/.main.b1.part", f"{RINK_FOLDER}/Photos/.1701-1.jpg.part"]
FOLDERS = ["logos", RINK_FOLDER, f"{RINK_FOLDER}/Photos"]
FILE_SWAPS = ["folder", "link to a file", "link to a folder", "link to nothing", "pipe"]
FOLDER_SWAPS = ["file", "link to a file", "link to a folder", "link to nothing", "pipe"]


class Disks:
    def __init__(self, folder):
        self.folder = folder
        self.old_site, self.new_site = os.path.join(folder, "site-old"), os.path.join(folder, "site-new")
        s.publish(self.old_site, seed=20)
        s.publish(self.new_site, seed=21)
        self.old, self.new = s.published(self.old_site), s.published(self.new_site)
        self.contents = s.known(self.old, self.new)
        self.filled, self.fresh = os.path.join(folder, "filled"), os.path.join(folder, "fresh")
        s.run_well(self.filled, self.old_site, [RINK])
        s.copy(self.filled, self.fresh)
        self.trace = os.path.join(folder, "trace")
        s.run_well(self.fresh, self.new_site, [RINK], s.NOW + 3 * s.DAY, TRACE=self.trace)
        self.expected = s.snapshot(self.fresh)
        with open(self.trace, encoding="utf-8") as file:
            self.calls = len(file.readlines())

    def spoilt_run(self, store, **faults):
        """A run that finds everything new, on a disk in trouble."""
        done = s.run(store, self.new_site, [RINK], s.NOW + 3 * s.DAY, **faults)
        if done.returncode not in (0, 1):
            raise s.Damage(f"the run ended with {done.returncode}:\n{done.stdout.decode(errors='replace')[-2000:]}")
        return done

    def check_healed(self, store):
        s.run_well(store, self.new_site, [RINK], s.NOW + 6 * s.DAY)
        s.check_current(store, self.new)
        if s.snapshot(store) != self.expected:
            raise s.Damage("the next run doesn't leave what an undisturbed one does")

    def failing_calls(self, error, first):
        """All calls from that one on fail, as on a disk in that trouble."""
        name = errno.errorcode[error]
        store = os.path.join(self.folder, f"{name}-{first}")
        s.copy(self.filled, store)
        try:
            state = s.read(os.path.join(store, s.STATE))
            self.spoilt_run(store, FAIL=error, FROM=first)
            s.check_whole(store, self.contents, temporaries=1)
            if first == 1 and s.read(os.path.join(store, s.STATE)) != state:
                raise s.Damage("the state isn't the last one saved")
            self.check_healed(store)
        except s.Damage as damage:
            raise s.Damage(f"{name} from call {first} on: {damage}") from damage
        finally:
            s.drop(store)

    def interrupted_writes(self):
        store = os.path.join(self.folder, "clumsy")
        s.copy(self.filled, store)
        s.run_well(store, self.new_site, [RINK], s.NOW + 3 * s.DAY, CLUMSY=1)
        if s.snapshot(store) != self.expected:
            raise s.Damage("interrupted writes leave another store")
        s.drop(store)

    def put(self, kind, path, outside):
        """Something of that kind in the place of what is at the path."""
        if os.path.isdir(path) and not os.path.islink(path):
            os.rename(path, outside + "-moved")
        elif os.path.lexists(path):
            os.remove(path)
        if kind == "file":
            with open(path, "wb") as file:
                file.write(b"something else")
        elif kind == "folder":
            os.mkdir(path)
            with open(os.path.join(path, "inside"), "wb") as file:
                file.write(b"something else")
        elif kind == "pipe":
            os.mkfifo(path)
        else:
            os.symlink({"link to a file": os.path.join(outside, "main.b1"), "link to a folder": outside,
                        "link to nothing": os.path.join(outside, "nothing")}[kind], path)

    def swapped(self, path, kind):
        name = f"{kind} for {path}".replace(" ", "-").replace("/", "-")
        store, outside = os.path.join(self.folder, name), os.path.join(self.folder, name + "-outside")
        s.copy(self.filled, store)
        # What lies outside looks like a rink's folder, so that whoever follows a link has something to damage.
        s.copy(os.path.join(self.filled, RINK_FOLDER), outside)
        s.copy(os.path.join(self.filled, RINK_FOLDER, "Photos"), os.path.join(outside, "Photos-too"))
        with open(os.path.join(outside, "9999-1.jpg"), "wb") as file:
            file.write(b"a picture of the user's own")
        before = s.snapshot(outside)
        try:
            self.put(kind, os.path.join(store, path), outside)
            self.spoilt_run(store)
            if s.snapshot(outside) != before:
                raise s.Damage("something outside of the store has changed")
            self.check_healed(store)
            if s.snapshot(outside) != before:
                raise s.Damage("something outside of the store has changed by the second run")
        except s.Damage as damage:
            raise s.Damage(f"{kind} in the place of {path}: {damage}") from damage
        finally:
            for folder in (store, outside, outside + "-moved"):
                s.drop(folder)

    def mounted(self, trouble):
        """On a disk of its own, which is full or read-only for a run."""
        mount = os.path.join(self.folder, "mount-" + trouble)
        os.mkdir(mount)
        store = os.path.join(mount, "store")
        disk = SmallDisk(mount, trouble)
        try:
            s.copy(self.filled, store)
            disk.spoil()
            done = self.spoilt_run(store)
            if b"Unable to save file" not in done.stdout:
                raise s.Damage("the log has no word of it")
            s.check_current(store, self.old, self.old.keys() & s.entries(self.filled).keys())
            disk.mend()
            self.check_healed(store)
        except s.Damage as damage:
            raise s.Damage(f"{trouble} disk: {damage}") from damage
        finally:
            disk.unmount()


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--every", type=int, default=10, help="let each n-th call be the first that fails")
    parser.add_argument("--swaps", type=int, default=1, help="put each n-th thing in the place of another")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    arguments = parser.parse_args()
    mounts = may_mount()
    with tempfile.TemporaryDirectory(prefix="tarvel-disks-", dir=s.scratch_parent()) as folder:
        disks = Disks(folder)
        disks.interrupted_writes()
        print("interrupted and short writes: as if nothing had been", flush=True)
        firsts = range(1, disks.calls + 1, arguments.every)
        for error in (errno.ENOSPC, errno.EROFS, errno.EIO):
            s.check_all(disks.failing_calls, [(error, first) for first in firsts], arguments.jobs)
            print(f"{errno.errorcode[error]} from one of {len(firsts)} calls on: the store stays right, and heals",
                  flush=True)
        swaps = [(path, kind) for paths, kinds in ((FILES, FILE_SWAPS), (FOLDERS, FOLDER_SWAPS))
                 for path in paths for kind in kinds][::arguments.swaps]
        s.check_all(disks.swapped, swaps, arguments.jobs)
        print(f"{len(swaps)} things in the place of others: nothing outside changes, and the store heals", flush=True)
        for trouble in TROUBLES if mounts else ():
            disks.mounted(trouble)
        print("a full and a read-only disk: said, nothing lost, healed" if mounts else
              "a full and a read-only disk: not tried, as this system lets nobody mount", flush=True)


if __name__ == "__main__":
    try:
        main()
    except s.Damage as found:
        sys.exit(f"DAMAGE: {found}")

#!/usr/bin/env python3
"""Kills the application at random moments while what the server publishes changes, and starts it again.

After each kill the store must be right and the state must still know the rink; after every twentieth, and at the end, a
run that isn't killed must bring everything up to date.
"""

import argparse
import os
import random
import signal
import threading
import time

import desk
import store as s

ROUNDS_TO_A_GOOD_RUN = 20
LAST_LINE = 60         # the lines that a run prints, or more
LATE = 0.05            # seconds after a line, at most
LONGEST = 4.0          # seconds that a round takes, at most
LONGEST_REST = 0.5     # seconds between two changes of what is published
COMMONEST = 0.7        # of the rounds find files missing, and so fetch from the start on


class Editor:
    """Changes what the server publishes, again and again, and knows every file that has ever been published."""

    def __init__(self, station, seed):
        self.desk = station
        self.random = random.Random(seed)
        self.contents = s.known(s.published(station.tree))
        self.at_work = threading.Lock()  # whoever holds it finds all that is published known
        self.changes = 0
        self.stopping = threading.Event()
        self.thread = threading.Thread(target=self.work)
        self.thread.start()

    def stop(self):
        self.stopping.set()
        self.thread.join()

    def work(self):
        while not self.stopping.wait(self.random.uniform(0, LONGEST_REST)):
            with self.at_work:
                self.change()

    def change(self):
        sunday = self.random.choice(desk.programs.weeks_of(self.desk.rink))
        venue = self.random.choice(self.desk.rink["venues"])["venue"]
        verb, parameters = self.random.choice([
            ("replace-week", {"rink": desk.RINK, "venue": venue, "week": sunday}),
            ("rename-rink", {"rink": desk.RINK, "name": f"Arena {self.random.randrange(1000)}"}),
            ("add-notice", {"rink": desk.RINK, "summary": "News", "detail": "x" * self.random.randrange(3000)}),
        ])
        self.desk.demo.control(verb, **parameters)
        self.changes += 1
        for path, content in s.published(self.desk.tree).items():
            self.contents.setdefault(path, set()).add(content)

    def check_whole(self, temporaries):
        try:
            s.check_whole(self.desk.store, self.contents, temporaries)
        except (s.Damage, RuntimeError):  # a file may be newer than what is known
            with self.at_work:
                s.check_whole(self.desk.store, self.contents, temporaries)


class Kills:
    def __init__(self, station, editor, seed):
        self.desk = station
        self.editor = editor
        self.random = random.Random(seed)
        self.kills = 0
        self.temporaries = 0

    def lose_files(self):
        for path in self.desk.stored_files(f"rink-{desk.RINK}"):
            if self.random.random() < 0.5:
                os.remove(self.desk.path(path))

    def kill_once(self):
        if self.random.random() < COMMONEST:
            self.lose_files()
        else:
            self.desk.make_due()
        tarvel = self.desk.launch()
        lines = self.random.randrange(LAST_LINE)
        deadline = time.monotonic() + self.random.uniform(0.5, LONGEST)
        while len(tarvel.lines) < lines and time.monotonic() < deadline and tarvel.process.poll() is None:
            time.sleep(0.001)
        time.sleep(self.random.uniform(0, LATE))
        tarvel.process.send_signal(signal.SIGKILL)
        status = tarvel.wait()
        if status != -signal.SIGKILL:
            raise s.Damage(f"it ended by itself with {status}:\n" + "\n".join(tarvel.lines + tarvel.errors))
        tarvel.destroy()
        self.kills += 1
        self.temporaries += sum(path.endswith(s.TEMPORARY) for path in s.entries(self.desk.store))
        self.editor.check_whole(temporaries=1)
        self.desk.check_state()

    def good_run(self):
        with self.editor.at_work:
            self.desk.run_refreshed()
            s.check_whole(self.desk.store, self.editor.contents)
            self.desk.check_up_to_date()
            self.desk.check_state()


def share(first, last, seed):
    with desk.Desk() as station:
        station.fill()
        editor = Editor(station, f"{seed}-{first}-editor")
        kills = Kills(station, editor, f"{seed}-{first}")
        try:
            for number in range(first, last):
                try:
                    kills.kill_once()
                    if number + 1 == last or (number + 1) % ROUNDS_TO_A_GOOD_RUN == 0:
                        kills.good_run()
                except (s.Damage, AssertionError) as damage:
                    raise s.Damage(f"kill {number} of seed {seed}: {damage}") from damage
        finally:
            editor.stop()
        return kills.kills, kills.temporaries, editor.changes


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--count", type=int, default=200)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    arguments = parser.parse_args()
    done = desk.in_parallel(share, [(first, last, arguments.seed)
                                    for first, last in desk.shares_of(arguments.count, arguments.jobs)])
    kills, temporaries, changes = map(sum, zip(*done))
    print(f"killed {kills} times, {temporaries} times in the middle of a file, while what is published changed {changes} "
          "times; the store was right each time, and came up to date")


if __name__ == "__main__":
    main()

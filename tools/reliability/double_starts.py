#!/usr/bin/env python3
"""Starts two copies of the application at once, again and again. One must live on, the other must end well; the one
that lives is ended by a quit and by a kill in turn, so that the next two find either a clean or a broken end."""

import argparse
import os
import signal

import desk
import store as s
from programs import wait_for


def start_two(station, end_by):
    copies = [station.launch(), station.launch()]
    ended = wait_for(lambda: [copy for copy in copies if copy.process.poll() is not None], "the end of one copy")
    if len(ended) != 1:
        raise s.Damage("both copies have ended")
    loser = ended[0]
    winner = copies[1 - copies.index(loser)]
    status = loser.wait()
    if status != 0:
        raise s.Damage(f"the other copy ended with {status}: {loser.errors}")
    if any(line.startswith("----- Launch") for line in loser.lines):
        raise s.Damage("both copies have worked on the store")
    winner.wait_for_line("----- Launch Tarvel ")
    if end_by == signal.SIGTERM:
        station.quit(winner)
    else:
        winner.end(end_by)
    for copy in copies:
        copy.destroy()


def share(first, last):
    with desk.Desk() as station:
        station.fill()
        contents = s.known(s.published(station.tree))
        for number in range(first, last):
            try:
                start_two(station, signal.SIGTERM if number % 2 else signal.SIGKILL)
                s.check_whole(station.store, contents, temporaries=1)
                station.check_state()
            except (s.Damage, AssertionError) as damage:
                raise s.Damage(f"start {number}: {damage}") from damage
        station.run_refreshed()
        s.check_whole(station.store, contents)
        station.check_up_to_date()
        return last - first


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--count", type=int, default=200)
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    arguments = parser.parse_args()
    done = desk.in_parallel(share, desk.shares_of(arguments.count, arguments.jobs))
    print(f"two copies started at once, {sum(done)} times: one lived on each time, the other ended well")


if __name__ == "__main__":
    main()

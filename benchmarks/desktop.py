"""What the application costs a desktop, beside an empty window measured in the same run.

    benchmarks/desktop.py [--build build/release] [--runs 7] [--idle 60]

Needs Xvfb and openbox. Tells the time from the start of the process to the first picture (of the application: to the
week of a rink from a filled store), memory as its share of pages (PSS), and the processor's time while nothing happens,
with the clock face on the screen, with another pane in front of it, and for the Today window of a kiosk, of which it
also tells the memory, how often its threads wake, and in how many seconds anything on the screen changed.
"""

import argparse
import collections
import glob
import mmap
import os
import plistlib
import signal
import statistics
import subprocess
import tempfile
import time

WIDTH, HEIGHT = 1280, 800
RINK = 14
SCHEDULE_PANE, INFO_PANE = 1, 0
# Of the window's picture: where the week's sessions are, in pixels of the screen.
WEEK = (560, 150, 1000, 700)
COLOURS_OF_A_WEEK = 6
# The same of a whole screen's day.
DAY = (200, 130, 1100, 780)
COLOURS_OF_A_DAY = 3

# Of a run: seconds to the picture and megabytes; and while idle: per cent of a core, wakes of a thread a second, and
# the share of seconds in which the picture changed.
Cost = collections.namedtuple("Cost", "shown memory share wakes changes")


class Screen:
    """A virtual screen whose pixels are a file."""

    def __init__(self, folder):
        readable, writable = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(writable), "-screen", "0", f"{WIDTH}x{HEIGHT}x24",
                                        "-fbdir", folder, "-nolisten", "tcp", "-noreset"], pass_fds=[writable],
                                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writable)
        with os.fdopen(readable) as pipe:
            self.environment = dict(os.environ, DISPLAY=":" + pipe.readline().strip(), QT_QPA_PLATFORM="xcb")
        self.manager = subprocess.Popen(["openbox", "--sm-disable"], env=self.environment, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        time.sleep(1.0)
        with open(os.path.join(folder, "Xvfb_screen0"), "rb") as file:
            self.pixels = mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ)
        self.start = len(self.pixels) - WIDTH * HEIGHT * 4

    def colours(self, area, step=9):
        """The colours seen in the area that are neither grey nor too rare to be a surface."""
        left, top, right, bottom = area
        counts = {}
        for y in range(top, bottom, step):
            row = self.start + y * WIDTH * 4
            for x in range(left, right, step):
                pixel = self.pixels[row + x * 4:row + x * 4 + 3]
                counts[pixel] = counts.get(pixel, 0) + 1
        return [c for c, n in counts.items() if n >= 8 and max(c) - min(c) > 24]

    def picture(self):
        return self.pixels[self.start:]

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()


def cpu_seconds(pid):
    """Of the scheduler, to the nanosecond: a program that idles uses less than the clock's ticks tell."""
    nanoseconds = 0
    for path in glob.glob(f"/proc/{pid}/task/*/schedstat"):
        with open(path, encoding="ascii") as file:
            nanoseconds += int(file.read().split()[0])
    return nanoseconds / 1e9


def pss_megabytes(pid):
    with open(f"/proc/{pid}/smaps_rollup", encoding="ascii") as file:
        return next(int(line.split()[1]) for line in file if line.startswith("Pss:")) / 1024


def wake_count(pid):
    """How often its threads have gone to sleep of themselves, and so have woken."""
    count = 0
    for path in glob.glob(f"/proc/{pid}/task/*/status"):
        with open(path, encoding="ascii") as file:
            count += next(int(line.split()[1]) for line in file if line.startswith("voluntary_ctxt_switches"))
    return count


def watch_idle(screen, pid, seconds):
    """Per cent of a core, wakes a second, and the share of seconds with a change, over so many seconds."""
    time.sleep(3.0)
    cpu, wakes, picture, changes = cpu_seconds(pid), wake_count(pid), screen.picture(), 0
    begin = time.monotonic()
    while time.monotonic() - begin < seconds:
        time.sleep(1.0)
        before, picture = picture, screen.picture()
        changes += picture != before
    passed = time.monotonic() - begin
    return (cpu_seconds(pid) - cpu) / passed * 100, (wake_count(pid) - wakes) / passed, changes / passed


def run(screen, command, is_there, store=None, idle=0.0):
    """What a run of the program costs until it is asked to end."""
    environment = dict(screen.environment, XDG_DATA_HOME=store) if store else screen.environment
    begin = time.monotonic()
    process = subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    while not is_there():
        if time.monotonic() - begin > 20.0:
            raise SystemExit(f"{command[0]} shows nothing")
        time.sleep(0.001)
    shown = time.monotonic() - begin
    time.sleep(1.5)
    memory = pss_megabytes(process.pid)
    idle_cost = watch_idle(screen, process.pid, idle) if idle else (0.0, 0.0, 0.0)
    process.send_signal(signal.SIGTERM)
    process.wait()
    time.sleep(0.3)
    return Cost(shown, memory, *idle_cost)


def fill_store(build, store, environment):
    """Two runs: one fetches the catalogue, the next a rink."""
    environment = dict(environment, XDG_DATA_HOME=store, QT_QPA_PLATFORM="offscreen")
    state = os.path.join(store, "Tarvel", "appState.plist")
    for seconds in (7.0, 7.0):
        process = subprocess.Popen([os.path.join(build, "bin", "tarvel")], env=environment, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        time.sleep(seconds)
        process.send_signal(signal.SIGTERM)
        process.wait()
        show_pane(state, SCHEDULE_PANE)


def change_state(state, change):
    with open(state, "rb") as file:
        content = plistlib.load(file)
    change(content)
    with open(state, "wb") as file:
        plistlib.dump(content, file)


def show_pane(state, pane):
    change_state(state, lambda content: content["openWindows"][0].update(
        rinkID=RINK, currentPaneKind=pane, scheduleViewOption=0, showRinks=True))


def show_today(state):
    """The Today window of a kiosk and nothing else."""
    change_state(state, lambda content: content.update(kioskMode=True, openWindows=[
        {"className": "TodayWindowController", "rinkID": RINK, "fitHeight": True, "scheduleFontSizeFit": 18.0}]))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default="build/release")
    parser.add_argument("--runs", type=int, default=7)
    parser.add_argument("--idle", type=float, default=60.0)
    options = parser.parse_args()
    program = [os.path.join(options.build, "bin", "tarvel")]
    empty = [os.path.join(options.build, "bin", "tarvel-empty-window")]
    with tempfile.TemporaryDirectory() as folder:
        screen = Screen(folder)
        demo = subprocess.Popen([os.path.join(options.build, "bin", "tarvel-demo")], stdout=subprocess.DEVNULL,
                                stderr=subprocess.DEVNULL)
        time.sleep(1.5)
        store = os.path.join(folder, "store")
        os.mkdir(store)
        fill_store(options.build, store, screen.environment)
        week = lambda: len(screen.colours(WEEK)) >= COLOURS_OF_A_WEEK
        surface = lambda: len(screen.colours((600, 300, 700, 400))) >= 1
        ours, theirs = [], []
        for _ in range(options.runs):
            theirs.append(run(screen, empty, surface))
            ours.append(run(screen, program, week, store))
        start = [statistics.median(r.shown for r in runs) for runs in (ours, theirs)]
        memory = [statistics.median(r.memory for r in runs) for runs in (ours, theirs)]
        print(f"first week on screen  {start[0] * 1000:6.0f} ms; empty window {start[1] * 1000:6.0f} ms; "
              f"ratio {start[0] / start[1]:.2f}")
        print(f"memory (PSS)          {memory[0]:6.1f} MB; empty window {memory[1]:6.1f} MB; "
              f"ratio {memory[0] / memory[1]:.2f}")
        if options.idle:
            shown = run(screen, program, week, store, options.idle).share
            state = os.path.join(store, "Tarvel", "appState.plist")
            show_pane(state, INFO_PANE)
            hidden = run(screen, program, lambda: True, store, options.idle).share
            show_today(state)
            day = lambda: len(screen.colours(DAY)) >= COLOURS_OF_A_DAY
            today = run(screen, program, day, store, options.idle)
            print(f"processor while idle  {shown:.2f} % with the clock face, {hidden:.2f} % without")
            print(f"Today window          {today.share:.2f} % of the processor while idle, {today.wakes:.1f} wakes a "
                  f"second, changes in {today.changes * 60:.0f} of 60 seconds; {today.memory:.1f} MB, "
                  f"ratio {today.memory / memory[1]:.2f}")
        demo.terminate()
        demo.wait()
        screen.close()


if __name__ == "__main__":
    main()

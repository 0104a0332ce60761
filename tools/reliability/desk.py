"""The built application on a desk of its own: a folder for the user's data, a screen that nobody sees, a network that
nothing else is on, and the demo as its server."""

import datetime
import multiprocessing
import os
import queue
import sys
import traceback

import store as s

os.environ.setdefault("TARVEL", s.program("tarvel"))
os.environ.setdefault("TARVEL_DEMO", s.program("tarvel-demo"))
os.environ.setdefault("TARVEL_SERVER_URL", "http://127.0.0.1:8462")

import programs  # noqa: E402

RINK = 14
# Several applications run at once here, and killed ones leave much to do.
programs.PATIENCE = 120.0


class Desk(programs.ProgramTest):
    """Use it in a `with`."""

    def runTest(self):
        """The checks call what they need one by one."""

    def __enter__(self):
        self.setUpClass()
        self.setUp()
        return self

    def __exit__(self, *_):
        self.doCleanups()
        self.doClassCleanups()

    def start_demo(self):
        self.tree = os.path.join(self.folder, "published")
        self.demo = programs.Demo(self.environment, "--folder", self.tree)
        self.addCleanup(self.demo.destroy)

    def launch(self, **environment):
        """Starts the application, and doesn't wait for anything."""
        tarvel = programs.Process([programs.TARVEL], {**self.environment, **environment})
        self.addCleanup(tarvel.destroy)
        return tarvel

    def fill(self):
        """The catalogue and the rink's files, and a window that shows them."""
        self.rink = self.demo.rink(RINK)
        self.fill_rink(self.rink)

    def make_due(self):
        super().make_due()
        state = self.read_state()
        for refreshed in (state, *state["recentRinks"]):
            if "errorTimeStamp" in refreshed:
                refreshed["errorTimeStamp"] -= datetime.timedelta(hours=5)
        self.write_state(state)

    def run_failing(self):
        """A run to the end of the first refreshes of catalogue and rink, which fail. A file of the catalogue that is
        missing is asked for at once, and its failure puts the refresh off."""
        self.make_due()
        tarvel = self.start_tarvel()
        tarvel.wait_for_line("next master refresh in ", count=2)
        tarvel.wait_for_line("next refresh for ", count=2)
        programs.wait_for(lambda: unanswered(tarvel.lines) == 0, "all replies", programs.PATIENCE)
        self.quit(tarvel)

    def run_refreshed(self):
        """A run to the end of the refreshes of catalogue and rink, which were made due."""
        self.make_due()
        tarvel = self.start_tarvel()
        programs.wait_for(lambda: is_refreshed(tarvel.lines), "the refreshes", programs.PATIENCE)
        self.quit(tarvel)

    def check_up_to_date(self):
        """The catalogue and what the rink's window shows are as published now."""
        now = s.published(self.tree)
        folder = f"rink-{RINK}/"
        shown = {str(sunday) for sunday in programs.weeks_of(self.rink)}
        for path in s.entries(self.store):
            is_week = "_week-" in path
            if path in now and (not is_week or any(path.endswith(f"_week-{week}.b1") for week in shown)):
                if s.read(self.path(path)) != now[path]:
                    raise s.Damage(f"{path} is out of date")
        missing = {"rinks.b1", "defs.b1", folder + "main.b1"} - set(s.entries(self.store))
        if missing:
            raise s.Damage(f"not in the store: {missing}")

    def check_state(self):
        """The state can be read and still knows the rink."""
        rinks = [rink["rinkID"] for rink in self.read_state()["recentRinks"]]
        if RINK not in rinks:
            raise s.Damage(f"the state knows the rinks {rinks}, and not {RINK}")


def came_after(lines, is_begin, end):
    """Whether a line that begins with `end` follows the first that `is_begin` takes."""
    begun = False
    for line in list(lines):
        begun = begun or is_begin(line)
        if begun and line.startswith(end):
            return True
    return False


def is_refreshed(lines, rinks=True):
    """Whether the catalogue, and a rink if wanted, were refreshed and all replies have come."""
    master = "----- performRefresh for master data"
    return (came_after(lines, lambda line: line == master, "next master refresh in ")
            and (not rinks or came_after(lines, lambda line: line.startswith(master[:25]) and line != master,
                                         "next refresh for "))
            and unanswered(lines) == 0)


def unanswered(lines):
    """Requests that are under way, those for pictures left out, as of their replies nothing is told."""
    count = 0
    for line in list(lines):
        if line.startswith("Requesting file from server: "):
            count += line.endswith(".b1")
        elif line.startswith("download failed: "):
            count -= line.split(" ")[2].endswith(".b1")
        elif line.startswith("received "):
            count -= 1
        elif line.startswith("logError: ") and "descr: Invalid data in " in line:
            count += 1  # told both ways
    return count


def _work(share, arguments, results):
    try:
        programs.isolate_network()
        results.put((None, share(*arguments)))
    except s.Damage as damage:
        results.put((str(damage), None))
    except BaseException:  # pylint: disable=broad-except
        results.put((traceback.format_exc(), None))


def in_parallel(share, shares):
    """Runs `share` with each of the arguments in a process of its own, which has a network of its own. What they
    returned; ends this program if one of them failed."""
    results = multiprocessing.Queue()
    processes = [multiprocessing.Process(target=_work, args=(share, arguments, results)) for arguments in shares]
    for process in processes:
        process.start()
    outcomes = []
    while len(outcomes) < len(processes):
        try:
            outcomes.append(results.get(timeout=1))
        except queue.Empty:
            if not any(process.is_alive() for process in processes) and results.empty():
                break
    for process in processes:
        process.join()
    found = [damage for damage, _ in outcomes if damage]
    if found or len(outcomes) < len(processes):
        sys.exit("DAMAGE: " + "\n".join(found or ["a process of the check ended early"]))
    return [result for _, result in outcomes]


def shares_of(count, jobs):
    """So many rounds, divided among the jobs: the numbers of each one's first and last, and the latter's next."""
    jobs = max(1, min(jobs, count))
    return [(count * job // jobs, count * (job + 1) // jobs) for job in range(jobs)]

"""Runs the built application against the built demo server, and looks at both from outside.

Every wait here is for something that happens, with a deadline; none is for time alone.
"""

import ctypes
import datetime
import fcntl
import functools
import json
import os
import plistlib
import shutil
import signal
import socket
import struct
import subprocess
import tempfile
import threading
import time
import unittest
import urllib.parse
import urllib.request
import zoneinfo

TARVEL = os.environ["TARVEL"]
TARVEL_DEMO = os.environ["TARVEL_DEMO"]
SERVER_URL = os.environ["TARVEL_SERVER_URL"]

PATIENCE = 180.0  # seconds for anything that has to happen

CLONE_NEWNS = 0x00020000
CLONE_NEWUSER = 0x10000000
CLONE_NEWNET = 0x40000000
MS_REC_PRIVATE = 0x4000 | 1 << 18
MNT_DETACH = 2
SIOCGIFFLAGS = 0x8913
SIOCSIFFLAGS = 0x8914
IFF_UP = 0x1


def isolate_network():
    """Gives this process and its children a network of their own with nothing but the loopback device, so that the
    demo's port is free and nothing reaches out. Where the system forbids it, the machine's network serves, and the
    answer is false."""
    libc = ctypes.CDLL(None, use_errno=True)
    uid, gid = os.getuid(), os.getgid()
    if uid == 0:
        if libc.unshare(CLONE_NEWNET) != 0:
            return False
    else:
        if libc.unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0:
            return False
        for name, text in (("setgroups", "deny"), ("uid_map", f"{uid} {uid} 1"), ("gid_map", f"{gid} {gid} 1")):
            with open(f"/proc/self/{name}", "w", encoding="ascii") as file:
                file.write(text)
    with socket.socket() as any_socket:
        request = bytearray(struct.pack("16sh14x", b"lo", 0))
        fcntl.ioctl(any_socket, SIOCGIFFLAGS, request)
        flags = struct.unpack("16xh14x", request)[0] | IFF_UP
        fcntl.ioctl(any_socket, SIOCSIFFLAGS, struct.pack("16sh14x", b"lo", flags))
    return True


def own_etc():
    """Gives this process and its children an /etc of their own, which nobody else sees changed. The answer is what takes
    it away again, or nothing where the system forbids it."""
    libc = ctypes.CDLL(None, use_errno=True)

    def mount(source, target, kind=None, flags=0, options=None):
        texts = [text and text.encode() for text in (source, target, kind, options)]
        return libc.mount(*texts[:3], ctypes.c_ulong(flags), texts[3]) == 0

    if libc.unshare(CLONE_NEWNS) != 0 or not mount(None, "/", flags=MS_REC_PRIVATE):
        return None
    folder = tempfile.mkdtemp(prefix="tarvel-etc-")
    done = mount("own", folder, "tmpfs")
    if done:
        changes, work = (os.path.join(folder, name) for name in ("changes", "work"))
        os.mkdir(changes)
        os.mkdir(work)
        done = mount("own", "/etc", "overlay", options=f"lowerdir=/etc,upperdir={changes},workdir={work}")
        # What is mounted goes on holding it.
        libc.umount2(folder.encode(), MNT_DETACH)
    os.rmdir(folder)
    return functools.partial(libc.umount2, b"/etc", MNT_DETACH) if done else None


def set_machine_zone(name):
    os.symlink(f"/usr/share/zoneinfo/{name}", "/etc/localtime.new")
    os.rename("/etc/localtime.new", "/etc/localtime")


def weeks_of(rink):
    """The Sundays of last week, this week and the next, by the rink's own clock: what the three pages show."""
    today = datetime.datetime.now(zoneinfo.ZoneInfo(rink["timeZone"])).date()
    sunday = today - datetime.timedelta(days=(today.weekday() + 1) % 7)
    return [sunday + datetime.timedelta(days=days) for days in (-7, 0, 7)]


def wait_for(condition, what, patience=PATIENCE):
    """The condition's first true value."""
    deadline = time.monotonic() + patience
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise AssertionError(f"waited in vain for {what}")
        time.sleep(0.02)


class Process:
    """A program that runs, with its lines of standard output."""

    def __init__(self, arguments, environment):
        self.process = subprocess.Popen(
            arguments, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
            text=True)
        self.lines = []
        self.errors = []
        self._changed = threading.Condition()
        self._readers = [threading.Thread(target=self._read, args=pair, daemon=True)
                         for pair in ((self.process.stdout, self.lines), (self.process.stderr, self.errors))]
        for reader in self._readers:
            reader.start()

    def _read(self, stream, lines):
        for line in stream:
            with self._changed:
                lines.append(line.rstrip("\n"))
                self._changed.notify_all()

    def wait_for_line(self, beginning, count=1):
        """The first of the lines that begin so, once there are so many of them."""
        def found():
            return [line for line in self.lines if line.startswith(beginning)]
        with self._changed:
            if not self._changed.wait_for(lambda: len(found()) >= count, PATIENCE):
                raise AssertionError(f"no line {beginning!r} among\n" + "\n".join(self.lines + self.errors))
            return found()[0]

    def wait(self):
        status = self.process.wait(PATIENCE)
        for reader in self._readers:
            reader.join(PATIENCE)
        return status

    def end(self, number=signal.SIGTERM):
        """Asks it to end by that signal; its exit status."""
        self.process.send_signal(number)
        return self.wait()

    def destroy(self):
        if self.process.poll() is None:
            self.process.kill()
        self.wait()
        self.process.stdout.close()
        self.process.stderr.close()


class Demo(Process):
    def __init__(self, environment, *arguments):
        port = urllib.parse.urlsplit(SERVER_URL).port
        super().__init__([TARVEL_DEMO, "--port", str(port), *arguments], environment)
        self.wait_for_line("serving on ")

    def rink(self, rink_id):
        return next(rink for rink in self.state()["rinks"] if rink["rink"] == rink_id)

    @staticmethod
    def get(path):
        with urllib.request.urlopen(SERVER_URL + path, timeout=PATIENCE) as reply:
            return reply.read()

    def control(self, verb, **parameters):
        return json.loads(self.get("/control?" + urllib.parse.urlencode({"do": verb, **parameters})))

    def state(self):
        return json.loads(self.get("/control/state"))

    def requests(self):
        """The paths asked for, in order."""
        return [entry["path"] for entry in json.loads(self.get("/control/requests"))]

    def finished_requests(self):
        entries = json.loads(self.get("/control/requests"))
        return [entry["path"] for entry in entries if entry.get("status") == 200]

    def clear_requests(self):
        self.control("clear-requests")


class ProgramTest(unittest.TestCase):
    """Each test has a folder of its own for the user's data, and a demo server."""

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="tarvel-e2e-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        for name in ("data", "runtime", "config", "home"):
            os.mkdir(os.path.join(self.folder, name), 0o700)
        self.environment = {
            "PATH": os.environ["PATH"],
            "LANG": "C.UTF-8",
            "HOME": os.path.join(self.folder, "home"),
            "XDG_DATA_HOME": os.path.join(self.folder, "data"),
            "XDG_CONFIG_HOME": os.path.join(self.folder, "config"),
            "XDG_RUNTIME_DIR": os.path.join(self.folder, "runtime"),
            # No desktop's settings may decide what a test sees.
            "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent",
            "QT_QPA_PLATFORM": "offscreen:configfile=" + self.describe_screen(),
        }
        for name in ("ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS", "TSAN_OPTIONS"):
            if name in os.environ:
                self.environment[name] = os.environ[name]
        self.store = os.path.join(self.folder, "data", "Tarvel")
        self.state_path = os.path.join(self.store, "appState.plist")
        self.demo = None
        self.start_demo()

    def describe_screen(self):
        """A screen that is larger than any window has to be."""
        path = os.path.join(self.folder, "screen.json")
        with open(path, "w", encoding="utf-8") as file:
            json.dump({"windowFrameMargins": True,
                       "screens": [{"name": "screen", "x": 0, "y": 0, "width": 1920, "height": 1200,
                                    "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}, file)
        return path

    def start_demo(self):
        self.demo = Demo(self.environment)
        self.addCleanup(self.demo.destroy)

    def start_tarvel(self, **environment):
        tarvel = Process([TARVEL], {**self.environment, **environment})
        self.addCleanup(tarvel.destroy)
        tarvel.wait_for_line("----- Launch Tarvel ")
        return tarvel

    def quit(self, tarvel, number=signal.SIGTERM):
        status = tarvel.end(number)
        self.assertEqual(status, 0, "\n".join(tarvel.lines + tarvel.errors))
        self.assertEqual(tarvel.lines[-1], "----- Quit Tarvel -----")

    def path(self, *names):
        return os.path.join(self.store, *names)

    def read_state(self):
        with open(self.state_path, "rb") as file:
            return plistlib.load(file)

    def write_state(self, state):
        with open(self.state_path, "wb") as file:
            plistlib.dump(state, file)

    def fill_catalogue(self):
        """A first run that fetches the catalogue, and quits."""
        tarvel = self.start_tarvel()
        tarvel.wait_for_line("received root file")
        tarvel.wait_for_line("received rink list file")
        tarvel.wait_for_line("received defs file")
        self.quit(tarvel)
        self.assertTrue(os.path.exists(self.path("rinks.b1")))

    def show_rink(self, rink_id):
        """Makes the window of the last run open on that rink's week."""
        state = self.read_state()
        self.assertEqual([window["className"] for window in state["openWindows"]], ["MainWindowController"])
        state["openWindows"][0].update(rinkID=rink_id, currentPaneKind=1, scheduleViewOption=0)
        self.write_state(state)

    def fill_rink(self, rink):
        """Runs that fetch the catalogue and then that rink's files, and quit."""
        self.fill_catalogue()
        self.show_rink(rink["rink"])
        tarvel = self.start_tarvel()
        tarvel.wait_for_line("received weekly schedule file for", count=3)
        tarvel.wait_for_line(f"next refresh for {rink['name']} in ")
        self.quit(tarvel)

    def make_due(self):
        """Puts the end of the last good refreshes back far enough for the next start to refresh."""
        state = self.read_state()
        state["lastRefreshTimeStamp"] -= datetime.timedelta(days=3)
        for rink in state["recentRinks"]:
            rink["lastRefreshTimeStamp"] -= datetime.timedelta(hours=5)
        self.write_state(state)

    def stored_files(self, *names):
        """Paths below the folder, relative to the store, of what servers publish."""
        top = self.path(*names)
        paths = [os.path.join(folder, file) for folder, _, files in os.walk(top) for file in files]
        return sorted(os.path.relpath(path, self.store) for path in paths
                      if path.endswith(".b1") and not path.endswith("error-log.b1"))

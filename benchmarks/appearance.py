#!/usr/bin/python3
"""How long the switch from light to dark, to high contrast and to larger text takes on the screen, with a main window
for each pane, a Today window, and the windows of the log, the debugging table, the server and the clock open at once.

    benchmarks/appearance.py [--build build/release] [--runs 10]

Needs Xvfb, openbox, xdotool, dbus-daemon and python3-gi. The settings portal is played here, on a bus of its own. Told is
the time from the portal's signal until the screen looks as it does a second later, but for the hands of clocks, and the
processor's time that the application used in that second.
"""

import argparse
import os
import signal
import statistics
import subprocess
import tempfile
import threading
import time

from gi.repository import Gio, GLib

import desktop

OBJECT = "/org/freedesktop/portal/desktop"
SETTINGS = "org.freedesktop.portal.Settings"
INTERFACE = f"""<node><interface name="{SETTINGS}"><method name="Read"><arg type="s" direction="in"/>
<arg type="s" direction="in"/><arg type="v" direction="out"/></method></interface></node>"""
SCHEME = ("org.freedesktop.appearance", "color-scheme", "u")
CONTRAST = ("org.freedesktop.appearance", "contrast", "u")
TEXT = ("org.gnome.desktop.interface", "text-scaling-factor", "d")
WINDOWS = ["MainWindowController"] * 4 + ["TodayWindowController"]
# The keys that open the other windows from a main window's menus; first the menu for debugging.
KEYS = (("alt+t", "Up", "Up", "Return"), ("ctrl+comma",), ("alt+d", "Down", "Return"),
        ("alt+d", "Down", "Down", "Return"), ("alt+d", "Down", "Down", "Down", "Return"))
STEP = 101  # of the pixels that are compared
CLOCKS = 0.004  # the share of pixels that may change of themselves
WATCHED = 1.0  # seconds


class Desktop:
    """A bus with a settings portal."""

    def __init__(self):
        self.bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"], stdout=subprocess.PIPE,
                                    stderr=subprocess.DEVNULL, text=True)
        self.address = self.bus.stdout.readline().strip()
        kind = Gio.DBusConnectionFlags
        self.connection = Gio.DBusConnection.new_for_address_sync(
            self.address, kind.AUTHENTICATION_CLIENT | kind.MESSAGE_BUS_CONNECTION, None, None)
        node = Gio.DBusNodeInfo.new_for_xml(INTERFACE)
        self.connection.register_object(OBJECT, node.interfaces[0], self.answer, None, None)
        Gio.bus_own_name_on_connection(self.connection, "org.freedesktop.portal.Desktop", 0, None, None)
        threading.Thread(target=GLib.MainLoop().run, daemon=True).start()

    @staticmethod
    def answer(_connection, _sender, _path, _interface, _method, _parameters, invocation):
        invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "not set")

    def announce(self, setting, value):
        group, key, kind = setting
        self.connection.emit_signal(None, OBJECT, SETTINGS, "SettingChanged",
                                    GLib.Variant("(ssv)", (group, key, GLib.Variant(kind, value))))
        self.connection.flush_sync(None)

    def close(self):
        self.bus.terminate()
        self.bus.wait()


def difference(a, b):
    return sum(x != y for x, y in zip(a, b)) / len(a)


def sample(screen):
    pixels = memoryview(screen.pixels)[screen.start:screen.start + desktop.WIDTH * desktop.HEIGHT * 4].cast("I")
    return pixels[::STEP].tolist()


def settle(screen, pid, change):
    """Milliseconds until the change is seen, those of the processor, and how much of the screen it changed."""
    spent = desktop.cpu_seconds(pid)
    before = sample(screen)
    begin = time.monotonic()
    change()
    samples = []
    while time.monotonic() - begin < WATCHED:
        samples.append((time.monotonic() - begin, sample(screen)))
    final = samples[-1][1]
    unlike = [moment for moment, picture in samples if difference(picture, final) > CLOCKS]
    return (max(unlike) if unlike else 0.0) * 1000, (desktop.cpu_seconds(pid) - spent) * 1000, difference(before, final)


def open_all(state):
    def change(content):
        model = content["openWindows"][0]
        content["openWindows"] = []
        for index, name in enumerate(WINDOWS):
            window = dict(model, currentPaneKind=index) if index < 4 else {"rinkID": desktop.RINK}
            window.update(className=name, frame=f"{20 + 30 * index} {40 + 8 * index} 1000 690 0 0 1280 800")
            content["openWindows"].append(window)
    desktop.change_state(state, change)


def ask(screen, *arguments):
    return subprocess.run(["xdotool", *arguments], env=screen.environment, stdout=subprocess.PIPE, text=True,
                          check=False).stdout


def visible(screen, program):
    return ask(screen, "search", "--onlyvisible", "--pid", str(program.pid)).split()


def open_others(screen, program):
    """Through the menus; how many windows are open then."""
    window = next(i for i in visible(screen, program) if "Today" not in ask(screen, "getwindowname", i))
    for keys in KEYS:
        ask(screen, "windowactivate", "--sync", window)
        for key in keys:
            ask(screen, "key", key)
            time.sleep(0.3)
        time.sleep(0.7)
    return len(visible(screen, program))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", default="build/release")
    parser.add_argument("--runs", type=int, default=10)
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        screen = desktop.Screen(folder)
        demo = subprocess.Popen([os.path.join(options.build, "bin", "tarvel-demo")], stdout=subprocess.DEVNULL,
                                stderr=subprocess.DEVNULL)
        time.sleep(1.5)
        store = os.path.join(folder, "store")
        os.mkdir(store)
        desktop.fill_store(options.build, store, screen.environment)
        state = os.path.join(store, "Tarvel", "appState.plist")
        open_all(state)
        settings = Desktop()
        program = subprocess.Popen([os.path.join(options.build, "bin", "tarvel")], stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL,
                                   env=dict(screen.environment, XDG_DATA_HOME=store,
                                            DBUS_SESSION_BUS_ADDRESS=settings.address))
        time.sleep(8.0)
        print(f"{open_others(screen, program)} windows are open")
        for title, setting, values in (("dark and back", SCHEME, (1, 2)), ("high contrast and back", CONTRAST, (1, 0)),
                                       ("text of 1.5 and back", TEXT, (1.5, 1.0))):
            results = [settle(screen, program.pid, lambda: settings.announce(setting, value))
                       for _ in range(options.runs) for value in values]
            times, costs, shares = zip(*results)
            print(f"{title:24} median {statistics.median(times):5.0f} ms, longest {max(times):5.0f} ms; "
                  f"of the processor {statistics.median(costs):5.0f} ms; at least {min(shares) * 100:.0f} % of the screen changed")
        program.send_signal(signal.SIGTERM)
        program.wait()
        settings.close()
        demo.terminate()
        demo.wait()
        screen.close()


if __name__ == "__main__":
    main()

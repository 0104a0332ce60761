"""A virtual screen with a window manager, and the application on it."""

import os
import shutil
import subprocess

from programs import ProgramTest, wait_for

DISPLAY_TOOLS = ("Xvfb", "openbox", "xdotool", "xprop", "import", "convert")


def has_tools(*more):
    return all(shutil.which(tool) for tool in (*DISPLAY_TOOLS, *more))


class DisplayedTest(ProgramTest):
    SCREEN = "1600x1000"

    def setUp(self):
        super().setUp()
        readable, writable = os.pipe()
        server = self.start("Xvfb", "-displayfd", str(writable), "-screen", "0", self.SCREEN + "x24", "-nolisten", "tcp",
                            "-noreset", pass_fds=[writable])
        os.close(writable)
        with os.fdopen(readable) as pipe:
            number = pipe.readline().strip()
        self.assertTrue(number, server.poll())
        self.environment.update(DISPLAY=":" + number, QT_QPA_PLATFORM="xcb")
        self.arrange_screens()
        self.start("openbox", "--sm-disable")
        wait_for(lambda: "window id" in self.ask("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "the window manager")

    def arrange_screens(self):
        """Before there is any window manager."""

    def start(self, *command, **options):
        process = subprocess.Popen(command, env=self.environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options)
        self.addCleanup(process.wait)
        self.addCleanup(process.terminate)
        return process

    def ask(self, *command):
        return subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              text=True, check=False).stdout

    def windows_of(self, tarvel):
        """The ids of its visible windows."""
        return self.ask("xdotool", "search", "--onlyvisible", "--pid", str(tarvel.process.pid)).split()

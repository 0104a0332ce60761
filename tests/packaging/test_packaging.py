"""Installs the build into a folder and looks at it with the desktop's own checkers."""

import configparser
import glob
import json
import os
import re
import shutil
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree

from programs import Process

ID = "io.tarvel.Tarvel"
SOURCE = os.environ["SOURCE"]
PREFIX = os.environ["PREFIX"]


def run(*command, status=0, **options):
    done = subprocess.run(command, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False, **options)
    if done.returncode != status:
        raise AssertionError(f"{' '.join(command)} ended with {done.returncode}:\n{done.stdout}")
    return done.stdout


class InstalledTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp(prefix="tarvel-install-")
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        run(os.environ["CMAKE"], "--install", os.environ["BUILD"], env={**os.environ, "DESTDIR": cls.folder})

    def path(self, *parts):
        """Of a file by the place that it thinks it has."""
        return self.folder + os.path.join(PREFIX, *parts)

    def entry(self, *parts):
        parser = configparser.ConfigParser(interpolation=None)
        parser.optionxform = str
        self.assertTrue(parser.read(self.path(*parts)), parts)
        return parser

    def test_the_desktop_entry_is_valid_and_names_what_is_there(self):
        name = f"share/applications/{ID}.desktop"
        self.assertEqual(run("desktop-file-validate", self.path(name)), "")
        entry = self.entry(name)
        commands = [group["Exec"].split()[0] for group in entry.values() if "Exec" in group]
        commands += [self.entry(f"share/dbus-1/services/{ID}.service")["D-BUS Service"]["Exec"]]
        for command in commands:
            self.assertTrue(os.access(self.folder + command, os.X_OK), command)
        actions = entry["Desktop Entry"]["Actions"].strip(";").split(";")
        self.assertEqual([f"Desktop Action {action}" for action in actions], entry.sections()[1:])
        for action in actions:
            self.assertEqual(entry[f"Desktop Action {action}"]["Exec"].split()[1], action)

    def test_the_metainfo_is_valid_and_tells_this_version(self):
        path = self.path(f"share/metainfo/{ID}.metainfo.xml")
        run("appstreamcli", "validate", "--no-net", "--explain", path)
        root = xml.etree.ElementTree.parse(path).getroot()
        newest = root.find("releases/release").get("version")
        with open(os.path.join(SOURCE, "CMakeLists.txt"), encoding="utf-8") as file:
            self.assertIn(f"project(Tarvel VERSION {newest} ", file.read())
        for image in root.iter("image"):
            picture = os.path.join(SOURCE, "docs", os.path.basename(image.text))
            self.assertTrue(os.path.exists(picture), f"{picture} isn't there to be put on the website")

    def test_the_icons_are_square_drawings_for_every_size(self):
        icons = glob.glob(self.path("share/icons/hicolor/*/apps/*"))
        folders = {path.split("/")[-3]: path for path in icons}
        self.assertEqual(set(folders), {"scalable", "symbolic", "16x16", "24x24", "32x32"})
        for folder, path in folders.items():
            wanted = f"{ID}-symbolic.svg" if folder == "symbolic" else f"{ID}.svg"
            self.assertEqual(os.path.basename(path), wanted)
            root = xml.etree.ElementTree.parse(path).getroot()
            self.assertEqual(root.get("viewBox").split()[2], root.get("viewBox").split()[3], folder)

    def test_the_program_finds_its_module_where_it_is_installed(self):
        with open(self.path("bin/tarvel"), "rb") as file:
            found = re.search(rb"/(\.\./[^\0]*tarvel-sound\.so)\0", file.read())
        self.assertTrue(os.path.exists(self.path("bin", found.group(1).decode())), found.group(1))

    def test_the_manual_pages_are_clean(self):
        for page in ("tarvel.1", "tarvel-publish.1"):
            path = self.path("share/man/man1", page)
            self.assertEqual(run("groff", "-man", "-Tutf8", "-ww", "-z", path), "", page)
            with open(path, encoding="utf-8") as file:
                self.assertNotIn("@", file.read())


class BusTest(unittest.TestCase):
    """What launchers do reaches the program that runs."""

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="tarvel-bus-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.environment = {"PATH": os.environ["PATH"], "LANG": "C.UTF-8", "HOME": self.folder,
                            "XDG_RUNTIME_DIR": self.folder, "QT_QPA_PLATFORM": "offscreen"}
        daemon = Process(["dbus-daemon", "--session", "--nofork", "--print-address"], self.environment)
        self.addCleanup(daemon.destroy)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = daemon.wait_for_line("unix:")

    def test_actions_and_further_starts(self):
        tarvel = Process([os.environ["TARVEL"]], self.environment)
        self.addCleanup(tarvel.destroy)
        tarvel.wait_for_line("----- Launch Tarvel ")
        action = os.environ["TARVEL_ACTION"]
        run(action, "refresh", env=self.environment)
        tarvel.wait_for_line("Begin master refresh (user request)")
        run(action, "today-window", env=self.environment)
        self.assertIn("no action", run(action, "format-disk", status=1, env=self.environment))
        run(action, status=2, env=self.environment)
        for notice in ({}, {"DESKTOP_STARTUP_ID": "wish_TIME12", "XDG_ACTIVATION_TOKEN": "token"}):
            self.assertEqual(run(os.environ["TARVEL"], env={**self.environment, **notice}), "", "handed over")
        self.assertEqual(tarvel.end(), 0)


class FlatpakTest(unittest.TestCase):
    """The manifest can't be built here; what it asks of the user is read as text."""

    ALLOWED = {"--share=network", "--share=ipc", "--socket=wayland", "--socket=fallback-x11", "--socket=pulseaudio",
               "--socket=cups", "--device=dri"}

    def setUp(self):
        with open(os.path.join(SOURCE, "packaging/flatpak", f"{ID}.json"), encoding="utf-8") as file:
            self.manifest = json.load(file)

    def test_it_asks_for_no_more_than_windows_sound_printing_and_the_network(self):
        self.assertLessEqual(set(self.manifest["finish-args"]), self.ALLOWED)

    def test_it_is_of_this_application(self):
        self.assertEqual((self.manifest["id"], self.manifest["command"]), (ID, "tarvel"))
        tarvel = self.manifest["modules"][-1]
        with open(os.path.join(SOURCE, "CMakeLists.txt"), encoding="utf-8") as file:
            known = set(re.findall(r"^(?:set|option)\((TARVEL_\w+)", file.read(), re.MULTILINE))
        for option in tarvel["config-opts"]:
            name = option.removeprefix("-D").split("=")[0]
            self.assertTrue(name in known or name.startswith("CMAKE_"), option)
        for module in self.manifest["modules"][:-1]:
            for source in module["sources"]:
                self.assertTrue({"tag", "commit"} & set(source), f"{module['name']} isn't fixed to a version")


if __name__ == "__main__":
    unittest.main()

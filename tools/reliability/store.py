"""A folder of published files, the store that the application keeps of it, and what must hold of a store at any moment.

A store is right when every file in it is a whole published version, old or new, that carries its own date.
"""

import concurrent.futures
import json
import os
import plistlib
import shutil
import stat
import subprocess
import sys

ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
sys.path.insert(0, os.path.join(ROOT, "tests", "e2e"))

import b1  # noqa: E402

STATE = "appState.plist"
LOG = "error-log.b1"
LOCK = ".lock"
TEMPORARY = ".part"

DAY = 86_400.0
PATIENCE = 30.0  # seconds for a run, which takes less than one
NOW = 817_000_000.0  # seconds since 2001-01-01 UTC: late in November 2026
TODAY = "2026-11-22"


class Damage(Exception):
    """Something that must never be is."""


def read(path):
    with open(path, "rb") as file:
        return file.read()


def published(site):
    """Path in the store to content, of every file of the site that the application may keep."""
    files = {name: read(os.path.join(site, name)) for name in ("rinks.b1", "defs.b1")}
    for name in os.listdir(os.path.join(site, "logos")):
        files["logos/" + name] = read(os.path.join(site, "logos", name))
    rinks = os.path.join(site, ".input", "rinks")
    for rink in os.listdir(rinks):
        with open(os.path.join(rinks, rink, "rink.json"), encoding="utf-8") as file:
            record = json.load(file)
        for source, target in ((record["dataPath"], ""), (record.get("photosFolder"), "Photos/")):
            folder = os.path.join(site, source) if source else ""
            for name in os.listdir(folder) if os.path.isdir(folder) else ():
                if name != "master.b1":
                    files[f"rink-{record['rinkID']}/{target}{name}"] = read(os.path.join(folder, name))
    return files


def known(*versions):
    """Path to the set of contents that the file may have, if each file is of one of the versions."""
    contents = {}
    for version in versions:
        for path, content in version.items():
            contents.setdefault(path, set()).add(content)
    return contents


def entries(store):
    """Relative path to kind of all that is in the store: "file", "folder" or "other"."""
    found = {}
    for folder, folders, files in os.walk(store):
        for name in folders + files:
            path = os.path.join(folder, name)
            mode = os.lstat(path).st_mode
            kind = "file" if stat.S_ISREG(mode) else "folder" if stat.S_ISDIR(mode) else "other"
            found[os.path.relpath(path, store)] = kind
    return found


def read_log(path):
    """The texts of the error log."""
    reader = b1.Reader(read(path))
    reader.int()
    return [(reader.double(), reader.string())[1] for _ in range(reader.int())]


def snapshot(store):
    """Path to content and date of what servers publish; what is kept beside that differs from run to run."""
    return {path: (read(os.path.join(store, path)), os.stat(os.path.join(store, path)).st_mtime_ns)
            for path, kind in entries(store).items()
            if kind == "file" and path not in (STATE, LOG, LOCK)}


def check_whole(store, contents, temporaries=0):
    """Every file is whole, one of the known contents and with its own date; state and log can be read. So many
    temporary files may be there."""
    found = 0
    for path, kind in entries(store).items():
        full = os.path.join(store, path)
        name = os.path.basename(path)
        if kind == "folder":
            continue
        if name.startswith(".") and name.endswith(TEMPORARY):
            found += 1
        elif kind != "file":
            # What stands in the log's place goes when there is something to log.
            if path != LOG:
                raise Damage(f"{path} is no file")
        elif path == STATE:
            if not isinstance(plistlib.loads(read(full)), dict):
                raise Damage("the state is no dictionary")
        elif path == LOG:
            read_log(full)
        elif path != LOCK:
            content = read(full)
            if content not in contents.get(path, ()):
                raise Damage(f"{path} is no published version")
            if path.endswith(".b1") and b1.modification_date(full) != b1.own_date(full):
                raise Damage(f"{path} has a date of its own and another in the store")
    if found > temporaries:
        raise Damage(f"{found} temporary files")


def check_current(store, site_files, wanted=()):
    """What the store holds is what is published now, and all that is wanted is there."""
    check_whole(store, known(site_files))
    missing = set(wanted) - set(entries(store))
    if missing:
        raise Damage(f"not in the store: {sorted(missing)[:5]}")


def bin_folder():
    """Where the built programs are."""
    return os.environ.get("TARVEL_BIN", os.path.join(ROOT, "build", "release", "bin"))


def program(name):
    return os.path.join(bin_folder(), name)


def faults_library():
    return os.path.join(bin_folder(), "..", "lib", "tarvel-tests", "tarvel-disk-faults.so")


def faults_environment(store, **faults):
    """What disturbs a program's calls to the disk below the store: KILL=7, FAIL=errno.ENOSPC, TRACE=path, ..."""
    return {"LD_PRELOAD": os.path.abspath(faults_library()), "TARVEL_FAULTS_ROOT": store,
            **{"TARVEL_FAULTS_" + name: str(value) for name, value in faults.items()}}


def publish(folder, seed=20):
    """The demo's content, around a fixed day."""
    subprocess.run([program("tarvel-demo"), "--publish-only", "--folder", folder, "--today", TODAY, "--seed", str(seed)],
                   check=True, stdout=subprocess.DEVNULL, env={**os.environ, "QT_QPA_PLATFORM": "offscreen"})


def run(store, site, rinks, now=NOW, **faults):
    """One run of the engine on the store; the finished process."""
    environment = {**os.environ, **(faults_environment(store, **faults) if faults else {})}
    try:
        return subprocess.run(
            [program("tarvel-store-run"), "--store", store, "--site", site, "--now", str(now),
             "--rinks", *map(str, rinks)],
            env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False,
            timeout=PATIENCE)
    except subprocess.TimeoutExpired as hanging:
        raise Damage("a run doesn't end") from hanging


def run_well(store, site, rinks, now=NOW, **faults):
    done = run(store, site, rinks, now, **faults)
    if done.returncode != 0:
        raise Damage(f"a run ended with {done.returncode}:\n{done.stdout.decode(errors='replace')[-2000:]}")
    return done


def copy(source, target):
    """As it stands, dates and links included."""
    shutil.copytree(source, target, symlinks=True)


def drop(folder):
    shutil.rmtree(folder, ignore_errors=True)


def check_all(check, cases, jobs):
    """Checks all cases, some at a time, and raises all that they found at once. What the checks returned."""
    def outcome(case):
        try:
            return check(*case), None
        except Damage as damage:
            return None, damage
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        outcomes = list(pool.map(outcome, cases))
    found = [str(damage) for _, damage in outcomes if damage]
    if found:
        raise Damage(f"in {len(found)} of {len(outcomes)} cases\n" + "\n".join(found))
    return [result for result, _ in outcomes]


def scratch_parent():
    """Where stores for checks are made: in memory if there is such a place, as thousands of calls sync."""
    return "/dev/shm" if os.access("/dev/shm", os.W_OK) else None

"""A small disk of its own, in memory, that can be full or read-only."""

import ctypes
import errno
import os
import subprocess

CLONE_NEWNS = 0x20000
CLONE_NEWUSER = 0x10000000
TROUBLES = ("full", "read-only")


def may_mount():
    """Takes this process into mounts of its own, if the system lets it."""
    libc = ctypes.CDLL(None, use_errno=True)
    uid, gid = os.getuid(), os.getgid()
    if libc.unshare(CLONE_NEWNS if uid == 0 else CLONE_NEWNS | CLONE_NEWUSER) != 0:
        return False
    if uid != 0:
        for name, text in (("setgroups", "deny"), ("uid_map", f"0 {uid} 1"), ("gid_map", f"0 {gid} 1")):
            with open(f"/proc/self/{name}", "w", encoding="ascii") as file:
                file.write(text)
    # Nothing of what is mounted here may be seen outside.
    return subprocess.run(["mount", "--make-rprivate", "/"], check=False, stderr=subprocess.DEVNULL).returncode == 0


class SmallDisk:
    """Mounted on a folder from its making until `unmount`."""

    def __init__(self, folder, trouble):
        self.folder = folder
        self.trouble = trouble
        self.filler = os.path.join(folder, "filler")
        self._mount("-t", "tmpfs", "-o", "size=8m", "none", folder)

    @staticmethod
    def _mount(*options):
        subprocess.run(["mount", *options], check=True, stdout=subprocess.DEVNULL)

    def spoil(self):
        if self.trouble == "read-only":
            return self._mount("-o", "remount,ro", self.folder)
        with open(self.filler, "wb", buffering=0) as file:
            try:
                while True:
                    file.write(bytes(4096))
            except OSError as error:
                assert error.errno == errno.ENOSPC

    def mend(self):
        if self.trouble == "read-only":
            self._mount("-o", "remount,rw", self.folder)
        else:
            os.remove(self.filler)

    def unmount(self):
        subprocess.run(["umount", self.folder], check=True)

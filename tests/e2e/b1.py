"""Reads as much of the `.b1` files as the checks from outside need."""

import collections
import os
import struct
from fractions import Fraction

REFERENCE_DATE = 978307200  # 2001-01-01 UTC, in seconds since 1970


class Reader:
    def __init__(self, content):
        self.content = content
        self.index = 0

    def take(self, count):
        piece = self.content[self.index:self.index + count]
        assert len(piece) == count, "the file ends early"
        self.index += count
        return piece

    def double(self):
        return struct.unpack("<d", self.take(8))[0]

    def int(self):
        length = struct.unpack("<b", self.take(1))[0]
        fill = b"\xff" if length < 0 else b"\0"
        return int.from_bytes(self.take(abs(length)).ljust(8, fill), "little", signed=True)

    def string(self):
        return self.take(self.int()).decode()


def root_promises(content):
    """File name to the date that root.b1 gives for it."""
    reader = Reader(content)
    for _ in range(4):
        reader.int()
    reader.string()
    return {reader.string(): reader.double() for _ in range(reader.int())}


def master_promise(content):
    """The date that master.b1 gives for main.b1."""
    reader = Reader(content)
    assert reader.string() == "main.b1"
    return reader.double()


def main_promises(content):
    reader = Reader(content)
    reader.double()
    reader.int(), reader.int()
    for _ in range(reader.int()):
        reader.int(), reader.take(1), reader.string(), reader.string(), reader.int()
    return {reader.string(): reader.double() for _ in range(reader.int())}


def week_promises(content):
    reader = Reader(content)
    reader.double()
    return {reader.string(): reader.double() for _ in range(reader.int())}


Item = collections.namedtuple("Item", "kind day time duration subtitle note")


def week_items(content):
    reader = Reader(content)
    reader.double()
    return [Item(*struct.unpack("<bbhh", reader.take(6)), reader.string(), reader.string())
            for _ in range(reader.int())]


def own_date(path):
    with open(path, "rb") as file:
        return struct.unpack("<d", file.read(8))[0]


def modification_date(path):
    """The file's date as the nearest double, as the program compares it."""
    nanoseconds = os.stat(path).st_mtime_ns - REFERENCE_DATE * 10**9
    return float(Fraction(nanoseconds, 10**9))

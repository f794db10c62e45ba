#!/usr/bin/python3
"""Which folder of src may include which: a lower floor never an upper one, and no tool another tool."""
import pathlib
import re
import sys

SRC = pathlib.Path(__file__).resolve().parent.parent / "src"
WALL = {"decoding": set(), "typesetting": set(), "pdf": {"typesetting"}}  # see the world outside as little
FLOORS = [{"platform"}, {"preferences", "view", "worker"}, {"document", "printing"},
          {"browsers", "play", "reading", "settings", "simulation", "tree"}, {"main_window"}, {"app"}]
QT_OF_THE_WALL = {"QByteArray", "QByteArrayView", "QChar", "QString", "QStringView", "QtEndian", "QtGlobal"}


def may_include(room):
    if room in WALL:
        return WALL[room] | {room}
    floor = next(number for number, rooms in enumerate(FLOORS) if room in rooms)
    return set(WALL).union({room}, *FLOORS[:floor])


def wrong(room, quoted, name):
    if quoted:
        return "/" not in name or name.split("/")[0] not in may_include(room)
    return room in WALL and name.startswith("Q") and name not in QT_OF_THE_WALL


faults = [f"{file.relative_to(SRC)} includes {name}"
          for file in sorted(SRC.rglob("*.[ch]*")) for quote, name in
          re.findall(r'^#include (["<])(.+)[">]', file.read_text(encoding="utf-8"), re.M)
          if wrong(file.relative_to(SRC).parts[0], quote == '"', name)]
print(*faults, sep="\n")
sys.exit(bool(faults))

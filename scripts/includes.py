#!/usr/bin/env python3
"""Checks the direction of includes: a room includes only the rooms below it, never its neighbour.

Prints every include that goes the wrong way as file:line. A room that does not exist and a source file that belongs to
no room are faults too: nobody would look at them. Ends with status 1 when there is a fault. With --rooms it prints the
names of the rooms instead.
"""

import argparse
import os
import pathlib
import re
import sys

# From bottom to top. Rooms of one floor are neighbours and do not include each other.
FLOORS = [
    ["platform/core"],
    ["store"],
    ["booking"],
    ["platform/widgets"],
    ["frame/support"],
    ["movement", "lists", "history", "barcode"],
    ["frame/shell"],
]
# Outside these rooms: what they may include. No room includes them.
BESIDE = {
    "tools": {"tools", "platform/core", "store", "booking"},
    "starter": {"starter", "platform/core", "store", "tools"},
    "sheet": {"sheet", "platform/core", "store", "platform/widgets"},
    "tests": None,  # anything
    "benchmarks": None,
}
WITHOUT_WIDGETS = {"platform/core", "store", "booking", "tools"}
# Only these use the database engine, so that another one could replace it.
ENGINE_HEADER = "sqlite3.h"
ENGINE_FILES = re.compile(r"store/(Sqlite|Dialect|ArrivingRows)\.(h|cpp)")

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
FLOOR_OF = {room: floor for floor, rooms in enumerate(FLOORS) for room in rooms}
ROOMS = [*FLOOR_OF, *BESIDE]
SOURCE = (".h", ".cpp")
# Made by the commands, and a build folder wherever it is.
MADE = {"build", "app", "demo-out"}
BUILD_MARK = "CMakeCache.txt"


def room_of(path):
    """The room of a path from the top, or None."""
    return next((room for room in ROOMS if path.startswith(room + "/")), None)


def may_include(room, other):
    if room in BESIDE:
        return BESIDE[room] is None or other in BESIDE[room]
    return other in FLOOR_OF and (room == other or FLOOR_OF[other] < FLOOR_OF[room])


def includes(text):
    """(line number, "<" or quote, name) of every include."""
    for number, line in enumerate(text.splitlines(), 1):
        found = INCLUDE.match(line)
        if found:
            yield number, found.group(1), found.group(2)


def faults(path, text, widget_headers):
    """What is wrong with the includes of the file at path (from the top)."""
    room = room_of(path)
    for line, kind, name in includes(text):
        where = f"{path}:{line}: "
        if kind == '"':
            other = room_of(name)
            if other is None:
                if not re.fullmatch(r"ui_\w+\.h|\w+\.moc", name):
                    yield where + f'"{name}" is not named by its path from the top'
            elif not may_include(room, other):
                yield where + f'{room} must not include {other} ("{name}")'
            continue
        if name == ENGINE_HEADER and BESIDE.get(room, ()) is not None and not ENGINE_FILES.fullmatch(path):
            yield where + f"<{name}> belongs to store/Sqlite, store/Dialect and store/ArrivingRows alone"
        if room in WITHOUT_WIDGETS and name.removeprefix("QtWidgets/") in widget_headers:
            yield where + f"{room} knows no widgets (<{name}>)"


def sources(root):
    """Every source file under root, in a room or not."""
    for folder, below, names in os.walk(root):
        top = pathlib.Path(folder) == root
        if BUILD_MARK in names and not top:
            below.clear()
            continue
        below[:] = sorted(name for name in below if not name.startswith(".") and not (top and name in MADE))
        for name in sorted(names):
            if name.endswith(SOURCE):
                yield pathlib.Path(folder) / name


def misplaced(root, files):
    """What is wrong with the rooms under root as a whole; files are its source files."""
    for room in ROOMS:
        if not (root / room).is_dir():
            yield f"there is no room {room}"
    for file in files:
        path = file.relative_to(root).as_posix()
        if room_of(path) is None:
            yield f"{path} is in no room: scripts/includes.py lists them"


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument("--qt-headers", help="folder that holds QtWidgets")
    options.add_argument("--rooms", action="store_true", help="print the rooms and end")
    options.add_argument("root", nargs="?", help="top of the source tree")
    chosen = options.parse_args()
    if chosen.rooms:
        print("\n".join(ROOMS))
        return
    if not chosen.root or not chosen.qt_headers:
        options.error("--qt-headers and the top of the source tree are needed")
    root = pathlib.Path(chosen.root)
    widget_headers = {file.name for file in (pathlib.Path(chosen.qt_headers) / "QtWidgets").iterdir()}
    if "QWidget" not in widget_headers:
        sys.exit("QtWidgets was not found")
    files = list(sources(root))
    wrong = list(misplaced(root, files))
    for file in files:
        path = file.relative_to(root).as_posix()
        if room_of(path) is not None:
            wrong += faults(path, file.read_text(encoding="utf-8"), widget_headers)
    print("\n".join([*wrong, f"{len(files)} files, {len(wrong)} faults"]))
    sys.exit(1 if wrong or not files else 0)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Holds the direction of includes: a room includes only what stands below it, never its neighbour.

Prints every include that goes the wrong way as file:line and ends with status 1 when there is one.
"""

import argparse
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
# Beside the house: what they may include. Nothing of the house includes them.
BESIDE = {
    "tools": {"tools", "platform/core", "store", "booking"},
    "sheet": {"sheet", "platform/core", "store", "platform/widgets"},
    "tests": None,  # anything
    "benchmarks": None,
}
WITHOUT_WIDGETS = {"platform/core", "store", "booking"}
# Only these speak to the database engine, so that another one could take its place.
ENGINE_HEADER = "sqlite3.h"
ENGINE_FILES = re.compile(r"store/(Sqlite|Dialect|ArrivingRows)\.(h|cpp)")

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
FLOOR_OF = {room: floor for floor, rooms in enumerate(FLOORS) for room in rooms}
ROOMS = [*FLOOR_OF, *BESIDE]


def room_of(path):
    """The room that a path from the top lies in, or None."""
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
    for room in ROOMS:
        for file in sorted((root / room).rglob("*")):
            if file.suffix in (".h", ".cpp"):
                yield file


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument("--qt-headers", required=True, help="folder that holds QtWidgets")
    options.add_argument("root", help="top of the source tree")
    chosen = options.parse_args()
    root = pathlib.Path(chosen.root)
    widget_headers = {file.name for file in (pathlib.Path(chosen.qt_headers) / "QtWidgets").iterdir()}
    if "QWidget" not in widget_headers:
        sys.exit("QtWidgets was not found")
    count, wrong = 0, []
    for file in sources(root):
        count += 1
        wrong += faults(file.relative_to(root).as_posix(), file.read_text(encoding="utf-8"), widget_headers)
    print("\n".join([*wrong, f"{count} files, {len(wrong)} includes that go the wrong way"]))
    sys.exit(1 if wrong or not count else 0)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""Runs clang-tidy over the program's sources, and only over those that changed since they were last clean.

A source counts as changed when its own text, a header or form of the house that it includes at any depth, its
compile command or the settings of clang-tidy changed. What is known to be clean is kept in the user's cache, so that a
fresh clone of the same text is as quick as the old one. Several runs may work side by side.
Ends with 77 where clang-tidy is of another release than the one whose checks the sources are held to.
"""

import argparse
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import time

import includes

RELEASE = 14
NOTHING_LOOKED_AT = 77
KEPT_DAYS = 30  # a mark that nobody asks for
PRODUCT = [room for room in includes.ROOMS if room not in ("tests", "benchmarks")]


class Sources:
    """Fingerprints of our files together with all that they include."""

    def __init__(self, root):
        self._root = root
        self._forms = {f"ui_{form.stem}.h": form.relative_to(root).as_posix()
                       for room in PRODUCT for form in (root / room).rglob("*.ui")}

    def _included(self, text):
        for _, kind, name in includes.includes(text):
            if kind == '"':
                yield self._forms.get(name, name)

    def fingerprint(self, path):
        seen, waiting, digest = set(), [path], hashlib.sha256()
        while waiting:
            name = waiting.pop()
            if name in seen or not (self._root / name).is_file():
                continue
            seen.add(name)
            text = (self._root / name).read_text(encoding="utf-8")
            digest.update(f"{name}\0{text}\0".encode())
            waiting += sorted(self._included(text))
        return digest.hexdigest()


def cache():
    return pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "suisuitag-tidy"


def forget_old_marks(folder):
    limit = time.time() - KEPT_DAYS * 24 * 60 * 60
    for mark in folder.iterdir():
        try:
            if mark.stat().st_mtime < limit:
                mark.unlink()
        except FileNotFoundError:  # another run was quicker
            pass


def marks(root, build, tidy, folder):
    """For each source of the program the file that is in folder while it is known to be clean. Where the tree and its
    build are makes no difference."""
    settings = subprocess.run([tidy, "--version"], capture_output=True, check=True).stdout
    settings += (root / ".clang-tidy").read_bytes()
    files, found = Sources(root), {}
    for entry in json.loads((build / "compile_commands.json").read_text(encoding="utf-8")):
        path = pathlib.Path(entry["file"])
        name = path.relative_to(root).as_posix() if path.is_relative_to(root) else ""
        if includes.room_of(name) in PRODUCT:
            command = entry["command"].replace(str(build), "BUILD").replace(str(root), "TOP")
            key = hashlib.sha256(settings + command.encode() + files.fingerprint(name).encode())
            found[name] = folder / key.hexdigest()
    return found


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument("--build", required=True, help="folder with compile_commands.json")
    options.add_argument("--jobs", type=int, default=os.cpu_count() or 2)
    options.add_argument("--room", choices=PRODUCT, help="looks at this room alone")
    options.add_argument("root", help="top of the source tree")
    chosen = options.parse_args()
    root, build = pathlib.Path(chosen.root).resolve(), pathlib.Path(chosen.build).resolve()
    tidy = shutil.which("clang-tidy")
    if tidy is None:
        sys.exit("clang-tidy is not installed")
    version = subprocess.run([tidy, "--version"], capture_output=True, check=True, encoding="utf-8").stdout
    if f"version {RELEASE}." not in version:
        print(f"The sources are held to the checks of clang-tidy {RELEASE}; here is: {' '.join(version.split())}")
        sys.exit(NOTHING_LOOKED_AT)
    cache().mkdir(parents=True, exist_ok=True)
    forget_old_marks(cache())
    mark_of = {name: mark for name, mark in marks(root, build, tidy, cache()).items()
               if chosen.room in (None, includes.room_of(name))}
    if not mark_of:
        sys.exit("no sources found")
    waiting = [name for name, mark in mark_of.items() if not mark.exists()]
    for name in mark_of.keys() - set(waiting):
        mark_of[name].touch()
    # Our own headers, not those that the build generates; the compile commands are for g++, which knows warnings
    # that clang does not.
    command = [tidy, "-p", str(build), "--quiet", "--extra-arg=-Wno-unknown-warning-option",
               f"--header-filter=^{re.escape(str(root))}/({'|'.join(PRODUCT)})/"]
    started = time.monotonic()

    def check(name):
        return name, subprocess.run([*command, str(root / name)], capture_output=True, encoding="utf-8", check=False)

    wrong = 0
    with concurrent.futures.ThreadPoolExecutor(chosen.jobs) as workers:
        for name, result in workers.map(check, waiting):
            if result.returncode == 0:
                mark_of[name].touch()
            else:
                wrong += 1
                print(f"{name}:\n{result.stdout}{result.stderr}", flush=True)
    print(f"{len(mark_of)} files, {len(waiting)} of them looked at in {time.monotonic() - started:.0f} s,"
          f" {wrong} with faults")
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()

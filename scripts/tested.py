#!/usr/bin/env python3
"""Every test that docs/tested names stands in tests/, so that nobody is sent to one that has gone.

usage: tested.py TOP
"""
import pathlib
import re
import sys

CPP_TEST = re.compile(r"\bTEST(?:_F|_P)?\(\s*(\w+)\s*,\s*(\w+)\s*\)")
PYTHON_TEST = re.compile(r"^class (\w+)|^    def (test_\w+)", re.M)
NAMED = re.compile(r"`(?:(\w+\.py): )?(\w+)\.(\w+)`")
EXPLAINS = {"Suite.name", "Class.name"}  # how the documents say what their names are


def standing(tests):
    names = set()
    for source in tests.rglob("*.cpp"):
        names.update(f"{suite}.{name}" for suite, name in CPP_TEST.findall(source.read_text("utf-8")))
    for source in tests.rglob("test_*.py"):
        suite = None
        for opened, name in PYTHON_TEST.findall(source.read_text("utf-8")):
            suite = opened or suite
            if name:
                names.add(f"{source.name}: {suite}.{name}")
    return names


def main():
    top = pathlib.Path(sys.argv[1])
    names = standing(top / "tests")
    documents = sorted((top / "docs" / "tested").glob("*.md"))
    told = 0
    gone = []
    for document in documents:
        for number, line in enumerate(document.read_text("utf-8").splitlines(), 1):
            for file, suite, name in NAMED.findall(line):
                full = f"{file}: {suite}.{name}" if file else f"{suite}.{name}"
                if full in EXPLAINS:
                    continue
                told += 1
                if full not in names:
                    gone.append(f"{document.relative_to(top)}:{number}: no test {full}")
    print("\n".join(gone) if gone else f"{told} tests told of in {len(documents)} documents, all there")
    return 1 if gone or told == 0 else 0


if __name__ == "__main__":
    sys.exit(main())

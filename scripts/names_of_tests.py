"""Fails when the name of a test is too long or not of the house's style.

A test is a sentence. In C++ its clauses are words run together, each beginning with a small letter and parted by an
underscore: shipmentBelowStock_showsBox_andIsStored. In Python all words are parted, after "test_".
"""

import argparse
import pathlib
import re
import sys

LONGEST = 60  # characters of a name
LONGEST_CLAUSE = 40  # of a C++ name: what runs on beyond it cannot be read any more

_CPP = re.compile(r"^\s*TEST(?:_F|_P)?\(\s*\w+\s*,\s*(\w+)\s*\)", re.MULTILINE)
_PYTHON = re.compile(r"^\s*def (test\w*)\(", re.MULTILINE)
_CTEST = re.compile(r"(?:suisui_test|suisui_script)\(\s*(\w+)|add_test\(\s*NAME\s+(\w+)")
_CLAUSES = re.compile(r"[a-z0-9][A-Za-z0-9]*(_[a-z0-9][A-Za-z0-9]*)*")
_WORDS = re.compile(r"test(_[a-z0-9]+)+")


def faults_of_cpp(name):
    """What is wrong with the name of a GoogleTest test."""
    if not _CLAUSES.fullmatch(name):
        yield "is not made of clauses_thatBeginWithASmallLetter"
    if any(len(clause) > LONGEST_CLAUSE for clause in name.split("_")):
        yield f"has a clause of more than {LONGEST_CLAUSE} characters"


def faults_of_python(name):
    """What is wrong with the name of a test method."""
    if not _WORDS.fullmatch(name):
        yield "is not made of small_words"


def names(path, text):
    """Line number, name and style of each test that a file has."""
    if path.suffix in (".cpp", ".h"):
        found = ((match, match[1], faults_of_cpp) for match in _CPP.finditer(text))
    elif path.suffix == ".py":
        found = ((match, match[1], faults_of_python) for match in _PYTHON.finditer(text))
    elif path.name == "CMakeLists.txt":
        found = ((match, match[1] or match[2], lambda _: ()) for match in _CTEST.finditer(text))
    else:
        return
    for match, name, style in found:
        yield text.count("\n", 0, match.start(match.lastindex)) + 1, name, style


def faults(path, text):
    """A line for each fault of a file's tests."""
    for line, name, style in names(path, text):
        if len(name) > LONGEST:
            yield f"{path}:{line}: {name} has {len(name)} characters, more than {LONGEST}"
        for fault in style(name):
            yield f"{path}:{line}: {name} {fault}"


def main():
    options = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    options.add_argument("root", type=pathlib.Path, help="top of the source tree")
    tests = options.parse_args().root / "tests"
    count, wrong = 0, []
    for path in sorted(file for file in tests.rglob("*") if file.is_file()):
        if path.suffix not in (".cpp", ".h", ".py", ".txt"):
            continue
        text = path.read_text(encoding="utf-8")
        count += sum(1 for _ in names(path, text))
        wrong += faults(path, text)
    print("\n".join([*wrong, f"{count} names, {len(wrong)} faults"]))
    sys.exit(1 if wrong or not count else 0)


if __name__ == "__main__":
    main()

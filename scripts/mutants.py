#!/usr/bin/env python3
"""Makes one small change at a time in the sources of a room and says which changes no test notices.

    scripts/mutants.py --room store --sample 20
    scripts/mutants.py --file store/Numbers.cpp

Works on a copy of the tree in a folder of its own, build/mutants, so the checkout is never changed. Of a change only
what links the changed library is built, and only the tests that link it are run: first those of the room's own folder,
fastest first, until one fails; changes that these let pass go to the other tests that link the library,
unless --own is given. A change that does not compile does not count. A test that takes far longer than without the
change has noticed it.

Changes that make no difference are listed with their reason in tests/equivalent_mutants.txt and are not made:

    store/Numbers.cpp
    - if (a < b)
    + if (a <= b)
    = Both ways give a when the two are equal.

Ends with status 1 when a change was not noticed.
"""

import argparse
import collections
import concurrent.futures
import contextlib
import json
import os
import pathlib
import queue
import random
import shutil
import signal
import subprocess
import sys
import time

sys.dont_write_bytecode = True  # the source tree stays as it is
import cpp_changes
import includes

KNOWN = "tests/equivalent_mutants.txt"
OUTSIDE = ("system", "long", "fuzz")  # labels: whole programs, long runs, and what random input finds by luck
PATIENCE = 10  # times as long as without the change

Mutant = collections.namedtuple("Mutant", "file line kind before after text")
Test = collections.namedtuple("Test", "name command environment place folder target program")
Outcome = collections.namedtuple("Outcome", "mutant verdict by")
NOTICED, PASSED, NO_BUILD = "noticed", "NOT NOTICED", "does not compile"


def mutants_of(root, file, words):
    """Every change of one source file."""
    text = (root / file).read_text(encoding="utf-8")
    lines = cpp_changes.Lines(text)
    for change in cpp_changes.changes(text, words):
        before, after = lines.before_and_after(change)
        yield Mutant(file, lines.number(change), change.kind, before, after, cpp_changes.applied(text, change))


def known_equivalents(text):
    """(file, line before, line after) of each entry, with its reason. Entries of one file may follow its name one
    after another. A line "+" with nothing after it stands for a call that was left out whole."""
    known, file, before, after = {}, None, None, None
    for number, line in enumerate(text.splitlines(), 1):
        mark, _, rest = line.partition(" ")
        if not line.strip() or line.startswith("#"):
            continue
        if mark == "-" and file and before is None:
            before = rest.strip()
        elif mark == "+" and before is not None and after is None:
            after = rest.strip()
        elif mark == "=" and after is not None and rest.strip():
            known[file, before, after] = rest.strip()
            before = after = None
        elif mark not in "-+=" and before is None:
            file = line.strip()
        else:
            sys.exit(f"{KNOWN}:{number}: an entry is its file, a line '- ', a line '+ ' and a reason after '= '")
    if before is not None:
        sys.exit(f"{KNOWN}: the last entry has no reason")
    return known


def without_known(mutants, known):
    """The changes that are not known to make no difference, and the entries for the same files that fit no change."""
    left = [mutant for mutant in mutants if mutant[:1] + mutant[3:5] not in known]
    fitting = {mutant[:1] + mutant[3:5] for mutant in mutants}
    files = {mutant.file for mutant in mutants}
    return left, [entry for entry in known if entry[0] in files and entry not in fitting]


def synchronise(root, copy):
    """Makes copy equal to the tree at root. Unchanged files are not touched, so that little is compiled again."""
    wanted = set()
    for folder, below, names in os.walk(root):
        here = pathlib.Path(folder)
        top = here == root
        if includes.BUILD_MARK in names and not top:
            below.clear()
            continue
        below[:] = [name for name in below if not name.startswith(".") and not (top and name in includes.MADE)]
        for name in names:
            source = here / name
            target = copy / source.relative_to(root)
            wanted.add(target)
            if source.is_file() and not (target.is_file() and target.read_bytes() == source.read_bytes()):
                target.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(source, target)
    for file in [file for file in copy.rglob("*") if file.is_file() and file not in wanted]:
        file.unlink()


def run_to_end(command, limit, **more):
    """The status of the command, or None when it was ended, with all that it had started, after limit seconds."""
    process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL, start_new_session=True, **more)
    try:
        return process.wait(limit)
    except subprocess.TimeoutExpired:
        return None
    finally:
        with contextlib.suppress(ProcessLookupError):
            os.killpg(process.pid, signal.SIGKILL)
        process.wait()


class Workplace:
    """A copy of the tree with a build folder of its own."""

    def __init__(self, root, folder, jobs, patience):
        self._tree, self._build = folder / "tree", folder / "build"
        self._jobs, self._patience = str(jobs), patience
        self._times = {}  # seconds of each test without a change
        self._noticed = collections.Counter()
        self._tests = []
        synchronise(root, self._tree)
        # What one copy has compiled is reused by the next one, and no changed object takes room in the cache.
        self._environment = {**os.environ, "CCACHE_BASEDIR": str(self._tree), "XDG_RUNTIME_DIR": str(folder / "run")}
        (folder / "run").mkdir(mode=0o700, exist_ok=True)
        query = self._build / ".cmake" / "api" / "v1" / "query"
        query.mkdir(parents=True, exist_ok=True)
        (query / "codemodel-v2").touch()
        self._call("cmake", "-S", self._tree, "-B", self._build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=",
                   "-DBUILD_TESTING=ON", "-DSUISUI_BENCH=OFF")
        self._read_targets()
        self._read_tests()

    def _call(self, *command):
        done = subprocess.run([str(word) for word in command], env=self._environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8", check=False)
        if done.returncode:
            sys.exit(f"{' '.join(str(word) for word in command)}:\n{done.stdout[-4000:]}")

    def _read_targets(self):
        reply = self._build / ".cmake" / "api" / "v1" / "reply"
        index = json.loads(max(reply.glob("index-*.json")).read_text(encoding="utf-8"))
        model = json.loads((reply / index["reply"]["codemodel-v2"]["jsonFile"]).read_text(encoding="utf-8"))
        self._targets = {}
        for entry in model["configurations"][0]["targets"]:
            target = json.loads((reply / entry["jsonFile"]).read_text(encoding="utf-8"))
            if target["type"] != "UTILITY":
                self._targets[target["id"]] = target

    def _listed_tests(self, programs):
        """What CTest knows. It names the command of a test only when its program is there, built or not."""
        missing = [pathlib.Path(program) for program in programs if not os.path.exists(program)]
        for program in missing:
            program.parent.mkdir(parents=True, exist_ok=True)
            program.touch(mode=0o755)
        try:
            listed = subprocess.run(["ctest", "--test-dir", str(self._build), "--show-only=json-v1"], check=True,
                                    capture_output=True, encoding="utf-8")
        finally:
            for program in missing:
                program.unlink()
        return json.loads(listed.stdout)["tests"]

    def _read_tests(self):
        programs = {str(self._build / artifact["path"]): target for target in self._targets.values()
                    if target["type"] == "EXECUTABLE" for artifact in target["artifacts"]}
        for test in self._listed_tests(programs):
            properties = {entry["name"]: entry["value"] for entry in test.get("properties", [])}
            program = next((word for word in test.get("command", []) if word in programs), None)
            if program is None or set(OUTSIDE) & set(properties.get("LABELS", [])):
                continue
            environment = dict(setting.split("=", 1) for setting in properties.get("ENVIRONMENT", []))
            for setting in properties.get("ENVIRONMENT_MODIFICATION", []):
                name, _, value = setting.partition("=")
                environment[name] = value.removeprefix("set:")
            environment["GTEST_FAIL_FAST"] = "1"
            target = programs[program]
            place = properties.get("WORKING_DIRECTORY", str(self._build))
            self._tests.append(Test(test["name"], test["command"], environment, place, target["paths"]["source"],
                                    target["id"], target["name"]))

    def _libraries_of(self, file):
        """Which targets a change of the file changes: the one that compiles it; for a header those of its folder."""
        exact = [identity for identity, target in self._targets.items()
                 if any(source["path"] == file and "compileGroupIndex" in source for source in target["sources"])]
        folder = pathlib.PurePosixPath(file).parent
        while not exact and str(folder) != ".":
            exact = [identity for identity, target in self._targets.items()
                     if target["type"] == "STATIC_LIBRARY"
                     and any(pathlib.PurePosixPath(source["path"]).parent == folder for source in target["sources"]
                             if not source.get("isGenerated"))]
            folder = folder.parent
        return set(exact)

    def tests_of(self, file):
        """The tests of the room's own folder, and the other tests that link the file's library."""
        changed = self._libraries_of(file)
        linking = [test for test in self._tests if changed & {
            test.target, *(below["id"] for below in self._targets[test.target].get("dependencies", []))}]
        folder = pathlib.PurePosixPath(file).parent
        while str(folder) != ".":
            own = [test for test in linking
                   if pathlib.PurePosixPath(test.folder).is_relative_to(pathlib.PurePosixPath("tests") / folder)]
            if own:
                return own, [test for test in linking if test not in own]
            folder = folder.parent
        return linking, []

    def build(self, tests):
        """Whether the programs of the tests can be built."""
        command = ["cmake", "--build", str(self._build), "--parallel", self._jobs, "--target",
                   *sorted({test.program for test in tests})]
        return subprocess.run(command, env=self._environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, check=False).returncode == 0

    def _passes(self, test, limit):
        return run_to_end(test.command, limit, cwd=test.place, env={**self._environment, **test.environment}) == 0

    def measure(self, tests):
        """Builds the tests without a change and notes how long each takes. All must pass."""
        new = [test for test in tests if test.name not in self._times]
        if new and not self.build(new):
            sys.exit("The tests cannot be built without a change; try cmake --build " + str(self._build))
        for test in new:
            started = time.monotonic()
            if not self._passes(test, 600):
                sys.exit(f"{test.name} fails without a change")
            self._times[test.name] = time.monotonic() - started

    @contextlib.contextmanager
    def changed(self, mutant):
        file = self._tree / mutant.file
        original = file.read_text(encoding="utf-8")
        try:
            file.write_text(mutant.text, encoding="utf-8")
            yield
        finally:
            file.write_text(original, encoding="utf-8")

    def _in_turns(self, tests):
        """The tests in groups of 1, 2, 4..., fast ones and those that have noticed much before the others: most
        changes are noticed by the first, and the programs of the others need not be linked for them."""
        waiting = sorted(tests, key=lambda test: self._times[test.name] / (1 + self._noticed[test.name]))
        size = 1
        while waiting:
            yield waiting[:size]
            waiting, size = waiting[size:], 2 * size

    def judge(self, mutant, tests):
        with self.changed(mutant):
            for group in self._in_turns(tests):
                if not self.build(group):
                    return Outcome(mutant, NO_BUILD, "")
                for test in group:
                    if not self._passes(test, self._patience + PATIENCE * self._times[test.name]):
                        self._noticed[test.name] += 1
                        return Outcome(mutant, NOTICED, test.name)
        return Outcome(mutant, PASSED, "")


class Round:
    """Lets the workplaces judge changes side by side, and prints each outcome as it comes."""

    def __init__(self, places):
        self._free = queue.Queue()
        self._places = places
        for place in places:
            self._free.put(place)

    def _judge(self, mutant, which):
        place = self._free.get()
        try:
            return place.judge(mutant, place.tests_of(mutant.file)[which])
        finally:
            self._free.put(place)

    def judged(self, mutants, which):
        """The outcomes in order; which is 0 for the room's own tests, 1 for the others that link it."""
        files = sorted({mutant.file for mutant in mutants})
        with concurrent.futures.ThreadPoolExecutor(len(self._places)) as workers:
            def measure(place):
                for file in files:
                    place.measure(place.tests_of(file)[which])
            list(workers.map(measure, self._places))
            outcomes = []
            for outcome in workers.map(lambda mutant: self._judge(mutant, which), mutants):
                outcomes.append(outcome)
                print(f"{len(outcomes)}/{len(mutants)} {reported(outcome)}", flush=True)
        return outcomes


def reported(outcome):
    mutant = outcome.mutant
    by = f" by {outcome.by}" if outcome.by else ""
    return f"{mutant.file}:{mutant.line} {mutant.kind}: {outcome.verdict}{by}"


def summary(outcomes, skipped):
    """Every change that was not noticed, and the line of figures."""
    count = collections.Counter(outcome.verdict for outcome in outcomes)
    made = count[NOTICED] + count[PASSED]
    lines = []
    for outcome in outcomes:
        if outcome.verdict == PASSED:
            mutant = outcome.mutant
            lines += [f"\n{mutant.file}:{mutant.line} ({mutant.kind})", f"- {mutant.before}", f"+ {mutant.after}"]
    share = f" ({100 * count[NOTICED] / made:.1f} %)" if made else ""
    lines.append(f"\n{made} changes, {count[NOTICED]} noticed{share}; besides, {count[NO_BUILD]} did not compile and"
                 f" {skipped} are known to make no difference")
    return "\n".join(lines)


def files_of(root, chosen):
    if chosen.file:
        files = chosen.file
    else:
        folder = root / chosen.room
        files = [file.relative_to(root).as_posix() for file in sorted(folder.rglob("*"))
                 if file.suffix in includes.SOURCE]
    missing = [file for file in files if not (root / file).is_file()]
    if missing or not files:
        sys.exit(f"There is no source {', '.join(missing) or 'in ' + chosen.room}")
    return files


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    where = options.add_mutually_exclusive_group(required=True)
    where.add_argument("--room", help="a folder, as store or barcode/label: every source in it")
    where.add_argument("--file", action="append", help="one source; may be given several times")
    options.add_argument("--sample", type=int, metavar="N", help="only N of the changes")
    options.add_argument("--seed", type=int, default=1, metavar="S", help="which N (default 1)")
    options.add_argument("--jobs", type=int, default=1, help="so many changes side by side, each in a copy of its own")
    options.add_argument("--own", action="store_true", help="only the tests of the room's own folder")
    options.add_argument("--no-words", action="store_true", help="leave out strings that are only words for people")
    options.add_argument("--list", action="store_true", help="print the changes and make none")
    options.add_argument("--patience", type=int, default=20, metavar="SECONDS",
                         help=f"a test may take {PATIENCE} times as long as without the change, and these seconds more")
    options.add_argument("--work", help="folder of the copies (default build/mutants)")
    options.add_argument("root", nargs="?", default=str(pathlib.Path(__file__).resolve().parent.parent))
    chosen = options.parse_args()
    root = pathlib.Path(chosen.root).resolve()
    every = [mutant for file in files_of(root, chosen) for mutant in mutants_of(root, file, not chosen.no_words)]
    listed = root / KNOWN
    known = known_equivalents(listed.read_text(encoding="utf-8")) if listed.is_file() else {}
    mutants, stale = without_known(every, known)
    for entry in stale:
        print(f"{KNOWN}: {entry[0]} has no such change any more: {entry[1]}")
    if chosen.sample is not None and chosen.sample < len(mutants):
        picked = random.Random(chosen.seed).sample(range(len(mutants)), chosen.sample)
        mutants = [mutants[place] for place in sorted(picked)]
    if chosen.list:
        for mutant in mutants:
            print(f"{mutant.file}:{mutant.line} ({mutant.kind})\n- {mutant.before}\n+ {mutant.after}")
        print(f"{len(mutants)} changes")
        return
    work = pathlib.Path(chosen.work).resolve() if chosen.work else root / "build" / "mutants"
    jobs = max(1, chosen.jobs)
    print(f"{len(mutants)} changes; preparing {jobs} copies in {work}", flush=True)
    threads = max(1, (os.cpu_count() or 2) // jobs)
    places = [Workplace(root, work / str(number), threads, chosen.patience) for number in range(1, jobs + 1)]
    untested = {mutant.file for mutant in mutants if not any(places[0].tests_of(mutant.file))}
    for file in sorted(untested):
        print(f"{file}: no test links it, so its changes are left out")
    mutants = [mutant for mutant in mutants if mutant.file not in untested]
    rounds = Round(places)
    outcomes = rounds.judged(mutants, 0)
    passed = [outcome.mutant for outcome in outcomes
              if outcome.verdict == PASSED and places[0].tests_of(outcome.mutant.file)[1]]
    if passed and not chosen.own:
        print(f"{len(passed)} of them go to the other tests that link the room")
        second = {outcome.mutant: outcome for outcome in rounds.judged(passed, 1)}
        outcomes = [second.get(outcome.mutant, outcome) for outcome in outcomes]
    print(summary(outcomes, len(every) - len(without_known(every, known)[0])))
    sys.exit(1 if any(outcome.verdict == PASSED for outcome in outcomes) else 0)


if __name__ == "__main__":
    main()

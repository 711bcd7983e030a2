#!/usr/bin/env python3
"""Makes one small change at a time in the sources of a room and says which changes no test notices.

    scripts/mutants.py --room store --sample 20
    scripts/mutants.py --file store/Numbers.cpp

Works on a copy of the tree in a folder of its own, build/mutants, so the checkout is never changed and may be worked on
meanwhile. Of a change only the changed source is compiled, and only the tests that it goes into are linked and run:
first those of the room's own folder until one fails, the last successful first; changes that these let pass go to the
other tests, unless --own is given. A change that does not compile does not count, nor one of which the compiler makes
the same program. A test that takes far longer than without the change has noticed it.

What each test did with each change is noted in build/mutants/build/outcomes, so a run that was broken off goes on where
it was, and after a new test only that test is run for the changes that are left. A note holds as long as the changed
source and the test's own sources are the same; after changes elsewhere, --fresh asks again.

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
import fcntl
import hashlib
import json
import os
import pathlib
import queue
import random
import resource
import signal
import sys
import tempfile

sys.dont_write_bytecode = True  # the source tree stays as it is
import cpp_changes
import includes
import mutant_builds

KNOWN = "tests/equivalent_mutants.txt"
MEMORY = 8 << 30  # bytes of address space that a test may have, with a change that lets it take ever more
DISK = 1 << 30  # and of a file

Mutant = collections.namedtuple("Mutant", "file line kind before after text")
Outcome = collections.namedtuple("Outcome", "mutant verdict by")
NOTICED, PASSED, NO_BUILD, SAME = "noticed", "NOT NOTICED", "does not compile", "makes the same program"


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


class Record:
    """What tests did with changes, in this run and those before: a line for each."""

    def __init__(self, file, fresh):
        self._known = {}
        if fresh:
            file.unlink(missing_ok=True)
        if file.is_file():
            for line in file.read_text(encoding="utf-8").splitlines():
                *key, noticed = json.loads(line)
                self._known[tuple(key)] = noticed
        self._file = file.open("a", encoding="utf-8")

    def known(self, *key):
        return self._known.get(key)

    def note(self, *key_and_value):
        self._known[key_and_value[:-1]] = key_and_value[-1]
        print(json.dumps(key_and_value), file=self._file, flush=True)


class Round:
    """Judges the changes of one source after another, several changes side by side."""

    def __init__(self, build, record, scratch, memory, chosen):
        self._build, self._record, self._scratch, self._memory, self._chosen = build, record, scratch, memory, chosen
        self._desks = queue.Queue()
        for number in range(chosen.jobs):
            self._desks.put(mutant_builds.Desk(scratch / f"desk{number}", memory))

    def judged(self, file, mutants):
        """The outcome of each change of the file, as they come."""
        own, others = ([test for test in tests if "unit" in test.labels or not self._chosen.unit]
                       for tests in self._build.tests_of(file))
        self._build.make(own)
        source = mutant_builds.Source(self._build, file, self._scratch / "source", self._memory, self._chosen.patience)
        own = [test for test in own if source.goes_into(test)]
        if self._chosen.own and own:
            others = []
        with concurrent.futures.ThreadPoolExecutor(self._chosen.jobs) as workers:
            yield from workers.map(lambda mutant: self._judge(source, mutant, own, others), mutants)
        source.close()

    def _judge(self, source, mutant, own, others):
        desk = self._desks.get()
        try:
            verdict, by = self._verdict(source, mutant, desk, own, others)
            return Outcome(mutant, verdict, by)
        finally:
            desk.clear()
            self._desks.put(desk)

    def _verdict(self, source, mutant, desk, own, others):
        change = hashlib.sha256(f"{mutant.file}\0{mutant.text}".encode()).hexdigest()[:32]
        for verdict in (NO_BUILD, SAME):
            if self._record.known(change, verdict):
                return verdict, ""
        for test in own:
            if self._record.known(change, test.name, self._build.digest(test)):
                return NOTICED, test.name
        objects, asked = {}, None
        for test in self._tests(source, own, others):
            asked = test
            noticed = self._record.known(change, test.name, self._build.digest(test))
            if noticed is None:
                noticed = self._noticed(source, mutant, desk, test, objects)
                if noticed is None:
                    self._record.note(change, NO_BUILD, True)
                    return NO_BUILD, ""
                self._record.note(change, test.name, self._build.digest(test), noticed)
            if noticed:
                source.noticed[test.name] += 1
                return NOTICED, test.name
        if asked is None:
            return PASSED, ""  # no test has the source in it
        if self._record.known(change, SAME) is None:
            self._record.note(change, SAME, source.makes_the_same(desk, mutant.text, asked))
        return (SAME if self._record.known(change, SAME) else PASSED), ""

    @staticmethod
    def _tests(source, own, others):
        yield from source.in_order(own)
        for test in source.in_order(others):
            if source.goes_into(test):
                yield test

    def _noticed(self, source, mutant, desk, test, objects):
        """Whether the test fails with the change; None when the change does not compile."""
        limit = source.limit(test)
        changed = source.objects(desk, mutant.text, test, objects)
        passes = desk.passes(self._build, test, changed, limit) if changed else None
        return None if passes is None else not passes


def reported(outcome):
    mutant = outcome.mutant
    by = f" by {outcome.by}" if outcome.by else ""
    return f"{mutant.file}:{mutant.line} {mutant.kind}: {outcome.verdict}{by}"


def figures(outcomes):
    count = collections.Counter(outcome.verdict for outcome in outcomes)
    made = count[NOTICED] + count[PASSED]
    share = f" ({100 * count[NOTICED] / made:.1f} %)" if made else ""
    return f"{made} changes, {count[NOTICED]} noticed{share}; besides, {count[NO_BUILD]} did not compile," \
           f" {count[SAME]} made the same program"


def summary(outcomes, skipped):
    """Every change that was not noticed, a line of figures for each source and one for all."""
    lines = []
    for outcome in outcomes:
        if outcome.verdict == PASSED:
            mutant = outcome.mutant
            lines += [f"\n{mutant.file}:{mutant.line} ({mutant.kind})", f"- {mutant.before}", f"+ {mutant.after}"]
    lines.append("")
    for file in dict.fromkeys(outcome.mutant.file for outcome in outcomes):
        lines.append(f"{file}: {figures([outcome for outcome in outcomes if outcome.mutant.file == file])}")
    lines.append(f"{figures(outcomes)} and {skipped} are known to make no difference")
    return "\n".join(lines)


def files_of(root, chosen):
    """The sources of the rooms, and those named."""
    files = list(chosen.file)
    for room in chosen.room:
        inside = [file.relative_to(root).as_posix() for file in sorted((root / room).rglob("*"))
                  if file.suffix in includes.SOURCE]
        if not inside:
            sys.exit(f"There is no source in {room}")
        files += inside
    missing = [file for file in files if not (root / file).is_file()]
    if missing:
        sys.exit(f"There is no source {', '.join(missing)}")
    return files


def sampled(mutants, size, share, seed):
    """Of each file size changes, or share per cent where these are more. The same ones for the same seed: a larger size
    adds others to them."""
    left = []
    for file in dict.fromkeys(mutant.file for mutant in mutants):
        inside = [mutant for mutant in mutants if mutant.file == file]
        count = min(max(size, -(-len(inside) * share // 100)), len(inside))
        shuffled = random.Random(f"{seed} {file}").sample(range(len(inside)), len(inside))
        left += [inside[place] for place in sorted(shuffled[:count])]
    return left


def run(root, mutants, chosen):
    """The outcome of each change, printed as it comes."""
    work = pathlib.Path(chosen.work).resolve() if chosen.work else root / "build" / "mutants"
    notes = work / "build"  # no part of the copy
    notes.mkdir(parents=True, exist_ok=True)
    with (notes / "lock").open("w") as lock, \
            tempfile.TemporaryDirectory(prefix="scratch-", dir=notes, ignore_cleanup_errors=True) as scratch:
        fcntl.flock(lock, fcntl.LOCK_EX)
        print(f"{len(mutants)} changes; preparing a copy in {work}", flush=True)
        build = mutant_builds.Build(root, work, os.cpu_count() or 2)
        # Nobody needs what a test with a change has written, so it need not come to a disk.
        memory = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
        judge = Round(build, Record(notes / "outcomes", chosen.fresh), pathlib.Path(scratch), memory, chosen)
        outcomes = []
        for file in dict.fromkeys(mutant.file for mutant in mutants):
            for outcome in judge.judged(file, [mutant for mutant in mutants if mutant.file == file]):
                outcomes.append(outcome)
                print(f"{len(outcomes)}/{len(mutants)} {reported(outcome)}", flush=True)
    return outcomes


def options():
    known = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    known.add_argument("--room", action="append", default=[],
                       help="a folder, as store or barcode/label: every source in it; may be given several times")
    known.add_argument("--file", action="append", default=[], help="one source; may be given several times")
    known.add_argument("--sample", type=int, metavar="N", help="only N of the changes of each source")
    known.add_argument("--share", type=int, default=0, metavar="P",
                       help="with --sample: P per cent of the changes where these are more")
    known.add_argument("--seed", type=int, default=1, metavar="S", help="which N (default 1)")
    known.add_argument("--jobs", type=int, default=1, help="so many changes side by side")
    known.add_argument("--own", action="store_true",
                       help="only the tests of the room's own folder, if the source goes into any")
    known.add_argument("--unit", action="store_true", help="only the tests that open no window")
    known.add_argument("--no-words", action="store_true", help="leave out strings that are only words for people")
    known.add_argument("--list", action="store_true", help="print the changes and make none")
    known.add_argument("--fresh", action="store_true", help="forget the outcomes of earlier runs")
    known.add_argument("--patience", type=int, default=20, metavar="SECONDS",
                       help=f"a test may take {mutant_builds.PATIENCE} times as long as without the change, and these"
                            " seconds more")
    known.add_argument("--work", help="folder of the copy (default build/mutants)")
    known.add_argument("root", nargs="?", default=str(pathlib.Path(__file__).resolve().parent.parent))
    return known


def main():
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    chosen = options().parse_args()
    if not chosen.room and not chosen.file:
        options().error("a --room or a --file is needed")
    root = pathlib.Path(chosen.root).resolve()
    every = [mutant for file in files_of(root, chosen) for mutant in mutants_of(root, file, not chosen.no_words)]
    listed = root / KNOWN
    known = known_equivalents(listed.read_text(encoding="utf-8")) if listed.is_file() else {}
    for entry in without_known(every, known)[1]:
        print(f"{KNOWN}: {entry[0]} has no such change any more: {entry[1]}")
    if chosen.sample is not None:  # of all, so that another known one leaves the others in the sample
        every = sampled(every, chosen.sample, chosen.share, chosen.seed)
    mutants = without_known(every, known)[0]
    skipped = len(every) - len(mutants)
    if chosen.list:
        for mutant in mutants:
            print(f"{mutant.file}:{mutant.line} ({mutant.kind})\n- {mutant.before}\n+ {mutant.after}")
        print(f"{len(mutants)} changes")
        return
    os.nice(10)
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_FSIZE, (DISK, DISK))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    outcomes = run(root, mutants, chosen)
    print(summary(outcomes, skipped))
    sys.exit(1 if any(outcome.verdict == PASSED for outcome in outcomes) else 0)


if __name__ == "__main__":
    main()

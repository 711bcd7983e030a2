"""Builds and runs test programs with one source changed. scripts/mutants.py says which change.

A copy of the tree is built once, unchanged. A change is compiled alone, without optimisation and with the headers of
its source compiled beforehand, and its object is linked in front of the libraries, so that the linker takes it in place
of the one that is in the library. The changed text is in a folder of its own; neither the checkout nor the copy is
touched.
"""

import collections
import contextlib
import hashlib
import json
import os
import pathlib
import re
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time

import includes

OUTSIDE = ("system", "long", "fuzz")  # labels: whole programs, long runs, and what random input finds by luck
PATIENCE = 10  # times as long as without the change
LINKER = ["-fuse-ld=gold"] if shutil.which("ld.gold") else []
MEMBER = re.compile(r"^(\S+\.a)\((\S+?)\)", re.M)  # of a library, in the map that the linker writes
DIRECTIVE = re.compile(r"^[ \t]*#[ \t]*(?!include\b)\w+", re.M)
INCLUDE = re.compile(r'^#include [<"](?!.*\.moc").*$', re.M)

Test = collections.namedtuple("Test", "name command environment folder labels artifact")


def synchronise(root, copy):
    """Makes copy the tree at root. What has not changed is not touched, so that little is compiled anew."""
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
        if file.relative_to(copy).parts[0] not in includes.MADE:
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


class Build:
    """The unchanged programs, and what CMake and Ninja know about them."""

    def __init__(self, root, work, threads):
        self.tree = work
        self.folder = self.tree / "build" / "release"
        self._threads = str(threads)
        self._lock = threading.Lock()
        self._made, self._linked, self._dependencies, self._digests = set(), {}, {}, {}
        synchronise(root, self.tree)
        query = self.folder / ".cmake" / "api" / "v1" / "query"
        query.mkdir(parents=True, exist_ok=True)
        (query / "codemodel-v2").touch()
        self._run("cmake", "-S", self.tree, "-B", self.folder, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
                  "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON", "-DBUILD_TESTING=ON", "-DSUISUI_BENCH=OFF")
        commands = json.loads((self.folder / "compile_commands.json").read_text(encoding="utf-8"))
        commands = [shlex.split(entry["command"]) for entry in commands]
        self._commands = {words[words.index("-o") + 1]: words for words in commands}
        self._read_targets()
        self.tests = self._read_tests()

    def _run(self, *command):
        done = subprocess.run([str(word) for word in command], cwd=self.folder, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8", check=False)
        if done.returncode:
            sys.exit(f"{' '.join(str(word) for word in command)}:\n{done.stdout[-4000:]}")
        return done.stdout

    def _read_targets(self):
        reply = self.folder / ".cmake" / "api" / "v1" / "reply"
        index = json.loads(max(reply.glob("index-*.json")).read_text(encoding="utf-8"))
        model = json.loads((reply / index["reply"]["codemodel-v2"]["jsonFile"]).read_text(encoding="utf-8"))
        targets = [json.loads((reply / entry["jsonFile"]).read_text(encoding="utf-8"))
                   for entry in model["configurations"][0]["targets"]]
        self._programs, self._members, made_by = {}, {}, {}
        for target in targets:
            made_by[target["id"]] = target
            for artifact in target.get("artifacts", []):
                if target["type"] == "EXECUTABLE":
                    self._programs[artifact["path"]] = target
                inside = os.path.normpath(f"{target['paths']['build']}/CMakeFiles/{target['name']}.dir") + "/"
                for output in self._commands:
                    if output.startswith(inside):
                        self._members[artifact["path"], os.path.basename(output)] = output
        # A test that starts another program of the build would see the change in one of the two only.
        self._starting = {path for path, target in self._programs.items()
                          if any(made_by[below["id"]]["type"] == "EXECUTABLE"
                                 for below in target.get("dependencies", []))}

    def _listed_tests(self):
        """What CTest knows. It names the command of a test only when its program is there, built or not."""
        missing = [self.folder / program for program in self._programs if not (self.folder / program).exists()]
        for program in missing:
            program.parent.mkdir(parents=True, exist_ok=True)
            program.touch(mode=0o755)
        try:
            return json.loads(self._run("ctest", "--show-only=json-v1"))["tests"]
        finally:
            for program in missing:
                program.unlink()

    def _read_tests(self):
        tests = []
        for test in self._listed_tests():
            properties = {entry["name"]: entry["value"] for entry in test.get("properties", [])}
            words = [os.path.relpath(word, self.folder) for word in test.get("command", [])]
            artifact = next((word for word in words if word in self._programs), None)
            labels = properties.get("LABELS", [])
            if artifact is None or set(OUTSIDE) & set(labels) or artifact in self._starting:
                continue
            environment = dict(setting.split("=", 1) for setting in properties.get("ENVIRONMENT", []))
            for setting in properties.get("ENVIRONMENT_MODIFICATION", []):
                name, _, value = setting.partition("=")
                environment[name] = value.removeprefix("set:")
            tests.append(Test(test["name"], test["command"], {**environment, "GTEST_FAIL_FAST": "1"},
                              self._programs[artifact]["paths"]["source"], labels, artifact))
        return tests

    def make(self, tests):
        """Builds the programs of the tests and reads which sources and headers went into each object."""
        wanted = {test.artifact for test in tests} - self._made
        if wanted:
            self._run("cmake", "--build", ".", "--parallel", self._threads, "--target", *sorted(wanted))
            self._made |= wanted
            place = None
            for line in self._run("ninja", "-t", "deps").splitlines():
                if line.startswith("    "):
                    self._dependencies[place].add(os.path.normpath(self.folder / line.strip()))
                elif line:
                    place = line.partition(":")[0]
                    self._dependencies[place] = set()

    def link(self, artifact, program, objects, *more):
        """Links a test program under another name; objects, as {path: changed object}, take the place of others."""
        known = self._linked.get(artifact)
        if known is None:
            steps = self._run("ninja", "-t", "commands", "-s", artifact).strip().split(" && ")
            known = self._linked[artifact] = next(shlex.split(step) for step in steps if f" -o {artifact} " in step)
        words = list(known)
        words[words.index(artifact)] = str(program)
        front = []
        for place, changed in objects.items():
            if place in words:
                words[words.index(place)] = str(changed)
            else:
                front.append(str(changed))
        command = [words[0], *LINKER, *front, *words[1:], *more]
        return subprocess.run(command, cwd=self.folder, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, check=False).returncode == 0

    def objects_with(self, file, test):
        """The objects in the program of the test that the file was compiled into."""
        with self._lock:
            self.make([test])
            if (test.artifact, "objects") not in self._linked:
                with tempfile.NamedTemporaryFile(mode="r", encoding="utf-8") as layout:
                    self.link(test.artifact, os.devnull, {}, f"-Wl,-Map={layout.name}")
                    members = {self._members.get(found) for found in MEMBER.findall(layout.read())}
                direct = {word for word in self._linked[test.artifact] if word.endswith(".o")}
                self._linked[test.artifact, "objects"] = direct | members - {None}
            path = str(self.tree / file)
            return sorted(place for place in self._linked[test.artifact, "objects"]
                          if path in self._dependencies.get(place, ()))

    def compilation(self, place):
        """The command that compiles an object, without the cache, and the source in it."""
        words = self._commands[place]
        if os.path.basename(words[0]) == "ccache":
            words = words[1:]
        return list(words), words[words.index("-c") + 1]

    def digest(self, test):
        """Of the test's own sources, with what they include from the tests."""
        with self._lock:
            if test.artifact not in self._digests:
                self.make([test])
                direct = os.path.dirname(test.artifact) + f"/CMakeFiles/{os.path.basename(test.artifact)}.dir/"
                sources = {source for place, inside in self._dependencies.items() if place.startswith(direct)
                           for source in inside if source.startswith(str(self.tree / "tests"))}
                parts = [pathlib.Path(source).read_bytes() for source in sorted(sources)]
                self._digests[test.artifact] = hashlib.sha256(b"\0".join(parts)).hexdigest()[:16]
            return self._digests[test.artifact]

    def tests_of(self, file):
        """The tests of the room's own folder, and all others, those that open no window first."""
        folder = pathlib.PurePosixPath(file).parent
        while str(folder) != ".":
            own = [test for test in self.tests
                   if pathlib.PurePosixPath(test.folder).is_relative_to(pathlib.PurePosixPath("tests") / folder)]
            if own:
                others = [test for test in self.tests if test not in own]
                return own, sorted(others, key=lambda test: "unit" not in test.labels)
            folder = folder.parent
        return self.tests, []


class Desk:
    """Where one change at a time is compiled, linked and run."""

    def __init__(self, folder, memory):
        self._text, self._objects, self._memory = folder / "text", folder / "objects", memory
        self._program = folder / "program"

    def compiled(self, build, file, text, place, more):
        """The object of one source with the changed text, or None when it does not compile."""
        changed = self._text / file
        changed.parent.mkdir(parents=True, exist_ok=True)
        changed.write_text(text, encoding="utf-8")
        words, source = build.compilation(place)
        target = self._objects / place
        target.parent.mkdir(parents=True, exist_ok=True)
        words[words.index("-o") + 1] = str(target)
        if os.path.normpath(build.folder / source) == str(build.tree / file):
            words[words.index("-c") + 1] = str(changed)
        command = [words[0], "-iquote", os.path.dirname(source), f"-I{self._text}", *words[1:], "-w", *more]
        done = subprocess.run(command, cwd=build.folder, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, check=False)
        return target if done.returncode == 0 else None

    def clear(self):
        """Forgets the last change: a header that is still here would be found before the right one."""
        for folder in (self._text, self._objects):
            shutil.rmtree(folder, ignore_errors=True)

    def passes(self, build, test, objects, limit):
        """Whether the test passes with these objects; None when they cannot be linked."""
        if not build.link(test.artifact, self._program, objects):
            return None
        own = str(build.folder / test.artifact)
        command = [str(self._program) if word == own else word for word in test.command]
        with tempfile.TemporaryDirectory(prefix="mutants-", dir=self._memory, ignore_cleanup_errors=True) as place:
            os.chmod(place, 0o700)
            environment = {**os.environ, **test.environment, "TMPDIR": place, "XDG_RUNTIME_DIR": place}
            return run_to_end(command, limit, cwd=place, env=environment) == 0


class Source:
    """One source whose changes are made, and what is known about the tests that it goes into."""

    def __init__(self, build, file, folder, memory, patience):
        self._build, self.file, self._folder, self._patience = build, file, folder, patience
        self._original = (build.tree / file).read_text(encoding="utf-8")
        self._lock = threading.RLock()
        self._unchanged, self._unchanged_objects = Desk(folder / "unchanged", memory), {}
        self._times = {}  # seconds of each test without a change
        self._optimised = None  # the unchanged object as the programs have it
        self._headers = None  # the options that use the precompiled headers
        self.noticed = collections.Counter()

    def close(self):
        shutil.rmtree(self._folder, ignore_errors=True)

    def _with_headers(self, place):
        """The options that take the headers of a .cpp from a precompiled copy. None where the source has directives
        among them, and for a header, which goes into many objects."""
        with self._lock:
            if self._headers is None:
                self._headers = []
                if self.file.endswith(".cpp") and not DIRECTIVE.search(self._original):
                    self._headers = self._precompiled(place)
            return self._headers

    def _precompiled(self, place):
        self._folder.mkdir(parents=True, exist_ok=True)
        header = self._folder / "headers.h"
        header.write_text("\n".join(INCLUDE.findall(self._original)) + "\n", encoding="utf-8")
        words, source = self._build.compilation(place)
        words[words.index("-o") + 1] = f"{header}.gch"
        words[words.index("-c"):words.index("-c") + 2] = ["-O0", "-w", "-x", "c++-header", "-c", str(header)]
        done = subprocess.run([words[0], "-iquote", os.path.dirname(source), *words[1:]], cwd=self._build.folder,
                              stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              check=False)
        options = ["-include", str(header)]
        # A header that may not be included twice cannot be compiled beforehand.
        fits = done.returncode == 0 and self._unchanged.compiled(self._build, self.file, self._original, place, options)
        return options if fits else []

    def objects(self, desk, text, test, made):
        """The changed objects of the test's program, or None when one does not compile; made has those that exist."""
        places = self._build.objects_with(self.file, test)
        for place in places:
            if place not in made:
                options = ["-O0", *self._with_headers(place)]
                made[place] = desk.compiled(self._build, self.file, text, place, options)
            if made[place] is None:
                return None
        return {place: made[place] for place in places}

    def limit(self, test):
        """How long the test may take: measured with the source unchanged, but compiled and linked in the same way."""
        with self._lock:
            if test.name not in self._times:
                objects = self.objects(self._unchanged, self._original, test, self._unchanged_objects)
                started = time.monotonic()
                if not objects or not self._unchanged.passes(self._build, test, objects, 600):
                    sys.exit(f"{test.name} fails without a change of {self.file}")
                self._times[test.name] = time.monotonic() - started
            return self._patience + PATIENCE * self._times[test.name]

    def goes_into(self, test):
        return bool(self._build.objects_with(self.file, test))

    def in_order(self, tests):
        """Tests that have noticed much, and fast ones, come first."""
        with self._lock:
            return sorted(tests, key=lambda test: self._times.get(test.name, 0) / (1 + self.noticed[test.name]))

    def makes_the_same(self, desk, text, test):
        """Whether the compiler makes the same of the changed source, with the options that the programs have."""
        if not self.file.endswith(".cpp"):
            return False
        place = self._build.objects_with(self.file, test)[0]

        def made(version):
            target = desk.compiled(self._build, self.file, version, place, [])
            return target.read_bytes() if target else None
        with self._lock:
            self._optimised = self._optimised or made(self._original)
        return made(text) == self._optimised

"""The build files: which compiler launcher is used, and that a misspelt name ends the configuration. Shown on a small
project of its own, which includes the files of this one. And which options ./check takes."""

import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

PROJECT = """\
cmake_minimum_required(VERSION 3.25)
project(scratch LANGUAGES CXX)
include({cmake}/Ccache.cmake)
message(STATUS "launcher=[${{CMAKE_CXX_COMPILER_LAUNCHER}}]")
include({cmake}/Room.cmake)
include(CTest)
suisui_room(suisui_store SOURCES a.cpp)
{lines}
"""


class BuildRules(unittest.TestCase):
    cmake = None

    def setUp(self):
        place = tempfile.TemporaryDirectory(prefix="suisui-rules-")
        self.addCleanup(place.cleanup)
        self.place = pathlib.Path(place.name)
        (self.place / "a.cpp").write_text("int a() { return 1; }\n", encoding="ascii")
        (self.place / "bin").mkdir()
        tool = self.place / "bin" / "ccache"
        tool.write_text('#!/bin/sh\nexec "$@"\n', encoding="ascii")
        tool.chmod(0o755)

    def configure(self, *options, lines="", **environment):
        (self.place / "CMakeLists.txt").write_text(PROJECT.format(cmake=self.cmake, lines=lines), encoding="utf-8")
        environment["PATH"] = f"{self.place}/bin:{os.environ['PATH']}"
        inherited = {name: value for name, value in os.environ.items() if name != "CMAKE_CXX_COMPILER_LAUNCHER"}
        return subprocess.run(["cmake", "-S", self.place, "-B", self.place / "build", "-G", "Ninja", *options],
                              env={**inherited, **environment}, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, encoding="utf-8", check=False)

    def launcher(self, *options, **environment):
        done = self.configure(*options, **environment)
        self.assertEqual(0, done.returncode, done.stdout)
        return done.stdout.partition("launcher=[")[2].partition("]")[0]

    def refused(self, lines):
        done = self.configure(lines=lines)
        self.assertNotEqual(0, done.returncode, done.stdout)
        return done.stdout

    def test_the_cache_of_the_compiler_is_used_where_it_is(self):
        self.assertEqual(f"{self.place}/bin/ccache", self.launcher())

    def test_a_launcher_on_the_command_line_stays(self):
        self.assertEqual("/usr/bin/env", self.launcher("-DCMAKE_CXX_COMPILER_LAUNCHER=/usr/bin/env"))

    def test_a_launcher_in_the_environment_stays(self):
        self.assertEqual("/usr/bin/env", self.launcher(CMAKE_CXX_COMPILER_LAUNCHER="/usr/bin/env"))

    def test_no_launcher_may_be_asked_for(self):
        self.assertEqual("", self.launcher("-DCMAKE_CXX_COMPILER_LAUNCHER="))

    def test_rooms_and_tests_that_are_spelt_right_are_configured(self):
        done = self.configure(lines="suisui_room(suisui_top SOURCES a.cpp LINKS suisui_store)\n"
                                    "suisui_test(a_test SOURCES a.cpp LINKS suisui_top)")
        self.assertEqual(0, done.returncode, done.stdout)

    def test_a_misspelt_room_ends_the_configuration_and_is_named(self):
        for lines in ("suisui_room(suisui_top SOURCES a.cpp LINKS suisui_stroe)",
                      "suisui_test(a_test SOURCES a.cpp LINKS suisui_store suisui_stroe)"):
            with self.subTest(lines=lines):
                said = self.refused(lines)
                self.assertIn("suisui_stroe", said)
                self.assertIn("is not a target", said)

    def test_a_misspelt_keyword_ends_the_configuration_and_is_named(self):
        for lines in ("suisui_room(suisui_top SOURCE a.cpp)", "suisui_test(a_test SOURCE a.cpp)"):
            with self.subTest(lines=lines):
                self.assertIn("follow no keyword: SOURCE;a.cpp", self.refused(lines))


class Check(unittest.TestCase):
    source = None

    def setUp(self):
        place = tempfile.TemporaryDirectory(prefix="suisui-check-")
        self.addCleanup(place.cleanup)
        # What is not refused finds no program that could install or build anything.
        self.programs = pathlib.Path(place.name)
        (self.programs / "dirname").symlink_to(shutil.which("dirname"))

    def check(self, *options):
        return subprocess.run(["/bin/bash", self.source / "check", *options], env={"PATH": str(self.programs)},
                              check=False, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, encoding="utf-8")

    def test_an_unknown_option_is_named_together_with_the_known(self):
        for option in ("--asna", "clang", "-DSUISUI_WERROR=ON --fast", "-j4"):
            with self.subTest(option=option):
                done = self.check(*option.split())
                self.assertEqual(2, done.returncode, done.stdout)
                self.assertIn(f"does not know {option.split()[-1]}\n", done.stdout)
                self.assertIn("[--clang | --asan]", done.stdout)

    def test_two_variants_at_once_are_refused(self):
        done = self.check("--clang", "--asan")
        self.assertEqual(2, done.returncode, done.stdout)
        self.assertIn("one variant at a time", done.stdout)

    def test_each_variant_has_presets_to_configure_build_and_test(self):
        presets = json.loads((self.source / "CMakePresets.json").read_text(encoding="utf-8"))
        for kind in ("configurePresets", "buildPresets", "testPresets"):
            self.assertLessEqual({"release", "clang", "asan"}, {preset["name"] for preset in presets[kind]})


if __name__ == "__main__":
    Check.source = pathlib.Path(sys.argv.pop(1)).resolve()
    BuildRules.cmake = Check.source / "cmake"
    unittest.main()

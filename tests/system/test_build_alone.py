"""The programs, configured and built as ./run does it on a machine that has neither the packages of the tests nor
those of the benchmarks, and laid out in both ways."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

WITHOUT = [f"-DCMAKE_DISABLE_FIND_PACKAGE_{package}=ON" for package in ("benchmark", "GTest")]
PROGRAMS = ("suisuitag", "tagdb")


def run(*command, **more):
    return subprocess.run([str(word) for word in command], check=False, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8", **more)


class BuildAlone(unittest.TestCase):
    source = folder = None

    @classmethod
    def setUpClass(cls):
        shutil.rmtree(cls.folder, ignore_errors=True)
        # Another test runs beside this one.
        environment = {**os.environ, "CMAKE_BUILD_PARALLEL_LEVEL": "1"}
        # Everything was switched on in this folder before, and the cache remembers that.
        cls.refused = run("cmake", "--preset", "program", "-B", cls.folder, "-DBUILD_TESTING=ON", "-DSUISUI_BENCH=ON",
                          "-DSUISUI_WERROR=ON", *WITHOUT, cwd=cls.source)
        cls.built = run(cls.source / "scripts" / "build_program.sh", cls.folder, *WITHOUT, env=environment)

    def setUp(self):
        self.assertEqual(0, self.built.returncode, self.built.stdout[-4000:])
        place = tempfile.TemporaryDirectory(prefix="suisui-layout-")
        self.addCleanup(place.cleanup)
        self.place = pathlib.Path(place.name)

    def lay_out(self, *options):
        done = run("cmake", "--install", self.folder, "--prefix", self.place, *options)
        self.assertEqual(0, done.returncode, done.stdout)
        return {str(file.relative_to(self.place)) for file in self.place.rglob("*") if file.is_file()}

    def test_the_packages_of_tests_and_benchmarks_are_out_of_reach(self):
        self.assertNotEqual(0, self.refused.returncode, self.refused.stdout)
        self.assertRegex(self.refused.stdout, "(?i)CMAKE_DISABLE_FIND_PACKAGE_(GTest|benchmark)")

    def test_nothing_that_needs_them_is_built_whatever_is_cached(self):
        self.assertEqual([], [file for room in ("tests", "benchmarks") for file in (self.folder / room).rglob("*.o")])
        cache = (self.folder / "CMakeCache.txt").read_text(encoding="utf-8")
        for option in ("BUILD_TESTING", "SUISUI_BENCH", "SUISUI_WERROR"):
            self.assertRegex(cache, rf"(?m)^{option}:\w+=OFF$")

    def test_the_program_folder_is_whole_and_its_programs_run(self):
        files = self.lay_out()
        self.assertLessEqual({*PROGRAMS, "Ini/AppEnv.ini", "Ini/AppIni.ini"}, files)
        for command in ("create", "sample", "check"):
            done = run(self.place / "tagdb", command)
            self.assertEqual(0, done.returncode, done.stdout)

    def test_the_layout_of_the_package_is_whole(self):
        files = self.lay_out("--component", "system")
        self.assertLessEqual({*(f"bin/{program}" for program in (*PROGRAMS, "suisuitag-start")),
                              "share/applications/suisuitag.desktop", "share/man/man1/suisuitag-start.1.gz"}, files)


if __name__ == "__main__":
    BuildAlone.folder = pathlib.Path(sys.argv.pop(2)).resolve()
    BuildAlone.source = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()

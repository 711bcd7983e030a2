"""Which sources clang-tidy checks again: those whose text, headers, command or settings changed, wherever they are."""

import json
import os
import pathlib
import tempfile
import time
import unittest

import tidy


class Marks(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory(prefix="suisui-tidy-")
        self.addCleanup(place.cleanup)
        self.place = pathlib.Path(place.name)
        self.tool = self.place / "clang-tidy"
        self.tool.write_text("#!/bin/sh\necho version 14.0.6\n", encoding="ascii")
        self.tool.chmod(0o755)

    def tree(self, name, header="int a();\n", flags="-O2", settings="Checks: '*'\n"):
        """A tree with two sources of the store; only A sees the header."""
        root = self.place / name
        (root / "store").mkdir(parents=True)
        (root / "build" / "release").mkdir(parents=True)
        (root / ".clang-tidy").write_text(settings, encoding="utf-8")
        (root / "store" / "A.h").write_text(header, encoding="utf-8")
        (root / "store" / "A.cpp").write_text('#include "store/A.h"\n', encoding="utf-8")
        (root / "store" / "B.cpp").write_text("int b();\n", encoding="utf-8")
        commands = [{"file": str(root / "store" / source),
                     "command": f"c++ {flags} -I{root}/build/release/gen -I{root} -c {root}/store/{source}"}
                    for source in ("A.cpp", "B.cpp")]
        (root / "build" / "release" / "compile_commands.json").write_text(json.dumps(commands), encoding="utf-8")
        return tidy.marks(root, root / "build" / "release", str(self.tool), self.place)

    def test_a_clone_elsewhere_has_the_same_marks(self):
        first = self.tree("one")
        self.assertEqual({"store/A.cpp", "store/B.cpp"}, set(first))
        self.assertEqual(first, self.tree("elsewhere"))

    def test_a_changed_header_is_a_change_of_those_that_include_it(self):
        before, after = self.tree("one"), self.tree("two", header="long a();\n")
        self.assertNotEqual(before["store/A.cpp"], after["store/A.cpp"])
        self.assertEqual(before["store/B.cpp"], after["store/B.cpp"])

    def test_another_command_or_other_settings_are_a_change_of_all(self):
        before = self.tree("one")
        for number, changed in enumerate(({"flags": "-O0"}, {"settings": "Checks: '-*'\n"})):
            after = self.tree(f"changed{number}", **changed)
            self.assertEqual([], [name for name in before if before[name] == after[name]])

    def test_only_marks_that_nobody_asks_for_are_forgotten(self):
        folder = self.place / "cache"
        folder.mkdir()
        for name, days in (("fresh", 1), ("stale", tidy.KEPT_DAYS + 1)):
            (folder / name).touch()
            stamp = time.time() - days * 24 * 60 * 60
            os.utime(folder / name, (stamp, stamp))
        tidy.forget_old_marks(folder)
        self.assertEqual(["fresh"], [mark.name for mark in folder.iterdir()])


if __name__ == "__main__":
    unittest.main()

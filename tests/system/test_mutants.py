"""The changes that scripts/mutants.py makes, on small texts, and a whole run on a small project of its own."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

import cpp_changes
import mutants

SCRIPT = pathlib.Path(mutants.__file__)


def after(text, kind=None, words=True):
    """The text after each of its changes."""
    return [cpp_changes.applied(text, change) for change in cpp_changes.changes(text, words)
            if kind in (None, change.kind)]


class Changes(unittest.TestCase):
    def test_each_operator_becomes_its_neighbour(self):
        for text, changed in [("a == b;", "a != b;"), ("a < b;", "a <= b;"), ("a >= b;", "a > b;"),
                              ("a && b;", "a || b;"), ("a + b;", "a - b;"), ("a / b;", "a * b;"),
                              ("a -= b;", "a += b;"), ("++a;", "--a;"), ("x = -a;", "x = a;"), 
                              ("return !a;", "return a;")]:
            with self.subTest(text=text):
                self.assertEqual([changed], after(text))

    def test_constants_are_changed_by_one_and_truths_turned(self):
        for text, changed in [("x = 0;", "x = 1;"), ("x = 9u;", "x = 10u;"), ("x = 0x1F;", "x = 0x20;"),
                              ("x = 1'000;", "x = 1001;"), ("x = 2.54;", "x = 3.54;"), ("x = true;", "x = false;"),
                              ("x = 'E';", "x = 'x';"), ("x = 'x';", "x = 'y';")]:
            with self.subTest(text=text):
                self.assertEqual([changed], after(text))

    def test_a_name_with_digits_is_not_a_constant(self):
        self.assertEqual([], after("int8 code128 = other2;"))

    def test_strings_are_emptied_and_empty_ones_filled(self):
        self.assertEqual(['x = "";'], after('x = "ab";'))
        self.assertEqual(['x = u"x"_s;'], after('x = u""_s;'))
        self.assertEqual(['x = R"()";'], after('x = R"(a "b" == c)";'))

    def test_words_for_people_can_be_left_out(self):
        for text in ['box(u"在庫不足"_s)', 'throw Error("number too large")']:
            with self.subTest(text=text):
                self.assertEqual(1, len(after(text, "string")))
                self.assertEqual([], after(text, "string", words=False))
        self.assertEqual(1, len(after('run("SELECT code from shop WHERE a")', "string", words=False)))

    def test_comments_directives_and_insides_of_strings_stay(self):
        self.assertEqual([], after("// a == b + 1\n/* a < 2\n a && b */\n#if A == 1 && \\\n    B < 2\n"))
        self.assertEqual([""], [text.replace('x = "";', "") for text in after('x = "a == 1 // b";')])

    def test_a_comment_sign_in_a_string_begins_no_comment(self):
        self.assertIn('x = "//"; a != b;', after('x = "//"; a == b;'))

    def test_brackets_of_templates_and_references_stay(self):
        self.assertEqual([], after("std::vector<int> f(const std::string& a, int* b, T&& c);", "comparison"))

    def test_texts_are_not_subtracted(self):
        self.assertEqual([], after('x = "a" + b + "c";', "sign"))

    def test_a_condition_is_negated_as_a_whole(self):
        self.assertEqual(["if (!(a.find(b) && c))\n    d();"], after("if (a.find(b) && c)\n    d();", "condition"))
        self.assertEqual(["while (!(ready()))\n    ;"], after("while (ready())\n    ;", "condition"))

    def test_what_a_condition_declares_is_not_negated(self):
        self.assertEqual(["if (const int a = f(); !(a))\n    ;"],
                         after("if (const int a = f(); a)\n    ;", "condition"))
        self.assertEqual([], after("if (const auto* a = f())\n    ;", "condition"))

    def test_a_lone_comparison_is_not_negated_a_second_time(self):
        self.assertEqual(["if (a != b)\n    ;"], after("if (a == b)\n    ;"))
        self.assertEqual(["if (a)\n    ;"], after("if (!a)\n    ;"))

    def test_a_call_for_its_effect_is_left_out_and_lines_keep_places(self):
        text = "{\n    grid->row(a).post(b,\n        c);\n    d();\n}"
        self.assertEqual(["{\n    \n;\n    d();\n}", "{\n    grid->row(a).post(b,\n        c);\n    ;\n}"],
                         after(text, "call"))
        self.assertEqual(["if (a)\n    ;"], after("if (a)\n    b();", "call"))
        self.assertEqual(["{ ; }"], after("{ (void)f(); }", "call"))

    def test_declarations_returns_and_assignments_are_not_left_out(self):
        for text in ["{ return f(a); }", "{ std::string x(a); }", "{ x = f(a); }", "{ throw Error(a); }",
                     "{ const Guard guard(a); }", "{ auto x = f(a); }"]:
            with self.subTest(text=text):
                self.assertEqual([], after(text, "call"))

    def test_a_change_names_its_line_and_both_texts(self):
        text = "int f()\n{\n    return a  +  b;\n}\n"
        change, = cpp_changes.changes(text)
        lines = cpp_changes.Lines(text)
        self.assertEqual(3, lines.number(change))
        self.assertEqual(("return a + b;", "return a - b;"), lines.before_and_after(change))


class Known(unittest.TestCase):
    def mutant(self, before, changed, file="store/A.cpp"):
        return mutants.Mutant(file, 1, "sign", before, changed, "")

    def test_entries_carry_file_both_lines_and_reason(self):
        text = "# words\n\nstore/A.cpp\n- a + b\n+ a - b\n= b is 0 here.\n- f();\n+ ;\n= It is done twice.\n"
        self.assertEqual({("store/A.cpp", "a + b", "a - b"): "b is 0 here.",
                          ("store/A.cpp", "f();", ";"): "It is done twice."}, mutants.known_equivalents(text))

    def test_an_entry_without_its_reason_is_refused(self):
        for text in ("A.cpp\n- a\n+ b\n", "A.cpp\n- a\n+ b\n=\n", "- a\n+ b\n= c\n", "A.cpp\n- a\n= c\n"):
            with self.subTest(text=text), self.assertRaises(SystemExit):
                mutants.known_equivalents(text)

    def test_known_changes_are_left_out_and_those_gone_are_named(self):
        kept, listed = self.mutant("a", "b"), self.mutant("c", "d")
        known = {("store/A.cpp", "c", "d"): "why", ("store/A.cpp", "old", "older"): "why",
                 ("store/Other.cpp", "x", "y"): "why"}
        self.assertEqual(([kept], [("store/A.cpp", "old", "older")]), mutants.without_known([kept, listed], known))


class Summary(unittest.TestCase):
    def test_what_does_not_compile_does_not_count(self):
        mutant = mutants.Mutant("store/A.cpp", 7, "sign", "a + b", "a - b", "")
        outcomes = [mutants.Outcome(mutant, verdict, "") for verdict in
                    [mutants.NOTICED] * 3 + [mutants.PASSED] + [mutants.NO_BUILD] * 2 + [mutants.SAME]]
        other = mutants.Outcome(mutant._replace(file="B.cpp"), mutants.NOTICED, "")
        lines = mutants.summary([*outcomes, other], 5).splitlines()
        self.assertEqual(["", "store/A.cpp:7 (sign)", "- a + b", "+ a - b", "",
                          "store/A.cpp: 4 changes, 3 noticed (75.0 %); besides, 2 did not compile, 1 made the same"
                          " program",
                          "B.cpp: 1 changes, 1 noticed (100.0 %); besides, 0 did not compile, 0 made the same program"],
                         lines[:-1])
        self.assertEqual("5 changes, 4 noticed (80.0 %); besides, 2 did not compile, 1 made the same program and 5 are"
                         " known to make no difference", lines[-1])


PROJECT = {
    "CMakeLists.txt": "cmake_minimum_required(VERSION 3.25)\nproject(scratch CXX)\ninclude(CTest)\n"
                      "include_directories(${CMAKE_SOURCE_DIR})\n"
                      "add_subdirectory(shelf)\nadd_subdirectory(other)\nadd_subdirectory(tests)\n",
    "shelf/CMakeLists.txt": "add_library(shelf STATIC Count.cpp)\n",
    "shelf/Count.h": "#pragma once\nconstexpr int first = 0;\nint count(int upTo);\nint unused(int a, int b);\n"
                     "int lastAsked();\n",
    "shelf/Count.cpp": """\
#include "shelf/Count.h"

int count(int upTo)
{
    int sum = 0;
    for (int i = first; i < upTo; ++i)
        sum += i;
    return sum;
}

int unused(int a, int b)
{
    return a * b;
}

int lastAsked()
{
    return 4;
}
""",
    "other/CMakeLists.txt": "add_library(other STATIC Other.cpp)\ntarget_link_libraries(other PUBLIC shelf)\n",
    "other/Other.cpp": '#include "shelf/Count.h"\nint other()\n{\n    return lastAsked();\n}\n',
    "tests/CMakeLists.txt": "add_subdirectory(shelf)\nadd_subdirectory(other)\n",
    "tests/shelf/CMakeLists.txt": "add_executable(count_test count_test.cpp)\n"
                                  "target_link_libraries(count_test PRIVATE shelf)\n"
                                  "add_test(NAME count_test COMMAND count_test)\n",
    "tests/shelf/count_test.cpp": '#include "shelf/Count.h"\n'
                                  "int main()\n{\n"
                                  "    return count(4) == 6 && count(3) == 3 && first == 0 ? 0 : 1;\n}\n",
    "tests/other/CMakeLists.txt": "add_executable(other_test other_test.cpp)\n"
                                  "target_link_libraries(other_test PRIVATE other)\n"
                                  "add_test(NAME other_test COMMAND other_test)\n",
    "tests/other/other_test.cpp": "int other();\nint main()\n{\n    return other() == 4 ? 0 : 1;\n}\n",
    "tests/equivalent_mutants.txt": "shelf/Count.cpp\n- int sum = 0;\n+ int sum = 1;\n= Only so that one is listed.\n",
}


class WholeRun(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory(prefix="suisui-mutants-")
        self.addCleanup(place.cleanup)
        self.root = pathlib.Path(place.name) / "tree"
        for name, text in PROJECT.items():
            self.write(name, text)

    def write(self, name, text):
        (self.root / name).parent.mkdir(parents=True, exist_ok=True)
        (self.root / name).write_text(text, encoding="utf-8")

    def run_script(self, *options):
        return subprocess.run([sys.executable, "-B", str(SCRIPT), "--patience", "1", *options, str(self.root)],
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              encoding="utf-8", check=False, env={**os.environ, "CCACHE_DISABLE": "1"})

    def noted(self):
        return (self.root / "build/mutants/build/outcomes").read_text(encoding="utf-8").splitlines()

    def test_changes_are_noticed_or_listed_and_the_checkout_stays(self):
        done = self.run_script("--file", "shelf/Count.cpp")
        self.assertEqual(1, done.returncode, done.stdout)
        self.assertEqual("5 changes, 4 noticed (80.0 %); besides, 0 did not compile, 0 made the same program and 1 are"
                         " known to make no difference", done.stdout.splitlines()[-1], done.stdout)
        # Endless, or up to an overflow: noticed either way.
        self.assertIn("shelf/Count.cpp:6 sign: noticed by count_test", done.stdout)
        # The room's own test does not see this one; that of another room, which links it, does.
        self.assertIn("shelf/Count.cpp:18 constant: noticed by other_test", done.stdout)
        self.assertIn("shelf/Count.cpp:13 (sign)\n- return a * b;\n+ return a / b;\n", done.stdout)
        for name, text in PROJECT.items():
            self.assertEqual(text, (self.root / name).read_text(encoding="utf-8"), name)
            copied = self.root / "build" / "mutants" / name
            self.assertEqual(text, copied.read_text(encoding="utf-8"), name)

    def test_a_change_of_a_header_reaches_what_includes_it(self):
        done = self.run_script("--file", "shelf/Count.h")
        # The sum from 1 on is the same; that the test itself was compiled with the change is what it notices.
        self.assertIn("shelf/Count.h:2 constant: noticed by count_test", done.stdout)

    def test_what_compiles_to_the_same_program_does_not_count(self):
        self.write("shelf/Count.cpp", PROJECT["shelf/Count.cpp"].replace("return 4;", "return 4 + 0 * lastAsked();"))
        done = self.run_script("--file", "shelf/Count.cpp", "--own")
        self.assertIn("shelf/Count.cpp:18 sign: makes the same program\n", done.stdout)

    def test_a_change_that_does_not_compile_does_not_count(self):
        self.write("shelf/Count.cpp", PROJECT["shelf/Count.cpp"] + "\nstatic_assert(sizeof(char) == 1);\n")
        done = self.run_script("--file", "shelf/Count.cpp", "--own")
        self.assertIn("; besides, 2 did not compile, 0 made", done.stdout.splitlines()[-1])
        self.assertIn("shelf/Count.cpp:18 constant: NOT NOTICED\n", done.stdout)

    def test_a_run_goes_on_from_what_was_noted(self):
        first = self.run_script("--file", "shelf/Count.cpp", "--own")
        noted = self.noted()
        again = self.run_script("--file", "shelf/Count.cpp", "--own")
        self.assertEqual(first.stdout, again.stdout)
        self.assertEqual(noted, self.noted())
        # Another text of the test asks anew, and so does --fresh.
        self.write("tests/shelf/count_test.cpp", '#include "shelf/Count.h"\n'
                   "int main()\n{\n    return count(0);\n}\n")
        self.assertIn("\n5 changes, 0 noticed", self.run_script("--file", "shelf/Count.cpp", "--own").stdout)
        self.assertLess(len(noted), len(self.noted()))
        self.run_script("--file", "shelf/Count.cpp", "--own", "--sample", "1", "--fresh")
        self.assertLess(len(self.noted()), len(noted))

    def test_a_test_that_fails_without_a_change_ends_the_run(self):
        self.write("tests/shelf/count_test.cpp", '#include "shelf/Count.h"\n'
                   "int main()\n{\n    return count(4) == 6 ? 1 : 0;\n}\n")
        done = self.run_script("--room", "shelf")
        self.assertEqual(1, done.returncode)
        self.assertIn("count_test fails without a change", done.stdout)

    def test_a_seed_picks_the_same_sample_again(self):
        first, again, other = (self.run_script("--room", "shelf", "--list", "--sample", "3", "--seed", seed).stdout
                               for seed in ("5", "5", "6"))
        # Of three drawn from the source one is known to make no difference; the header has only one.
        self.assertTrue(first.endswith("\n3 changes\n"), first)
        self.assertEqual(first, again)
        self.assertNotEqual(first, other)

    def test_a_room_that_does_not_exist_is_named(self):
        done = self.run_script("--room", "shlef")
        self.assertEqual(1, done.returncode)
        self.assertIn("There is no source in shlef", done.stdout)


if __name__ == "__main__":
    unittest.main()

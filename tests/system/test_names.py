"""The check of the names of the tests finds what it is there to find, shown on made-up files."""

import pathlib
import unittest

import names_of_tests


def faults(name, text):
    return list(names_of_tests.faults(pathlib.Path(name), text))


class Names(unittest.TestCase):
    def test_sentences_of_clauses_are_allowed(self):
        self.assertEqual([], faults("A_test.cpp", "TEST(A, loads) {}\nTEST_F(A, twoRows_areStored_1By1) {}\n"
                                                  "TEST_P(A, shipmentBelowStock_showsBox_andIsStored) {}\n"))
        self.assertEqual([], faults("test_a.py", "    def test_codes_arrive_2_by_2(self):\n    def helper(self):\n"))

    def test_a_name_that_is_too_long_is_found_with_its_line(self):
        for name, text in [("A_test.cpp", "\nTEST(A, {})\n"), ("test_a.py", "\n    def {}(self):\n"),
                           ("CMakeLists.txt", "\nsuisui_test({} SOURCES a.cpp)\n"),
                           ("CMakeLists.txt", "\nadd_test(NAME {} A)\n")]:
            with self.subTest(name=name, text=text):
                test = "test" + "_abcd" * 11 + "_"
                self.assertEqual([], [each for each in faults(name, text.format(test + "abc"[:60 - len(test)]))
                                      if "characters, more" in each])
                found = faults(name, text.format(test + "abcdef"))
                self.assertTrue(found[0].startswith(f"{name}:2: {test}abcdef has 66 characters"), found)

    def test_a_clause_that_runs_on_is_found(self):
        self.assertEqual([], faults("A_test.cpp", f"TEST(A, a{'b' * 39}_c)"))
        self.assertIn("more than 40", faults("A_test.cpp", f"TEST(A, a{'b' * 40}_c)")[0])

    def test_another_style_is_found(self):
        for name in ("Loads", "rows_AreStored", "rows__areStored", "_rows", "rows_"):
            with self.subTest(name=name):
                self.assertEqual(1, len(faults("A_test.cpp", f"TEST_F(A, {name})")))
        for name in ("testLoads", "test_Loads", "test_a__b", "test_"):
            with self.subTest(name=name):
                self.assertEqual(1, len(faults("test_a.py", f"def {name}(self):")))


if __name__ == "__main__":
    unittest.main()

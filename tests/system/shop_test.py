"""What the whole-program tests are based on: a test case with a screen, a shop and a reader of its own.

The folder of the shop that each test starts from is named on the command line (--shop); pictures of the screen
go into the working folder whenever a test fails.
"""

import hashlib
import os
import pathlib
import sys
import tempfile
import time
import unittest

import desk
from desk import DeskError, wait_for  # what the tests use of it directly

__all__ = ["DeskError", "ShopTest", "main", "wait_for"]


class ShopTest(unittest.TestCase):
    """Before each test: a screen, a copy of the sample shop, a reader that the shop's settings name."""

    shop_folder = None

    def run(self, result=None):
        with desk.Screen() as self.screen, desk.Reader() as self.reader, \
                tempfile.TemporaryDirectory(prefix="suisui-shop-") as folder:
            self.shop = desk.Shop(self.shop_folder).copy_to(pathlib.Path(folder) / "app")
            self.shop.use_reader(self.reader.device)
            self._programs, self._sessions = [], []
            faults = len(result.failures) + len(result.errors)
            super().run(result)
            if len(result.failures) + len(result.errors) > faults:
                picture = pathlib.Path.cwd() / f"{self.id()}.png"
                self.screen.picture(picture)
                print(f"{self.id()}: screen in {picture}", file=sys.stderr)
                for program in self._programs:
                    print(f"the program said: {program.said()}", file=sys.stderr)
            for program in self._programs:
                program.__exit__()
            for session in self._sessions:
                session.close()
        return result

    def start(self):
        """Starts the program and returns at once."""
        program = desk.Program(self.shop, self.screen)
        self._programs.append(program)
        return program

    def open(self):
        """Starts the program and waits until it is ready for work."""
        program = self.start()
        self.wait_ready(program)
        return program

    def wait_ready(self, program):
        self.screen.wait_active(desk.MAIN_WINDOW)
        program.wait_idle()

    def close_window(self):
        """Closes the window through the window manager, as a click on its close box does. A busy window ignores that,
        so it is closed at rest."""
        self.screen.wait_active(desk.MAIN_WINDOW)
        for program in self._programs:
            program.wait_idle()
        self.screen.press("alt+F4")

    def end(self, program):
        """Closes the window and confirms the end; the run must have been without errors."""
        self.close_window()
        self.screen.answer(desk.END_DIALOG)
        self.assertEqual(0, program.ended())
        self.assertEqual("", program.said())

    def assertWhole(self):
        """Checks the database: integrity, encodings and the stock of every code."""
        verdict = self.shop.tagdb("check")
        self.assertEqual(0, verdict.returncode, verdict.stdout)

    def receipts(self, *columns):
        """Receipts in the order in which they were stored."""
        return self.shop.rows(f"SELECT {', '.join(columns)} FROM InpTB ORDER BY rowid")

    def wait_receipts(self, count):
        """Waits until the receipts are stored and the last scan is over, which is in a later second than it began."""
        wait_for(f"{count} receipts in the database", lambda: self.shop.count("InpTB") >= count)
        self.assertEqual(count, self.shop.count("InpTB"))
        self.wait_next_second("InpTB")

    def wait_next_second(self, table):
        """Waits until the second of the last scan is over."""
        desk.wait_past(self.shop.rows(f"SELECT max(InpDate) FROM {table}")[0][0])

    def add_receipts(self, count):
        """Empty receipts of today, stored before the program starts."""
        known = self.plain_codes(1)[0]
        self.shop.add("InpTB", [{"Code": known, "NyuSuu": "0000000", "NyuPrice": "0000000", "NyuNebiki": "0000000",
                                 "Henkyaku": "0000000", "NyuDate": self.today(), "NyuTime": "000000",
                                 "InpDate": f"{i:014d}", "UpdDate": f"{i:014d}"} for i in range(count)])

    def plain_codes(self, count):
        """Codes of goods that are not made of others."""
        codes = [code for code, in self.shop.rows(
            "SELECT Code FROM Master WHERE Code NOT IN (SELECT Code FROM HSeihinTB) ORDER BY Code LIMIT ?", count)]
        self.assertEqual(count, len(codes))
        return codes

    def data_files(self):
        """Fingerprints of all that is in the folders of the databases."""
        return {file.name: hashlib.sha256(file.read_bytes()).hexdigest()
                for folder in ("DB", "db") for file in (self.shop.folder / folder).iterdir() if file.is_file()}

    @staticmethod
    def today():
        return time.strftime("%Y%m%d")


def main():
    """Takes --shop FOLDER off the command line and runs the tests of the calling module."""
    place = sys.argv.index("--shop")
    ShopTest.shop_folder = pathlib.Path(os.path.abspath(sys.argv[place + 1]))
    del sys.argv[place:place + 2]
    unittest.main(verbosity=2)

"""A database that cannot be opened: one box, an orderly end, and the file as it was."""

import subprocess
import sys

import desk
from shop_test import ShopTest, main

NO_DATABASE_BOX = "データベースがありません"

# Holds the database named on its command line until its input ends.
HOLDER = """
import sqlite3, sys
link = sqlite3.connect(sys.argv[1])
link.execute("BEGIN EXCLUSIVE")
print("held", flush=True)
sys.stdin.read()
link.rollback()
"""


class DatabaseFaults(ShopTest):
    def assert_declined(self):
        """The program shows the box, ends in order, and has changed nothing."""
        before = self.data_files()
        program = self.start()
        self.screen.answer(NO_DATABASE_BOX)
        self.assertEqual(0, program.ended())
        self.assertEqual("", program.said())
        self.assertNotIn(desk.MAIN_WINDOW, self.screen.titles())
        self.assertEqual(before, self.data_files())

    def test_missing(self):
        self.shop.database.unlink()
        self.assert_declined()
        self.assertFalse(self.shop.database.exists())

    def test_a_folder_in_its_place(self):
        self.shop.database.unlink()
        self.shop.database.mkdir()
        self.assert_declined()

    def test_cut_off_in_the_middle(self):
        whole = self.shop.database.read_bytes()
        self.shop.database.write_bytes(whole[:len(whole) // 2])
        self.assert_declined()

    def test_cut_off_within_its_first_page(self):
        self.shop.database.write_bytes(self.shop.database.read_bytes()[:60])
        self.assert_declined()

    def test_no_database_at_all(self):
        self.shop.database.write_bytes(b"PK\x03\x04" + bytes(range(256)) * 40)
        self.assert_declined()

    def test_an_empty_file(self):
        self.shop.database.write_bytes(b"")
        self.assert_declined()

    def test_the_database_of_another_program(self):
        self.shop.database.unlink()
        self.shop.change("CREATE TABLE Songs (Title TEXT)", [[]])
        self.assert_declined()

    def test_a_database_of_a_later_version(self):
        self.shop.change("PRAGMA user_version = 9999", [[]])
        self.assert_declined()

    def test_held_by_another_process(self):
        # Really another process: a lock of this one would be lost as soon as it reads the file.
        holder = subprocess.Popen([sys.executable, "-c", HOLDER, str(self.shop.database)],
                                  stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        try:
            self.assertEqual(b"held\n", holder.stdout.readline())
            self.assert_declined()
        finally:
            holder.communicate()
        self.end(self.open())
        self.assertWhole()


if __name__ == "__main__":
    main()

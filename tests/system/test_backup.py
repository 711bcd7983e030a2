"""Copies of the database while the program books, and runs of the data tool that are killed in the middle."""

import os
import random
import resource
import sqlite3
import subprocess
import sys
import time

from shop_test import ShopTest, main, wait_for

COPIES = 3
KILLS = 12
DATABASE_ERROR_BOX = "データベースエラー"


class Backup(ShopTest):
    def backup_files(self):
        folder = self.shop.folder / "backup"
        return sorted(file.name for file in folder.iterdir()) if folder.is_dir() else []

    def copies(self):
        return [name for name in self.backup_files() if name.endswith(".mdb")]

    def rows_of(self, copy, sql):
        link = sqlite3.connect(f"file:{self.shop.folder}/backup/{copy}?mode=ro", uri=True)
        try:
            return link.execute(sql).fetchall()
        finally:
            link.close()

    def assertVerified(self):
        listed = self.shop.tagdb("backup", "--list")
        self.assertEqual(0, listed.returncode, listed.stdout)
        for name in self.copies():
            self.assertRegex(listed.stdout, rf"{name}  \d+ bytes  verified, \d+ stock figures")

    def test_copies_during_receipts_are_verified_and_no_scan_is_lost(self):
        program = self.open()
        codes = self.plain_codes(2)
        scans = 0
        for _ in range(COPIES):
            for code in codes:
                self.reader.scan(code)
                scans += 1
            before = self.shop.count("InpTB")
            made = self.shop.tagdb("backup")
            self.assertEqual(0, made.returncode, made.stdout)
            copy = made.stdout.split()[0].rpartition("/")[2]
            held = self.rows_of(copy, "SELECT count(*) FROM InpTB")[0][0]
            self.assertLessEqual(before, held)
            self.assertLessEqual(held, scans)
        self.wait_receipts(scans)
        self.assertEqual(COPIES, len(self.copies()))
        self.assertVerified()
        self.end(program)
        self.assertWhole()

    def test_restore_waits_for_the_end_and_brings_the_day_back(self):
        program = self.open()
        code = self.plain_codes(1)[0]
        self.reader.scan(code)
        self.wait_receipts(1)
        self.assertEqual(0, self.shop.tagdb("backup").returncode)
        copy = self.copies()[0]
        then = self.receipts("Code", "InpDate")
        self.reader.scan(code)
        self.wait_receipts(2)
        refused = self.shop.tagdb("restore", copy)
        self.assertEqual(2, refused.returncode)
        self.assertIn("the program runs", refused.stdout)
        self.assertEqual(2, self.shop.count("InpTB"))
        self.end(program)
        done = self.shop.tagdb("restore", copy)
        self.assertEqual(0, done.returncode, done.stdout)
        self.assertEqual(then, self.receipts("Code", "InpDate"))
        kept = [name for name in self.copies() if "-replaced" in name]
        self.assertEqual([(2,)], self.rows_of(kept[0], "SELECT count(*) FROM InpTB"))
        self.assertVerified()
        self.end(self.open())

    def test_wrong_use_is_reported_and_changes_nothing(self):
        database = self.data_files()
        for words in (("backup", "--keep", "0"), ("backup", "--keep", "many"), ("backup", "here"), ("restore",),
                      ("restore", "none.mdb"), ("import", "none.mdb"), ("backup", "--to", str(self.shop.database)),
                      ("backup", "--kep", "3"), ("--nothing",), ("nothing",), (),
                      ("export", "TantouTB", str(self.shop.database), "--force")):
            verdict = self.shop.tagdb(*words)
            self.assertEqual(2, verdict.returncode, verdict.stdout)
            self.assertTrue(verdict.stdout)
        self.assertEqual(1, self.shop.tagdb("backup", "--list").returncode)
        self.assertEqual([], self.backup_files())
        self.assertEqual(database, self.data_files())

    def test_whatever_the_umask_only_the_owner_can_read_what_is_made(self):
        base = self.shop.folder.parent / "another" / "shop"
        previous = os.umask(0)
        try:
            for words in (("create",), ("sample",), ("backup",), ("export", "KokyakuTB", str(base.parent / "k.csv")),
                          ("forms", str(base.parent / "forms"))):
                done = subprocess.run([str(self.shop.folder / "tagdb"), "--base", str(base), *words], check=False,
                                      stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8")
                self.assertEqual(0, done.returncode, done.stdout)
            program = self.open()
            self.end(program)
        finally:
            os.umask(previous)
        made = [base, *base.parent.rglob("*"), self.shop.folder / "Ini" / "AppEnv.ini", self.shop.database]
        made += [self.shop.folder / name for name in ("DB", "db", "Ini", "exe")]
        self.assertGreater(len(made), 14)
        for file in made:
            self.assertEqual(0o700 if file.is_dir() else 0o600, file.stat().st_mode & 0o777, file)

    def test_where_no_file_may_grow_a_box_is_shown_and_nothing_lost(self):
        stored = resource.getrlimit(resource.RLIMIT_FSIZE)
        resource.setrlimit(resource.RLIMIT_FSIZE, (8192, stored[1]))
        try:
            program = self.start()
        finally:
            resource.setrlimit(resource.RLIMIT_FSIZE, stored)
        self.wait_ready(program)
        self.reader.scan(self.plain_codes(1)[0])
        self.screen.wait_active(DATABASE_ERROR_BOX)
        self.assertTrue(program.running())
        self.assertEqual(0, self.shop.count("InpTB"))
        self.assertWhole()

    def test_the_tool_speaks_the_language_of_the_session(self):
        def said(*words, **locale):
            environment = {name: value for name, value in os.environ.items() if not name.startswith(("LC_", "LANG"))}
            return subprocess.run([str(self.shop.folder / "tagdb"), "--base", str(self.shop.folder), *words],
                                  env={**environment, **locale}, check=False, stdout=subprocess.PIPE,
                                  stderr=subprocess.PIPE, encoding="utf-8")

        japanese = {"LANG": "ja_JP.UTF-8", "LC_CTYPE": "C.UTF-8"}
        self.assertEqual("異常はありません\n", said("check", **japanese).stdout)
        self.assertEqual("all is well\n", said("check", LANG="C.UTF-8").stdout)
        helped = said("--help", **japanese)
        self.assertEqual(0, helped.returncode)
        self.assertIn("オプション", helped.stdout)
        self.assertIn("写しと、検証済みかどうかを一覧する", helped.stdout)
        self.assertNotRegex(helped.stdout, "Usage|Options|Displays|folder")
        wrong = said("--nothing", **japanese)
        self.assertEqual(2, wrong.returncode)
        self.assertIn("このようなオプションはありません：nothing", wrong.stderr)
        wrong = said("check", "--to", **japanese)
        self.assertEqual(2, wrong.returncode)
        self.assertIn("オプションが正しくありません", wrong.stderr)

    def test_without_room_no_copy_is_left_and_a_restore_is_undone(self):
        self.assertEqual(0, self.shop.tagdb("backup").returncode)
        copy = self.copies()[0]
        database = self.data_files()
        for words in (("backup",), ("restore", copy)):
            run = subprocess.run([str(self.shop.folder / "tagdb"), "--base", str(self.shop.folder), *words], check=False,
                                 capture_output=True, encoding="utf-8",  # SIGXFSZ as a session has it
                                 preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (20000, 20000)))
            self.assertEqual(2, run.returncode, run.stderr)
            self.assertTrue(run.stderr)
            self.assertEqual([copy, f"{copy}.proof"], self.backup_files())
            self.assertEqual(database, self.data_files())

    def test_a_backup_killed_at_any_instant_leaves_no_half_copy(self):
        seed = int(os.environ.get("SEED", time.time_ns() % 1_000_000))
        print(f"SEED={seed}")
        chance = random.Random(seed)
        self.shop.add("InpTB", [{"Code": f"K{i}", "NyuSuu": "0000001", "NyuPrice": "0000000", "NyuNebiki": "0000000",
                                 "Henkyaku": "0000000", "NyuDate": "20260401", "NyuTime": "090000", "Bikou": "x" * 60,
                                 "InpDate": f"{20260401000000 + i}", "UpdDate": f"{20260401000000 + i}"}
                                for i in range(20000)])
        command = [str(self.shop.folder / "tagdb"), "--base", str(self.shop.folder), "backup", "--keep", "100"]
        whole = time.monotonic()
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
        whole = time.monotonic() - whole
        database = self.data_files()
        for _ in range(KILLS):
            with subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as run:
                time.sleep(chance.uniform(0.0, whole))  # the random instant itself
                run.kill()
                run.wait()
            self.assertVerified()
            for name in self.copies():
                self.assertEqual([("ok",)], self.rows_of(name, "PRAGMA integrity_check"))
                self.assertEqual([(20000,)], self.rows_of(name, "SELECT count(*) FROM InpTB"))
        self.assertEqual(database, self.data_files())
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
        self.assertEqual([], [name for name in self.backup_files() if name.endswith(".part")])
        self.assertEqual(self.backup_files(), sorted({*self.copies(), *(f"{name}.proof" for name in self.copies())}))

    def test_a_backup_after_a_killed_writer_holds_whole_units_only(self):
        writer = f"""
import os, signal, sqlite3
link = sqlite3.connect({str(self.shop.database)!r}, isolation_level=None)
link.execute("PRAGMA cache_size=4")
link.execute("BEGIN IMMEDIATE")
link.execute("UPDATE TantouTB SET Name = 'half'")
link.executemany("INSERT INTO InpTB (Code, InpDate, Bikou) VALUES ('H', ?, ?)",
                 ((str(i), "x" * 200) for i in range(5000)))
os.kill(os.getpid(), signal.SIGKILL)
"""
        before = self.shop.rows("SELECT Code, Name FROM TantouTB ORDER BY Code")
        subprocess.run([sys.executable, "-c", writer], check=False)
        journal = self.shop.database.with_name("trnvik.mdb-journal")
        self.assertGreater(journal.stat().st_size, 512, "the writer left its half in the file")
        made = self.shop.tagdb("backup")
        self.assertEqual(0, made.returncode, made.stdout)
        self.assertVerified()
        copy, = self.copies()
        self.assertEqual(before, self.rows_of(copy, "SELECT Code, Name FROM TantouTB ORDER BY Code"))
        self.assertEqual([(0,)], self.rows_of(copy, "SELECT count(*) FROM InpTB"))
        self.assertWhole()

    def test_a_restore_killed_at_any_instant_leaves_one_or_the_other(self):
        seed = int(os.environ.get("SEED", time.time_ns() % 1_000_000))
        print(f"SEED={seed}")
        chance = random.Random(seed)
        subprocess.run([str(self.shop.folder / "tagdb"), "--base", str(self.shop.folder), "backup"], check=True,
                       stdout=subprocess.DEVNULL)
        copy = self.copies()[0]
        self.shop.change("UPDATE TantouTB SET Name = ?", [("新しい",)])
        states = {self.rows_of(copy, "SELECT group_concat(Name) FROM TantouTB")[0][0],
                  self.shop.rows("SELECT group_concat(Name) FROM TantouTB")[0][0]}
        self.assertEqual(2, len(states))
        command = [str(self.shop.folder / "tagdb"), "--base", str(self.shop.folder), "restore", copy]
        for _ in range(KILLS):
            with subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as run:
                time.sleep(chance.uniform(0.0, 0.2))  # the random instant itself
                run.kill()
                run.wait()
            self.assertIn(self.shop.rows("SELECT group_concat(Name) FROM TantouTB")[0][0], states)
            self.assertWhole()
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL)  # undisturbed
        self.assertEqual(["trnvik.mdb"], sorted(name for name in os.listdir(self.shop.folder / "DB")))
        self.assertVerified()


if __name__ == "__main__":
    main()

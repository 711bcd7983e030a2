"""The package on the computer of somebody who never had the program."""

import pathlib
import sqlite3
import subprocess
import tempfile

import desk
from day_first_start import wait_started
from desk import wait_for
from packaged import Packaged, main

FIRST_START = "すいすいＴＡＧ"
NO_PARTNERS_BOX = "入荷先の未登録エラー"


class FirstStart(Packaged):
    """The unpacked starter, on a screen of its own, with a home where nothing has been yet."""

    def run(self, result=None):
        with desk.Screen() as self.screen, tempfile.TemporaryDirectory(prefix="suisui-home-") as home:
            self.home = pathlib.Path(home)
            self.data = self.home / ".local" / "share" / "suisuitag"
            self.database = self.data / "DB" / "trnvik.mdb"
            self.screen.environment["HOME"] = home
            self.screen.environment.pop("XDG_DATA_HOME", None)
            self._started = []
            faults = 0 if result is None else len(result.failures) + len(result.errors)
            super().run(result)
            if result is not None and len(result.failures) + len(result.errors) > faults:
                self.screen.picture(pathlib.Path.cwd() / f"{self.id()}.png")
            for process in self._started:
                if process.poll() is None:
                    process.kill()
                process.wait()
        return result

    def start(self, *words, **more):
        process = subprocess.Popen([str(self.root / "usr/bin/suisuitag-start"), *words], cwd="/",
                                   env={**self.screen.environment, **more}, stdin=subprocess.DEVNULL)
        self._started.append(process)
        return process

    def ended(self, process):
        wait_for("the program has ended", lambda: process.poll() is not None)
        return process.returncode

    def work_and_end(self, process):
        """Goes through the start of the program itself to its orderly end."""
        wait_started(self.screen, process.pid)
        name = pathlib.Path(f"/proc/{process.pid}/exe").resolve()
        self.assertEqual(self.root / "usr/bin/suisuitag", name)
        self.screen.press("alt+F4")
        self.screen.answer(desk.END_DIALOG)
        self.assertEqual(0, self.ended(process))

    def answer_until_ended(self, process):
        def step():
            if process.poll() is None and self.screen.active_title():
                self.screen.press("Return")
            return process.poll() is not None

        wait_for("the program has ended", step)

    def goods(self):
        link = sqlite3.connect(f"file:{self.database}?mode=ro", uri=True)
        try:
            return link.execute("SELECT count(*) FROM Master").fetchone()[0]
        finally:
            link.close()

    def assertShopReady(self):
        self.assertTrue((self.data / "db" / "trnorg.mdb").is_file())
        for name in ("AppEnv", "AppIni", "SlipIni", "TrnPrint"):
            self.assertTrue((self.data / "Ini" / f"{name}.ini").is_file(), name)
        self.assertEqual([], list(self.data.glob("first-*")), "nothing is left of the making")
        checked = subprocess.run([str(self.root / "usr/bin/tagdb"), "check"], env=self.screen.environment,
                                 check=False, stdout=subprocess.PIPE, encoding="utf-8")
        self.assertEqual(0, checked.returncode, checked.stdout)

    @property
    def forms(self):
        return self.home / "Documents" / FIRST_START

    def fill_forms(self, price="100"):
        for name, rows in (("担当者", ["01,山田"]), ("取引先", ["101,青果市場,1,", "201,みどり食堂,,1"]),
                           ("商品", [f"4901234567894,りんご,個,10,{price},1,150,5"])):
            form = self.forms / f"{name}.csv"
            form.write_text(form.read_text(encoding="utf-8").splitlines()[0] + "\n" + "\n".join(rows) + "\n",
                            encoding="utf-8")

    def answer_forms(self, key, picture=None):
        """Answers the next box of the starter, once its buttons take keys."""
        self.screen.answer(FIRST_START, key, picture=picture)

    def test_a_new_user_may_begin_empty_and_fills_in_forms(self):
        process = self.start()
        self.screen.answer(FIRST_START, "alt+e", picture=pathlib.Path.cwd() / "first-start.png")
        wait_for("the forms", lambda: len(list(self.forms.glob("*.csv"))) == 4)
        self.fill_forms(price="時価")
        self.answer_forms("alt+i", picture=pathlib.Path.cwd() / "first-forms.png")
        self.answer_forms("Return", picture=pathlib.Path.cwd() / "first-faults.png")
        self.assertEqual(0, self.goods())
        self.fill_forms()
        self.answer_forms("alt+i")
        self.answer_forms("Return", picture=pathlib.Path.cwd() / "first-taken.png")
        self.work_and_end(process)
        self.assertEqual(1, self.goods())
        self.assertShopReady()
        self.work_and_end(self.start())  # and from now on it asks for nothing

    def test_who_leaves_the_forms_for_later_is_asked_again(self):
        process = self.start()
        self.screen.answer(FIRST_START, "alt+e")
        self.answer_forms("alt+q")
        self.assertEqual(0, self.ended(process))
        self.assertShopReady()
        self.assertEqual(["取引先.csv", "商品.csv", "担当者.csv", "部品.csv"],
                         sorted(file.name for file in self.forms.iterdir()))
        self.fill_forms()
        process = self.start()
        self.answer_forms("alt+i")
        self.answer_forms("Return")
        self.work_and_end(process)
        self.assertEqual(1, self.goods())

    def test_beside_a_master_program_an_empty_database_is_left_to_it(self):
        self.assertEqual(0, subprocess.run([str(self.root / "usr/bin/tagdb"), "create"], check=False,
                                           env=self.screen.environment, stdout=subprocess.DEVNULL).returncode)
        (self.data / "exe").mkdir()
        (self.data / "exe" / "Master.exe").write_text("#!/bin/sh\n", encoding="ascii")
        process = self.start()
        self.screen.wait_active(NO_PARTNERS_BOX)
        self.answer_until_ended(process)
        self.assertFalse(self.forms.exists())

    def test_the_menu_offers_forms_filled_with_what_is_there(self):
        for command in ("create", "sample"):
            subprocess.run([str(self.root / "usr/bin/tagdb"), command], env=self.screen.environment, check=True,
                           stdout=subprocess.DEVNULL)
        goods = self.goods()
        process = self.start("--forms")
        wait_for("the forms", lambda: (self.forms / "部品.csv").is_file())
        form = self.forms / "商品.csv"
        self.assertEqual(1 + goods, len(form.read_text(encoding="utf-8").splitlines()))
        with form.open("a", encoding="utf-8") as file:
            file.write("4999999999996,なし,個,1,80,1,120,0\n")
        self.answer_forms("alt+i", picture=pathlib.Path.cwd() / "more-forms.png")
        self.answer_forms("Return")
        wait_started(self.screen, process.pid)
        second = self.start("--forms")
        self.answer_forms("Return")  # the program runs; it says so
        self.assertEqual(2, self.ended(second))
        self.work_and_end(process)
        self.assertEqual(goods + 1, self.goods())

    def test_a_new_user_may_begin_with_the_sample_shop(self):
        process = self.start()
        self.screen.answer(FIRST_START, "alt+s")
        self.work_and_end(process)
        self.assertGreater(self.goods(), 0)
        self.assertShopReady()

    def test_a_fault_of_a_foreign_form_is_reported_in_japanese(self):
        for command in ("create", "sample"):
            subprocess.run([str(self.root / "usr/bin/tagdb"), command], env=self.screen.environment, check=True,
                           stdout=subprocess.DEVNULL)
        goods = self.goods()
        process = self.start("--forms")
        wait_for("the forms", lambda: (self.forms / "部品.csv").is_file())
        staff, partners = self.forms / "担当者.csv", self.forms / "取引先.csv"
        staff.write_bytes(staff.read_bytes().replace(b"\r\n", b"\r"))
        partners.write_text(partners.read_text(encoding="utf-8") + '999,"青果市場,1,\n', encoding="utf-8")
        self.answer_forms("alt+i")
        self.answer_forms("Return", picture=pathlib.Path.cwd() / "broken-forms.png")
        self.answer_forms("alt+q")
        self.assertEqual(0, self.ended(process))
        self.assertEqual(goods, self.goods())

    def test_the_starter_names_another_folder_to_the_daily_backup(self):
        elsewhere = self.home / 'my "50 %" data'
        settings = self.home / ".config/systemd/user/suisuitag-backup.service.d/folder.conf"
        process = self.start(XDG_DATA_HOME=str(elsewhere), XDG_CONFIG_HOME=str(self.home / ".config"))
        self.screen.answer(FIRST_START, "alt+s")
        self.work_and_end(process)
        escaped = str(elsewhere).replace('"', '\\"').replace("%", "%%")
        self.assertEqual(f'[Service]\nEnvironment="XDG_DATA_HOME={escaped}"\n', settings.read_text(encoding="utf-8"))
        self.assertTrue((elsewhere / "suisuitag/DB/trnvik.mdb").is_file())
        self.assertEqual(0o700, (elsewhere / "suisuitag").stat().st_mode & 0o777)
        process = self.start(XDG_CONFIG_HOME=str(self.home / ".config"))
        self.screen.answer(FIRST_START, "alt+s")
        self.work_and_end(process)
        self.assertFalse(settings.exists(), "the usual folder needs no name")

    def test_leaving_the_choice_makes_nothing(self):
        for key in ("alt+q", "Escape"):
            process = self.start()
            self.screen.answer(FIRST_START, key)
            self.assertEqual(0, self.ended(process))
            self.assertFalse(self.data.exists())

    def test_who_has_a_database_is_asked_nothing_and_keeps_it(self):
        for command in ("create", "sample"):
            subprocess.run([str(self.root / "usr/bin/tagdb"), command], env=self.screen.environment, check=True,
                           stdout=subprocess.DEVNULL)
        settings = self.data / "Ini" / "AppIni.ini"
        settings.parent.mkdir()
        settings.write_text("; a customer's own\n", encoding="utf-8")
        before = self.database.read_bytes()
        self.work_and_end(self.start())
        self.assertEqual(before, self.database.read_bytes())
        self.assertEqual("; a customer's own\n", settings.read_text(encoding="utf-8"))

    def test_an_unwritable_place_is_reported_and_nothing_starts(self):
        (self.home / ".local").write_text("in the way", encoding="ascii")
        process = self.start()
        self.screen.answer(FIRST_START, "alt+s")
        self.screen.answer(FIRST_START)  # the complaint
        self.assertEqual(2, self.ended(process))
        self.assertNotIn(desk.MAIN_WINDOW, self.screen.titles())


if __name__ == "__main__":
    main()

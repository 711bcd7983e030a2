"""A period leaves the working database for a file of its own and comes back, by hand and by reader."""

import os
import sqlite3

from shop_test import ShopTest, main, wait_for

EXTENSION_DIALOG = " 履歴ファイルの拡張子"
PERIOD_DIALOG = " 履歴の保存"
FILE_DIALOG = " ファイルの選択"
CONFIRMATION = "決定の確認"
SAVED = "保存の完了"
LOADED = "読込の完了"
NOTHING_SAVED = " 履歴の未保存"


class History(ShopTest):
    def setUp(self):
        self.old = self.shop.folder / "old"
        self.old.mkdir()
        settings = self.shop.folder / "Ini" / "AppIni.ini"
        settings.write_text(settings.read_text(encoding="utf-8") + f"\n[Folder]\nLastHistory={self.old}\n",
                            encoding="utf-8")

    def book(self, days):
        """A receipt and a shipment on each of these days, with the stock that they make."""
        code = self.plain_codes(1)[0]
        for number, day in enumerate(days):
            stamp = f"{day}{90000 + number:06d}"
            both = {"Code": code, "Name": "品", "Unit": "個", "TanCD": "01", "TanName": "山田", "InpDate": stamp,
                    "UpdDate": stamp}
            self.shop.add("InpTB", {**both, "NyuSuu": "0000005", "NyuPrice": "0000100", "NyuDate": day,
                                    "NyuTime": "090000", "NyuNebiki": "0000000", "Henkyaku": "0000001"})
            self.shop.add("OutTB", {**both, "SyuSuu": "0000002", "SyuPrice": "0000150", "SyuDate": day,
                                    "SyuTime": "100000", "SyuNebiki": "0000000", "RHenkyaku": "0000000",
                                    "FHenkyaku": "0000000"})
        self.shop.add("ZaikoTB", {"Code": code, "ZaikoSuu": str(2 * len(days)), "KuriSuu": "0",
                                  "InpDate": "20260101000000", "UpdDate": "20260101000000"})

    def movements(self):
        return self.shop.rows("SELECT * FROM InpTB ORDER BY InpDate") + self.shop.rows(
            "SELECT * FROM OutTB ORDER BY InpDate")

    def books(self):
        return (self.movements(), self.shop.rows("SELECT * FROM RirekiTB ORDER BY 1"),
                self.shop.rows("SELECT Code, ZaikoSuu FROM ZaikoTB ORDER BY 1"))

    def save_by_reader(self, *dates, extension=None):
        """From the button to the completion; dates are typed where given."""
        self.reader.scan("[Q]")
        if extension:
            self.screen.wait_active(EXTENSION_DIALOG)
            self.screen.type(extension + "\n\n")  # Enter moves to the button, Enter presses it
        self.screen.wait_active(PERIOD_DIALOG)
        if dates:
            self.screen.type("".join(f"{date[:4]}\n{date[4:6]}\n{date[6:]}\n" for date in dates) + "\n")
        else:
            self.reader.scan("[P]")
        self.screen.wait_active(FILE_DIALOG)
        self.reader.scan("[P]")
        self.screen.answer(CONFIRMATION)
        self.screen.answer(SAVED)

    def test_a_period_goes_and_comes_back(self):
        self.book(["20260110", "20260120", "20260210"])
        before = self.movements()
        stock = self.shop.stock()
        program = self.open()
        self.save_by_reader("20260101", "20260131", extension="hst")

        file = self.old / "RRK20260101-20260131.hst"
        self.assertEqual([file], list(self.old.iterdir()))
        self.assertEqual((1, 1), (self.shop.count("InpTB"), self.shop.count("OutTB")))
        self.assertEqual(stock, self.shop.stock())
        self.assertEqual([("20260101", "20260131", "hst", str(file.stat().st_size))], self.shop.rows(
            "SELECT DateFrom, DateTo, KakuTyo, FileSize FROM RirekiTB WHERE DateFrom <> 'Trn'"))
        archive = sqlite3.connect(f"file:{file}?mode=ro", uri=True)
        self.assertEqual([("ok",)], archive.execute("PRAGMA integrity_check").fetchall())
        self.assertEqual([(2, 2)], archive.execute(
            "SELECT (SELECT count(*) FROM InpTB), (SELECT count(*) FROM OutTB)").fetchall())
        archive.close()
        self.assertWhole()

        self.reader.scan("[S]")
        self.screen.wait_active(FILE_DIALOG)
        program.wait_idle()
        self.screen.press("Home", "Return")  # the only file there is
        self.screen.answer(CONFIRMATION)
        self.screen.answer(LOADED)
        self.assertEqual(before, self.movements())
        self.assertEqual(stock, self.shop.stock())
        self.assertEqual([], list(self.old.iterdir()))
        self.assertWhole()
        self.reader.scan("[S]")
        self.screen.answer(NOTHING_SAVED)
        self.wait_ready(program)
        self.end(program)
        self.assertEqual(str(self.old), self.shop.settings("AppIni.ini")["Folder", "LastHistory"])

    def test_work_goes_on_between_save_and_load(self):
        self.book(["20260110"])
        program = self.open()
        self.save_by_reader("20260110", "20260110", extension="hst")
        known = self.plain_codes(1)[0]
        self.reader.scan(known)
        self.wait_receipts(1)
        program.wait_idle()
        self.reader.scan("[S]")
        self.screen.wait_active(FILE_DIALOG)
        self.screen.press("Home", "Return")
        self.screen.answer(CONFIRMATION)
        self.screen.answer(LOADED)
        self.assertEqual(2, self.shop.count("InpTB"))
        self.end(program)
        self.assertWhole()

    def test_every_question_can_be_declined(self):
        self.book(["20260110"])
        program = self.open()
        before = self.books()
        self.reader.scan("[Q]")
        self.screen.wait_active(EXTENSION_DIALOG)
        self.reader.scan("[T]")
        self.wait_ready(program)
        self.assertEqual(before, self.books())
        self.reader.scan("[Q]")
        self.screen.wait_active(EXTENSION_DIALOG)
        self.screen.type("hst\n\n")
        self.screen.wait_active(PERIOD_DIALOG)
        self.screen.press("Escape")
        self.wait_ready(program)
        self.reader.scan("[Q]")  # the extension is pending, and not asked for again
        self.screen.wait_active(PERIOD_DIALOG)
        self.screen.type("2026\n01\n01\n2026\n01\n31\n\n")
        self.screen.wait_active(FILE_DIALOG)
        self.reader.scan("[T]")
        self.wait_ready(program)
        self.assertEqual(before, self.books())
        self.assertEqual([], list(self.old.iterdir()))
        self.end(program)

    def test_killed_while_it_saves_a_year(self):
        rows = 8000
        day = [f"2026{1 + n * 12 // rows:02d}{1 + n % 28:02d}" for n in range(rows)]
        code = self.plain_codes(1)[0]
        self.shop.add("InpTB", [{"Code": code, "Name": "品", "NyuSuu": "0000001", "NyuPrice": "0000100",
                                 "NyuDate": day[n], "NyuTime": "090000", "NyuNebiki": "0000000",
                                 "Henkyaku": "0000000", "InpDate": f"{n:014d}", "UpdDate": f"{n:014d}"}
                                for n in range(rows)])
        self.shop.add("ZaikoTB", {"Code": code, "ZaikoSuu": str(rows), "KuriSuu": "0", "InpDate": "20260101000000",
                                  "UpdDate": "20260101000000"})
        program = self.open()
        self.reader.scan("[Q]")
        self.screen.wait_active(EXTENSION_DIALOG)
        self.screen.type("hst\n\n")
        self.screen.wait_active(PERIOD_DIALOG)
        self.screen.type("2026\n01\n01\n2026\n12\n31\n\n")
        self.screen.wait_active(FILE_DIALOG)
        self.reader.scan("[P]")
        self.screen.wait_active(CONFIRMATION)
        self.screen.press("Return")
        wait_for("the save has begun", lambda: list(self.old.iterdir()))
        os.kill(program.pid, 9)
        self.assertEqual(-9, program.ended())
        listed = self.shop.rows("SELECT 1 FROM RirekiTB WHERE DateFrom = '20260101'")
        there = self.shop.count("InpTB")
        self.assertIn((len(listed), there), [(0, rows), (1, 0)])
        self.assertWhole()
        # The next start ends what the killed run has left: the file gets its name, or goes.
        self.reader.forget()
        program = self.open()
        if not listed:
            self.assertEqual([], list(self.old.iterdir()))
            self.save_by_reader("20260101", "20261231", extension="hst")
        self.end(program)
        self.assertEqual(0, self.shop.count("InpTB"))
        self.assertEqual(["RRK20260101-20261231.hst"], [file.name for file in self.old.iterdir()])


if __name__ == "__main__":
    main()

"""The list reports from the button to the PDF, with the platform's own print dialog."""

import subprocess
import time

import day_reports
import desk
from shop_test import ShopTest, main

ERROR, NOTHING = " 印刷エラー", "一覧印刷"
PRINTER = day_reports.PRINTER
PAGES = day_reports.PAGES
RECEIPTS = 12  # two pages with subtotal and total


class Reports(ShopTest):
    def setUp(self):
        self.paper = self.shop.folder.parent
        day_reports.prepare(self.screen, self.paper)
        self.file = self.paper / f"入荷商品 一覧 {time.strftime('%Y-%m-%d')}.pdf"
        today = time.strftime("%Y%m%d")
        self.shop.add("InpTB", [
            {"Code": f"45000000{n:05}", "Name": f"商品{n}", "NyuPrice": "0000100", "NyuSuu": f"{n:07}",
             "NyuNebiki": "0000000", "NyuSakiCD": "101", "NysName": "東商店", "TanCD": "01", "TanName": "山田",
             "Unit": "個", "Henkyaku": "0000000", "NyuDate": today, "NyuTime": f"0900{n:02}",
             "InpDate": f"{today}0900{n:02}", "UpdDate": f"{today}0900{n:02}"} for n in range(1, RECEIPTS + 1)])

    def open_list(self):
        program = self.open()
        self.reader.scan("[3]")
        program.wait_idle()
        self.screen.press("asterisk", "Return")
        self.screen.press("Return")
        program.wait_idle()
        return program

    def open_pages(self):
        self.reader.scan("[F]")
        self.screen.wait_active(PAGES)

    def words(self, file):
        day_reports.wait_whole(file)
        return subprocess.run(["pdftotext", "-layout", str(file), "-"], check=True, capture_output=True,
                              encoding="utf-8").stdout

    def test_the_keyboard_prints_a_list(self):
        program = self.open_list()
        self.open_pages()
        self.screen.press("Return", "KP_Enter", "Return")  # first page, last page, the button
        self.screen.answer(PRINTER)
        self.screen.wait_gone(PAGES)
        text = self.words(self.file)
        self.assertEqual(2, text.count("\f"))
        for n in range(1, RECEIPTS + 1):
            self.assertIn(f"45000000{n:05}", text)
        for word in ("入荷 明細一覧", "小計", "合計", "東商店"):
            self.assertIn(word, text)
        program.wait_idle()
        self.end(program)

    def test_a_cancelled_printer_leaves_the_pages_to_choose(self):
        program = self.open_list()
        self.open_pages()
        self.reader.scan("[P]")
        self.screen.answer(PRINTER, "Escape")
        self.screen.wait_active(PAGES)
        self.assertFalse(self.file.exists())
        self.screen.press("2", "Return", "KP_Enter", "Return")  # the second page alone
        self.screen.answer(PRINTER)
        self.screen.wait_gone(PAGES)
        self.assertEqual(1, self.words(self.file).count("\f"))
        program.wait_idle()
        self.end(program)

    def test_back_prints_nothing(self):
        program = self.open_list()
        self.open_pages()
        self.reader.scan("[T]")
        self.screen.wait_gone(PAGES)
        self.assertEqual([], list(self.paper.glob("*.pdf")))
        program.wait_idle()
        self.end(program)

    def test_without_a_list_there_is_a_box(self):
        program = self.open()
        for tab in ("[2]", "[3]", "[4]"):
            self.reader.scan(tab)
            self.reader.scan("[F]")
            self.screen.answer(NOTHING)
        program.wait_idle()
        self.end(program)

    def test_a_file_refused_by_the_disk_is_reported_and_work_goes_on(self):
        program = self.open_list()
        self.open_pages()
        self.reader.scan("[P]")
        self.screen.wait_active(PRINTER)
        dialog = self.screen.active_window()
        self.screen.press("alt+f", "ctrl+a", "slash", *"dev", "slash", *"full")
        program.wait_idle()  # the field offers names of files while it is typed into, and Enter would take one
        self.screen.press("Return")
        self.screen.wait_in_front_of(dialog)  # the question about a file that is there
        self.screen.answer(PRINTER, "alt+y")
        self.screen.answer(ERROR)
        self.screen.wait_gone(PAGES)
        program.wait_idle()
        self.close_window()
        self.screen.answer(desk.END_DIALOG)
        self.assertEqual(0, program.ended())  # what the library prints about such a device does not count


if __name__ == "__main__":
    main()

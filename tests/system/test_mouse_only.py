"""A day's work without a keyboard: codes come from a reader that types, everything else is clicked. What is clicked is
found by the name that an assistive technology reads out."""

import pathlib
import tempfile

import day_reports
import desk
from screen_reader import ScreenReader
from shop_test import ShopTest, main, wait_for

UPDATE, UPDATED = "更新の確認", "更新の完了"
DELETE, DELETED = "削除の確認", "削除の完了"
LABELS, PAGES, PRINTER = "バーコード印刷", day_reports.PAGES, day_reports.PRINTER
EXTENSION, PERIOD = " 履歴ファイルの拡張子", " 履歴の保存"
YES = "はい(Y)"
BUTTON, CELL, OPTION, TAB = "push button", "table cell", "radio button", "page tab"


class MouseOnly(ShopTest):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="suisui-paper-")
        self.addCleanup(folder.cleanup)
        self.paper = pathlib.Path(folder.name)
        day_reports.prepare(self.screen, self.paper)
        self.reader_of_screen = ScreenReader(self.screen)
        self.addCleanup(self.reader_of_screen.close)

    def find(self, name, role, window):
        """The control with this name, once it can be operated. Of several the first in the order of the form."""
        def look():
            found = [control for control in self.reader_of_screen.controls()
                     if (control["window"], control["role"], control["name"]) == (window, role, name)
                     and control["enabled"]]
            return found[0] if found else None
        return wait_for(f"{role} {name!r} in {window!r}", look)

    def click(self, name, role=BUTTON, window=desk.MAIN_WINDOW, times=1):
        self.screen.wait_active(window)
        self.screen.click(*self.find(name, role, window)["place"], times=times)

    def answer(self, title, button):
        """Clicks a box away."""
        self.click(button, window=title)
        self.screen.wait_gone(title)

    def book(self, program, code):
        self.screen.type(f"{code}\n")
        program.wait_idle()

    def show(self, program, tab):
        self.click(tab, TAB)
        program.wait_idle()

    def print_list(self):
        before = set(self.paper.rglob("*.pdf"))
        self.click("一覧印刷")
        self.click("印刷", window=PAGES)
        self.click("印刷(P)", window=PRINTER)
        self.screen.wait_gone(PAGES)
        [file] = set(self.paper.rglob("*.pdf")) - before
        day_reports.wait_whole(file)

    def test_a_day_can_be_worked_by_the_mouse(self):
        kept, dropped = self.plain_codes(2)
        self.shop.change("UPDATE Master SET Stock = ?", [("0",)])  # no box about a low stock
        program = self.open()

        # Receipts: one corrected, one deleted again.
        self.book(program, kept)
        self.wait_receipts(1)
        program.wait_idle()
        [(quantity,)] = self.shop.rows("SELECT NyuSuu FROM Master WHERE Code = ?", kept)
        self.click(quantity, CELL, times=2)
        self.screen.type("99")
        self.click("更  新")
        self.answer(UPDATE, YES)
        self.answer(UPDATED, "OK")
        self.assertEqual([(kept, "0000099")], self.receipts("Code", "NyuSuu"))
        program.wait_idle()
        self.click("商品コード", "text")
        self.book(program, dropped)
        self.wait_receipts(2)
        program.wait_idle()
        self.click(dropped, CELL)
        self.click("削   除")
        self.answer(DELETE, YES)
        self.answer(DELETED, "OK")
        self.assertEqual([(kept,)], self.receipts("Code"))

        # A shipment, then the stock, and the list of the receipts, both on paper.
        self.show(program, "出荷 登録")
        self.book(program, kept)
        wait_for("a shipment", lambda: self.shop.count("OutTB") == 1)
        self.wait_next_second("OutTB")  # until then the window takes no click
        self.show(program, "在庫 一覧")
        self.click("在庫数０も表示", "check box")
        self.click("詳細情報 を表示", OPTION)
        program.wait_idle()
        self.click("商品コード", "text")
        self.screen.type("*")
        self.click("検　索")
        program.wait_idle()
        self.print_list()
        self.show(program, "入荷 一覧")
        self.screen.type("*")
        self.click("検　索")
        program.wait_idle()
        self.click("商品名▽", "table column header")  # sorts
        program.wait_idle()
        self.print_list()

        # Labels of the receipts, looked at and left.
        self.show(program, "入荷 登録")
        self.click("バーコード印刷")
        self.click("3 番目のラベルから", OPTION, LABELS)
        self.answer(LABELS, "戻　る")

        # The history up to the period, and nothing saved.
        self.click("履歴の保存")
        self.screen.wait_active(EXTENSION)
        self.screen.type("hst")
        self.click("決定", window=EXTENSION)
        self.answer(PERIOD, "戻る")
        self.assertEqual([(kept,)], self.receipts("Code"))

        program.wait_idle()
        self.click("終了します")
        self.click("終了", window=desk.END_DIALOG)
        self.assertEqual(0, program.ended())
        self.assertEqual("", program.said())
        self.assertWhole()


if __name__ == "__main__":
    main()

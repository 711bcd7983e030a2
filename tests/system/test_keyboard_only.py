"""A day's work without a mouse: every control is reached by Tab, every button pressed by a key."""

import pathlib
import subprocess
import tempfile

import day_reports
import desk
from shop_test import ShopTest, main, wait_for

UPDATE, UPDATED = "更新の確認", "更新の完了"
DELETE, DELETED = "削除の確認", "削除の完了"
LABELS, PAGES, PRINTER = "バーコード印刷", day_reports.PAGES, day_reports.PRINTER
EXTENSION, PERIOD, PLACE = " 履歴ファイルの拡張子", " 履歴の保存", " ファイルの選択"

# Stops of Tab from the code field of a tab on.
PRINT_LABELS, UPDATE_ROWS, DELETE_ROW = 3, 11, 12
PRINT_STOCK = 5
PRINT_LIST = 11
# Back from it, and on to the button that ends.
TO_SAVE, SAVE_TO_END = 4, 2


class KeyboardOnly(ShopTest):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="suisui-paper-")
        self.addCleanup(folder.cleanup)
        self.paper = pathlib.Path(folder.name)
        day_reports.prepare(self.screen, self.paper)

    def tab_to(self, stops):
        self.screen.press(*["Tab" if stops > 0 else "shift+Tab"] * abs(stops))

    def next_tab(self, program):
        self.screen.press("ctrl+Tab")
        program.wait_idle()

    def to_code_field(self, program):
        """A tab that comes into view has the cursor in its code field."""
        self.next_tab(program)
        self.screen.press("ctrl+shift+Tab")
        program.wait_idle()

    def one_paper(self, already):
        """The PDF that has come, whole."""
        [file] = wait_for("a PDF", lambda: set(self.paper.rglob("*.pdf")) - already)
        day_reports.wait_whole(file)
        return file

    def words(self, file):
        return subprocess.run(["pdftotext", "-layout", str(file), "-"], check=True, capture_output=True,
                              encoding="utf-8").stdout

    def print_list(self):
        """Prints all pages from the page dialog, to the proposed PDF."""
        before = set(self.paper.rglob("*.pdf"))
        self.screen.wait_active(PAGES)
        self.screen.press("Return", "KP_Enter", "Return")
        self.screen.answer(PRINTER)
        self.screen.wait_gone(PAGES)
        return self.words(self.one_paper(before))

    def book(self, program, code):
        self.screen.type(f"{code}\n")
        program.wait_idle()

    def test_a_day_can_be_worked_by_keys_alone(self):
        kept, dropped = self.plain_codes(2)
        self.shop.change("UPDATE Master SET Stock = ?", [("0",)])  # no box about a low stock
        program = self.open()

        # Receipts: one corrected, one deleted again.
        self.book(program, kept)
        self.wait_receipts(1)
        program.wait_idle()
        self.screen.press("9", "9", "Return")  # the quantity, and back to the code field
        self.tab_to(UPDATE_ROWS)
        self.screen.press("Return")
        self.screen.answer(UPDATE, "y")
        self.screen.answer(UPDATED)
        self.assertEqual([(kept, "0000099")], self.receipts("Code", "NyuSuu"))
        self.assertEqual("99", self.shop.stock()[kept])
        program.wait_idle()
        self.to_code_field(program)
        self.book(program, dropped)
        self.wait_receipts(2)
        self.screen.press("Return")
        self.tab_to(DELETE_ROW)
        self.screen.press("space")
        self.screen.answer(DELETE, "y")
        self.screen.answer(DELETED)
        self.assertEqual([(kept,)], self.receipts("Code"))

        # A shipment, then the stock, and the list of the receipts, both on paper.
        self.next_tab(program)
        self.book(program, kept)
        wait_for("a shipment", lambda: self.shop.count("OutTB") == 1)
        self.next_tab(program)
        self.book(program, kept)
        self.screen.press("Return")  # from the list that was found back to the code field
        self.tab_to(PRINT_STOCK)
        self.screen.press("Return")
        self.assertIn(kept, self.print_list())
        self.next_tab(program)
        self.screen.press("asterisk", "Return", "Return")
        program.wait_idle()
        self.screen.press("Return")
        self.tab_to(PRINT_LIST)
        self.screen.press("Return")
        self.assertIn(kept, self.print_list())

        # Labels of the receipts.
        self.next_tab(program)
        self.next_tab(program)
        self.tab_to(PRINT_LABELS)
        self.screen.press("Return")
        self.screen.wait_active(LABELS)
        before = set(self.paper.rglob("*.pdf"))
        self.tab_to(-2)  # from the first control to the button before the last
        self.screen.press("Return")
        self.screen.answer(PRINTER)
        self.screen.wait_gone(LABELS)
        self.one_paper(before)

        # The history up to the period, and nothing saved.
        program.wait_idle()
        self.to_code_field(program)
        self.tab_to(-TO_SAVE)
        self.screen.press("Return")
        self.screen.wait_active(EXTENSION)
        self.screen.press("h", "s", "t", "Return", "Return")
        self.screen.wait_active(PERIOD)
        self.screen.press("Escape")
        self.screen.wait_gone(PERIOD)
        self.assertEqual([(kept,)], self.receipts("Code"))

        program.wait_idle()
        self.tab_to(SAVE_TO_END)
        self.screen.press("Return")
        self.screen.answer(desk.END_DIALOG)
        self.assertEqual(0, program.ended())
        self.assertEqual("", program.said())
        self.assertWhole()


if __name__ == "__main__":
    main()

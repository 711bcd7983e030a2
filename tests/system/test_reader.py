"""The serial reader operates the whole program: many scans in a row, scans while something else is on the screen, and
unexpected values."""

import desk
from shop_test import ShopTest, main, wait_for

FEW_SCANS, MANY_SCANS = 8, 40
SECONDS_A_SCAN = 3  # a scan takes a second of its own; a loaded machine gets three
REPORT_BOX = "実行時エラー"
MANY_ROWS_BOX = "表示の確認"


class Scans(ShopTest):
    def book(self, count):
        """Sends scans faster than they are processed; all are booked once and in order."""
        goods = self.plain_codes(5)
        codes = [goods[(i * 3) % 5] for i in range(count)]
        program = self.open()
        self.reader.send("".join(f"{code}\r\n" for code in codes).encode())
        wait_for(f"{count} receipts", lambda: self.shop.count("InpTB") >= count, count * SECONDS_A_SCAN)
        self.wait_receipts(count)
        program.wait_idle()
        rows = self.receipts("Code", "InpDate")
        self.assertEqual(codes, [code for code, _ in rows])
        self.assertEqual(sorted({stamp for _, stamp in rows}), [stamp for _, stamp in rows])
        self.end(program)
        self.assertWhole()


class LongQueue(Scans):
    """Run by itself: each scan takes a second of its own."""

    def test_forty_scans_faster_than_booking_are_stored_in_order(self):
        self.book(MANY_SCANS)


class Reader(Scans):
    def test_scans_faster_than_booking_are_stored_once_in_order(self):
        self.book(FEW_SCANS)

    def test_scans_wait_for_a_box(self):
        known = self.plain_codes(1)[0]
        program = self.open()
        self.reader.scan("4999999999996")
        self.screen.wait_active(desk.UNREGISTERED_BOX)
        self.reader.scan(known)
        program.wait_idle()
        self.assertEqual(0, self.shop.count("InpTB"))
        self.screen.answer(desk.UNREGISTERED_BOX)
        self.wait_receipts(1)
        program.wait_idle()
        self.end(program)

    def test_a_dialog_reads_its_own_codes_and_drops_goods(self):
        known = self.plain_codes(1)[0]
        program = self.open()
        self.reader.scan("[U]")
        self.screen.wait_active(desk.END_DIALOG)
        for value in (known, "#101#", "@02@", "[E]", "[1]", "12345678901234567", "{FOO}"):
            self.reader.scan(value)
        self.reader.scan("{TAB}")
        self.reader.scan("[T]")
        self.screen.wait_gone(desk.END_DIALOG)
        self.reader.scan(known)
        self.wait_receipts(1)
        program.wait_idle()
        self.assertEqual([(known,)], self.receipts("Code"))
        self.end(program)

    def test_scans_wait_for_the_wait_window(self):
        known = self.plain_codes(1)[0]
        self.add_receipts(20000)
        program = self.start()
        self.screen.answer(MANY_ROWS_BOX)  # the first sight of the tab
        self.wait_ready(program)
        self.reader.scan("[E]")
        self.screen.answer(MANY_ROWS_BOX)
        for _ in range(3):
            self.reader.scan(known)
        self.wait_receipts(20003)
        program.wait_idle()
        self.end(program)
        self.assertWhole()

    def test_a_value_that_nobody_foresaw_ends_the_program_in_order(self):
        known = self.plain_codes(1)[0]
        for value in ("[10]", "#", "@"):
            with self.subTest(value=value):
                before = self.shop.count("InpTB")
                program = self.open()
                self.reader.scan(known)
                self.wait_receipts(before + 1)
                program.wait_idle()
                self.reader.scan(value)
                self.screen.answer(REPORT_BOX)
                self.assertNotEqual(0, program.ended())
                self.assertEqual(before + 1, self.shop.count("InpTB"))
                self.assertWhole()

    def test_the_reader_leaves_a_dialog_and_the_window(self):
        program = self.open()
        for tab in range(5):
            self.reader.scan(f"[{tab}]")
        self.reader.scan("[K]")
        self.reader.scan("[P]")  # means nothing here
        program.wait_idle()
        self.assertTrue(program.running())
        self.reader.scan("[U]")
        self.screen.wait_active(desk.END_DIALOG)
        self.reader.scan("[P]")
        self.assertEqual(0, program.ended())


if __name__ == "__main__":
    main()

"""The movement lists of the whole program. What a list shows can be seen from outside in the slip, which has all its
rows; so the slips are compared with figures computed here from the database."""

import decimal
import os

import desk
from shop_test import ShopTest, main, wait_for

SLIP_BOX = " 「伝票」 印刷"
QUESTION = "表示の確認"
SLIP_HEADINGS = ["コード", "商品名", "単価", "数量", "単位", "値引き", "合計(税込)", "備考"]
# Tab stops after the code field: two combo boxes, six date boxes, the box for sums, the search button, two prints.
TO_SLIP = 12


def grouped(number):
    return f"{int(decimal.Decimal(number).quantize(decimal.Decimal(1), decimal.ROUND_HALF_UP)):,}"


class Lists(ShopTest):
    def setUp(self):
        self.customer, self.customer_name = self.shop.rows(
            "SELECT Code, Name FROM KokyakuTB WHERE SyuKyk = '1' ORDER BY Code LIMIT 1")[0]
        self.other = self.shop.rows("SELECT Code FROM KokyakuTB WHERE SyuKyk = '1' ORDER BY Code LIMIT 2")[1][0]

    def ship(self, count, customer=None, **more):
        """Shipments of today to one customer, of many goods; prices and quantities under a thousand."""
        goods = self.shop.rows("SELECT Code, Name, Unit FROM Master ORDER BY Code LIMIT 20")
        rows = []
        for i in range(count):
            code, name, unit = goods[i % len(goods)]
            rows.append({"Code": code, "Name": name, "Unit": unit, "SyuSuu": f"{i % 4 + 1:07d}",
                         "SyuPrice": f"{i % 10 + 3:07d}", "SyuNebiki": f"{i % 2:07d}", "RHenkyaku": "0000000",
                         "FHenkyaku": "0000000", "SyuSakiCD": customer or self.customer, "SysName": "得意先",
                         "SyuDate": self.today(), "SyuTime": "101500", "TanCD": "01", "TanName": "担当",
                         "Bikou": f"備考{i}", "InpDate": f"{self.stamp + i:014d}",
                         "UpdDate": f"{self.stamp + i:014d}", **more})
        self.stamp += count
        self.shop.add("OutTB", rows)

    stamp = 20200101000000

    def install_slip_program(self):
        """A slip program that keeps the file as it found it when it was started."""
        program = self.shop.folder / "exe" / "PrintRpt.exe"
        program.write_text("#!/bin/sh\ncp FileCsv.csv got.tmp && mv got.tmp got.csv\n", encoding="ascii")
        os.chmod(program, 0o755)

    def slip(self):
        """What the slip program got, field by field."""
        got = self.shop.folder / "exe" / "got.csv"
        wait_for("the slip program was started", got.exists)
        text = got.read_bytes().decode("cp932")
        got.unlink()
        self.assertTrue(text.endswith(",\r\n"))
        lines = text.split("\r\n")[:-1]
        return [line.split(",")[:-1] for line in lines]

    def open_list(self, tab):
        program = self.open()
        self.reader.scan(f"[{tab}]")
        program.wait_idle()
        return program

    def search_customer(self, program, customer=None):
        self.reader.scan(f"#{customer or self.customer}#")
        program.wait_idle()
        self.screen.press("Return")
        program.wait_idle()

    def tab_to(self, program, stops):
        """From the grid back to the code field, and on to another control."""
        self.screen.press("Return")
        program.wait_idle()
        self.screen.press(*["Tab"] * stops)
        program.wait_idle()

    def expected_detail(self, customer):
        rows = self.shop.rows(
            "SELECT Code, Name, CAST(SyuPrice AS INT), CAST(SyuSuu AS INT), Unit, CAST(SyuNebiki AS INT), Bikou FROM OutTB"
            " WHERE SyuSakiCD = ? ORDER BY SyuDate, Name COLLATE NOCASE, Code", customer)
        lines = [SLIP_HEADINGS]
        quantity = discount = amount = 0
        for code, name, price, suu, unit, nebiki, remark in rows:
            lines.append([code, name, str(price), str(suu), unit, str(nebiki), grouped(suu * price - nebiki), remark])
            quantity, discount, amount = quantity + suu, discount + nebiki, amount + suu * price - nebiki
        sums = [grouped(quantity), "", grouped(discount), grouped(amount), ""]
        lines.append(["", "　　（出荷日 計）", "", *sums])
        lines.append(["", "", "", *sums])
        return lines

    def test_the_slip_carries_the_list_of_the_searched_customer(self):
        self.ship(30)
        self.ship(7, self.other)
        self.install_slip_program()
        program = self.open_list(4)
        self.search_customer(program)
        self.tab_to(program, TO_SLIP)
        self.screen.press("Return")
        self.assertEqual(self.expected_detail(self.customer), self.slip())
        settings = self.shop.settings("SlipIni.ini")
        self.assertEqual(self.customer, settings["Slip", "CustomerCode"])
        self.assertEqual(self.customer_name, settings["Slip", "CustomerName"])
        program.wait_idle()
        self.end(program)

    def test_sums_by_goods_go_on_the_slip_too(self):
        self.ship(40)
        self.install_slip_program()
        program = self.open_list(4)
        self.reader.scan(f"#{self.customer}#")
        program.wait_idle()
        self.screen.press("shift+Tab", "space", "Tab", "Return")  # tick the box for sums, search
        program.wait_idle()
        self.tab_to(program, TO_SLIP)
        self.screen.press("Return")
        got = self.slip()
        rows = self.shop.rows(
            "SELECT Code, Name, CAST(SyuPrice AS INT), sum(SyuSuu), Unit, sum(SyuNebiki),"
            " sum(SyuSuu * SyuPrice - SyuNebiki) FROM OutTB GROUP BY Code, SyuPrice, Unit")
        expected = [[code, name, str(price), grouped(suu), unit, grouped(nebiki), grouped(amount), ""]
                    for code, name, price, suu, unit, nebiki, amount in rows]
        self.assertEqual(SLIP_HEADINGS, got[0])
        self.assertEqual(sorted(expected), sorted(got[1:]))
        self.assertEqual([line[1] for line in got[1:]], sorted(line[1] for line in got[1:]))
        program.wait_idle()
        self.end(program)

    def test_a_list_of_all_customers_makes_no_slip(self):
        self.ship(5)
        self.install_slip_program()
        program = self.open_list(4)
        self.screen.press("Return")
        program.wait_idle()
        self.screen.press("Return")
        program.wait_idle()
        self.tab_to(program, TO_SLIP)
        self.screen.press("Return")
        self.screen.answer(SLIP_BOX)
        self.assertFalse((self.shop.folder / "exe" / "FileCsv.csv").exists())
        self.search_customer(program)
        self.tab_to(program, TO_SLIP)
        self.screen.press("Return")
        self.assertEqual(self.expected_detail(self.customer), self.slip())
        program.wait_idle()
        self.end(program)

    def test_more_than_a_thousand_rows_are_shown_only_after_a_yes(self):
        self.ship(1200)
        self.install_slip_program()
        program = self.start()
        self.screen.answer(QUESTION, "n")  # of the entry tab, which lists the same day
        self.wait_ready(program)
        self.reader.scan("[4]")
        program.wait_idle()
        self.reader.scan(f"#{self.customer}#")
        program.wait_idle()
        self.screen.press("Return")
        self.screen.answer(QUESTION, "n")
        program.wait_idle()
        self.screen.press(*["Tab"] * TO_SLIP, "Return")
        self.screen.answer(SLIP_BOX)  # there is nothing to print
        self.search_customer_agreeing(program)
        self.tab_to(program, TO_SLIP)
        self.screen.press("Return")
        got = self.slip()
        self.assertEqual(1200 + 3, len(got))
        program.wait_idle()
        self.end(program)

    def search_customer_agreeing(self, program):
        self.reader.scan(f"#{self.customer}#")
        program.wait_idle()
        self.screen.press("Return")
        self.screen.answer(QUESTION, "y")
        program.wait_idle()
        self.screen.wait_active(desk.MAIN_WINDOW)

    def test_without_a_slip_program_or_its_folder_work_goes_on(self):
        self.ship(5)
        program = self.open_list(4)
        self.search_customer(program)
        self.tab_to(program, TO_SLIP)
        self.screen.press("Return")
        self.screen.answer(SLIP_BOX)
        self.assertTrue((self.shop.folder / "exe" / "FileCsv.csv").exists())
        (self.shop.folder / "exe").rename(self.shop.folder / "gone")
        self.screen.press("Return")  # the focus is on the button still
        self.screen.answer(SLIP_BOX)
        (self.shop.folder / "gone").rename(self.shop.folder / "exe")
        self.install_slip_program()
        self.screen.press("Return")
        self.assertEqual(self.expected_detail(self.customer), self.slip())
        program.wait_idle()
        self.end(program)

    def test_the_receipt_list_shows_what_has_just_come_in(self):
        code = self.plain_codes(1)[0]
        program = self.open()
        self.reader.scan(code)
        self.wait_receipts(1)
        program.wait_idle()
        self.reader.scan("[3]")
        program.wait_idle()
        blank = self.pixels()
        self.screen.press("Return")
        program.wait_idle()
        self.screen.press("Return")
        program.wait_idle()
        self.assertNotEqual(blank, self.pixels())
        self.end(program)

    def pixels(self):
        picture = self.shop.folder / "look.png"
        self.screen.settled_picture(picture)
        return picture.read_bytes()


if __name__ == "__main__":
    main()

"""Receipts entered into the whole program, by a reader that types and by one on the serial line."""

import desk
from shop_test import ShopTest, main, wait_for


class TypingReader(ShopTest):
    def test_codes_typed_at_full_speed_are_each_stored_once_in_order(self):
        # Letters too: with an input method on, "a" would not stay "a".
        codes = ["abc-XYZ-01", "4512345678905", "a", "Q-7", "zz-000-zz"]
        self.shop.add("Master", [{"Code": code, "Name": f"品 {code}", "NyuSuu": "3", "NyuPrice": "120",
                                  "SyuSuu": "1", "SyuPrice": "200", "Unit": "個", "Stock": "0"} for code in codes])
        program = self.open()
        # Two Enters a code: one stores it, one brings the cursor back from the new row to the code field.
        self.screen.type("".join(f"{code}\n\n" for code in codes))
        self.wait_receipts(len(codes))
        self.assertEqual([(code, "0000003") for code in codes], self.receipts("Code", "NyuSuu"))
        for code in codes:
            self.assertEqual("3", self.shop.stock()[code])
        program.wait_idle()
        self.end(program)
        self.assertWhole()

    def test_codes_typed_in_a_row_are_scans_wherever_the_cursor_is(self):
        codes = self.plain_codes(4)
        program = self.open()
        # After the first the cursor is in a quantity, or will, when the window takes keys again.
        self.screen.type("".join(f"{code}\n" for code in codes))
        self.wait_receipts(len(codes))
        self.assertEqual(codes, [code for code, in self.receipts("Code")])
        program.wait_idle()
        for way in (("Tab",), ("shift+Tab", "shift+Tab"), ("F2",)):  # other cells, buttons, an open editor
            self.screen.press(*way)
            self.screen.type(f"{codes[0]}\n")
        self.wait_receipts(len(codes) + 3)
        program.wait_idle()
        defaults = {code: suu for code, suu in self.shop.rows("SELECT Code, NyuSuu FROM Master")}
        for code, suu in self.receipts("Code", "NyuSuu"):
            self.assertEqual(float(defaults[code]), float(suu), "no quantity has been touched")
        self.end(program)  # nothing asks about unsaved cells
        self.assertWhole()

    def test_functions_are_understood_when_they_are_typed(self):
        program = self.open()
        self.screen.type("[1]\n")
        self.screen.type(f"{self.plain_codes(1)[0]}\n")
        self.screen.answer(desk.SHORTAGE_BOXES[0])
        wait_for("a shipment", lambda: self.shop.count("OutTB") == 1)
        program.wait_idle()
        self.screen.type("[U]\n")
        self.screen.wait_active(desk.END_DIALOG)
        self.screen.press("Escape")
        self.screen.wait_gone(desk.END_DIALOG)
        self.end(program)

    def test_a_typist_is_not_a_reader(self):
        code = self.plain_codes(1)[0]
        program = self.open()
        self.screen.type(f"{code}\n")
        self.wait_receipts(1)
        program.wait_idle()
        self.screen.type_by_hand("1234567")
        self.screen.press("Return")
        self.screen.press("ctrl+a")
        self.screen.type_by_hand(f"{code}\n")
        self.wait_receipts(2)
        program.wait_idle()
        self.assertEqual(2, self.shop.count("InpTB"))
        self.screen.press("alt+F4")
        self.screen.answer(desk.UNSAVED_BOX, "y")  # the quantity that was typed

    def test_short_codes_are_scans_too_and_a_slow_one_is_asked_about(self):
        self.shop.add("Master", [{"Code": code, "Name": f"品 {code}", "NyuSuu": "3", "NyuPrice": "120",
                                  "SyuSuu": "1", "SyuPrice": "200", "Unit": "個", "Stock": "0"}
                                 for code in ("1234567", "SET-01")])
        program = self.open()
        codes = ["1234567", "1234567", "SET-01", "1234567"]
        self.screen.type("".join(f"{code}\n" for code in codes))
        self.wait_receipts(len(codes))
        program.wait_idle()
        self.screen.type_by_hand("1234567\n")  # the cursor is in the quantity
        self.screen.answer("数量の確認")
        self.screen.press("Return")  # from the code field, to which the code has gone
        self.wait_receipts(len(codes) + 1)
        self.assertEqual([(code, "0000003") for code in [*codes, "1234567"]], self.receipts("Code", "NyuSuu"))
        program.wait_idle()
        self.end(program)  # nothing asks about unsaved cells

    def test_with_the_setting_off_typed_codes_go_where_the_cursor_is(self):
        code = self.plain_codes(1)[0]
        settings = self.shop.folder / "Ini" / "AppEnv.ini"
        text = settings.read_text(encoding="utf-8").replace("[Reader]\n", "[Reader]\nTypedScan=0\n")
        settings.write_text(text, encoding="utf-8")
        program = self.open()
        self.screen.type(f"{code}\n")
        self.wait_receipts(1)
        program.wait_idle()
        self.screen.type("1234567\n")
        program.wait_idle()
        self.screen.type("12345678\n")  # the code field again: unregistered
        self.screen.answer(desk.UNREGISTERED_BOX)
        self.assertEqual(1, self.shop.count("InpTB"))

    def test_an_unknown_code_shows_a_box_and_the_next_one_is_stored(self):
        known = self.plain_codes(1)[0]
        program = self.open()
        self.screen.type("0000000000000\n")
        self.screen.answer(desk.UNREGISTERED_BOX)
        program.wait_idle()
        self.assertEqual(0, self.shop.count("InpTB"))
        self.screen.press("ctrl+a")
        self.screen.type(f"{known}\n\n")
        self.wait_receipts(1)
        self.assertEqual([(known,)], self.receipts("Code"))
        program.wait_idle()
        self.end(program)


class SerialReader(ShopTest):
    def test_scans_made_while_one_is_under_way_all_arrive_in_order(self):
        codes = self.plain_codes(4)
        program = self.open()
        self.reader.send("".join(f"{code}\r\n" for code in codes).encode())
        self.wait_receipts(len(codes))
        rows = self.receipts("Code", "InpDate")
        self.assertEqual(codes, [code for code, _ in rows])
        self.assertEqual(len(codes), len({stamp for _, stamp in rows}), "each scan has a second of its own")
        program.wait_idle()
        self.end(program)
        self.assertWhole()

    def test_scans_that_are_not_codes_change_nothing(self):
        known = self.plain_codes(1)[0]
        before = self.shop.stock()
        program = self.open()
        for frame in (b"\r\n", b"[\r\n", b"{Q\r\n", b"{}\r\n", b"{ENTER 2000}\r\n", b'{"code":"4901","lot":[1, 2]}\r\n',
                      b"#101\r\n", b"@02\r\n", b"12345678901234567\r\n", b"@99@\r\n"):
            self.reader.send(frame)
        self.reader.scan(known)
        self.wait_receipts(1)
        self.assertEqual([(known,)], self.receipts("Code"))
        self.assertEqual({known}, {code for code, suu in self.shop.stock().items() if before.get(code) != suu})
        program.wait_idle()
        self.end(program)

    def test_quotes_and_bytes_of_no_text_are_unregistered_codes(self):
        program = self.open()
        for frame in (b"'; DELETE --\r\n", b"a' OR '1'='1\r\n", b"\xff\xfe\x80\r\n", b"\x00\x01\x02\r\n"):
            self.reader.send(frame)
            self.screen.answer(desk.UNREGISTERED_BOX)
        program.wait_idle()
        self.assertEqual(0, self.shop.count("InpTB"))
        self.end(program)
        self.assertWhole()

    def test_a_million_characters_without_an_end_change_nothing(self):
        known = self.plain_codes(1)[0]
        program = self.open()
        self.reader.send(b"7" * 1_000_000 + b"\r\n")
        self.reader.scan(known)
        self.wait_receipts(1)
        self.assertEqual([(known,)], self.receipts("Code"))
        program.wait_idle()
        self.end(program)

    def test_a_reader_unplugged_at_work_leaves_the_keyboard(self):
        first, second = self.plain_codes(2)
        program = self.open()
        self.reader.scan(first)
        self.wait_receipts(1)
        program.wait_idle()
        self.reader.unplug()
        # A port that is gone must not keep the processor busy either.
        program.wait_idle()
        self.assertTrue(program.running())
        self.screen.press("Return")  # from the new row back to the code field
        self.screen.type(f"{second}\n\n")
        self.wait_receipts(2)
        self.assertEqual([(first,), (second,)], self.receipts("Code"))
        program.wait_idle()
        self.end(program)

    def test_without_a_port_there_is_one_box_and_the_keyboard_works(self):
        known = self.plain_codes(1)[0]
        self.shop.use_reader("/dev/no-such-reader")
        program = self.start()
        self.screen.answer(desk.NO_PORT_BOX)
        self.wait_ready(program)
        self.screen.type(f"{known}\n\n")
        self.wait_receipts(1)
        program.wait_idle()
        self.end(program)

    def test_two_programs_cannot_share_a_port(self):
        other = self.shop.copy_to(self.shop.folder.parent / "other")
        program = self.open()
        with desk.Program(other, self.screen) as second:
            self.screen.answer(desk.NO_PORT_BOX)
            wait_for("the second shop's window",
                     lambda: self.screen.titles().count(desk.MAIN_WINDOW) == 2)
            second.wait_idle()
            self.end(second)
        self.wait_ready(program)
        self.end(program)


if __name__ == "__main__":
    main()

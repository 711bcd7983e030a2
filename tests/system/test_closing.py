"""Every way out of the program leads through the same dialog."""

import desk
from shop_test import ShopTest, main


class Closing(ShopTest):
    def test_close_box_and_end_write_the_date_of_last_use(self):
        program = self.open()
        self.end(program)
        self.assertEqual(self.today(), self.shop.settings("AppEnv.ini")["Use", "LastUseDate"])
        self.assertWhole()

    def test_going_back_keeps_the_program_at_work(self):
        known = self.plain_codes(1)[0]
        program = self.open()
        self.close_window()
        self.screen.answer(desk.END_DIALOG, "Tab", "space")
        self.wait_ready(program)
        self.assertEqual("", self.shop.settings("AppEnv.ini").get(("Use", "LastUseDate"), ""))
        self.reader.scan(known)
        self.wait_receipts(1)
        program.wait_idle()
        self.end(program)

    def test_the_dialogs_close_box_goes_back(self):
        program = self.open()
        self.close_window()
        self.screen.answer(desk.END_DIALOG, "alt+F4")
        self.wait_ready(program)
        self.end(program)

    def test_the_reader_answers_the_dialog(self):
        program = self.open()
        self.close_window()
        self.screen.wait_active(desk.END_DIALOG)
        self.reader.scan("[T]")
        self.screen.wait_gone(desk.END_DIALOG)
        self.wait_ready(program)
        self.close_window()
        self.screen.wait_active(desk.END_DIALOG)
        self.reader.scan("[P]")
        self.assertEqual(0, program.ended())
        self.assertEqual(self.today(), self.shop.settings("AppEnv.ini")["Use", "LastUseDate"])

    def test_a_goods_code_scanned_at_the_dialog_is_dropped(self):
        program = self.open()
        self.close_window()
        self.screen.wait_active(desk.END_DIALOG)
        self.reader.scan(self.plain_codes(1)[0])
        self.reader.scan("[T]")
        self.screen.wait_gone(desk.END_DIALOG)
        self.wait_ready(program)
        self.assertEqual(0, self.shop.count("InpTB"))
        self.end(program)


if __name__ == "__main__":
    main()

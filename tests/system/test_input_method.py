"""The whole program with a Japanese input method switched on, as it is on a shop's computer: codes and figures arrive
as they are typed, texts are converted, and the Enter that ends a conversion does nothing else."""

import desk
from input_method import InputMethod
from shop_test import ShopTest, main

UPDATED_BOX = "更新の完了"
FROM_QUANTITY_TO_REMARK = ["Tab"] * 10


class InputMethodOn(ShopTest):
    def open(self):
        method = InputMethod(self.screen)
        self.addCleanup(method.close)
        return super().open()

    def scan_one(self, program):
        self.reader.scan(self.plain_codes(1)[0])
        self.wait_receipts(1)
        program.wait_idle()

    def save_and_end(self, program):
        """Closes the window; the cells that were changed are stored."""
        self.screen.press("alt+F4")
        self.screen.answer(desk.UNSAVED_BOX, "y")
        self.screen.answer(UPDATED_BOX)
        self.screen.answer(desk.END_DIALOG)
        self.assertEqual(0, program.ended())
        self.assertEqual("", program.said())
        self.assertEqual(1, self.shop.count("InpTB"))
        self.assertWhole()

    def test_codes_and_figures_arrive_as_they_are_typed(self):
        code = "abc-Ka-019"
        self.shop.add("Master", {"Code": code, "Name": "品", "NyuSuu": "3", "NyuPrice": "120", "SyuSuu": "1",
                                 "SyuPrice": "200", "Unit": "個", "Stock": "0"})
        program = self.open()
        self.screen.type_by_hand(f"{code}\n")
        self.wait_receipts(1)
        program.wait_idle()
        self.screen.type_by_hand("17")  # the quantity, where the cursor is
        self.screen.press("Return")
        program.wait_idle()
        self.assertEqual([(code, "0000003")], self.receipts("Code", "NyuSuu"))
        self.save_and_end(program)
        self.assertEqual([(code, "0000017")], self.receipts("Code", "NyuSuu"))

    def convert_a_remark(self, *opened_by):
        program = self.open()
        self.scan_one(program)
        self.screen.press(*FROM_QUANTITY_TO_REMARK, *opened_by)
        program.wait_idle()
        self.screen.type_by_hand("kinou")
        self.screen.press("space", "Return")  # converts, and takes what is offered
        program.wait_idle()
        # The editor is still open: what follows comes after it, and no code is looked up.
        self.screen.type_by_hand("ha")
        self.screen.press("Return")
        program.wait_idle()
        self.assertEqual([("",)], self.receipts("Bikou"))
        self.screen.press("Return")  # this one leaves the cell
        program.wait_idle()
        self.save_and_end(program)
        [(remark,)] = self.receipts("Bikou")
        self.assertRegex(remark, "^[\u3040-\u30ff\u4e00-\u9fff]+は$")

    def test_the_enter_that_ends_a_conversion_ends_nothing_else(self):
        self.convert_a_remark()

    def test_so_it_is_in_an_editor_that_was_opened_first(self):
        self.convert_a_remark("F2")

    def test_a_typed_scan_is_a_scan_while_the_input_method_is_on(self):
        program = self.open()
        codes = self.plain_codes(3)
        self.screen.type("".join(f"{code}\n" for code in codes))
        self.wait_receipts(len(codes))
        self.assertEqual(codes, [code for code, in self.receipts("Code")])
        program.wait_idle()
        self.end(program)


if __name__ == "__main__":
    main()

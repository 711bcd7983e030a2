"""The first five minutes as README.md describes them: what a newcomer types and what happens."""

import pathlib
import re
import sys

import desk
from shop_test import ShopTest, main, wait_for

README = None


class FirstMinutes(ShopTest):
    def setUp(self):
        section = re.search(r"(?ms)^## The first five minutes$(.*?)^## ", README.read_text(encoding="utf-8")).group(1)
        self.codes = re.findall(r"(?m)^    (\d{13})   ", section)
        self.section = section

    def stock(self, code):
        return float(self.shop.stock()[code])

    def receive(self, program, code, boxes=0):
        stored = self.shop.count("InpTB")
        self.screen.type_by_hand(f"{code}\n")
        for _ in range(boxes):
            self.screen.answer(desk.SHORTAGE_BOXES[0])
        self.wait_receipts(stored + 1)
        program.wait_idle()
        self.screen.press("Return")  # leaves the quantity
        program.wait_idle()

    def test_each_code_does_what_is_said_of_it(self):
        udon, gift, soy = self.codes
        program = self.open()
        self.receive(program, udon)
        self.assertEqual([("0000006", "0000180")], self.receipts("NyuSuu", "NyuPrice"))
        parts = [part for part, in self.shop.rows("SELECT HSeihinCD FROM HSeihinTB WHERE Code = ?", gift)]
        self.assertEqual(4, len(parts))
        self.receive(program, gift, boxes=len(parts))
        self.assertEqual(1, self.stock(gift))
        self.assertTrue(all(self.stock(part) < 0 for part in parts))
        self.assertIn(soy, parts)
        self.receive(program, soy)
        self.assertEqual(0, self.stock(soy))
        self.screen.type("[1]\n")  # as a click on the tab of the shipments
        program.wait_idle()
        self.assertIn(f"type {udon}: one bag leaves", self.section.replace("\n", " "))
        self.screen.type_by_hand(f"{udon}\n")
        wait_for("the shipment", lambda: self.shop.count("OutTB") == 1)
        self.assertEqual(5, self.stock(udon))
        self.wait_next_second("OutTB")
        program.wait_idle()
        self.end(program)
        self.assertWhole()


if __name__ == "__main__":
    place = sys.argv.index("--readme")
    README = pathlib.Path(sys.argv[place + 1]).resolve()
    del sys.argv[place:place + 2]
    main()

"""Killed at a random instant while scans are being stored, the program loses nothing that was stored."""

import os
import random
import time

from shop_test import ShopTest, main

ROUNDS = 8


class Kill(ShopTest):
    def test_after_each_kill_stock_and_stored_receipts_are_right(self):
        seed = int(os.environ.get("SEED", time.time_ns() % 1_000_000))
        print(f"SEED={seed}")
        chance = random.Random(seed)
        product = self.shop.rows("SELECT DISTINCT Code FROM HSeihinTB ORDER BY Code")[0][0]
        codes = [*self.plain_codes(2), product]
        stored = []
        for _ in range(ROUNDS):
            program = self.open()
            for code in codes:
                self.reader.scan(code)
            time.sleep(chance.uniform(0.0, 2.5))  # the random instant itself
            seen = self.receipts("Code", "InpDate", "NyuSuu")
            os.kill(program.pid, 9)
            self.assertEqual(-9, program.ended())
            self.assertEqual(stored, seen[:len(stored)])
            self.assertWhole()
            stored = self.receipts("Code", "InpDate", "NyuSuu")
            self.assertEqual(seen, stored[:len(seen)])
            self.reader.forget()
        self.end(self.open())
        self.assertEqual(stored, self.receipts("Code", "InpDate", "NyuSuu"))
        self.assertTrue(stored)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
"""A short day at the shop without anybody sitting there.

Starts the program on a screen of its own in a program folder made afresh, scans through a pseudo-terminal
reader, prints for each scan what it changed in the database (read through a second connection), and leaves
pictures. Ends with a status other than 0 as soon as something is not as it must be.
"""

import argparse
import pathlib
import shutil
import sys
import time

sys.dont_write_bytecode = True  # the source tree stays as it is
import day_first_start
import day_history
import day_labels
import day_lists
import day_reports
import day_shipments
import day_stock
import desk

STAFF, PARTNER = "02", "102"
GOODS_SCANS = 10
UNKNOWN_CODE = "4999999999996"


class Day:
    """The running program, and what was in the database before the current scan."""

    def __init__(self, shop, screen, reader, pictures):
        self._shop, self._screen, self._reader, self._pictures = shop, screen, reader, pictures
        self._pictured_shortage = False
        self._remember()

    def _remember(self):
        self._receipts, self._shipments = self._shop.count("InpTB"), self._shop.count("OutTB")
        self._stock = self._shop.stock()

    def picture(self, name):
        self._screen.settled_picture(self._pictures / f"{name}.png")

    def expect(self, what, is_so):
        if not is_so:
            raise desk.DeskError(f"not as expected: {what}")

    def expect_nothing_stored(self, what):
        self.expect(f"{what} stores no receipt", self._shop.count("InpTB") == self._receipts)
        self.expect(f"{what} stores no shipment", self._shop.count("OutTB") == self._shipments)
        self.expect(f"{what} moves no stock", self._shop.stock() == self._stock)

    def choose(self, code, what, table, value):
        """A staff or partner code: a choice for the receipts to come, nothing stored."""
        name = self._shop.rows(f"SELECT Name FROM {table} WHERE Code = ?", value)
        self.expect(f"{what} {value} is in the sample", len(name) == 1)
        self._reader.scan(code)
        print(f"scan {code:<15}  {what}: {name[0][0]}")

    def unknown(self, code):
        self._reader.scan(code)
        self._screen.answer(desk.UNREGISTERED_BOX, picture=self._pictures / "unknown-code.png")
        self.expect_nothing_stored(f"unknown code {code}")
        print(f"scan {code:<15}  box ｢{desk.UNREGISTERED_BOX}｣, nothing stored")

    def _row_is_there(self):
        title = self._screen.active_title()
        if title in desk.SHORTAGE_BOXES:
            picture = None if self._pictured_shortage else self._pictures / "shortage.png"
            self._pictured_shortage = True
            self._screen.answer(title, picture=picture)
            print(f"                      box ｢{title.strip()}｣")
        return self._shop.count("InpTB") > self._receipts

    def goods(self, code):
        """A goods code: one receipt row, the stock of the goods up, that of its components down."""
        expected = dict(self._stock)
        quantity = self._shop.rows("SELECT NyuSuu FROM Master WHERE Code = ?", code)[0][0]
        moves = [(component, -round(float(each)) * round(float(quantity))) for component, each in
                 self._shop.rows("SELECT HSeihinCD, Suuryou FROM HSeihinTB WHERE Code = ?", code)]
        for moved, delta in [*moves, (code, float(quantity))]:
            if delta:
                expected[moved] = float(expected.get(moved, "0")) + delta

        self._reader.scan(code)
        desk.wait_for(f"the row of {code}", self._row_is_there)
        rows = self._shop.rows("SELECT Code, Name, NyuSuu, NyuPrice, NysName, TanName, NyuSakiCD, TanCD, NyuDate,"
                               " NyuTime, InpDate, UpdDate FROM InpTB ORDER BY InpDate DESC LIMIT 1")
        row = rows[0]
        self.expect("one scan stores one row", self._shop.count("InpTB") == self._receipts + 1)
        self.expect("a receipt stores no shipment", self._shop.count("OutTB") == self._shipments)
        self.expect(f"the row carries the code, not {row[0]}", row[0] == code)
        self.expect(f"the row carries the default quantity, not {row[2]}", row[2] == f"{round(float(quantity)):07d}")
        self.expect(f"the row carries partner and staff, not {row[6:8]}", row[6:8] == (PARTNER, STAFF))
        self.expect("date, time and both stamps are one moment",
                    row[8] + row[9] == row[10] and row[10] == row[11])
        stock = self._shop.stock()
        self.expect(f"the stock is {expected}, not {stock}",
                    {key: float(value) for key, value in stock.items()}
                    == {key: float(value) for key, value in expected.items()})

        print(f"scan {code:<15}  入荷 {row[8]} {row[9]}  数量 {row[2]}  単価 {row[3]}  {row[1]}"
              f"  （{row[4]}、{row[5]}）")
        for moved in [*(component for component, _ in moves), code]:
            before = self._stock.get(moved, "－")
            kind = "在庫" if moved == code else "部品"
            if before != stock.get(moved, "－"):
                print(f"                      {kind} {moved:<14} {before} → {stock[moved]}")
        self._remember()
        desk.wait_past(row[10])

    def end(self, program):
        """Scans "end" and, in the dialog, "OK"."""
        self._reader.scan("[U]")
        self._screen.wait_active(desk.END_DIALOG)
        self.picture("end")
        self._reader.scan("[P]")
        status = program.ended()
        self.expect(f"the program ends with status 0, not {status}", status == 0)
        print("scan [U], [P]          the program has ended with status 0")


def what_comes_in(shop):
    """A product, and goods from all over the shop: among them all components of the product but one, so that
    making it meets stock and a shortage."""
    product = shop.rows("SELECT Code FROM HSeihinTB GROUP BY Code ORDER BY count(*) DESC, Code LIMIT 1")[0][0]
    components = [code for code, in shop.rows("SELECT HSeihinCD FROM HSeihinTB WHERE Code = ? ORDER BY HSeihinCD",
                                              product)]
    others = [code for code, in shop.rows("SELECT Code FROM Master WHERE length(Code) = 13 AND Code NOT IN"
                                          " (SELECT Code FROM HSeihinTB UNION SELECT HSeihinCD FROM HSeihinTB)"
                                          " ORDER BY Code")]
    chosen = components[:-1][:GOODS_SCANS]
    wanted = GOODS_SCANS - len(chosen)
    return product, chosen + others[::max(1, len(others) // max(1, wanted))][:wanted]


def work(shop, screen, reader, pictures):
    with desk.Program(shop, screen) as program:
        screen.wait_active(desk.MAIN_WINDOW)
        program.wait_idle()
        day = Day(shop, screen, reader, pictures)
        day.picture("start")

        day.choose(f"@{STAFF}@", "担当者", "TantouTB", STAFF)
        day.choose(f"#{PARTNER}#", "入荷先", "KokyakuTB", PARTNER)
        product, plain = what_comes_in(shop)
        day.expect("the sample has goods and products", len(plain) == GOODS_SCANS and product)
        for code in plain:
            day.goods(code)
        day.picture("main")
        day.unknown(UNKNOWN_CODE)
        day.goods(product)
        day.picture("product")
        day_shipments.work(day, shop, screen, reader)
        day_stock.work(day, shop, reader)
        day_lists.work(day, shop, reader, program)
        day_reports.work(day, screen, reader, pictures)
        day_labels.work(day, screen, reader, pictures)
        day_history.work(day, shop, screen, reader)
        day.end(program)
        day.expect(f"nothing is complained of, but: {program.said()}", not program.said())

    today = time.strftime("%Y%m%d")
    day.expect("the date of last use is today", shop.settings("AppEnv.ini")["Use", "LastUseDate"] == today)
    verdict = shop.tagdb("check")
    print(verdict.stdout, end="")
    day.expect("the database holds together", verdict.returncode == 0)


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument("--build", required=True, help="folder of the build to work with")
    options.add_argument("--output", required=True, help="folder for the program folder and the pictures")
    chosen = options.parse_args()
    output = pathlib.Path(chosen.output)
    shutil.rmtree(output / "app", ignore_errors=True)
    output.mkdir(parents=True, exist_ok=True)
    for old in (*output.glob("*.png"), *output.glob("*.pdf")):
        old.unlink()

    sys.stdout.reconfigure(line_buffering=True, encoding="utf-8")
    shop = desk.Shop.install(chosen.build, output / "app")
    shop.fill()
    with desk.Screen(1200, 800) as screen, desk.Reader() as reader:
        shop.use_reader(reader.device)
        day_reports.prepare(screen, output)
        try:
            day_first_start.work(chosen.build, screen, output)
            work(shop, screen, reader, output)
        except desk.DeskError as error:
            screen.picture(output / "failure.png")
            sys.exit(f"{error}\n(screen: {output / 'failure.png'})")
    print(f"Pictures: {', '.join(sorted(str(file) for file in output.glob('*.png')))}")


if __name__ == "__main__":
    main()

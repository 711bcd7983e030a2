"""The lists on the sample day: what has come in, what has gone out to one customer, the same summed by goods, and a
slip of it handed to the slip program, which is played by a script here."""

import os

import desk


def _search(reader, program, picture, day):
    """Shows the list; the cursor is in it."""
    reader.scan("[E]")
    program.wait_idle()
    day.picture(picture)


def _receipts(day, shop, reader, program):
    reader.scan("[3]")
    program.wait_idle()
    reader.scan("{ENTER}")  # an empty code field: no conditions
    program.wait_idle()
    _search(reader, program, "receipt-list", day)
    print(f"scan [3], Enter, [E]  入荷一覧: {shop.count('InpTB')} rows, a subtotal for the day and the total")


def _slip_program(shop):
    """Puts a script in the place of the slip program, which keeps the file as it was when it was started."""
    path = shop.folder / "exe" / "PrintRpt.exe"
    path.write_text("#!/bin/sh\ncp FileCsv.csv printed.tmp && mv printed.tmp printed.csv\n", encoding="ascii")
    os.chmod(path, 0o755)


def _printed(shop):
    """Lines of the slip that the slip program got."""
    got = shop.folder / "exe" / "printed.csv"
    desk.wait_for("the slip program was started", got.exists)
    lines = got.read_bytes().decode("cp932").split("\r\n")[:-1]
    got.unlink()
    return lines


def _slip(day, shop, reader, program):
    customer, name, rows = shop.rows("SELECT SyuSakiCD, SysName, count(*) FROM OutTB GROUP BY SyuSakiCD"
                                     " ORDER BY count(*) DESC LIMIT 1")[0]
    _slip_program(shop)
    reader.scan("[4]")
    program.wait_idle()
    reader.scan(f"#{customer}#")
    program.wait_idle()
    _search(reader, program, "shipment-list", day)
    print(f"scan [4], #{customer}#, [E]  出荷一覧: {rows} rows of {name}")

    reader.scan("[G]")
    lines = _printed(shop)
    day.expect(f"headings, {rows} rows, a subtotal and the total are on the slip, not {len(lines)} lines",
               len(lines) == rows + 3)
    codes = [code for code, in shop.rows("SELECT Code FROM OutTB WHERE SyuSakiCD = ? ORDER BY SyuDate,"
                                         " Name COLLATE NOCASE, Code", customer)]
    day.expect("the slip carries the rows in their order", [line.split(",")[0] for line in lines[1:-2]] == codes)
    passed = shop.settings("SlipIni.ini")
    day.expect("the slip program gets the customer",
               (passed["Slip", "CustomerCode"], passed["Slip", "CustomerName"]) == (customer, name))
    print("scan [G]               FileCsv.csv for the slip program:")
    for line in lines:
        print(f"                      {line}")
    program.wait_idle()

    reader.scan("[D]")
    program.wait_idle()
    _search(reader, program, "shipment-sums", day)
    print("scan [D], [E]          出荷一覧, summed by goods")


def work(day, shop, reader, program):
    _receipts(day, shop, reader, program)
    _slip(day, shop, reader, program)

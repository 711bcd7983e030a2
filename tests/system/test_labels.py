"""Labels printed by the whole program: the full circle from the reader to the paper and back.

What is scanned is printed, the paper is read by a bar-code reader, and what that reads drives the program."""

import pathlib
import subprocess
import tempfile

import desk
from shop_test import ShopTest, main, wait_for

LABELS = "バーコード印刷"
PRINTER = "印刷"
PRINT_ERROR = " 印刷エラー"
RESOLUTION = 600


def pages_of(pdf):
    said = subprocess.run(["pdfinfo", str(pdf)], capture_output=True, encoding="utf-8", check=True).stdout
    return int(next(line.split()[1] for line in said.splitlines() if line.startswith("Pages:")))


def bar_codes(pdf):
    """Texts of the bar codes of each page, sorted."""
    read = []
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(["pdftoppm", "-r", str(RESOLUTION), "-gray", str(pdf), f"{folder}/page"], check=True)
        for page in sorted(pathlib.Path(folder).iterdir()):
            found = subprocess.run(["zbarimg", "-q", "--raw", "-Sdisable", "-Scode128.enable", str(page)],
                                   capture_output=True, encoding="utf-8", check=False)
            read.append(sorted(found.stdout.split("\n")[:-1]))
    return read


class Labels(ShopTest):
    def setUp(self):
        # The proposed PDF file is in the operator's own folder; the test has one of its own.
        folder = tempfile.TemporaryDirectory(prefix="suisui-home-")
        self.addCleanup(folder.cleanup)
        self.home = pathlib.Path(folder.name)
        self.screen.environment.update(HOME=folder.name, CUPS_SERVER="/none")

    def book(self, codes):
        for code in codes:
            before = self.shop.count("InpTB")
            self.reader.scan(code)
            self.wait_receipts(before + 1)

    def open_labels(self, program):
        program.wait_idle()
        self.reader.scan("[N]")
        self.screen.wait_active(LABELS)
        program.wait_idle()

    def print_labels(self, program, picture):
        """Presses OK with the reader, accepts the proposed PDF file with the keyboard, and returns it."""
        self.screen.settled_picture(f"labels-{picture}.png")
        before = set(self.home.rglob("*.pdf"))
        self.reader.scan("[P]")
        self.screen.wait_active(PRINTER)
        program.wait_idle()
        self.screen.press("Return")
        self.screen.wait_active(desk.MAIN_WINDOW)
        program.wait_idle()
        new = set(self.home.rglob("*.pdf")) - before
        self.assertEqual(1, len(new), "one print, one file that overwrites nothing")
        return new.pop()

    def test_what_is_scanned_is_printed_and_can_be_scanned_again(self):
        codes = self.plain_codes(3)
        quantities = {code: int(self.shop.rows("SELECT NyuSuu FROM Master WHERE Code = ?", code)[0][0])
                      for code in codes}
        program = self.open()
        self.book(codes)
        program.wait_idle()
        self.reader.scan("[M]")  # as many labels as the quantity says
        self.open_labels(program)
        pdf = self.print_labels(program, "receipts")
        read = bar_codes(pdf)
        self.assertEqual(-(-sum(quantities.values()) // 12), pages_of(pdf))
        self.assertEqual(set(codes), {code for page in read for code in page})

        stock = self.shop.stock()
        self.book(codes := sorted({code for page in read for code in page}))
        for code in codes:
            self.assertEqual(int(stock[code]) + quantities[code], int(self.shop.stock()[code]))
        program.wait_idle()
        self.end(program)
        self.assertWhole()

    def test_a_printed_sheet_of_function_codes_drives_the_program(self):
        code, = self.plain_codes(1)
        program = self.open()
        self.book([code])
        self.open_labels(program)
        # Enter walks to the two boxes of the function codes; the space bar ticks them.
        self.screen.press(*["Return"] * 18)
        self.screen.press("space", *["Return"] * 3)
        self.screen.press("space")
        program.wait_idle()
        read, = bar_codes(self.print_labels(program, "functions"))
        functions = [f"[{function}]" for function in "01234ABCDE"]
        self.assertEqual(sorted([code, *functions]), read)
        settings = self.shop.settings("AppIni.ini")
        self.assertEqual(("1", "1", "5"), tuple(settings["Label3", key] for key in ("Kinou0", "Kinou1", "PageRows")))

        label = next(text for text in read if not text.startswith("["))
        switch = {text[1]: text for text in read if text.startswith("[")}
        shipped = float(self.shop.rows("SELECT SyuSuu FROM Master WHERE Code = ?", code)[0][0])
        before = float(self.shop.stock()[code])
        for tab in "2", "3", "4", "1":
            self.reader.scan(switch[tab])
            program.wait_idle()
        self.reader.scan(label)
        wait_for("a shipment in the database", lambda: self.shop.count("OutTB") == 1)
        self.assertEqual(before - shipped, float(self.shop.stock()[code]))
        program.wait_idle()
        self.reader.scan(switch["E"])  # searches the shipments of today
        self.reader.scan(switch["0"])
        program.wait_idle()
        self.book([label])
        self.assertEqual([(code,), (code,)], self.receipts("Code"))
        program.wait_idle()
        self.end(program)
        self.assertWhole()

    def test_a_cancelled_printer_keeps_the_dialog_a_reader_leaves_it(self):
        code, = self.plain_codes(1)
        program = self.open()
        self.book([code])
        self.open_labels(program)
        self.reader.scan("[P]")
        self.screen.answer(PRINTER, "Escape")
        self.screen.wait_active(LABELS)
        self.reader.scan(code)  # means nothing in a dialog
        self.reader.scan("[T]")
        self.screen.wait_active(desk.MAIN_WINDOW)
        program.wait_idle()
        self.assertEqual([], list(self.home.rglob("*.pdf")))
        self.assertEqual(1, self.shop.count("InpTB"))
        self.end(program)

    def test_an_empty_grid_is_refused(self):
        program = self.open()
        program.wait_idle()
        self.reader.scan("[N]")
        self.screen.wait_active(LABELS)
        self.screen.press("Return")
        self.screen.wait_active(desk.MAIN_WINDOW)
        program.wait_idle()
        self.end(program)

    def test_a_full_disk_is_reported_and_the_work_goes_on(self):
        first, second = self.plain_codes(2)
        program = self.open()
        self.book([first])
        self.open_labels(program)
        self.reader.scan("[P]")
        self.screen.wait_active(PRINTER)
        program.wait_idle()
        dialog = self.screen.active_window()
        self.screen.press("alt+f", "ctrl+a", "slash", *"dev", "slash", *"full", "Return")
        self.screen.wait_in_front_of(dialog)  # the question whether to overwrite
        self.screen.answer(PRINTER, "alt+y")
        self.screen.answer(PRINT_ERROR)
        self.screen.wait_active(desk.MAIN_WINDOW)
        program.wait_idle()
        self.book([second])
        program.wait_idle()
        self.close_window()
        self.screen.answer(desk.END_DIALOG)
        self.assertEqual(0, program.ended())  # the library itself may have complained about the device


if __name__ == "__main__":
    main()

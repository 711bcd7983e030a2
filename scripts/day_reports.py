"""The three lists of the sample day on paper: stock, receipts, shipments, each printed to a PDF."""

import pathlib
import time

import desk

PAGES, PRINTER = " 一覧印刷", "印刷"
STOCK = "[2]"
LISTS = {STOCK: "在庫商品 一覧", "[3]": "入荷商品 一覧", "[4]": "出荷商品 一覧"}


def prepare(screen, folder):
    """Hides the printers of this machine, so that the dialog offers a PDF in the folder."""
    screen.environment["CUPS_SERVER"] = "/none"
    screen.environment["HOME"] = str(pathlib.Path(folder).resolve())


def wait_whole(file):
    desk.wait_for(f"{file.name} is whole", lambda: desk.is_whole_pdf(file))


def _print(day, screen, reader, folder, tab, name):
    file = pathlib.Path(folder) / f"{name} {time.strftime('%Y-%m-%d')}.pdf"
    reader.scan(tab)
    day.picture(f"list-{tab.strip('[]')}-empty")  # the tab is there, with its code field ready
    reader.scan("*")
    if tab != STOCK:
        reader.scan("[E]")
    day.picture(f"list-{tab.strip('[]')}")
    reader.scan("[F]")
    screen.wait_active(PAGES)
    day.picture("list-pages")
    reader.scan("[P]")
    screen.answer(PRINTER, picture=pathlib.Path(folder) / "list-printer.png")
    screen.wait_gone(PAGES)
    wait_whole(file)
    print(f"scan [F], [P]          {file.name}  {file.stat().st_size // 1024} KB")


def work(day, screen, reader, folder):
    for tab, name in LISTS.items():
        _print(day, screen, reader, folder, tab, name)
    reader.scan("[0]")

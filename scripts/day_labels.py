"""Labels on the sample day: as many as came in for the day's receipts, and a sheet with the function codes. The PDFs
stay beside the pictures."""

import pathlib

import desk

LABELS, PRINTER = "バーコード印刷", "印刷"
PAPER = LABELS.removesuffix("印刷")  # name of the PDF files
# Enters from the combo box of rows to the box of the screen codes, and from there to that of the search codes.
TO_SCREEN_CODES, TO_SEARCH_CODES = 20, 3


def _print(day, screen, reader, folder, *keys, picture):
    """One sheet: the reader opens the dialog, operates it with key codes, and confirms."""
    before = set(folder.glob(f"{PAPER}*.pdf"))
    reader.scan("[N]")
    screen.wait_active(LABELS)
    for key in keys:
        reader.scan(key)
    day.picture(picture)
    reader.scan("[P]")
    screen.answer(PRINTER)
    screen.wait_active(desk.MAIN_WINDOW)
    new = set(folder.glob(f"{PAPER}*.pdf")) - before
    day.expect(f"one PDF, not {new}", len(new) == 1)
    file = new.pop()
    day.expect(f"{file.name} is whole", desk.is_whole_pdf(file))
    print(f"scan [N], [P]          {file.name}  {file.stat().st_size // 1024} KB")


def work(day, screen, reader, folder):
    folder = pathlib.Path(folder)
    reader.scan("[0]")
    reader.scan("[M]")  # as many labels as the quantity says
    _print(day, screen, reader, folder, picture="labels")
    # The marks are used up, so the rows are named: the second entry proposes those from the cursor on.
    reader.scan("[L]")
    _print(day, screen, reader, folder, "{DOWN}", "{ENTER %d}" % TO_SCREEN_CODES, "{ }",
           "{ENTER %d}" % TO_SEARCH_CODES, "{ }", picture="labels-functions")

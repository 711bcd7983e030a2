"""The history on the sample day: the day's movements leave the working database for a history file and come back, and
no stock figure changes."""

import desk

EXTENSION_DIALOG, PERIOD_DIALOG, FILE_DIALOG = " 履歴ファイルの拡張子", " 履歴の保存", " ファイルの選択"
CONFIRMATION, SAVED, LOADED = "決定の確認", "保存の完了", "読込の完了"
EXTENSION = "hst"


def _movements(shop):
    return (shop.rows("SELECT * FROM InpTB ORDER BY InpDate, Code"),
            shop.rows("SELECT * FROM OutTB ORDER BY InpDate, Code"))


def work(day, shop, screen, reader):
    """Saves the month from today on into the program folder and loads it back."""
    before, stock = _movements(shop), shop.stock()

    reader.scan("[Q]")
    screen.wait_active(EXTENSION_DIALOG)
    day.picture("history-extension")
    reader.scan("{" + "}{".join(EXTENSION) + "}{ENTER 2}")  # Enter moves to the button, Enter presses it
    screen.wait_active(PERIOD_DIALOG)
    day.picture("history-period")
    reader.scan("[P]")
    screen.wait_active(FILE_DIALOG)
    day.picture("history-folder")
    reader.scan("[P]")
    screen.answer(CONFIRMATION)
    screen.wait_active(SAVED)
    day.picture("history-saved")
    screen.answer(SAVED)
    listed = shop.rows("SELECT DateFrom, DateTo, FileSize FROM RirekiTB WHERE DateFrom <> 'Trn'")
    day.expect("one period is listed", len(listed) == 1)
    file = shop.folder / f"RRK{listed[0][0]}-{listed[0][1]}.{EXTENSION}"
    day.expect(f"{file.name} is there, with the size on the list", str(file.stat().st_size) == listed[0][2])
    day.expect("the tables are empty", _movements(shop) == ([], []))
    day.expect("no stock figure has moved", shop.stock() == stock)
    carried = dict(shop.rows("SELECT Code, KuriSuu FROM ZaikoTB"))
    day.expect("all stock is carried forward",
               {code: float(figure) for code, figure in carried.items()}
               == {code: float(figure) for code, figure in stock.items()})
    print(f"scan [Q], [P], [P]     {file.name}  {len(before[0])} 入荷  {len(before[1])} 出荷  {listed[0][2]} bytes")

    reader.scan("[S]")
    screen.wait_active(FILE_DIALOG)
    day.picture("history-file")
    reader.scan("{HOME}{ENTER}")  # the first file
    screen.answer(CONFIRMATION)
    screen.answer(LOADED)
    day.expect("every movement is back", _movements(shop) == before)
    day.expect("no stock figure has moved", shop.stock() == stock)
    day.expect("the file is gone", not file.exists())
    print(f"scan [S], Home, Enter  {len(before[0])} 入荷  {len(before[1])} 出荷  back; no stock figure moved")

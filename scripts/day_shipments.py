"""Goods going out on the sample day: a shipment that leaves too little, one into the negative, a correction of
quantity and returns, and a cancelled shipment."""

import desk

UPDATE, UPDATED = "更新の確認", "更新の完了"
DELETE, DELETED = "削除の確認", "削除の完了"
LOW, NEGATIVE = " 最低在庫数 未満", " 在庫不足"
FROM_QUANTITY_TO_GOOD_RETURNS = 7  # columns


def _code(shop, condition):
    """A goods code whose next shipment meets the condition."""
    rows = shop.rows("SELECT Master.Code FROM Master LEFT JOIN ZaikoTB ON ZaikoTB.Code = Master.Code"
                     " WHERE length(Master.Code) = 13 AND CAST(SyuSuu AS REAL) > 0 AND " + condition +
                     " ORDER BY Master.Code LIMIT 1")
    if not rows:
        raise desk.DeskError(f"the sample has no goods with {condition}")
    return rows[0][0]


def _ship(day, shop, screen, reader, code, box):
    """One scan at the shipment tab; the box, if any, names what is wrong with the stock."""
    before, rows = shop.stock().get(code, "0"), shop.count("OutTB")
    quantity = float(shop.rows("SELECT SyuSuu FROM Master WHERE Code = ?", code)[0][0])
    reader.scan(code)
    if box:
        screen.answer(box)
    desk.wait_for(f"the shipment of {code}", lambda: shop.count("OutTB") == rows + 1)
    after = shop.stock()[code]
    day.expect(f"the stock of {code} falls by {quantity:g}: {before} → {after}",
               float(after) == float(before) - quantity)
    row = shop.rows("SELECT SyuDate, SyuTime, SyuSuu, Name, SysName, TanName, InpDate FROM OutTB"
                    " ORDER BY InpDate DESC LIMIT 1")[0]
    print(f"scan {code:<15}  出荷 {row[0]} {row[1]}  数量 {row[2]}  {row[3]}  （{row[4]}、{row[5]}）")
    print(f"                      在庫 {code:<14} {before} → {after}"
          + (f"   box ｢{box.strip()}｣" if box else ""))
    desk.wait_past(row[6])


def work(day, shop, screen, reader):
    reader.scan("[1]")
    print("scan [1]               the shipment tab")
    partner = shop.rows("SELECT Code, Name FROM KokyakuTB WHERE SyuKyk <> '' ORDER BY Code DESC LIMIT 1")[0]
    reader.scan(f"#{partner[0]}#")
    print(f"scan #{partner[0]}#{'':<11}  出荷先: {partner[1]}")
    plain = "CAST(ZaikoSuu AS REAL) - CAST(SyuSuu AS REAL) "
    low = _code(shop, plain + ">= 0 AND " + plain + "< CAST(Stock AS REAL)")
    _ship(day, shop, screen, reader, low, LOW)
    negative = _code(shop, "COALESCE(CAST(ZaikoSuu AS REAL), 0) < CAST(SyuSuu AS REAL)"
                           " AND CAST(Stock AS REAL) >= 0")
    _ship(day, shop, screen, reader, negative, NEGATIVE)
    enough = _code(shop, plain + ">= CAST(Stock AS REAL) + 5")
    _ship(day, shop, screen, reader, enough, None)

    # The cursor is in the quantity of the new row: three pieces more, one of them returned in good order.
    quantity = round(float(shop.rows("SELECT SyuSuu FROM Master WHERE Code = ?", enough)[0][0])) + 3
    before = float(shop.stock()[enough])
    reader.scan("{" + "}{".join(str(quantity)) + "}{TAB %d}{1}{ENTER}" % FROM_QUANTITY_TO_GOOD_RETURNS)
    day.picture("shipment-corrected")
    reader.scan("[I]")
    screen.answer(UPDATE, "y")
    screen.answer(UPDATED)
    stored = shop.rows("SELECT SyuSuu, RHenkyaku, FHenkyaku FROM OutTB ORDER BY InpDate DESC LIMIT 1")[0]
    day.expect(f"quantity and return are stored: {stored}", stored == (f"{quantity:07d}", "0000001", "0000000"))
    day.expect("the stock falls by the difference alone", float(shop.stock()[enough]) == before - 3)
    print(f"scan [I]               更新  数量 {quantity}、良品返品 1   在庫 {enough} {before:g} → "
          f"{shop.stock()[enough]}")

    rows, before = shop.count("OutTB"), float(shop.stock()[enough])
    reader.scan("[J]")
    screen.answer(DELETE, "y")
    screen.answer(DELETED)
    day.expect("the row is gone", shop.count("OutTB") == rows - 1)
    day.expect("its pieces are back in stock", float(shop.stock()[enough]) == before + quantity)
    print(f"scan [J]               削除   在庫 {enough} {before:g} → {shop.stock()[enough]}")
    day.picture("shipment")
    reader.scan("[0]")

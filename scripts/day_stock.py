"""The stock on the sample day, from the reader alone: what has run low, and how the figures came about."""


def work(day, shop, reader):
    reader.scan("[2]")
    reader.scan("[C]")  # below the minimum only
    reader.scan("*")
    day.picture("stock-low")
    low = shop.rows("SELECT count(*) FROM ZaikoTB JOIN Master ON Master.Code = ZaikoTB.Code"
                    " WHERE CAST(Stock AS REAL) > CAST(ZaikoSuu AS REAL)")[0][0]
    print(f"scan [2], [C], *       在庫: {low} goods below their minimum")
    reader.scan("[B]")
    day.picture("stock-detail")
    print("scan [B]               在庫: how each figure came about")
    reader.scan("[A]")
    reader.scan("[0]")

// Searching the stock for single codes: they are added on top, and for each that is not shown a box says why.
#include "tests/lists/StockTest.h"
#include "tests/support/ExpectBox.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

const QColor red(255, 0, 0);

} // namespace

TEST_F(StockTest, codesGatherOnTop_asAPickList)
{
    fillShop();
    search(u"B2"_s);
    EXPECT_EQ(codes(), "B2 ");
    search(u"A1"_s); // the master says a1
    EXPECT_EQ(codes(), "a1 B2 ");
    EXPECT_EQ(text(StockCells::index, 1), "2");
    EXPECT_EQ(headings(), searched);
    EXPECT_EQ(grid().ActiveRow(), 1);
    EXPECT_EQ(grid().ActiveCol(), StockCells::quantity);
    EXPECT_EQ(grid().rowBackColor(2), QColor(Qt::white));
    EXPECT_TRUE(grid().rowBackColor(1) == focusColor || grid().rowBackColor(1) == barWithoutFocus);
}

TEST_F(StockTest, shownCode_isFoundWhateverItsLetterCase_andNotReadAgain)
{
    fillShop();
    search(u"*"_s);
    db.Execute("UPDATE ZaikoTB SET ZaikoSuu='9999' WHERE Code='a1'");
    db.Commit();
    grid().SetActiveCell(StockCells::quantity, 3);
    search(u"A1"_s);
    EXPECT_EQ(grid().MaxRows(), 3);
    EXPECT_EQ(grid().ActiveRow(), 1);
    EXPECT_EQ(text(StockCells::quantity, 1), "1,200");
}

TEST_F(StockTest, unknownCode_isReported)
{
    fillShop();
    search(u"*"_s);
    box.shown.clear();
    search(u"4999"_s);
    expectOneBox(
        box,
        {.title = u"商品 未登録エラー"_s,
         .text =
             u"入力された コード 「 4999 」 は\r\n「商品」 に登録されていません。\r\n\r\n登録されているコードを入力して下さい。　　　"_s,
         .icon = BoxIcon::Stop});
    EXPECT_EQ(codes(), "a1 B2 D4 ");
    EXPECT_TRUE(frame.enabled);
}

TEST_F(StockTest, codeThatTheBoxesHide_isReported_andViewSwitchesDoNothing)
{
    fillShop();
    search(u"*"_s);
    search(u"C3"_s); // its stock is zero
    expectOneBox(
        box,
        {.title = u" 在庫数 非該当"_s,
         .text =
             u"入力された コード 「 C3 」 は\r\n表示条件の\r\n「最低在庫数未満のみ表示」 「在庫数０も表示」 に　　　\r\n該当しませんでした。\r\n\r\n　 表示条件をかえて、再度、検索して下さい。　　"_s,
         .icon = BoxIcon::Exclamation});
    EXPECT_EQ(codes(), "a1 B2 D4 ");
    EXPECT_EQ(db.ZaikoViewTbl().Count(), 0);
    detail().setChecked(true);
    EXPECT_EQ(grid().MaxRows(), 3) << "there are no rows to show in another view";
}

TEST_F(StockTest, codeOfTheMasterWithoutStock_isNotUnderTheConditionsEither)
{
    fillShop();
    search(u"E5"_s);
    ASSERT_EQ(box.shown.size(), 1U);
    EXPECT_EQ(box.shown[0].title, u" 在庫数 非該当"_s);
}

TEST_F(StockTest, stockWithoutGoodsInTheMaster_isUnknown_andNotShown)
{
    fillShop();
    shop.add(zaikoTable, {"GONE", "5", "0", "s", "s"});
    search(u"*"_s);
    EXPECT_EQ(codes(), "a1 B2 D4 ");
    search(u"GONE"_s);
    ASSERT_EQ(box.shown.size(), 1U);
    EXPECT_EQ(box.shown[0].title, u"商品 未登録エラー"_s);
}

TEST_F(StockTest, scannedTexts_changeNoStatement)
{
    fillShop();
    for (const QString& text : {u"x' OR '1'='1"_s, u"*'; DELETE FROM ZaikoTB; --"_s, u"a\x01*"_s}) {
        box.shown.clear();
        search(text);
        ASSERT_EQ(box.shown.size(), 1U) << text.toStdString();
        EXPECT_EQ(box.shown[0].title, u"商品 未登録エラー"_s);
    }
    box.shown.clear();
    for (const QString& text : {u"[a]*"_s, u"{*}"_s, u"%*"_s, u"***???***???***"_s})
        search(text);
    EXPECT_TRUE(box.shown.empty());
    EXPECT_EQ(grid().MaxRows(), 0);
    EXPECT_EQ(shop.query("SELECT COUNT(*) FROM ZaikoTB"), std::vector<std::string>{"4"});
    goods("1234567890123456", "長い", "1");
    search(u"1234567890123456"_s);
    EXPECT_EQ(codes(), "1234567890123456 ");
}

TEST_F(StockTest, figureThatIsNotANumber_isShownAsItIs)
{
    fillShop();
    goods("F6", "壊れた", "many", "3");
    search(u"*"_s);
    EXPECT_EQ(codes(), "a1 B2 D4 F6 ");
    EXPECT_EQ(text(StockCells::quantity, 4), "many");
    EXPECT_EQ(grid().cellForeColor(StockCells::quantity, 4), red);
    detail().setChecked(true);
    EXPECT_EQ(codes(), "a1 B2 D4 F6 ");
    EXPECT_EQ(text(StockCells::name, grid().MaxRows()), "　③ 出荷")
        << "the block ends where it cannot be computed";
}

} // namespace suisui::test

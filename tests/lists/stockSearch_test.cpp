// Searching the stock: patterns, single codes, check boxes, views, sorting, and what the operator sees of
// each.
#include <QPushButton>

#include "tests/lists/StockDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

const QColor red(255, 0, 0);
const QColor purple(192, 0, 192);
const QColor yellow(255, 255, 0);

class StockTest : public ::testing::Test, protected StockDesk
{
protected:
    void furnish()
    {
        goods("B2", "消しゴム", "3", "10");
        goods("a1", "鉛筆", "1200", "5", "0", "1500", "2480", "本");
        goods("C3", "糊", "0", "2");
        goods("D4", "定規", "-7", "0");
        goods("E5", "倉庫にない", ""); // in the master only
    }
};

const std::string plain = "コード|名称|在庫数|入荷単価|出荷単価|値引き|合計|単位|最低在庫";
const std::string searched = "コード▲ |名称▽ |在庫数▽|入荷単価▽|出荷単価▽|－|－|単位▽|最低在庫▽";
const QString question =
    u"検索結果のデータが多いため\r\n表示に時間が掛かる可能性があります。　　　\r\n\r\n　　　（検索結果： %1 件）\r\n\r\n表示を行っても、よろしいですか？"_s;

} // namespace

// ---- pattern

TEST_F(StockTest, starAlone_showsAllStock_byCode_withMasksAndHeadings)
{
    furnish();
    zero().setChecked(true);
    search(u"*"_s);
    EXPECT_EQ(codes(), "a1 B2 C3 D4 ");
    EXPECT_EQ(row(1), "a1|鉛筆|1,200|1,500|2,480|||本|5");
    EXPECT_EQ(text(10, 1), "1");
    EXPECT_EQ(headings(), searched);
    EXPECT_EQ(grid().ActiveCol(), 3);
    EXPECT_EQ(grid().ActiveRow(), 1);
    EXPECT_TRUE(frame.enabled);
    EXPECT_TRUE(box.shown.empty());
    EXPECT_TRUE(frame.waitTags.empty());
    EXPECT_TRUE(grid().ReDraw());
}

TEST_F(StockTest, stockOfZero_showsOnlyWhenWanted)
{
    furnish();
    search(u"*"_s);
    EXPECT_EQ(codes(), "a1 B2 D4 ");
}

TEST_F(StockTest, figureIsColoured_whereThereIsTooLittle)
{
    furnish();
    zero().setChecked(true);
    search(u"*"_s);
    const auto look = [this](int row) {
        return std::pair(grid().cellForeColor(3, row), grid().cellBold(3, row));
    };
    EXPECT_EQ(look(1), std::pair(QColor(), false));
    EXPECT_EQ(look(2), std::pair(purple, true)); // 3 of 10
    EXPECT_EQ(look(3), std::pair(red, true));    // 0 of 2
    EXPECT_EQ(look(4), std::pair(red, true));    // -7 of 0
}

TEST_F(StockTest, wildcards_matchAsTheySay)
{
    furnish();
    goods("A10", "鉛筆 2B", "1");
    search(u"a*"_s);
    EXPECT_EQ(codes(), "a1 A10 ");
    search(u"?1"_s);
    EXPECT_EQ(codes(), "a1 ");
    search(u"????????"_s);
    EXPECT_EQ(grid().MaxRows(), 0);
}

TEST_F(StockTest, patternWithoutResult_emptiesTheGrid_andLeavesTheHeadings)
{
    furnish();
    search(u"*"_s);
    search(u"X*"_s);
    EXPECT_EQ(grid().MaxRows(), 0);
    EXPECT_EQ(headings(), searched);
    EXPECT_TRUE(box.shown.empty());
    EXPECT_TRUE(frame.enabled);
}

TEST_F(StockTest, enterOnTheEmptyField_emptiesGridAndRowSet_underPlainHeadings)
{
    furnish();
    search(u"*"_s);
    EXPECT_EQ(db.ZaikoViewTbl().Count(), 3);
    search(QString());
    EXPECT_EQ(grid().MaxRows(), 0);
    EXPECT_EQ(db.ZaikoViewTbl().Count(), 0);
    EXPECT_EQ(headings(), plain);
    EXPECT_TRUE(frame.enabled);
}

TEST_F(StockTest, firstSight_isTheEmptyGrid_andKeepsTheField)
{
    furnish();
    page.barCodeField()->setText(u"a1"_s);
    frame.loaded[2] = false;
    page.firstShow();
    EXPECT_EQ(page.barCodeField()->text(), u"a1"_s);
    EXPECT_EQ(grid().MaxRows(), 0);
    EXPECT_TRUE(frame.TabLoaded(Tab::Stock)) << "else the next sight would empty what was searched meanwhile";
}

TEST_F(StockTest, lowBox_ticksTheZeroBox_butNotTheOtherWayRound)
{
    furnish();
    low().setChecked(true);
    EXPECT_TRUE(zero().isChecked());
    search(u"*"_s);
    EXPECT_EQ(codes(), "B2 C3 D4 ");
    zero().setChecked(false);
    EXPECT_TRUE(low().isChecked());
    search(u"*"_s);
    EXPECT_EQ(codes(), "B2 D4 ");
    low().setChecked(false);
    zero().setChecked(true);
    EXPECT_FALSE(low().isChecked());
}

TEST_F(StockTest, tickedBox_staysMarkedWhenTheFocusLeaves)
{
    const auto look = [](const QCheckBox& which) {
        return std::tuple(which.palette().color(QPalette::Window),
                          which.palette().color(QPalette::WindowText), which.font().pixelSize());
    };
    low().setChecked(true); // ticks and marks the zero box
    EXPECT_EQ(look(zero()), std::tuple(yellow, red, 16));
    StockPage::check_LostFocus(low());
    EXPECT_EQ(look(low()), std::tuple(yellow, red, 16));
    low().setChecked(false);
    StockPage::check_LostFocus(low());
    EXPECT_EQ(std::get<2>(look(low())), 14);
    EXPECT_EQ(std::get<1>(look(low())), page.palette().color(QPalette::WindowText));
}

TEST_F(StockTest, boxesChangeNothing_untilTheNextSearch)
{
    furnish();
    search(u"*"_s);
    low().setChecked(true);
    EXPECT_EQ(codes(), "a1 B2 D4 ");
    detail().setChecked(true); // a switch of the view keeps the rows that were selected
    EXPECT_EQ(codes(), "a1 B2 D4 ");
}

TEST_F(StockTest, searchButton_isEnterInTheField)
{
    furnish();
    page.barCodeField()->setText(u"*"_s);
    control<QPushButton>("cmdZKensaku").click();
    EXPECT_EQ(codes(), "a1 B2 D4 ");
}

// ---- how many rows

TEST_F(StockTest, aThousandRowsLoadUnasked_andOneMoreAsks)
{
    manyGoods(1001);
    search(u"G0*"_s);
    ASSERT_EQ(box.shown.size(), 1U);
    EXPECT_EQ(box.shown[0].title, u"表示の確認"_s);
    EXPECT_EQ(box.shown[0].text, question.arg(1001));
    EXPECT_EQ(box.shown[0].icon, BoxIcon::Question);
    EXPECT_EQ(grid().MaxRows(), 0) << "No keeps what the grid showed";
    EXPECT_EQ(db.ZaikoViewTbl().Count(), 0);
    EXPECT_TRUE(frame.enabled);
    box.answers = {BoxAnswer::Yes};
    search(u"G0*"_s);
    EXPECT_EQ(grid().MaxRows(), 1001);
    EXPECT_EQ(frame.waitTags, std::vector<QString>{u"在庫検索"_s});
    EXPECT_EQ(frame.waitMaximum, 1001);
    EXPECT_EQ(frame.waitValue, 1001);
    shop.add(zaikoTable, {"x", "1", "0", "s", "s"});
    db.Execute("DELETE FROM ZaikoTB WHERE Code='G01001'");
    db.Commit();
    box.shown.clear();
    frame.waitTags.clear();
    search(u"G*"_s);
    EXPECT_TRUE(box.shown.empty());
    EXPECT_TRUE(frame.waitTags.empty());
    EXPECT_EQ(grid().MaxRows(), 1000);
}

TEST_F(StockTest, detailView_asksBeyondFiveHundred_andWaitsBeyondThirty)
{
    manyGoods(501);
    detail().setChecked(true);
    search(u"*"_s);
    ASSERT_EQ(box.shown.size(), 1U);
    EXPECT_EQ(box.shown[0].text, question.arg(501));
    box.shown.clear();
    search(u"G00??0"_s); // 50
    EXPECT_TRUE(box.shown.empty());
    EXPECT_EQ(frame.waitTags.size(), 1U);
    frame.waitTags.clear();
    db.Execute("DELETE FROM ZaikoTB WHERE CDbl(ZaikoSuu) > 500");
    db.Commit();
    search(u"*"_s); // exactly 500
    EXPECT_TRUE(box.shown.empty());
    EXPECT_EQ(grid().MaxRows(), 500 * 7);
    db.Execute("DELETE FROM ZaikoTB WHERE CDbl(ZaikoSuu) > 30");
    db.Commit();
    frame.waitTags.clear();
    search(u"*"_s); // exactly 30
    EXPECT_TRUE(frame.waitTags.empty());
    EXPECT_EQ(grid().MaxRows(), 30 * 7);
}

// ---- single codes

TEST_F(StockTest, codesGatherOnTop_asAPickList)
{
    furnish();
    search(u"B2"_s);
    EXPECT_EQ(codes(), "B2 ");
    search(u"A1"_s); // the master says a1
    EXPECT_EQ(codes(), "a1 B2 ");
    EXPECT_EQ(text(10, 1), "2");
    EXPECT_EQ(headings(), searched);
    EXPECT_EQ(grid().ActiveRow(), 1);
    EXPECT_EQ(grid().ActiveCol(), 3);
    EXPECT_EQ(grid().rowBackColor(2), QColor(Qt::white));
    EXPECT_TRUE(grid().rowBackColor(1) == focusColor || grid().rowBackColor(1) == barWithoutFocus);
}

TEST_F(StockTest, shownCode_isFoundWhateverItsLetterCase_andNotReadAgain)
{
    furnish();
    search(u"*"_s);
    db.Execute("UPDATE ZaikoTB SET ZaikoSuu='9999' WHERE Code='a1'");
    db.Commit();
    grid().SetActiveCell(3, 3);
    search(u"A1"_s);
    EXPECT_EQ(grid().MaxRows(), 3);
    EXPECT_EQ(grid().ActiveRow(), 1);
    EXPECT_EQ(text(3, 1), "1,200");
}

TEST_F(StockTest, unknownCode_isTold)
{
    furnish();
    search(u"*"_s);
    box.shown.clear();
    search(u"4999"_s);
    ASSERT_EQ(box.shown.size(), 1U);
    EXPECT_EQ(box.shown[0].title, u"商品 未登録エラー"_s);
    EXPECT_EQ(box.shown[0].icon, BoxIcon::Stop);
    EXPECT_EQ(
        box.shown[0].text,
        u"入力された コード 「 4999 」 は\r\n「商品」 に登録されていません。\r\n\r\n登録されているコードを入力して下さい。　　　"_s);
    EXPECT_EQ(codes(), "a1 B2 D4 ");
    EXPECT_TRUE(frame.enabled);
}

TEST_F(StockTest, codeThatTheBoxesHide_isTold_andTheViewSwitchesDoNothingAfterwards)
{
    furnish();
    search(u"*"_s);
    search(u"C3"_s); // its stock is zero
    ASSERT_EQ(box.shown.size(), 1U);
    EXPECT_EQ(box.shown[0].title, u" 在庫数 非該当"_s);
    EXPECT_EQ(box.shown[0].icon, BoxIcon::Exclamation);
    EXPECT_EQ(
        box.shown[0].text,
        u"入力された コード 「 C3 」 は\r\n表示条件の\r\n「最低在庫数未満のみ表示」 「在庫数０も表示」 に　　　\r\n該当しませんでした。\r\n\r\n　 表示条件をかえて、再度、検索して下さい。　　"_s);
    EXPECT_EQ(codes(), "a1 B2 D4 ");
    EXPECT_EQ(db.ZaikoViewTbl().Count(), 0);
    detail().setChecked(true);
    EXPECT_EQ(grid().MaxRows(), 3) << "there are no rows to show in another view";
}

TEST_F(StockTest, codeOfTheMasterWithoutStock_isNotUnderTheConditionsEither)
{
    furnish();
    search(u"E5"_s);
    ASSERT_EQ(box.shown.size(), 1U);
    EXPECT_EQ(box.shown[0].title, u" 在庫数 非該当"_s);
}

TEST_F(StockTest, stockWhoseGoodsHaveLeftTheMaster_isNoCodeAndNotShown)
{
    furnish();
    shop.add(zaikoTable, {"GONE", "5", "0", "s", "s"});
    search(u"*"_s);
    EXPECT_EQ(codes(), "a1 B2 D4 ");
    search(u"GONE"_s);
    ASSERT_EQ(box.shown.size(), 1U);
    EXPECT_EQ(box.shown[0].title, u"商品 未登録エラー"_s);
}

TEST_F(StockTest, scannedTexts_changeNoStatement)
{
    furnish();
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

TEST_F(StockTest, figureThatIsNoNumber_isShownAsItStands)
{
    furnish();
    goods("F6", "壊れた", "many", "3");
    search(u"*"_s);
    EXPECT_EQ(codes(), "a1 B2 D4 F6 ");
    EXPECT_EQ(text(3, 4), "many");
    EXPECT_EQ(grid().cellForeColor(3, 4), red);
    detail().setChecked(true);
    EXPECT_EQ(codes(), "a1 B2 D4 F6 ");
    EXPECT_EQ(text(2, grid().MaxRows()), "　③ 出荷") << "the block ends where it cannot be reckoned";
}

// ---- keys

TEST_F(StockTest, fieldTakesThirteenCharacters_fromWhichOnBackspaceAndEnterPass)
{
    furnish();
    page.barCodeField()->setText(u"1234567890123"_s);
    const auto after = [this](int key) {
        page.barCode_KeyPress(key);
        return key;
    };
    EXPECT_EQ(after('4'), 0);
    EXPECT_EQ(after(8), 8);
    page.barCodeField()->selectAll();
    EXPECT_EQ(after('4'), '4') << "a selection can be typed over";
    page.barCodeField()->setText(u"1"_s);
    EXPECT_EQ(after('*'), '*');
    EXPECT_EQ(after('?'), '?');
    EXPECT_EQ(after('\''), 0);
}

TEST_F(StockTest, whileASearchRuns_otherKeysAreIgnored)
{
    manyGoods(1001);
    box.onShow = [this](const Box&) {
        int key = 13;
        page.barCode_KeyPress(key);
        EXPECT_EQ(key, 0);
        box.answers = {BoxAnswer::Yes};
    };
    search(u"*"_s);
    EXPECT_EQ(box.shown.size(), 1U);
    EXPECT_EQ(grid().MaxRows(), 1001);
}

// ---- views

TEST_F(StockTest, viewSwitches_rebuildFromTheRowsThatAreHeld)
{
    furnish();
    search(u"*"_s);
    db.Execute("UPDATE ZaikoTB SET ZaikoSuu='9999' WHERE Code='a1'");
    db.Commit();
    detail().setChecked(true);
    EXPECT_EQ(headings(), plain);
    EXPECT_EQ(grid().MaxRows(), 3 * 7);
    EXPECT_EQ(text(3, 1), "1,200");
    EXPECT_EQ(grid().rowBackColor(8), yellow);
    EXPECT_NE(grid().rowBackColor(9), yellow);
    EXPECT_TRUE(frame.enabled);
    normal().setChecked(true);
    EXPECT_EQ(headings(), searched);
    EXPECT_EQ(grid().MaxRows(), 3);
}

TEST_F(StockTest, detailOfManyGoods_asks_andNoGoesBackToTheNormalView)
{
    manyGoods(501);
    search(u"*"_s);
    EXPECT_TRUE(box.shown.empty());
    detail().setChecked(true);
    ASSERT_EQ(box.shown.size(), 1U);
    EXPECT_EQ(box.shown[0].text, question.arg(501));
    EXPECT_TRUE(normal().isChecked());
    EXPECT_EQ(grid().MaxRows(), 501);
    EXPECT_EQ(headings(), searched);
}

TEST_F(StockTest, insertedGoods_turnYellowOnlyWhenTheBarLeaves)
{
    furnish();
    detail().setChecked(true);
    search(u"B2"_s);
    EXPECT_EQ(grid().MaxRows(), 7);
    EXPECT_NE(grid().rowBackColor(1), yellow);
    search(u"a1"_s);
    EXPECT_EQ(codes(), "a1 B2 ");
    EXPECT_NE(grid().rowBackColor(1), yellow);
    EXPECT_EQ(grid().rowBackColor(8), yellow) << "the bar has left it";
    EXPECT_EQ(text(2, 2), "　① 入荷");
}

// ---- sorting

TEST_F(StockTest, headingClick_sortsWordsRisingAndFiguresFalling)
{
    furnish();
    goods("F6", "鉛筆", "3", "10", "0", "50", "80", "本");
    zero().setChecked(true);
    search(u"*"_s);
    const auto click = [this](int col) {
        Q_EMIT grid().HeadingClick(col);
        return codes();
    };
    EXPECT_EQ(click(3), "a1 B2 F6 C3 D4 "); // 1200, 3, 3, 0, -7
    EXPECT_EQ(headings(), "コード▽ |名称▽ |在庫数▲|入荷単価▽|出荷単価▽|－|－|単位▽|最低在庫▽");
    EXPECT_EQ(click(1), "a1 B2 C3 D4 F6 ");
    EXPECT_EQ(headings(), searched);
    EXPECT_EQ(click(9), "B2 F6 a1 C3 D4 ");
    EXPECT_EQ(click(4), "a1 B2 C3 D4 F6 ");
    EXPECT_EQ(click(8), "B2 C3 D4 a1 F6 "); // 個 before 本
    EXPECT_EQ(headings(), "コード▽ |名称▽ |在庫数▽|入荷単価▽|出荷単価▽|－|－|単位▲|最低在庫▽");
    click(2);
    EXPECT_EQ(headings(), "コード▽ |名称▲ |在庫数▽|入荷単価▽|出荷単価▽|－|－|単位▽|最低在庫▽");
    EXPECT_LT(codes().find("a1"), codes().find("F6")) << "equal names stand by their codes";
    EXPECT_EQ(text(10, 1).size(), 1U);
    EXPECT_TRUE(frame.enabled);
}

TEST_F(StockTest, headingsWithoutOrder_doNothing)
{
    furnish();
    search(u"*"_s);
    Q_EMIT grid().HeadingClick(6);
    Q_EMIT grid().HeadingClick(7);
    EXPECT_EQ(headings(), searched);
    detail().setChecked(true);
    Q_EMIT grid().HeadingClick(3);
    EXPECT_EQ(headings(), plain);
    normal().setChecked(true);
    search(u"a1"_s);
    search(QString());
    search(u"a1"_s);
    Q_EMIT grid().HeadingClick(3); // one row
    EXPECT_EQ(headings(), searched);
}

TEST_F(StockTest, sortStraightAfterASearch_movesTheBarWithItsGoods_andTheCursorStays)
{
    furnish();
    search(u"*"_s); // bar on a1
    Q_EMIT grid().HeadingClick(9);
    ASSERT_EQ(codes(), "B2 a1 D4 ");
    const QColor bar = grid().rowBackColor(2);
    EXPECT_TRUE(bar == focusColor || bar == barWithoutFocus);
    EXPECT_EQ(grid().ActiveRow(), 1);
}

TEST_F(StockTest, sortAfterTheCursorHasMoved_followsItsGoods)
{
    furnish();
    search(u"*"_s);
    grid().SetActiveCell(3, 2);
    Q_EMIT grid().LeaveCell(3, 1, 3, 2); // the operator goes down to B2
    Q_EMIT grid().HeadingClick(9);
    ASSERT_EQ(codes(), "B2 a1 D4 ");
    EXPECT_EQ(grid().ActiveRow(), 1);
    EXPECT_EQ(grid().ActiveCol(), 3);
    const QColor bar = grid().rowBackColor(1);
    EXPECT_TRUE(bar == focusColor || bar == barWithoutFocus);
    EXPECT_EQ(grid().rowBackColor(2), QColor(Qt::white));
}

TEST_F(StockTest, viewSwitch_losesTheOrder)
{
    furnish();
    search(u"*"_s);
    Q_EMIT grid().HeadingClick(9);
    ASSERT_EQ(codes(), "B2 a1 D4 ");
    detail().setChecked(true);
    normal().setChecked(true);
    EXPECT_EQ(codes(), "a1 B2 D4 ");
}

} // namespace suisui::test

// Stored movements on the screen: searching a period, correcting, updating, deleting, on both sides.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

#include "tests/support/EntryDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

/// What differs between the sides as a test sees it.
struct Mirror
{
    Side side;
    const char* table;
    const char* quantity; ///< column of the table
    const char* date;
    QString term;
    QString waitTag;
    QString deleteQuestion;
    int dateCell;
    int timeCell;
    Tab listTab;
};

const Mirror mirrors[] = {
    {Side::Receipt, "InpTB", "NyuSuu", "NyuDate", u"入荷"_s, u"入荷検索"_s,
     u"「 入荷 」を削除します。　　　　\r\n\r\n　　 （ 入荷の取消 ）\r\n\r\n　　 よろしいですか？"_s, 12, 13,
     Tab::ReceiptList},
    {Side::Shipment, "OutTB", "SyuSuu", "SyuDate", u"出荷"_s, u"出荷検索"_s,
     u"「 出荷 」を削除します。　　　　\r\n\r\n　　 （ 出荷の取消 ）\r\n\r\n　　 よろしいですか？"_s, 13, 14,
     Tab::ShipmentList},
};

class EditTest : public ::testing::TestWithParam<Mirror>
{
protected:
    EditTest()
    {
        desk.goods("A", "鉛筆", "5", "100", "5", "100");
        desk.goods("PART", "部品", "1", "1", "1", "1");
        desk.goods("SET", "組", "5", "100", "5", "100");
        desk.component("SET", "PART", "3");
        desk.shop.add(zaikoTable, {"A", "1000", "0", "s", "s"});
        desk.shop.add(zaikoTable, {"SET", "1000", "0", "s", "s"});
        desk.shop.add(zaikoTable, {"PART", "1000", "0", "s", "s"});
        page = &desk.open(GetParam().side);
        page->resize(1200, 600);
    }

    /// \a count movements of goods that nobody keeps in stock, one a minute.
    void fill(int count) const
    {
        AppDB db(desk.shop.databaseFolder());
        ASSERT_EQ(db.Open("trnvik.mdb"), 0);
        const std::string rows = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<"
                                 + std::to_string(count) + ") INSERT INTO ";
        const std::string times = "'20260401',printf('%06d',i),";
        const std::string stamps = "printf('%014d',i),printf('%014d',i) FROM n";
        if (GetParam().side == Side::Receipt)
            db.Execute(rows + "InpTB SELECT 'X','品','','0000001','0000002','101','東商店'," + times
                       + "'個','0000000','0000000','01','山田',''," + stamps);
        else
            db.Execute(rows + "OutTB SELECT 'X','品','','0000001','0000002','101','東商店'," + times
                       + "'個','0000000','0000000','0000000','01','山田','','',''," + stamps);
        ASSERT_EQ(db.LastStatus(), 0);
        db.Commit();
    }
    void bookThree()
    {
        for (int i = 0; i < 3; ++i)
            EntryDesk::book(*page, u"A"_s);
        desk.box.shown.clear();
    }
    /// Stock of the pencils after movements of \a moved pieces in all.
    [[nodiscard]] static std::string stockAfter(int moved)
    {
        return std::to_string(1000 + (GetParam().side == Side::Receipt ? moved : -moved));
    }
    [[nodiscard]] std::vector<std::string> quantities() const
    {
        return desk.shop.query(std::string("SELECT ") + GetParam().quantity + " FROM " + GetParam().table
                               + " ORDER BY InpDate");
    }
    void update(BoxAnswer answer = BoxAnswer::Yes)
    {
        desk.box.answers = {answer};
        page->cmdKousin_Click();
        desk.box.answers.clear();
    }
    void erase(int row, BoxAnswer answer = BoxAnswer::Yes)
    {
        page->grid()->SetActiveCell(4, row);
        desk.box.answers = {answer};
        page->cmdDelete_Click();
        desk.box.answers.clear();
    }
    /// Somebody else's program does something to the shop.
    void elsewhere(const std::string& sql) const
    {
        AppDB other(desk.shop.databaseFolder());
        ASSERT_EQ(other.Open("trnvik.mdb"), 0);
        other.Execute(sql);
        ASSERT_EQ(other.LastStatus(), 0);
        other.Commit();
    }
    [[nodiscard]] std::string index(int row) const { return std::string(page->grid()->text(17, row)); }

    EntryDesk desk;
    MovementPage* page = nullptr;
};

const auto sideName = [](const ::testing::TestParamInfo<Mirror>& info) {
    return std::string(info.param.side == Side::Receipt ? "receipts" : "shipments");
};

} // namespace

INSTANTIATE_TEST_SUITE_P(BothSides, EditTest, ::testing::ValuesIn(mirrors), sideName);

// ---- search

TEST_P(EditTest, aThousandRowsLoadUnasked_newestFirst)
{
    fill(1000);
    page->cmdKensaku_Click();
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_TRUE(desk.frame.waitTags.empty());
    const vaSpread& grid = *page->grid();
    ASSERT_EQ(grid.MaxRows(), 1000);
    EXPECT_EQ(grid.text(GetParam().timeCell, 1), "00:10:00");
    EXPECT_EQ(index(1), "1000");
    EXPECT_EQ(index(1000), "1");
    EXPECT_EQ(grid.text(8, 1), "") << "the label mark is not stored";
    EXPECT_EQ(grid.ActiveCol(), 4);
    EXPECT_EQ(grid.ActiveRow(), 1);
    EXPECT_TRUE(grid.ReDraw());
    EXPECT_TRUE(desk.frame.enabled);
}

TEST_P(EditTest, moreThanAThousandRowsAsk_andLoadBehindTheWaitWindow)
{
    fill(1001);
    desk.box.answers = {BoxAnswer::Yes};
    page->cmdKensaku_Click();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"表示の確認"_s);
    EXPECT_EQ(
        desk.box.shown[0].text,
        u"検索結果のデータが多いため\r\n表示に時間が掛かる可能性があります。　　　\r\n\r\n　　　（検索結果： 1001 件）\r\n\r\n表示を行っても、よろしいですか？"_s);
    EXPECT_EQ(desk.box.shown[0].icon, BoxIcon::Question);
    EXPECT_EQ(desk.box.shown[0].buttons, BoxButtons::YesNo);
    EXPECT_EQ(desk.box.shown[0].defaultButton, BoxAnswer::Yes);
    EXPECT_EQ(desk.frame.waitTags, std::vector<QString>{GetParam().waitTag});
    EXPECT_EQ(desk.frame.waitMaximum, 1001);
    EXPECT_EQ(desk.frame.waitValue, 1001);
    EXPECT_EQ(page->grid()->MaxRows(), 1001);
}

TEST_P(EditTest, noToManyRows_leavesTheOldGrid_whichTouchesNothingAnyMore)
{
    bookThree();
    fill(1001);
    desk.box.answers = {BoxAnswer::No};
    page->cmdKensaku_Click();
    EXPECT_EQ(page->grid()->MaxRows(), 3);
    EXPECT_EQ(movementTable(GetParam().side).rows(desk.db).Count(), 1004);
    EXPECT_EQ(page->grid()->text(1, 1), "A");
    const auto before = desk.shop.query(std::string("SELECT * FROM ") + GetParam().table);
    desk.box.shown.clear();
    EntryDesk::edit(*page, 4, 1, "77");
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"データベースエラー"_s);
    EXPECT_FALSE(desk.frame.dirty(GetParam().side));
    erase(2);
    EXPECT_EQ(desk.shop.query(std::string("SELECT * FROM ") + GetParam().table), before);
    EXPECT_EQ(page->grid()->MaxRows(), 3);
    // What is booked from here on is in step.
    EntryDesk::book(*page, u"A"_s);
    EntryDesk::edit(*page, 4, 1, "9");
    update();
    EXPECT_EQ(quantities().back(), "0000009");
    EXPECT_EQ(quantities().size(), before.size() + 1);
}

TEST_P(EditTest, searchWithoutResult_emptiesTheGrid_withoutAWord)
{
    bookThree();
    page->setDefaultDates(u"20300101"_s, u"20300102"_s);
    page->cmdKensaku_Click();
    EXPECT_EQ(page->grid()->MaxRows(), 0);
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_TRUE(desk.frame.enabled);
}

TEST_P(EditTest, periodWithItsEndBeforeItsStart_isTold_andNothingIsSearched)
{
    bookThree();
    page->setDefaultDates(u"20260402"_s, u"20260401"_s);
    page->cmdKensaku_Click();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"日付エラー"_s);
    EXPECT_EQ(page->grid()->MaxRows(), 3);
    EXPECT_TRUE(desk.frame.enabled);
}

TEST_P(EditTest, cancelAtTheGuard_keepsGridAndCorrections)
{
    bookThree();
    EntryDesk::edit(*page, 4, 1, "77");
    desk.frame.guardAnswer = BoxAnswer::Cancel;
    page->cmdKensaku_Click();
    EXPECT_EQ(page->grid()->text(4, 1), "77");
    EXPECT_TRUE(desk.frame.enabled);
}

TEST_P(EditTest, rowsOfAnotherDay_areNotFound)
{
    bookThree();
    elsewhere(std::string("UPDATE ") + GetParam().table + " SET " + GetParam().date
              + "='20260331' WHERE InpDate='20260401090000'");
    page->cmdKensaku_Click();
    EXPECT_EQ(page->grid()->MaxRows(), 2);
}

// ---- update

TEST_P(EditTest, updateWithNothingChanged_asksNothing)
{
    bookThree();
    page->cmdKousin_Click();
    EXPECT_TRUE(desk.box.shown.empty());
}

TEST_P(EditTest, updateAsks_andSaysWhenItIsDone)
{
    bookThree();
    EntryDesk::edit(*page, 4, 2, "8");
    update(BoxAnswer::No);
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000005", "0000005", "0000005"}));
    EXPECT_TRUE(desk.frame.dirty(GetParam().side));
    desk.box.shown.clear();
    desk.frame.loaded = {true, true, true, true, true};
    update();
    ASSERT_EQ(desk.box.shown.size(), 2U);
    EXPECT_EQ(desk.box.shown[0].title, u"更新の確認"_s);
    EXPECT_EQ(desk.box.shown[0].text,
              u"「 %1 」を更新します。　　　　\r\n\r\n　よろしいですか？"_s.arg(GetParam().term));
    EXPECT_EQ(desk.box.shown[0].defaultButton, BoxAnswer::No);
    EXPECT_EQ(desk.box.shown[1].title, u"更新の完了"_s);
    EXPECT_EQ(desk.box.shown[1].text, u"「 %1 」を更新しました。　　　　"_s.arg(GetParam().term));
    EXPECT_EQ(desk.box.shown[1].icon, BoxIcon::Information);
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000005", "0000008", "0000005"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(18));
    EXPECT_FALSE(desk.frame.dirty(GetParam().side));
    EXPECT_FALSE(desk.frame.TabLoaded(Tab::Stock));
    EXPECT_FALSE(desk.frame.TabLoaded(GetParam().listTab));
}

TEST_P(EditTest, guardedUpdate_asksNothingOfItsOwn)
{
    bookThree();
    EntryDesk::edit(*page, 4, 1, "8");
    desk.frame.guardActive = true;
    page->cmdKousin_Click();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"更新の完了"_s);
}

TEST_P(EditTest, changedDateOnly_writesTheRow_andLeavesTheStockAlone)
{
    bookThree();
    const auto stockRows = desk.shop.query("SELECT * FROM ZaikoTB ORDER BY Code");
    EntryDesk::edit(*page, GetParam().dateCell, 1, "2026/03/30");
    update();
    EXPECT_EQ(desk.shop.query("SELECT * FROM ZaikoTB ORDER BY Code"), stockRows);
    EXPECT_EQ(desk.shop
                  .query(std::string("SELECT ") + GetParam().date + " FROM " + GetParam().table
                         + " ORDER BY InpDate")
                  .back(),
              "20260330");
}

TEST_P(EditTest, laterUpdate_postsOnlyWhatIsNew)
{
    bookThree();
    EntryDesk::edit(*page, 4, 1, "8");
    update();
    EntryDesk::edit(*page, 4, 1, "6");
    update();
    EXPECT_EQ(desk.stockOf("A"), stockAfter(16));
    EXPECT_EQ(page->grid()->text(16, 1), "6");
}

TEST_P(EditTest, rowChangedByAnotherProgram_undoesTheWholeUpdate)
{
    bookThree();
    EntryDesk::edit(*page, 4, 1, "8");
    EntryDesk::edit(*page, 4, 3, "9");
    elsewhere(std::string("UPDATE ") + GetParam().table
              + " SET Bikou='other' WHERE InpDate='20260401090000'"); // row 3 of the grid
    const std::string stock = desk.stockOf("A");
    desk.box.shown.clear();
    update();
    ASSERT_EQ(desk.box.shown.size(), 2U);
    EXPECT_EQ(desk.box.shown[1].title, u"データベースエラー"_s);
    EXPECT_EQ(desk.box.shown[1].icon, BoxIcon::Stop);
    EXPECT_EQ(
        desk.box.shown[1].text,
        u"「 %1 」 の更新ができませんでした。\r\n\r\n他の処理で 変更・削除されている可能性があります。　　　\r\n\r\n　　　再度 「検索」 を行い、確認して下さい。"_s
            .arg(GetParam().term));
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000005", "0000005", "0000005"}));
    EXPECT_EQ(desk.stockOf("A"), stock);
    EXPECT_TRUE(desk.frame.dirty(GetParam().side));
    EXPECT_FALSE(desk.db.inUnit());
    EXPECT_EQ(page->grid()->text(16, 1), "8") << "an earlier row has gone through its posting";
    // The advice of the box: search again. Nothing has stayed half done.
    desk.frame.setDirty(GetParam().side, false);
    page->cmdKensaku_Click();
    EntryDesk::edit(*page, 4, 3, "9");
    update();
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000009", "0000005", "0000005"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(19));
}

TEST_P(EditTest, rowDeletedByAnotherProgram_isNeitherUpdatedNorDeleted)
{
    bookThree();
    elsewhere(std::string("DELETE FROM ") + GetParam().table + " WHERE InpDate='20260401090001'");
    const std::string stock = desk.stockOf("A");
    EntryDesk::edit(*page, 4, 2, "8");
    update();
    EXPECT_EQ(desk.box.shown.back().title, u"データベースエラー"_s);
    EXPECT_EQ(desk.stockOf("A"), stock);
    desk.box.shown.clear();
    erase(2);
    ASSERT_EQ(desk.box.shown.size(), 2U);
    EXPECT_EQ(
        desk.box.shown[1].text,
        u"「 %1 」 の削除ができませんでした。\r\n\r\n他の処理で 変更・削除されている可能性があります。　　　\r\n\r\n　　　再度 「検索」 を行い、確認して下さい。"_s
            .arg(GetParam().term));
    EXPECT_FALSE(desk.frame.dirty(GetParam().side));
    EXPECT_EQ(desk.stockOf("A"), stock);
    EXPECT_EQ(page->grid()->MaxRows(), 3);
    EXPECT_FALSE(desk.db.inUnit());
}

TEST_P(EditTest, updateTriedAgainAfterAFailure_postsWhatWasTakenBack)
{
    bookThree();
    EntryDesk::edit(*page, 4, 1, "8");
    EntryDesk::edit(*page, 4, 3, "9");
    {
        AppDB other(desk.shop.databaseFolder());
        ASSERT_EQ(other.Open("trnvik.mdb"), 0);
        other.Execute("UPDATE Master SET Unit=Unit WHERE Code='A'"); // holds the file
        update();
        other.Rollback();
    }
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000005", "0000005", "0000005"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(15));
    EntryDesk::edit(*page, 4, 1, "8"); // the posting failed, so the cell is what it was
    update();
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000009", "0000005", "0000008"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(22));
}

TEST_P(EditTest, stockThatWouldOverflow_bringsTheCellBack_andTheRetryIsRight)
{
    bookThree();
    const bool receipt = GetParam().side == Side::Receipt;
    elsewhere("UPDATE ZaikoTB SET ZaikoSuu='99999999999998' WHERE Code='A'");
    EntryDesk::edit(*page, 4, 1, receipt ? "6" : "4"); // one more in stock: fits
    EntryDesk::edit(*page, 4, 2, receipt ? "9" : "1"); // four more: does not
    desk.box.shown.clear();
    update();
    EXPECT_EQ(desk.box.shown.back().title, u"桁あふれエラー"_s);
    EXPECT_EQ(page->grid()->text(4, 2), "5");
    EXPECT_EQ(page->grid()->ActiveCol(), 4);
    EXPECT_EQ(page->grid()->ActiveRow(), 2);
    EXPECT_EQ(page->grid()->text(16, 1), receipt ? "6" : "4") << "hidden cells of earlier rows stay";
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000005", "0000005", "0000005"}));
    EXPECT_EQ(desk.stockOf("A"), "99999999999998");
    update();
    EXPECT_EQ(quantities().back(), receipt ? "0000006" : "0000004");
    EXPECT_EQ(desk.stockOf("A"), "99999999999999");
}

// ---- delete

TEST_P(EditTest, deleteOnAnEmptyBuffer_doesNothing)
{
    erase(1);
    EXPECT_TRUE(desk.box.shown.empty());
}

TEST_P(EditTest, deleteAsks_andUndoesTheStock)
{
    bookThree();
    desk.frame.loaded = {true, true, true, true, true};
    erase(2, BoxAnswer::No);
    EXPECT_EQ(quantities().size(), 3U);
    desk.box.shown.clear();
    erase(2);
    ASSERT_EQ(desk.box.shown.size(), 2U);
    EXPECT_EQ(desk.box.shown[0].title, u"削除の確認"_s);
    EXPECT_EQ(desk.box.shown[0].text, GetParam().deleteQuestion);
    EXPECT_EQ(desk.box.shown[0].defaultButton, BoxAnswer::No);
    EXPECT_EQ(desk.box.shown[1].title, u"削除の完了"_s);
    EXPECT_EQ(desk.box.shown[1].text, u"「 %1 」を削除しました。　　　　"_s.arg(GetParam().term));
    EXPECT_EQ(quantities().size(), 2U);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(10));
    EXPECT_FALSE(desk.frame.TabLoaded(Tab::Stock));
    EXPECT_FALSE(desk.frame.TabLoaded(GetParam().listTab));
    EXPECT_TRUE(page->grid()->ReDraw());
}

TEST_P(EditTest, indexesBehindTheDeletedRow_goDownByOne)
{
    fill(8);
    page->cmdKensaku_Click();
    (void)page->grid()->text(1, 2); // one row somebody has looked at, the others not
    ASSERT_EQ(index(4), "5");
    erase(4);
    std::string all;
    for (int row = 1; row <= page->grid()->MaxRows(); ++row)
        all += index(row) + " ";
    EXPECT_EQ(all, "7 6 5 4 3 2 1 ");
    EntryDesk::edit(*page, 4, 1, "9"); // still the right row of the buffer
    update();
    EXPECT_EQ(quantities().back(), "0000009");
}

TEST_P(EditTest, deleteUndoesWhatWasPostedLast_andKeepsTheCorrectionsOfOtherRows)
{
    bookThree();
    EntryDesk::edit(*page, 4, 2, "8");
    update();
    EntryDesk::edit(*page, 4, 1, "7");  // pending
    EntryDesk::edit(*page, 4, 2, "99"); // never posted
    erase(2);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(10));
    EXPECT_TRUE(desk.frame.dirty(GetParam().side));
    EXPECT_EQ(page->grid()->text(4, 1), "7");
    update();
    EXPECT_EQ(quantities(), (std::vector<std::string>{"0000005", "0000007"}));
    EXPECT_EQ(desk.stockOf("A"), stockAfter(12));
}

TEST_P(EditTest, deleteThatCannotBeStored_leavesRowAndStock)
{
    bookThree();
    AppDB other(desk.shop.databaseFolder());
    ASSERT_EQ(other.Open("trnvik.mdb"), 0);
    other.Execute("UPDATE Master SET Unit=Unit WHERE Code='A'");
    erase(1);
    other.Rollback();
    EXPECT_EQ(quantities().size(), 3U);
    EXPECT_EQ(page->grid()->MaxRows(), 3);
    EXPECT_EQ(desk.stockOf("A"), stockAfter(15));
    erase(1);
    EXPECT_EQ(quantities().size(), 2U);
}

// ---- what is typed into the cells

TEST_P(EditTest, nothingThatIsNoNumberDateOrTime_reachesTheTable)
{
    const QString evil[] = {u"abc"_s,       u" "_s,     u"-"_s,          u"--1"_s,
                            u"+5"_s,        u"1.5"_s,   u"1e9"_s,        u"12345678901234567890"_s,
                            u"-99999999"_s, u"１２"_s,  u"2026/02/30"_s, u"99999999"_s,
                            u"25:00:00"_s,  u"12:60"_s, u"'; --"_s,      u"x\ty\r\nz"_s,
                            u""_s,          u"0x10"_s};
    bookThree();
    page->show();
    page->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(page));
    vaSpread& grid = *page->grid();
    int typed = 0;
    for (int column = 1; column <= 15; ++column) {
        for (const QString& text : evil) {
            for (const bool pasted : {false, true}) {
                grid.SetActiveCell(column, 2);
                grid.setFocus();
                QTest::keyClick(&grid, Qt::Key_F2);
                QWidget* editor = QApplication::focusWidget();
                if (!grid.isEditing())
                    continue;
                ++typed;
                QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
                if (pasted) {
                    QGuiApplication::clipboard()->setText(text);
                    QTest::keyClick(editor, Qt::Key_V, Qt::ControlModifier);
                } else if (text.isEmpty()) {
                    QTest::keyClick(editor, Qt::Key_Delete);
                } else {
                    for (const QChar letter : text) {
                        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
                        QCoreApplication::sendEvent(editor, &key);
                    }
                }
                QTest::keyClick(editor, Qt::Key_Return);
                EXPECT_FALSE(grid.isEditing());
            }
        }
    }
    EXPECT_GT(typed, 300); // nine columns or more can be edited
    const QString shownName = grid.qtext(2, 2);
    const std::string shownQuantity(grid.text(4, 2));
    update();
    EXPECT_EQ(desk.box.shown.back().title, u"更新の完了"_s);
    const bool receipt = GetParam().side == Side::Receipt;
    const auto stored = desk.shop.query(
        receipt ? "SELECT NyuPrice,NyuSuu,NyuNebiki,Henkyaku,Henkyaku,NyuDate,NyuTime,Name FROM "
                  "InpTB ORDER BY InpDate"
                : "SELECT SyuPrice,SyuSuu,SyuNebiki,RHenkyaku,FHenkyaku,SyuDate,SyuTime,Name "
                  "FROM OutTB ORDER BY InpDate");
    const QStringList texts = QString::fromStdString(stored[1]).split(u'|');
    static const QRegularExpression number(u"^-?[0-9]{7,9}$"_s);
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(number.match(texts[i]).hasMatch()) << texts[i].toStdString();
    EXPECT_EQ(texts[1].toInt(), std::stoi(shownQuantity)) << "what is seen is what is stored";
    EXPECT_TRUE(QDate::fromString(texts[5], u"yyyyMMdd"_s).isValid()) << texts[5].toStdString();
    EXPECT_TRUE(QTime::fromString(texts[6], u"HHmmss"_s).isValid()) << texts[6].toStdString();
    EXPECT_EQ(texts[7], shownName);
    EXPECT_EQ(stored[0].substr(0, 15), "0000100|0000005") << "the rows beside it are as they were";
}

TEST_P(EditTest, emptiedNumbersBecomeZero_andEmptiedWordsStayEmpty)
{
    bookThree();
    EntryDesk::edit(*page, 4, 1, "");
    EntryDesk::edit(*page, 2, 1, "");
    EXPECT_EQ(page->grid()->text(4, 1), "0");
    EXPECT_EQ(page->grid()->text(6, 1), "0");
    update();
    EXPECT_EQ(quantities().back(), "0000000");
    EXPECT_EQ(desk.stockOf("A"), stockAfter(10));
}

// ---- components

TEST(ReceiptEditTest, raisedQuantityLessReturns_takesComponentsAlong)
{
    EntryDesk desk;
    desk.goods("SET", "組", "5", "100", "1", "1");
    desk.goods("PART", "部品", "1", "1", "1", "1");
    desk.component("SET", "PART", "3");
    MovementPage& page = desk.open(Side::Receipt);
    EntryDesk::book(page, u"SET"_s);
    EXPECT_EQ(desk.stockOf("PART"), "-15");
    EntryDesk::edit(page, 4, 1, "8");
    EntryDesk::edit(page, 11, 1, "1");
    desk.frame.guardActive = true;
    page.cmdKousin_Click();
    EXPECT_EQ(desk.stockOf("SET"), "7"); // +2
    EXPECT_EQ(desk.stockOf("PART"), "-21");
    EXPECT_EQ(page.grid()->text(15, 1), "1");
    desk.box.answers = {BoxAnswer::Yes};
    page.cmdDelete_Click();
    EXPECT_EQ(desk.stockOf("SET"), "0");
    EXPECT_EQ(desk.stockOf("PART"), "0");
}

TEST(ReceiptEditTest, componentThatOverflows_undoesTheUpdate_andLeavesTheCells)
{
    EntryDesk desk;
    desk.goods("SET", "組", "5", "100", "1", "1");
    desk.goods("PART", "部品", "1", "1", "1", "1");
    desk.component("SET", "PART", "3");
    MovementPage& page = desk.open(Side::Receipt);
    EntryDesk::book(page, u"SET"_s);
    AppDB other(desk.shop.databaseFolder());
    ASSERT_EQ(other.Open("trnvik.mdb"), 0);
    other.Execute("UPDATE ZaikoTB SET ZaikoSuu='99999999999999' WHERE Code='PART'");
    other.Commit();
    EntryDesk::edit(page, 4, 1, "4");
    desk.frame.guardActive = true;
    desk.box.shown.clear();
    page.cmdKousin_Click();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"桁あふれエラー"_s);
    EXPECT_EQ(page.grid()->text(4, 1), "4");
    EXPECT_EQ(page.grid()->text(16, 1), "5");
    EXPECT_EQ(desk.stockOf("SET"), "5");
    EXPECT_EQ(desk.shop.query("SELECT NyuSuu FROM InpTB"), std::vector<std::string>{"0000005"});
}

} // namespace suisui::test

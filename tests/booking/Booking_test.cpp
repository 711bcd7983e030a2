// Booking a code, step by step, without a screen.
#include "booking/Booking.h"

#include <gtest/gtest.h>

#include "platform/core/RunTimeError.h"
#include "tests/support/BookingDesk.h"
#include "tests/support/SideName.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

using Texts = std::vector<std::string>;

class BookingTest : public ::testing::TestWithParam<Side>
{
protected:
    [[nodiscard]] bool isReceipt() const { return GetParam() == Side::Receipt; }
    /// Code, quantity, partner, person, date, time and stamps of all rows of the side's table.
    [[nodiscard]] Texts stored() const
    {
        return desk.shop.query(isReceipt()
                                   ? "SELECT Code,Name,NyuSuu,NyuPrice,NyuSakiCD,NysName,TanCD,TanName,Unit,"
                                     "NyuDate,NyuTime,InpDate,UpdDate FROM InpTB ORDER BY InpDate"
                                   : "SELECT Code,Name,SyuSuu,SyuPrice,SyuSakiCD,SysName,TanCD,TanName,Unit,"
                                     "SyuDate,SyuTime,InpDate,UpdDate FROM OutTB ORDER BY InpDate");
    }

    BookingDesk desk;
    EntryTab& tab = desk.tab(GetParam());
};

INSTANTIATE_TEST_SUITE_P(BothSides, BookingTest, ::testing::Values(Side::Receipt, Side::Shipment),
                         [](const auto& tested) { return sideName(tested.param); });

/// What only a receipt does.
struct ReceiptBookingTest : public ::testing::Test
{
    BookingDesk desk;
    EntryTab& tab = desk.receipts;
};

} // namespace

TEST_P(BookingTest, storesTheRow_andMovesTheStock)
{
    desk.goods("A", "12", "3");
    desk.stock("A", "100");
    ASSERT_EQ(tab.book("a"), BookResult::Stored);
    const std::string figures = isReceipt() ? "0000012|0000100" : "0000003|0000150";
    EXPECT_EQ(stored(), Texts{"A|品 A|" + figures
                              + "|101|東商店|01|山田|個|20260401|090000|20260401090000|20260401090000"});
    EXPECT_EQ(desk.stockOf("A"), isReceipt() ? "112" : "97");
    EXPECT_FALSE(desk.db.inUnit());
    EXPECT_TRUE(desk.box.shown.empty());
}

TEST_P(BookingTest, comesIntoViewWithTheMastersTexts)
{
    desk.goods("A", "0012", "0012");
    Booking booking(GetParam(), {desk.db, desk.box, desk.clock});
    ASSERT_TRUE(booking.lookUp("A"));
    const MovementTexts row = booking.row();
    EXPECT_EQ(row.quantity, "0012") << "as the master has it";
    EXPECT_EQ(row.discount, "0");
    EXPECT_EQ(row.returned[0], "0");
    EXPECT_EQ(row.date, "2026/04/01");
    EXPECT_EQ(row.time, "09:00:00");
    EXPECT_EQ(booking.total(), isReceipt() ? "1,200" : "1,800");
}

TEST_P(BookingTest, storesEveryTextInItsColumn)
{
    desk.goods("A", "1", "1");
    Booking booking(GetParam(), {desk.db, desk.box, desk.clock});
    ASSERT_TRUE(booking.lookUp("A"));
    ASSERT_TRUE(booking.post());
    MovementTexts row = booking.row();
    row.discount = "3";
    row.returned = {"4", "5"};
    row.remark = "急ぎ";
    ASSERT_TRUE(booking.store(row));
    EXPECT_EQ(desk.shop.query(isReceipt() ? "SELECT NyuNebiki,Henkyaku,Bikou FROM InpTB"
                                          : "SELECT SyuNebiki,RHenkyaku,FHenkyaku,Bikou FROM OutTB"),
              Texts{isReceipt() ? "0000003|0000004|急ぎ" : "0000003|0000004|0000005|急ぎ"});
}

TEST_P(BookingTest, codeThatNobodyKnows_orThatIsNotACode_booksNothing)
{
    desk.goods("A", "1", "1");
    desk.goods("A'1", "1", "1"); // cannot be registered, so a scan must not find it
    for (const char* code : {"B", "", "A' OR '1'='1", "A\n", "A'1"})
        EXPECT_EQ(tab.book(code), BookResult::Unknown) << code;
    EXPECT_TRUE(stored().empty());
}

TEST_P(BookingTest, emptyDefaultQuantity_isNothing)
{
    desk.goods("A", "", "");
    ASSERT_EQ(tab.book("A"), BookResult::Stored);
    EXPECT_EQ(tab.rows().get(1, movementTable(GetParam()).columns.quantity), "0000000");
    EXPECT_EQ(desk.stockOf("A"), "none") << "a delta of \"0\" moves nothing";
}

TEST_P(BookingTest, defaultQuantityWithZeros_isATextAtFirst_andANumberAfterwards)
{
    desk.goods("A", "0012", "0012");
    ASSERT_EQ(tab.book("A"), BookResult::Stored);
    EXPECT_EQ(tab.rows().get(1, movementTable(GetParam()).columns.quantity), "0000012");
    EXPECT_EQ(desk.stockOf("A"), isReceipt() ? "0012" : "-12") << "a shipment posts the number times -1";
    ASSERT_EQ(tab.book("A"), BookResult::Stored);
    EXPECT_EQ(desk.stockOf("A"), isReceipt() ? "24" : "-24");
}

TEST_P(BookingTest, doubleZero_isNotNothing_toAReceipt)
{
    desk.goods("A", "00", "00");
    ASSERT_EQ(tab.book("A"), BookResult::Stored);
    EXPECT_EQ(desk.stockOf("A"), isReceipt() ? "00" : "none");
    EXPECT_TRUE(desk.box.shown.empty());
}

TEST_P(BookingTest, components_goDownWithAReceipt_andStayAtAShipment)
{
    desk.goods("SET", "2", "2");
    desk.goods("PART", "1", "1");
    desk.component("SET", "PART", "3");
    desk.stock("SET", "10");
    desk.stock("PART", "10");
    ASSERT_EQ(tab.book("SET"), BookResult::Stored);
    EXPECT_EQ(desk.stockOf("PART"), isReceipt() ? "4" : "10");
    EXPECT_EQ(desk.stockOf("SET"), isReceipt() ? "12" : "8");
}

TEST_P(BookingTest, stockBelowNothing_isReported_andBookedAllTheSame)
{
    desk.goods("SET", "2", "2");
    desk.goods("PART", "1", "1");
    desk.component("SET", "PART", "3");
    desk.stock("PART", "1");
    ASSERT_EQ(tab.book("SET"), BookResult::Stored);
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u" 在庫不足"_s);
    EXPECT_TRUE(desk.box.shown[0].text.contains(isReceipt() ? u"コード ： PART"_s : u"コード ： SET"_s));
    EXPECT_EQ(desk.stockOf(isReceipt() ? "PART" : "SET"), isReceipt() ? "-5" : "-2");
}

TEST_P(BookingTest, rowThatCannotBeStored_bringsTheStockBack)
{
    desk.goods("A", "5", "5");
    desk.stock("A", "10");
    desk.shop.execute(std::string("CREATE TRIGGER full BEFORE INSERT ON ") + (isReceipt() ? "InpTB" : "OutTB")
                      + " BEGIN SELECT RAISE(ABORT,'full'); END");
    EXPECT_EQ(tab.book("A"), BookResult::NotStored);
    EXPECT_EQ(desk.stockOf("A"), "10");
    EXPECT_TRUE(stored().empty());
    EXPECT_FALSE(desk.db.inUnit());
    EXPECT_TRUE(tab.view.rows.empty()) << "the count of rows is what it was";
    desk.shop.execute("DROP TRIGGER full");
    EXPECT_EQ(tab.book("A"), BookResult::Stored);
}

TEST_P(BookingTest, everyBookingEndsInALaterSecond)
{
    desk.goods("A", "1", "1");
    desk.clock.setNow(QDateTime(QDate(2026, 4, 1), QTime(9, 0, 0, 400)));
    ASSERT_EQ(tab.book("A"), BookResult::Stored);
    EXPECT_EQ(desk.clock.now(), QDateTime(QDate(2026, 4, 1), QTime(9, 0, 1)));
    ASSERT_EQ(tab.book("A"), BookResult::Stored);
    EXPECT_EQ(stored().size(), 2U);
}

TEST_P(BookingTest, theLastNap_endsWithTheSecond)
{
    desk.goods("A", "1", "1");
    desk.clock.setNow(QDateTime(QDate(2026, 4, 1), QTime(9, 0, 0, 990)));
    ASSERT_EQ(tab.book("A"), BookResult::Stored);
    EXPECT_EQ(desk.clock.steady(), std::chrono::milliseconds(10));
}

TEST_P(BookingTest, clockThatStandsStill_isWaitedFor)
{
    desk.goods("A", "1", "1");
    const QDateTime start = desk.clock.now();
    int passes = 0;
    desk.clock.onPass = [&] {
        if (++passes <= 40) // two seconds of steady time
            desk.clock.setNow(start);
    };
    ASSERT_EQ(tab.book("A"), BookResult::Stored);
    EXPECT_GE(desk.clock.now(), start.addSecs(1)) << "or the next booking has the same stamp";
}

TEST_P(BookingTest, goodsLookedUp_areForgottenWhenTheRowIsStored)
{
    desk.goods("A", "1", "1");
    ASSERT_EQ(tab.book("A"), BookResult::Stored);
    EXPECT_EQ(movementTable(GetParam()).master(desk.db).Count(), 0);
}

TEST_P(BookingTest, clockThatStepsBack_costsOneSecond)
{
    desk.goods("A", "1", "1");
    const QDateTime anHourAgo = desk.clock.now().addSecs(-3600);
    desk.clock.onPass = [&] {
        desk.clock.onPass = nullptr;
        desk.clock.setNow(anHourAgo);
    };
    const auto before = desk.clock.steady();
    ASSERT_EQ(tab.book("A"), BookResult::Stored);
    EXPECT_GE(desk.clock.steady() - before, std::chrono::seconds(1));
    EXPECT_LT(desk.clock.steady() - before, std::chrono::seconds(2));
}

TEST_F(ReceiptBookingTest, commitThatFails_leavesNothing)
{
    desk.goods("A", "5", "5");
    {
        AppDB reader(desk.shop.databaseFolder());
        ASSERT_EQ(reader.OpenStill(desk.shop.databaseFile()),
                  DbStatus::Good); // others' commits wait, and give up
        EXPECT_EQ(tab.book("A"), BookResult::NotStored);
        EXPECT_FALSE(desk.db.inUnit());
    }
    EXPECT_EQ(desk.stockOf("A"), "none");
    EXPECT_EQ(tab.book("A"), BookResult::Stored);
    EXPECT_EQ(desk.stockOf("A"), "5");
}

TEST_F(ReceiptBookingTest, stockThatWouldOverflow_undoesTheComponentsToo)
{
    desk.goods("SET", "2", "2");
    desk.goods("PART", "1", "1");
    desk.component("SET", "PART", "3");
    desk.stock("SET", "99999999999998");
    desk.stock("PART", "10");
    EXPECT_EQ(tab.book("SET"), BookResult::Refused);
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"桁あふれエラー"_s);
    EXPECT_EQ(desk.stockOf("PART"), "10");
    EXPECT_TRUE(tab.view.rows.empty());
    EXPECT_FALSE(desk.db.inUnit());
}

TEST_F(ReceiptBookingTest, componentsAreRoundedToEvenAtTheScan)
{
    desk.goods("MIX", "2.5", "1");
    desk.goods("PART", "1", "1");
    desk.component("MIX", "PART", "1.5");
    desk.stock("PART", "100");
    ASSERT_EQ(tab.book("MIX"), BookResult::Stored);
    EXPECT_EQ(desk.stockOf("PART"), "96") << "2 times 2";
    EXPECT_EQ(desk.stockOf("MIX"), "2.5");
}

TEST_P(BookingTest, masterQuantityThatIsNotANumber_isARunTimeError)
{
    desk.goods("A", "many", "many");
    EXPECT_THROW((void)tab.book("A"), RunTimeError);
    desk.db.Rollback();
    EXPECT_TRUE(stored().empty());
}

} // namespace suisui::test

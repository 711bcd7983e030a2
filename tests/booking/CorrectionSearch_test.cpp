// What an entry tab selects, and what counts as a code that was typed into a quantity.
#include <gtest/gtest.h>

#include "tests/support/BookingDesk.h"

namespace suisui::test {

class CorrectionSearch : public testing::TestWithParam<Side>
{
protected:
    CorrectionSearch() : tab(desk.tab(GetParam())) {}

    /// A movement of that day and time; its code is \a code.
    void stored(const std::string& code, const std::string& date, const std::string& time) const
    {
        const MovementTable& table = movementTable(GetParam());
        std::vector<std::string> texts(table.table.columns.size());
        texts[static_cast<std::size_t>(table.columns.code)] = code;
        texts[static_cast<std::size_t>(table.columns.date)] = date;
        texts[static_cast<std::size_t>(table.columns.time)] = time;
        texts[static_cast<std::size_t>(table.columns.inpDate)] = date + time;
        desk.shop.add(table.table, texts);
    }
    [[nodiscard]] std::string codes() const
    {
        std::string all;
        for (int row = 1; row <= tab.rows().Count(); ++row)
            all += tab.rows().get(row, movementTable(GetParam()).columns.code);
        return all;
    }

    BookingDesk desk;
    EntryTab& tab;
};

TEST_P(CorrectionSearch, takesTheDaysThatWereAskedFor_bothIncluded_inTheOrderOfTime)
{
    stored("a", "20260331", "235959");
    stored("b", "20260402", "090000");
    stored("c", "20260401", "100000");
    stored("d", "20260401", "090000");
    stored("e", "20260403", "000000");
    EXPECT_EQ(tab.edit.search("20260401", "20260402"), 3);
    EXPECT_EQ(codes(), "dcb");
    EXPECT_EQ(tab.edit.search("20260501", "20260502"), 0);
    EXPECT_EQ(codes(), "");
}

TEST_P(CorrectionSearch, givesTheGridItsRowsBack)
{
    desk.goods("A", "5", "5");
    ASSERT_EQ(tab.book("A"), BookResult::Stored);
    tab.edit.searched(false);
    ASSERT_FALSE(tab.edit.inStep(1));
    EXPECT_EQ(tab.edit.search("00000000", "99999999"), 1);
    EXPECT_TRUE(tab.edit.inStep(1));
}

TEST_P(CorrectionSearch, ofATableThatIsGone_isNegative)
{
    desk.shop.execute("DROP TABLE " + std::string(movementTable(GetParam()).table.name));
    EXPECT_EQ(tab.edit.search("20260401", "20260402"), selectionFailed);
    EXPECT_EQ(desk.storeSaid.size(), 1U);
}

TEST_P(CorrectionSearch, sixCharactersOfARegisteredCode_areACode)
{
    desk.goods("123456", "1", "1");
    desk.goods("12345", "1", "1");
    EXPECT_TRUE(tab.edit.isCode(QStringLiteral("123456")));
    EXPECT_FALSE(tab.edit.isCode(QStringLiteral("12345"))) << "short enough for a quantity";
    EXPECT_FALSE(tab.edit.isCode(QStringLiteral("1234567"))) << "not registered";
    EXPECT_FALSE(tab.edit.isCode(QStringLiteral("1' OR '1'='1")));
}

INSTANTIATE_TEST_SUITE_P(BothSides, CorrectionSearch, testing::Values(Side::Receipt, Side::Shipment));

} // namespace suisui::test

// The text of the last failure belongs to the last failure, whatever went wrong before it.
#include <gtest/gtest.h>

#include "tests/support/TempShop.h"

namespace suisui::test {

TEST(ErrorTexts, nameTheLastFailure_alsoOfAStatementPreparedBefore)
{
    const TempShop shop;
    AppDB db(shop.databaseFolder());
    ASSERT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
    TantouRec& rows = db.TantouTbl();
    const auto insert = [&rows] {
        rows.NewRows(1);
        rows.set(rows.Count(), TantouCol::Code, "01");
        return rows.InsertRow(rows.Count());
    };
    ASSERT_EQ(insert(), DbStatus::Good); // the unit stays open, so that nothing needs to be prepared again
    EXPECT_LT(rows.Select(std::string_view("WHERE Code='\0'", 14)), 0);
    EXPECT_NE(db.LastErrText().find("NUL"), std::string::npos) << db.LastErrText();
    EXPECT_EQ(insert(), DbStatus::DuplicateKey);
    EXPECT_EQ(db.LastErrNo(), "3022");
    EXPECT_NE(db.LastErrText().find("UNIQUE"), std::string::npos) << db.LastErrText();
    db.Rollback();
}

TEST(ErrorTexts, ofATableThatIsGone_tellSo_underItsNumberOfTheEngine)
{
    const TempShop shop;
    std::vector<std::string> said;
    AppDB db(shop.databaseFolder(), [&said](const std::string& text) { said.push_back(text); });
    ASSERT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
    db.Execute("DELETE FROM NoSuchTB");
    EXPECT_NE(db.LastStatus(), DbStatus::Good);
    EXPECT_NE(db.LastErrNo(), "3022");
    ASSERT_EQ(said.size(), 1U);
    EXPECT_NE(said[0].find("NoSuchTB"), std::string::npos) << "the report names what is missing";
    db.Rollback();
}

} // namespace suisui::test

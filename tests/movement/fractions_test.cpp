// Goods of which half a piece can come in: what a scan rounds, and what it does not.
#include <gtest/gtest.h>

#include "tests/support/EntryDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

TEST(ComponentFractions, aScanAndItsDelete_needNotCancel)
{
    EntryDesk desk;
    desk.goods("MIX", "量り売り", "3", "10", "1", "10");
    desk.goods("PART", "部品", "1", "1", "1", "1");
    desk.component("MIX", "PART", "1.5");
    desk.shop.add(zaikoTable, {"PART", "100", "0", "s", "s"});
    MovementPage& page = desk.open(Side::Receipt);
    EntryDesk::book(page, u"MIX"_s);
    EXPECT_EQ(desk.stockOf("PART"), "94") << "2 times 3: the quantity in one unit is rounded at the scan";
    desk.box.answers = {BoxAnswer::Yes};
    page.cmdDelete_Click();
    EXPECT_EQ(desk.stockOf("MIX"), "0");
    EXPECT_EQ(desk.stockOf("PART"), "98.5") << "1.5 times 3 come back";
}

TEST(ComponentFractions, anUpdateReckonsExactly)
{
    EntryDesk desk;
    desk.goods("MIX", "量り売り", "2", "10", "1", "10");
    desk.goods("PART", "部品", "1", "1", "1", "1");
    desk.component("MIX", "PART", "0.25");
    desk.shop.add(zaikoTable, {"PART", "100", "0", "s", "s"});
    MovementPage& page = desk.open(Side::Receipt);
    EntryDesk::book(page, u"MIX"_s);
    EXPECT_EQ(desk.stockOf("PART"), "100") << "a quarter is rounded to none at the scan";
    EntryDesk::edit(page, 4, 1, "5");
    desk.frame.guardActive = true;
    page.cmdKousin_Click();
    EXPECT_EQ(desk.stockOf("PART"), "99.25");
}

} // namespace suisui::test

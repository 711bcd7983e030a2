#include "tests/movement/edit/EditTest.h"

#include "tests/support/SideName.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

const Mirror mirrors[] = {
    {Side::Receipt, "InpTB", "NyuSuu", "NyuDate", u"入荷"_s, u"入荷検索"_s,
     u"「 入荷 」を削除します。　　　　\r\n\r\n　　 （ 入荷の取消 ）\r\n\r\n　　 よろしいですか？"_s,
     Tab::ReceiptList},
    {Side::Shipment, "OutTB", "SyuSuu", "SyuDate", u"出荷"_s, u"出荷検索"_s,
     u"「 出荷 」を削除します。　　　　\r\n\r\n　　 （ 出荷の取消 ）\r\n\r\n　　 よろしいですか？"_s,
     Tab::ShipmentList},
};

} // namespace

INSTANTIATE_TEST_SUITE_P(BothSides, EditTest, ::testing::ValuesIn(mirrors),
                         [](const auto& tested) { return sideName(tested.param.side); });

EditTest::EditTest()
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

void EditTest::fill(int count) const
{
    const std::string numbers = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<"
                                + std::to_string(count) + ") ";
    const std::string times = "'20260401',printf('%06d',i),";
    const std::string stamps = "printf('%014d',i),printf('%014d',i) FROM n";
    if (GetParam().side == Side::Receipt)
        desk.shop.execute(numbers + "INSERT INTO InpTB SELECT 'X','品','','0000001','0000002','101','東商店',"
                          + times + "'個','0000000','0000000','01','山田',''," + stamps);
    else
        desk.shop.execute(numbers + "INSERT INTO OutTB SELECT 'X','品','','0000001','0000002','101','東商店',"
                          + times + "'個','0000000','0000000','0000000','01','山田','','',''," + stamps);
}

void EditTest::bookThree()
{
    for (int i = 0; i < 3; ++i)
        EntryDesk::book(*page, u"A"_s);
    desk.box.shown.clear();
}

std::string EditTest::stockAfter(int moved)
{
    return std::to_string(1000 + (GetParam().side == Side::Receipt ? moved : -moved));
}

std::vector<std::string> EditTest::quantities() const
{
    return desk.shop.query(std::string("SELECT ") + GetParam().quantity + " FROM " + GetParam().table
                           + " ORDER BY InpDate");
}

void EditTest::update(BoxAnswer answer)
{
    desk.box.answers = {answer};
    page->cmdKousin_Click();
    desk.box.answers.clear();
}

void EditTest::erase(int row, BoxAnswer answer)
{
    page->grid()->SetActiveCell(cells.quantity, row);
    desk.box.answers = {answer};
    page->cmdDelete_Click();
    desk.box.answers.clear();
}

} // namespace suisui::test

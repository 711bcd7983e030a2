// The file that the slip program reads, read back as that program would.
#include "lists/SlipFile.h"
#include "tests/lists/SlipDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

TEST_F(Slip, carriesEveryRowOfTheList_subtotalsAndTotalIncluded)
{
    installProgram();
    desk.store({{.code = "4901",
                 .name = "りんご",
                 .quantity = "3",
                 .price = "120",
                 .discount = "10",
                 .partner = "102",
                 .unit = "袋",
                 .remark = "急ぎ"},
                {.date = "20260402", .code = "4902", .name = "みかん", .quantity = "-2", .partner = "102"}});
    choosePartner(1);
    desk.search();
    press();
    EXPECT_EQ(readBack(csv()),
              (std::vector<Lines>{
                  {"コード", "商品名", "単価", "数量", "単位", "値引き", "合計(税込)", "備考"},
                  {"4901", "りんご", "120", "3", "袋", "10", "350", "急ぎ"},
                  {"", "　　（出荷日 計）", "", "3", "", "10", "350", ""},
                  {"4902", "みかん", "100", "-2", "個", "0", "-200", ""},
                  {"", "　　（出荷日 計）", "", "-2", "", "0", "-200", ""},
                  {"", "", "", "1", "", "10", "150", ""},
              }));
    EXPECT_TRUE(started());
}

TEST_F(Slip, figuresAreAsTheCellsShowThem)
{
    desk.store({{.quantity = "1234", .price = "5678", .partner = "102"}});
    choosePartner(1);
    desk.search();
    const std::string text = slipText(listSide(Side::Shipment), desk.ini, desk.grid());
    EXPECT_NE(text.find("\r\n4901,りんご,5,678,1,234,個,0,7,006,652,,\r\n"), std::string::npos) << text;
}

TEST_F(Slip, ofTheSummedViewHasEmptyRemarks)
{
    desk.store({{.code = "1", .name = "い", .partner = "102", .remark = "消える"},
                {.code = "2", .name = "あ", .quantity = "5", .partner = "102"}});
    choosePartner(1);
    desk.sumBox().setChecked(true);
    desk.search();
    press();
    const auto records = readBack(csv());
    ASSERT_EQ(records.size(), 3U);
    EXPECT_EQ(records[0].back(), "備考") << "the word, not what the heading row shows";
    EXPECT_EQ(records[0][1], "商品名");
    EXPECT_EQ(records[1], (Lines{"2", "あ", "100", "5", "個", "0", "500", ""}));
    EXPECT_EQ(records[2], (Lines{"1", "い", "100", "1", "個", "0", "100", ""}));
}

TEST_F(Slip, readsBackCellByCell_withEveryCharacterOfTheCodePage)
{
    const Lines names{"～－①", "〜−",    "髙橋﨑", "ｱｲｳ半角",  "𠮷野家",
                      "é",     "表ソ能", "a\tb",   "一\r\n二", "終わり\\"};
    const Lines readAs{"～－①", "～－",   "髙橋﨑", "ｱｲｳ半角", "?野家",
                       "?",     "表ソ能", "a\tb",   "一  二",  "終わり\\"};
    std::vector<Movement> movements;
    for (std::size_t i = 0; i < names.size(); ++i)
        movements.push_back({.code = std::to_string(10 + i),
                             .name = names[i],
                             .price = "7",
                             .partner = "102",
                             .remark = names[i]});
    desk.store(movements);
    choosePartner(1);
    desk.search();
    desk.clickHeading(desk.cells.code);
    press();
    const auto records = readBack(csv());
    ASSERT_EQ(records.size(), static_cast<std::size_t>(desk.grid().MaxRows()) + 1);
    std::size_t compared = 0;
    for (int row = 1; row <= desk.grid().MaxRows(); ++row) {
        const Lines& record = records[static_cast<std::size_t>(row)];
        ASSERT_EQ(record.size(), 8U) << row;
        const ListCells& cells = desk.cells;
        const std::array fields{cells.code, cells.name,     cells.price,  cells.quantity,
                                cells.unit, cells.discount, cells.amount, cells.remark};
        for (std::size_t i = 0; i < fields.size(); ++i) {
            std::string expected = desk.cell(fields[i], row);
            const auto special = std::find(names.begin(), names.end(), expected);
            if (special != names.end()) {
                expected = readAs[static_cast<std::size_t>(special - names.begin())];
                ++compared;
            }
            EXPECT_EQ(record[i], expected) << "row " << row << ", field " << i;
        }
    }
    EXPECT_EQ(compared, 2 * names.size());
}

TEST_F(Slip, overwritesTheOneBefore)
{
    desk.store(
        {{.code = "1", .partner = "101"}, {.code = "2", .partner = "102"}, {.code = "3", .partner = "102"}});
    choosePartner(1);
    desk.search();
    press();
    EXPECT_EQ(readBack(csv()).size(), 5U);
    choosePartner(0);
    desk.search();
    press();
    EXPECT_EQ(readBack(csv()).size(), 4U);
}

} // namespace suisui::test

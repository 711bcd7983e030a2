// The layout of a new database, name for name: the shops' files have it, and other programs read them by it.
#include <gtest/gtest.h>

#include "tests/support/TempShop.h"

namespace suisui::test {

namespace {

using Texts = std::vector<std::string>;

std::string columnsOf(const TempShop& shop, std::string_view table)
{
    return shop.query("SELECT group_concat(name, ' ') FROM pragma_table_info('" + std::string(table) + "')")
        .front();
}

} // namespace

TEST(Layout, everyTableHasItsColumnsInOrder)
{
    const TempShop shop;
    const std::pair<const TableDef&, std::string_view> tables[] = {
        {inpTable, "Code Name NameKN NyuSuu NyuPrice NyuSakiCD NysName NyuDate NyuTime Unit NyuNebiki "
                   "Henkyaku TanCD TanName Bikou InpDate UpdDate"},
        {outTable, "Code Name NameKN SyuSuu SyuPrice SyuSakiCD SysName SyuDate SyuTime Unit SyuNebiki "
                   "RHenkyaku FHenkyaku TanCD TanName Bikou TyoDate TyoTime InpDate UpdDate"},
        {zaikoTable, "Code ZaikoSuu KuriSuu InpDate UpdDate"},
        {masterTable, "Code Name NameKN NyuSuu NyuPrice SyuSuu SyuPrice Unit Stock InpDate UpdDate"},
        {hseihinTable, "Code Name HSeihinCD Suuryou HSeihinName InpDate UpdDate"},
        {kokyakuTable, "Code Name NameKN YubinNo Todoufuken Jyusyo1 Jyusyo2 Tel Fax Mail Tantou Busyo Keisyo "
                       "NyuKyk SyuKyk Simebi Siharai Bikou InpDate UpdDate"},
        {tantouTable, "Code Name NameKN Busyo Yakusyoku YubinNo Jyusyo1 Jyusyo2 Tel Fax Mail Nyusya Bikou "
                      "InpDate UpdDate"},
        {rirekiTable, "DateFrom DateTo KakuTyo FileSize FileUpdate"},
    };
    for (const auto& [table, columns] : tables)
        EXPECT_EQ(columnsOf(shop, table.name), columns) << table.name;
    EXPECT_EQ(
        shop.query("SELECT name FROM sqlite_master WHERE type = 'table'"),
        (Texts{"InpTB", "OutTB", "ZaikoTB", "Master", "HSeihinTB", "KokyakuTB", "TantouTB", "RirekiTB"}));
    EXPECT_EQ(shop.query("PRAGMA user_version"), Texts{"1"});
}

TEST(Layout, everyTableHasItsKeyAndItsIndexes)
{
    const TempShop shop;
    EXPECT_EQ(
        shop.query("SELECT sql FROM sqlite_master WHERE type = 'index'"),
        (Texts{"CREATE UNIQUE INDEX InpTB_1 ON InpTB (InpDate, Code)",
               "CREATE INDEX InpTB_2 ON InpTB (NyuDate, NyuTime)", "CREATE INDEX InpTB_3 ON InpTB (Code)",
               "CREATE UNIQUE INDEX OutTB_1 ON OutTB (InpDate, Code)",
               "CREATE INDEX OutTB_2 ON OutTB (SyuDate, SyuTime)", "CREATE INDEX OutTB_3 ON OutTB (Code)",
               "CREATE UNIQUE INDEX ZaikoTB_1 ON ZaikoTB (Code)",
               "CREATE UNIQUE INDEX Master_1 ON Master (Code)",
               "CREATE INDEX HSeihinTB_1 ON HSeihinTB (Code)",
               "CREATE INDEX HSeihinTB_2 ON HSeihinTB (HSeihinCD)",
               "CREATE UNIQUE INDEX KokyakuTB_1 ON KokyakuTB (Code)",
               "CREATE UNIQUE INDEX TantouTB_1 ON TantouTB (Code)",
               "CREATE UNIQUE INDEX RirekiTB_1 ON RirekiTB (DateFrom, DateTo)"}));
}

TEST(Layout, everyColumnIsATextThatIsNeverNull_andHasNoLetterCase)
{
    const TempShop shop;
    EXPECT_EQ(shop.query("SELECT DISTINCT columns.type, columns.\"notnull\", columns.dflt_value FROM "
                         "sqlite_master AS tables, pragma_table_info(tables.name) AS columns "
                         "WHERE tables.type = 'table'"),
              Texts{"TEXT|1|''"});
    shop.execute("INSERT INTO RirekiTB (DateFrom, DateTo) VALUES ('Trn', 'Vik')");
    EXPECT_EQ(shop.query("SELECT count(*) FROM RirekiTB WHERE DateFrom = 'tRN' AND KakuTyo = ''"),
              Texts{"1"});
}

TEST(Layout, onlyTheListsOfMasterDataKeepRowsByAFlag)
{
    const std::pair<const TableDef&, bool> tables[] = {
        {inpTable, false},     {outTable, false},    {zaikoTable, false}, {masterTable, true},
        {hseihinTable, false}, {kokyakuTable, true}, {tantouTable, true}, {rirekiTable, false},
    };
    for (const auto& [table, flag] : tables)
        EXPECT_EQ(table.keepRowsFlag, flag) << table.name;
}

} // namespace suisui::test

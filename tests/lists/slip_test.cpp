// The slip: the file that the slip program reads, what is handed over beside it, and the start of the
// program.
#include <gtest/gtest.h>

#include <csignal>

#include <iconv.h>
#include <sys/resource.h>

#include <QDir>
#include <QFile>

#include "lists/SlipFile.h"
#include "store/IniFile.h"
#include "store/SlipIni.h"
#include "tests/lists/ListDesk.h"
#include "tests/support/Eventually.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

using Lines = std::vector<std::string>;

/// Reads as the slip program would, with nothing of this program: bytes, the C library's conversion, and a
/// splitter.
std::vector<Lines> readBack(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray bytes = file.readAll();
    iconv_t conversion = iconv_open("UTF-8", "CP932");
    std::string text(static_cast<std::size_t>(bytes.size()) * 3 + 16, '\0');
    char* from = bytes.data();
    auto fromLeft = static_cast<std::size_t>(bytes.size());
    char* to = text.data();
    std::size_t toLeft = text.size();
    EXPECT_EQ(iconv(conversion, &from, &fromLeft, &to, &toLeft), 0U);
    iconv_close(conversion);
    text.resize(text.size() - toLeft);

    std::vector<Lines> records;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = text.find("\r\n", at);
        if (end == std::string::npos) {
            ADD_FAILURE() << "every line ends in CR LF";
            break;
        }
        const std::string line = text.substr(at, end - at);
        EXPECT_TRUE(line.ends_with(',')) << line;
        Lines fields;
        for (std::size_t begin = 0; begin < line.size();) {
            const std::size_t comma = line.find(',', begin);
            fields.push_back(line.substr(begin, comma - begin));
            begin = comma + 1;
        }
        records.push_back(fields);
        at = end + 2;
    }
    return records;
}

struct Slip : testing::Test
{
    Slip()
    {
        QDir(desk.shop.base()).mkpath(u"exe"_s);
        slipIni.setIniFolder(desk.shop.base() + u"/Ini"_s);
        desk.page->setSlipPlace(slipIni, desk.shop.base() + u"/exe"_s);
        desk.frame.staffName = u"当番　花子"_s;
        desk.shop.add(kokyakuTable,
                      {"102", "西商店", "", "100-0001", "東京都", "千代田区", "１－１", "03-1111"});
    }

    /// A slip program that leaves a note of where it was started.
    void installProgram() const
    {
        QFile file(program());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\nwc -l < FileCsv.csv > started.tmp && mv started.tmp started\n");
        file.setPermissions(file.permissions() | QFileDevice::ExeOwner);
    }
    [[nodiscard]] bool started() const
    {
        return eventually([this] { return QFile::exists(desk.shop.base() + u"/exe/started"_s); });
    }
    [[nodiscard]] QString csv() const { return desk.shop.base() + u"/exe/FileCsv.csv"_s; }
    [[nodiscard]] QString program() const { return desk.shop.base() + u"/exe/PrintRpt.exe"_s; }
    [[nodiscard]] QString handedOver(const QString& key) const
    {
        IniFile file;
        EXPECT_TRUE(file.load(desk.shop.base() + u"/Ini/SlipIni.ini"_s));
        return file.value(u"Slip", key).value_or(u"-"_s);
    }
    void choosePartner(int index) { desk.control<QComboBox>(u"cmbXLSaki"_s).setCurrentIndex(index); }
    void press() const { desk.control<QPushButton>(u"cmdPrintRptExe"_s).click(); }
    /// What must hold after any attempt: the screen takes input and nothing waits to be written.
    void expectUsable() const
    {
        EXPECT_TRUE(desk.frame.enabled);
        EXPECT_FALSE(desk.db.inUnit());
    }

    ListDesk desk{Side::Shipment};
    SlipIni slipIni;
};

} // namespace

TEST_F(Slip, hasItsButtonOnTheShipmentListAlone)
{
    EXPECT_NE(desk.page->findChild<QPushButton*>(u"cmdPrintRptExe"_s), nullptr);
    EXPECT_EQ(desk.control<QPushButton>(u"cmdPrintRptExe"_s).text(), u"伝　票"_s);
    EXPECT_EQ(desk.control<QPushButton>(u"cmdPrintRptExe"_s).toolTip(),
              u" 一覧表示されている情報を 伝票に印刷します "_s);
    const ListDesk receipts(Side::Receipt);
    EXPECT_EQ(receipts.page->findChild<QPushButton*>(u"cmdPrintRptExe"_s), nullptr);
}

TEST_F(Slip, ofAnEmptyListIsRefused)
{
    press();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u" 「伝票」 印刷"_s);
    EXPECT_EQ(
        desk.box.shown[0].text,
        u"印刷する情報がありません。\r\n\r\n対象の情報を 検索（表示）した後に　　\r\n再度、印刷して下さい。"_s);
    EXPECT_EQ(desk.box.shown[0].icon, BoxIcon::Stop);
    EXPECT_FALSE(QFile::exists(csv()));
    expectUsable();
}

TEST_F(Slip, afterASearchForAllPartnersIsRefusedThoughThereAreRows)
{
    desk.store({{}});
    desk.search();
    desk.page->show();
    choosePartner(1); // only a search makes the choice count
    press();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u" 「伝票」 印刷"_s);
    EXPECT_EQ(
        desk.box.shown[0].text,
        u"「 出荷先 」 が 指定されていません。\r\n\r\n　「伝票」 印刷 の場合は、 \"（すべて）\" ではなく\r\n　特定の 「 出荷先 」 を 指定して下さい。\r\n\r\n　特定の 「 出荷先 」 を 指定して、検索（表示）した後に　　　\r\n　再度、印刷して下さい。"_s);
    EXPECT_EQ(desk.box.shown[0].icon, BoxIcon::Stop);
    EXPECT_EQ(desk.page->focusWidget(), desk.page->partnerChoice());
    EXPECT_FALSE(QFile::exists(csv()));
    expectUsable();
}

TEST_F(Slip, ofASearchedPartnerPrintsThoughTheChoiceHasChangedSince)
{
    installProgram();
    desk.store({{.partner = "102"}});
    choosePartner(1);
    desk.search();
    desk.control<QComboBox>(u"cmbXLSaki"_s).setCurrentText(u"（すべて）"_s);
    press();
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_TRUE(started());
    EXPECT_EQ(handedOver(u"CustomerCode"_s), u"102"_s);
    expectUsable();
}

TEST_F(Slip, carriesEveryRowOfTheListSubtotalsAndTotalIncluded)
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

TEST_F(Slip, figuresStandAsTheCellsShowThem)
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

TEST_F(Slip, readsBackCellByCellWithEveryCharacterThatTheCodePageHas)
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
    desk.clickHeading(8);
    press();
    const auto records = readBack(csv());
    ASSERT_EQ(records.size(), static_cast<std::size_t>(desk.grid().MaxRows()) + 1);
    std::size_t compared = 0;
    for (int row = 1; row <= desk.grid().MaxRows(); ++row) {
        const Lines& record = records[static_cast<std::size_t>(row)];
        ASSERT_EQ(record.size(), 8U) << row;
        const std::array cells{8, 2, 4, 5, 12, 6, 7, 13};
        for (std::size_t i = 0; i < cells.size(); ++i) {
            std::string expected = desk.cell(cells[i], row);
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

TEST_F(Slip, handsOverCustomerAndPerson)
{
    desk.store({{.partner = "102", .staff = "02"}});
    choosePartner(1);
    desk.search();
    press();
    EXPECT_EQ(handedOver(u"CustomerCode"_s), u"102"_s);
    EXPECT_EQ(handedOver(u"CustomerName"_s), u"西商店"_s);
    EXPECT_EQ(handedOver(u"CustomerDetail1"_s), u"100-0001"_s);
    EXPECT_EQ(handedOver(u"CustomerDetail2"_s), u"千代田区"_s);
    EXPECT_EQ(handedOver(u"CustomerDetail3"_s), u"１－１"_s);
    EXPECT_EQ(handedOver(u"CustomerDetail4"_s), u"03-1111"_s);
    EXPECT_EQ(handedOver(u"PersonName"_s), u"当番　花子"_s) << "no person asked for: the one on duty";
    EXPECT_EQ(desk.db.KokyakuSlip().Count(), 0);

    desk.control<QComboBox>(u"cmbXLTantou"_s).setCurrentIndex(1);
    desk.search();
    desk.control<QComboBox>(u"cmbXLTantou"_s).setCurrentIndex(0);
    desk.frame.staffName = u"別人"_s;
    press();
    EXPECT_EQ(handedOver(u"PersonName"_s), u"鈴木"_s) << "as it was at the search";
}

TEST_F(Slip, ofACustomerDeletedFromTheMasterCarriesNobodyElsesName)
{
    desk.shop.add(kokyakuTable, {"101", "東商店", "", "999", "", "どこか"});
    desk.store({{.partner = "101"}, {.code = "2", .partner = "102"}});
    choosePartner(0);
    desk.search();
    press();
    EXPECT_EQ(handedOver(u"CustomerName"_s), u"東商店"_s);
    choosePartner(1);
    desk.search();
    desk.db.Execute("DELETE FROM KokyakuTB");
    desk.db.Commit();
    press();
    EXPECT_EQ(handedOver(u"CustomerCode"_s), u"102"_s);
    EXPECT_EQ(handedOver(u"CustomerName"_s), QString());
    EXPECT_EQ(handedOver(u"CustomerDetail2"_s), QString());
    expectUsable();
}

TEST_F(Slip, ofACustomerWhoseCodeHoldsAQuoteIsHandedOver)
{
    desk.shop.add(kokyakuTable, {"1'2", "引用屋"});
    desk.page->setPartners({{"1'2", u"引用屋"_s}});
    desk.store({{.partner = "1'2"}});
    choosePartner(0);
    desk.search();
    press();
    EXPECT_EQ(handedOver(u"CustomerName"_s), u"引用屋"_s);
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

TEST_F(Slip, withoutItsProgramLeavesTheScreenUsable)
{
    desk.store({{.partner = "102"}});
    choosePartner(1);
    desk.search();
    press();
    EXPECT_TRUE(QFile::exists(csv()));
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_TRUE(desk.box.shown[0].text.contains(program()));
    expectUsable();
    desk.search();
    EXPECT_EQ(desk.grid().MaxRows(), 3);
}

TEST_F(Slip, intoAFolderThatTakesNoFileStartsNothing)
{
    desk.store({{.partner = "102"}});
    choosePartner(1);
    desk.search();
    for (const QString& folder : {desk.shop.base() + u"/missing"_s, u"/proc/self"_s}) {
        desk.box.shown.clear();
        desk.page->setSlipPlace(slipIni, folder);
        press();
        ASSERT_EQ(desk.box.shown.size(), 1U);
        EXPECT_EQ(desk.box.shown[0].title, u" 「伝票」 印刷"_s);
        EXPECT_EQ(handedOver(u"CustomerCode"_s), u"-"_s);
        expectUsable();
    }
}

TEST_F(Slip, onAFullDiskKeepsTheOldFileAndStartsNothing)
{
    installProgram();
    desk.store({{.partner = "102"}});
    choosePartner(1);
    desk.search();
    press();
    ASSERT_TRUE(started());
    QFile::remove(desk.shop.base() + u"/exe/started"_s);
    const auto before = readBack(csv());
    desk.storeMany(300);
    desk.store({{.code = "9", .name = std::string(5000, 'x'), .partner = "102"}});
    desk.search();

    // No file may grow beyond a few bytes: to the writer that is a disk without room.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit room = {};
    getrlimit(RLIMIT_FSIZE, &room);
    const rlimit none{.rlim_cur = 100, .rlim_max = room.rlim_max};
    setrlimit(RLIMIT_FSIZE, &none);
    press();
    setrlimit(RLIMIT_FSIZE, &room);

    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(readBack(csv()), before);
    EXPECT_EQ(QDir(desk.shop.base() + u"/exe"_s).entryList(QDir::Files).size(), 2)
        << "nothing is left behind";
    EXPECT_FALSE(QFile::exists(desk.shop.base() + u"/exe/started"_s));
    expectUsable();
    press();
    EXPECT_TRUE(started()) << "with room again all is well";
}

TEST_F(Slip, whoseSettingsCannotBeWrittenIsNotPrintedUnderAnotherName)
{
    installProgram();
    desk.store({{.partner = "102"}});
    choosePartner(1);
    desk.search();
    slipIni.setIniFolder(u"/proc/self"_s);
    press();
    EXPECT_EQ(desk.box.shown.size(), 1U);
    EXPECT_FALSE(QFile::exists(desk.shop.base() + u"/exe/started"_s));
    expectUsable();
}

} // namespace suisui::test

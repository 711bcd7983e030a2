// The forms of a shop without a master-data program: written, filled in as people and spreadsheets do it,
// and taken over whole or not at all.
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/core/CodePage.h"
#include "tests/support/Seed.h"
#include "tests/support/TempShop.h"
#include "tools/Forms.h"

namespace suisui::test {

namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

class FormsTest : public ::testing::Test
{
protected:
    [[nodiscard]] std::string base() const { return shop.base().toStdString(); }
    [[nodiscard]] std::string folder() const { return base() + "/forms"; }
    void fill(const std::string& name, const std::string& bytes) const
    {
        fs::create_directories(folder());
        std::ofstream(folder() + "/" + name, std::ios::binary | std::ios::trunc) << bytes;
    }
    [[nodiscard]] std::string form(const std::string& name) const
    {
        std::ifstream file(folder() + "/" + name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    ToolStatus write()
    {
        out.str({});
        err.str({});
        return writeForms(base(), folder(), out, err);
    }
    ToolStatus take()
    {
        out.str({});
        err.str({});
        return takeForms(base(), folder(), out, err);
    }
    [[nodiscard]] Texts lacking() const
    {
        AppDB db(shop.databaseFolder());
        EXPECT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
        return missingForStart(db);
    }
    /// A form that cannot be taken over, and the message about it.
    void expectFault(const std::string& name, const std::string& bytes, const std::string& said)
    {
        fill(name, bytes);
        EXPECT_EQ(take(), ToolStatus::Failed) << bytes;
        EXPECT_NE(err.str().find(said), std::string::npos) << err.str();
        for (const char* table : {"Master", "KokyakuTB", "TantouTB", "HSeihinTB"})
            EXPECT_EQ(shop.query(std::string("SELECT count(*) FROM ") + table), Texts{"0"}) << bytes;
        fs::remove(folder() + "/" + name);
    }
    void fillSmallShop() const
    {
        fill("担当者.csv", "担当者コード,担当者名\r\n01,山田\r\n");
        fill("取引先.csv", "取引先コード,取引先名,入荷先,出荷先\r\n101,青果市場,1,\r\n201,みどり食堂,,○\r\n");
        fill("商品.csv", "商品コード,商品名,単位,入荷数量,入荷単価,出荷数量,出荷単価,最低在庫数\r\n"
                         "4901234567894,りんご,個,10,100,1,150,5\r\n4901234567900,かご,,,,,,\r\n"
                         "SET1,詰合せ,箱,1,0,1,\"1,500\",0\r\n");
        fill("部品.csv",
             "商品コード,部品コード,部品の数\r\nSET1,4901234567894,3\r\nset1,4901234567900,1\r\n");
    }

    TempShop shop;
    std::ostringstream out;
    std::ostringstream err;
};

} // namespace

TEST_F(FormsTest, blankForms_haveHeadingsThatASpreadsheetReads_andNothingElse)
{
    ASSERT_EQ(write(), ToolStatus::Good) << err.str();
    EXPECT_EQ(form("担当者.csv"), "\uFEFF担当者コード,担当者名\r\n");
    EXPECT_EQ(form("取引先.csv"),
              "\uFEFF取引先コード,取引先名,入荷先,出荷先,郵便番号,住所１,住所２,電話番号\r\n");
    EXPECT_EQ(form("商品.csv"),
              "\uFEFF商品コード,商品名,単位,入荷数量,入荷単価,出荷数量,出荷単価,最低在庫数\r\n");
    EXPECT_EQ(form("部品.csv"), "\uFEFF商品コード,部品コード,部品の数\r\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder()), {}), 4);
    EXPECT_EQ(lacking(), (Texts{"入荷先", "出荷先", "担当者"}));
    EXPECT_EQ(take(), ToolStatus::Good) << "an empty form is not wrong: " << err.str();
}

TEST_F(FormsTest, filledForms_makeAShopThatCanBegin)
{
    fillSmallShop();
    ASSERT_EQ(take(), ToolStatus::Good) << err.str();
    EXPECT_EQ(out.str(), "担当者：追加 1 件、変更 0 件\n取引先：追加 2 件、変更 0 件\n"
                         "商品：追加 3 件、変更 0 件\n部品：追加 2 件、変更 0 件\n");
    EXPECT_EQ(lacking(), Texts{});
    EXPECT_EQ(shop.query("SELECT Code,Name,NyuKyk,SyuKyk FROM KokyakuTB ORDER BY Code"),
              (Texts{"101|青果市場|1|", "201|みどり食堂||1"}));
    EXPECT_EQ(
        shop.query("SELECT Code,Name,NyuSuu,NyuPrice,SyuSuu,SyuPrice,Unit,Stock FROM Master ORDER BY Code"),
        (Texts{"4901234567894|りんご|10|100|1|150|個|5", "4901234567900|かご|1|0|1|0||0",
               "SET1|詰合せ|1|0|1|1500|箱|0"}));
    EXPECT_EQ(shop.query("SELECT Code,HSeihinCD,Suuryou FROM HSeihinTB ORDER BY rowid"),
              (Texts{"SET1|4901234567894|3", "set1|4901234567900|1"}));
}

TEST_F(FormsTest, formsOfAFilledShop_comeBackUnchanged)
{
    fillSmallShop();
    ASSERT_EQ(take(), ToolStatus::Good) << err.str();
    fs::remove_all(folder());
    ASSERT_EQ(write(), ToolStatus::Good) << err.str();
    EXPECT_NE(form("商品.csv").find("\r\n4901234567894,りんご,個,10,100,1,150,5\r\n"), std::string::npos);
    const Texts goods = shop.query("SELECT * FROM Master ORDER BY Code");
    ASSERT_EQ(take(), ToolStatus::Good) << err.str();
    EXPECT_NE(out.str().find("商品：追加 0 件、変更 0 件\n"), std::string::npos) << out.str();
    EXPECT_EQ(shop.query("SELECT * FROM Master ORDER BY Code"), goods);
}

TEST_F(FormsTest, knownCodesChange_othersAndColumnsThatTheFormLacksStay)
{
    shop.add(masterTable, {"A1", "りんご", "リンゴ", "1", "100", "1", "150", "個", "3"});
    shop.add(masterTable, {"B1", "みかん", "", "1", "50", "1", "80", "個", "0"});
    fill("商品.csv", "出荷単価,商品名,商品コード\n180,ふじりんご,a1\n");
    ASSERT_EQ(take(), ToolStatus::Good) << err.str();
    EXPECT_EQ(out.str(), "商品：追加 0 件、変更 1 件\n");
    EXPECT_EQ(shop.query("SELECT Name,NameKN,NyuPrice,SyuPrice,Stock FROM Master ORDER BY Code"),
              (Texts{"ふじりんご|リンゴ|100|180|3", "みかん||50|80|0"}));
}

TEST_F(FormsTest, componentsOfNamedGoods_becomeWhatTheFormSays_othersStay)
{
    for (const char* code : {"S1", "S2", "A1", "B1"})
        shop.add(masterTable, {code, code});
    shop.add(hseihinTable, {"S1", "", "A1", "9"});
    shop.add(hseihinTable, {"S2", "", "A1", "2"});
    fill("部品.csv", "商品コード,部品コード,部品の数\nS1,B1,0.5\n");
    ASSERT_EQ(take(), ToolStatus::Good) << err.str();
    EXPECT_EQ(shop.query("SELECT Code,HSeihinCD,Suuryou FROM HSeihinTB ORDER BY Code"),
              (Texts{"S1|B1|0.5", "S2|A1|2"}));
}

TEST_F(FormsTest, whatPeopleAndSpreadsheetsDo_isUnderstood)
{
    const std::string text = "担当者コード,担当者名\r\n ０１ ,髙橋～①\r\n,\r\n\r\n0２,鈴木\r\n,\r\n";
    for (const bool cp932 : {false, true}) {
        fill("担当者.csv", cp932 ? *toCp932(text) : text);
        ASSERT_EQ(take(), ToolStatus::Good) << err.str();
        EXPECT_EQ(shop.query("SELECT Code,Name FROM TantouTB ORDER BY Code"),
                  (Texts{"01|髙橋～①", "02|鈴木"}));
    }
}

TEST_F(FormsTest, aFormThatIsThere_isNeverOverwritten)
{
    fill("商品.csv", "half an hour of typing");
    ASSERT_EQ(write(), ToolStatus::Good) << err.str();
    EXPECT_EQ(form("商品.csv"), "half an hour of typing");
    EXPECT_EQ(out.str().find("商品.csv"), std::string::npos);
}

TEST_F(FormsTest, whatCannotBe_isNamedByFileAndLine_andNothingIsStored)
{
    expectFault("商品.csv", "商品コード,商品名\n4.90123E+12,りんご\n",
                "商品.csv 2 行目：商品コード「4.90123E+12」は");
    expectFault("商品.csv", "商品コード,商品名\nA1,りんご\nB1,みかん\na1,ふじ\n",
                "商品.csv 4 行目：2 行目と同じコードです");
    expectFault("商品.csv", "商品コード,商品名\n,りんご\n", "商品.csv 2 行目：商品コードがありません");
    expectFault("商品.csv", "商品コード,商品名\nA'1,りんご\n", "商品コード「A'1」に使えない文字があります");
    expectFault("商品.csv", "商品コード,商品名\nA1,Tom's\n", "商品名「Tom's」の「'」は使えません");
    expectFault("商品.csv", "商品コード,商品名,入荷単価\nA1,りんご,時価\n",
                "商品.csv 2 行目：入荷単価「時価」は使えません");
    expectFault("商品.csv", "商品コード,商品名,最低在庫数\nA1,りんご,-1\n", "最低在庫数「-1」は使えません");
    expectFault("商品.csv", "商品コード,商品名\nA1,りんご,個\n",
                "商品.csv 2 行目：見出しより多くの欄があります");
    expectFault("商品.csv", "商品コード,品名\nA1,りんご\n", "見出し「品名」がわかりません");
    expectFault("商品.csv", "商品コード,商品名\nA1,\"りんご\n赤\"\n",
                "商品名に改行などの使えない文字があります");
    expectFault("商品.csv", "商品コード\nA1\n", "商品.csv：見出し「商品名」がありません");
    expectFault("商品.csv", "", "商品.csv：何も書かれていません");
    expectFault("商品.csv", "商品コード,商品名\nA1,\"りんご\n",
                "商品.csv：2 行目 4 文字目：「\"」で始まる欄が閉じていません。表計算ソフトで開き");
    expectFault("商品.csv", "商品コード,商品名\nA1,りん\"ご\n",
                "商品.csv：2 行目 10 文字目：欄の途中に「\"」があります。表計算ソフトで開き");
    expectFault("商品.csv", "商品コード,商品名\rA1,りんご\r",
                "商品.csv：1 行目 26 文字目：改行が古い Macintosh の形式（CR だけ）です。表計算ソフトで開き");
    expectFault("商品.csv", "商品コード,商品名\nA1,\x81\n", "商品.csv：文字コードがわかりません");
    expectFault("商品.csv", "商品コード,商品名\nA1,りんご\xE3", "商品.csv："); // cut inside a character
    expectFault("取引先.csv", "取引先コード,取引先名,入荷先\n1,市場,はい\n",
                "取引先.csv 2 行目：入荷先「はい」は");
    expectFault("部品.csv", "商品コード,部品コード,部品の数\nS1,A1,1\n",
                "部品.csv 2 行目：部品コード「A1」が商品にありません");
    expectFault("部品.csv", "商品コード,部品コード,部品の数\nS1,S1,1\n", "商品と部品が同じコードです");
    expectFault("部品.csv", "商品コード,部品コード,部品の数\nS1,A1,\n", "部品の数「」は使えません");
    EXPECT_EQ(take(), ToolStatus::Failed);
    EXPECT_NE(err.str().find("表がありません"), std::string::npos);
}

TEST_F(FormsTest, goodsCodesThatNoScanCanBring_areRefusedByLine)
{
    const struct
    {
        const char* code;
        const char* said;
    } cases[] = {
        {"12345678901234567", "商品コード「12345678901234567」は長すぎます。商品コードは 16 文字までです"},
        {"[A]", "商品コード「[A]」は使えません。「[」で始まるコードは"},
        {"{ENTER}", "商品コード「{ENTER}」は使えません。「{」で始まるコードは"},
        {"#1#", "商品コード「#1#」は使えません。「#」で始まるコードは"},
        {"@1@", "商品コード「@1@」は使えません。「@」で始まるコードは"},
        {"＠１＠", "商品コード「@1@」は使えません。「@」で始まるコードは"},
        {"[A", "商品コード「[A」は使えません。「[」で始まるコードは"}, // read as nothing at all
        {" A1", "商品コード「 A1」の前後に空白があります"},
        {"A1　", "商品コード「A1　」の前後に空白があります"},
        {"A1\u00A0", "商品コード「A1\u00A0」の前後に空白があります"},
        {"A1\u200B", "商品コード「A1\u200B」に目に見えない文字があります"},
        {"\u2060A1", "に目に見えない文字があります"},
        {"A\u00AD1", "に目に見えない文字があります"},
        {"A\u20031", "に目に見えない文字があります"},
        {"A1\u3164", "に、バーコードでは読み取れない文字があります"},
        {"りんご🍎", "に、バーコードでは読み取れない文字があります"},
    };
    for (const auto& each : cases)
        expectFault("商品.csv", "商品コード,商品名\n" + std::string(each.code) + ",りんご\n", each.said);
    expectFault("部品.csv", "商品コード,部品コード,部品の数\nS1,[A],1\n",
                "部品.csv 2 行目：部品コード「[A]」は使えません");
    expectFault("担当者.csv", "担当者コード,担当者名\n01\u200B,山田\n",
                "担当者.csv 2 行目：担当者コード「01\u200B」に目に見えない文字があります");
    fill("商品.csv", "商品コード,商品名\n1234567890123456,りんご\nA-1 B,みかん\nアイ,かご\n");
    EXPECT_EQ(take(), ToolStatus::Good) << err.str();
}

TEST_F(FormsTest, aCodeWhoseZerosAreGone_isReported_oneWithMoreIsAnother)
{
    shop.add(masterTable, {"0049", "りんご"});
    shop.add(tantouTable, {"01", "山田"});
    shop.add(tantouTable, {"7", "鈴木"});
    fill("担当者.csv", "担当者コード,担当者名\n1,山田\n007,高橋\n0A,佐藤\nA,田中\n");
    EXPECT_EQ(take(), ToolStatus::Failed);
    EXPECT_EQ(err.str(),
              "担当者.csv 2 行目：担当者コード「1」：01 があります。先頭の 0 が消えていませんか\n");
    fill("担当者.csv", "担当者コード,担当者名\n01,山田\n007,高橋\n");
    fill("商品.csv", "商品コード,商品名\n49,りんご\n");
    fill("部品.csv", "商品コード,部品コード,部品の数\n049,49,1\n");
    EXPECT_EQ(take(), ToolStatus::Failed);
    EXPECT_EQ(
        err.str(),
        "商品.csv 2 行目：商品コード「49」：0049 があります。先頭の 0 が消えていませんか\n"
        "部品.csv 2 行目：商品コード「049」が商品にありません。0049 があります。先頭の 0 が消えていませんか\n"
        "部品.csv 2 行目：部品コード「49」が商品にありません。0049 があります。先頭の 0 "
        "が消えていませんか\n");
    fs::remove(folder() + "/商品.csv");
    fs::remove(folder() + "/部品.csv");
    EXPECT_EQ(take(), ToolStatus::Good) << err.str();
    EXPECT_EQ(shop.query("SELECT Code FROM TantouTB ORDER BY Code"), (Texts{"007", "01", "7"}));
}

TEST_F(FormsTest, defaultQuantities_areWhole_pricesAndMinimumNeedNotBe)
{
    expectFault("商品.csv", "商品コード,商品名,入荷数量\nA1,りんご,0.5\n",
                "商品.csv 2 行目：入荷数量「0.5」は使えません。小数のない数を入れて下さい");
    expectFault("商品.csv", "商品コード,商品名,出荷数量\nA1,りんご,１．５\n",
                "商品.csv 2 行目：出荷数量「１．５」は使えません。小数のない数を入れて下さい");
    fill("商品.csv", "商品コード,商品名,入荷数量,入荷単価,出荷数量,最低在庫数\nA1,りんご,10.0,9.5,1.,0.5\n");
    ASSERT_EQ(take(), ToolStatus::Good) << err.str();
    EXPECT_EQ(shop.query("SELECT NyuSuu, NyuPrice, SyuSuu, Stock FROM Master"), Texts{"10|9.5|1|0.5"});
}

TEST_F(FormsTest, theLastPartOfASet_isTakenOutByALineWithoutAPart)
{
    for (const char* code : {"S1", "S2", "A1", "B1"})
        shop.add(masterTable, {code, code});
    shop.add(hseihinTable, {"S1", "", "A1", "2"});
    shop.add(hseihinTable, {"S2", "", "A1", "1"});
    fill("部品.csv", "商品コード,部品コード,部品の数\nS1,,\nS2,A1,1\n");
    ASSERT_EQ(take(), ToolStatus::Good) << err.str();
    EXPECT_EQ(out.str(), "部品：追加 0 件、変更 0 件、取り外し 1 件\n");
    EXPECT_EQ(shop.query("SELECT Code, HSeihinCD FROM HSeihinTB"), Texts{"S2|A1"});
    ASSERT_EQ(take(), ToolStatus::Good) << "and once more: " << err.str();
    const Texts mixed{"S2,,\nS2,B1,1\n", "S2,B1,1\nS2,,\n", "S2,,\nS2,A1,1\n", "S2,A1,1\nS2,,\n"};
    for (const std::string& lines : mixed) {
        fill("部品.csv", "商品コード,部品コード,部品の数\n" + lines);
        EXPECT_EQ(take(), ToolStatus::Failed);
        EXPECT_EQ(err.str(),
                  "部品.csv 3 行目：2 行目と合いません。部品のある行と部品のない行は、一緒に書けません\n")
            << lines;
    }
    fill("部品.csv", "商品コード,部品コード,部品の数\nS9,,\n");
    EXPECT_EQ(take(), ToolStatus::Failed);
    EXPECT_EQ(err.str(), "部品.csv 2 行目：商品コード「S9」が商品にありません\n");
    EXPECT_EQ(shop.query("SELECT Code, HSeihinCD FROM HSeihinTB"), Texts{"S2|A1"});
}

TEST_F(FormsTest, changedParts_keepWhatElseTheTableSaysOfThem)
{
    for (const char* code : {"S1", "A1", "B1", "C1"})
        shop.add(masterTable, {code, code});
    shop.add(hseihinTable, {"S1", "詰合せ", "A1", "2", "りんご", "x", "y"});
    shop.add(hseihinTable, {"S1", "詰合せ", "B1", "1", "かご", "x", "y"});
    fill("部品.csv", "商品コード,部品コード,部品の数\ns1,C1,1\nS1,a1,5\n");
    ASSERT_EQ(take(), ToolStatus::Good) << err.str();
    EXPECT_EQ(out.str(), "部品：追加 1 件、変更 1 件、取り外し 1 件\n");
    EXPECT_EQ(shop.query("SELECT * FROM HSeihinTB ORDER BY rowid"),
              (Texts{"S1|詰合せ|A1|5|りんご|x|y", "s1||C1|1|||"}));
}

TEST_F(FormsTest, whateverOldDataHolds_theProgramsOwnFormIsTakenBack)
{
    shop.add(masterTable, {"[A] B ", "Tom's", "", "0.5", "-1", "few", "1e3", "個\n", "-3"});
    shop.add(masterTable, {"12345678901234567890\u200B", "長い"});
    shop.add(tantouTable, {" 01 ", "山'田"});
    shop.add(tantouTable, {"1", "鈴木"});
    shop.add(kokyakuTable, {"#1#", "青果", "", "", "", "", "", "", "", "", "", "", "", "はい"});
    shop.add(hseihinTable, {"[A] B ", "", "GONE", "0"});
    shop.add(hseihinTable, {"[A] B ", "", "GONE", "0"});
    shop.add(hseihinTable, {"NOGOODS", "", "NOGOODS", "-2"});
    const auto everything = [this] {
        Texts all;
        for (const char* table : {"TantouTB", "KokyakuTB", "Master", "HSeihinTB"})
            for (std::string& row : shop.query(std::string("SELECT * FROM ") + table + " ORDER BY rowid"))
                all.push_back(std::move(row));
        return all;
    };
    const Texts before = everything();
    ASSERT_EQ(write(), ToolStatus::Good) << err.str();
    ASSERT_EQ(take(), ToolStatus::Good) << err.str();
    EXPECT_EQ(everything(), before);
    EXPECT_EQ(out.str(), "担当者：追加 0 件、変更 0 件\n取引先：追加 0 件、変更 0 件\n"
                         "商品：追加 0 件、変更 0 件\n部品：追加 0 件、変更 0 件\n");
}

TEST_F(FormsTest, aChangedSet_leavesGoodBooks_aFaultyFormLeavesAllAsItWas)
{
    for (const char* code : {"SET", "A1", "B1", "C1"})
        shop.add(masterTable, {code, code});
    shop.add(hseihinTable, {"SET", "", "A1", "2"});
    shop.add(hseihinTable, {"SET", "", "B1", "1"});
    shop.add(inpTable, {"SET", "", "", "0000005", "0000000", "", "", "20260401", "090000", "", "0000000",
                        "0000000", "", "", "", "20260401090000", "20260401090000"});
    for (const auto& [code, figure] : {std::pair("SET", "5"), std::pair("A1", "-10"), std::pair("B1", "-5")})
        shop.add(zaikoTable, {code, figure, "0", "20260401090000", "20260401090000"});
    const auto stock = [this] {
        return shop.query("SELECT Code, ZaikoSuu, KuriSuu FROM ZaikoTB ORDER BY Code");
    };
    const Texts before = stock();
    fill("部品.csv", "商品コード,部品コード,部品の数\nSET,A1,3\nSET,none,1\n");
    EXPECT_EQ(take(), ToolStatus::Failed);
    EXPECT_EQ(stock(), before);
    fill("部品.csv", "商品コード,部品コード,部品の数\nSET,A1,3\nSET,C1,0.2\n");
    ASSERT_EQ(take(), ToolStatus::Good) << err.str();
    EXPECT_EQ(stock(), (Texts{"A1|-10|5", "B1|-5|-5", "C1|0|1", "SET|5|0"}));
    std::ostringstream checked;
    EXPECT_EQ(checkBooks(base(), checked, checked), ToolStatus::Good) << checked.str();
}

TEST_F(FormsTest, oneBadLine_keepsAllFormsOut_andEveryFaultIsReported)
{
    fillSmallShop();
    fill("部品.csv", "商品コード,部品コード,部品の数\r\nSET1,none,3\r\nSET1,4901234567900,many\r\n");
    EXPECT_EQ(take(), ToolStatus::Failed);
    EXPECT_EQ(err.str(), "部品.csv 2 行目：部品コード「none」が商品にありません\n"
                         "部品.csv 3 行目：部品の数「many」は使えません。数を入れて下さい\n");
    EXPECT_EQ(shop.query("SELECT count(*) FROM Master"), Texts{"0"});
    EXPECT_EQ(lacking().size(), 3U);
}

TEST_F(FormsTest, damagedForms_areTakenOverWholeOrNotAtAll)
{
    fillSmallShop();
    ASSERT_EQ(take(), ToolStatus::Good) << err.str();
    std::mt19937 engine(printedSeed());
    const auto any = [&engine](std::size_t below) {
        return std::uniform_int_distribution<std::size_t>(0, below - 1)(engine);
    };
    const Texts names{"担当者.csv", "取引先.csv", "商品.csv", "部品.csv"};
    Texts whole;
    for (const std::string& name : names)
        whole.push_back(form(name));
    const auto everything = [this] {
        Texts all;
        for (const char* table : {"TantouTB", "KokyakuTB", "Master", "HSeihinTB"})
            for (std::string& row : shop.query(std::string("SELECT * FROM ") + table + " ORDER BY 1, 3"))
                all.push_back(std::move(row));
        return all;
    };
    const std::string bytes = std::string("\0\"',\n\r1Ee+-.\xEF\xBB\xBF\x81\xFF", 17);
    Texts before = everything();
    for (int i = 0; i < 300; ++i) {
        const std::size_t which = any(names.size());
        std::string damaged = whole[which];
        for (std::size_t n = 0; n <= any(3); ++n)
            damaged.replace(any(damaged.size()), any(4), 1, bytes[any(bytes.size())]);
        fill(names[which], damaged);
        const ToolStatus status = take();
        EXPECT_EQ(status == ToolStatus::Good, err.str().empty()) << damaged;
        const Texts after = everything();
        if (status == ToolStatus::Good)
            before = after;
        ASSERT_EQ(after, before) << damaged;
        std::ostringstream checked;
        ASSERT_EQ(checkBooks(base(), checked, checked), ToolStatus::Good) << checked.str() << damaged;
        fill(names[which], whole[which]);
    }
}

TEST_F(FormsTest, noDatabase_orNoRoomForForms_isReported)
{
    fs::create_directories(base());
    std::ofstream(folder()) << "in the way";
    EXPECT_EQ(write(), ToolStatus::Failed);
    EXPECT_NE(err.str().find("書けません"), std::string::npos);
    fs::remove(shop.databaseFile());
    EXPECT_EQ(write(), ToolStatus::Failed);
    EXPECT_EQ(take(), ToolStatus::Failed);
    EXPECT_NE(err.str().find("データベースを開けません"), std::string::npos);
}

} // namespace suisui::test

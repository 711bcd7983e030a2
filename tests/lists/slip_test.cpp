// The slip of a shipment list: for whom it can be printed, and what is handed over with it.
#include "tests/lists/SlipDesk.h"
#include "tests/support/ExpectBox.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

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
    expectOneBox(
        desk.box,
        {.title = u" 「伝票」 印刷"_s,
         .text =
             u"印刷する情報がありません。\r\n\r\n対象の情報を 検索（表示）した後に　　\r\n再度、印刷して下さい。"_s,
         .icon = BoxIcon::Stop});
    EXPECT_FALSE(QFile::exists(csv()));
    expectUsable();
}

TEST_F(Slip, afterASearchForAllPartners_isRefused_thoughThereAreRows)
{
    desk.store({{}});
    desk.search();
    desk.page->show();
    choosePartner(1); // has no effect before a search
    press();
    expectOneBox(
        desk.box,
        {.title = u" 「伝票」 印刷"_s,
         .text =
             u"「 出荷先 」 が 指定されていません。\r\n\r\n　「伝票」 印刷 の場合は、 \"（すべて）\" ではなく\r\n　特定の 「 出荷先 」 を 指定して下さい。\r\n\r\n　特定の 「 出荷先 」 を 指定して、検索（表示）した後に　　　\r\n　再度、印刷して下さい。"_s,
         .icon = BoxIcon::Stop});
    EXPECT_EQ(desk.page->focusWidget(), desk.page->partnerChoice());
    EXPECT_FALSE(QFile::exists(csv()));
    expectUsable();
}

TEST_F(Slip, ofASearchedPartner_prints_thoughTheChoiceHasChangedSince)
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
    EXPECT_EQ(handedOver(u"PersonName"_s), u"当番　花子"_s) << "no person was asked for, so the one on duty";
    EXPECT_EQ(desk.db.KokyakuSlip().Count(), 0);

    desk.control<QComboBox>(u"cmbXLTantou"_s).setCurrentIndex(1);
    desk.search();
    desk.control<QComboBox>(u"cmbXLTantou"_s).setCurrentIndex(0);
    desk.frame.staffName = u"別人"_s;
    press();
    EXPECT_EQ(handedOver(u"PersonName"_s), u"鈴木"_s) << "as it was at the search";
}

TEST_F(Slip, ofACustomerDeletedFromTheMaster_carriesNobodyElsesName)
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

TEST_F(Slip, ofACustomerWhoseCodeHoldsAQuote_isHandedOver)
{
    desk.shop.add(kokyakuTable, {"1'2", "引用屋"});
    desk.page->setPartners({{"1'2", u"引用屋"_s}});
    desk.store({{.partner = "1'2"}});
    choosePartner(0);
    desk.search();
    press();
    EXPECT_EQ(handedOver(u"CustomerName"_s), u"引用屋"_s);
}

} // namespace suisui::test

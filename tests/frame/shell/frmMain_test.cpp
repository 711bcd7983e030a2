// The main window: loading, tabs, the guard of unsaved edits, Enter in a grid, scanned values, closing.
#include "frame/shell/frmMain.h"

#include <array>
#include <vector>

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTest>

#include "platform/core/RunTimeError.h"
#include "tests/support/ExpectBox.h"
#include "tests/support/MainWindowDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

const MovementCells& receiptCells = movementSide(Side::Receipt).cells;

class MainWindowTest : public ::testing::Test, protected MainWindowDesk
{
};

} // namespace

TEST_F(MainWindowTest, withoutReceiptPartner_handsOver_andNothingAsksAboutTheEnd)
{
    partner("201", "南商店", "", "1");
    frmMain& main = load();
    expectOneBox(
        box,
        {.title = u"入荷先の未登録エラー"_s,
         .text =
             u"入荷先の顧客情報が登録されていません。　　　\r\n\r\n　　最低でも１件は 登録して下さい。\r\n\r\n　　【 すいすいＴＡＧ 】　　を終了して\r\n　　【 基本情報 登録 】を起動します。"_s,
         .icon = BoxIcon::Stop});
    EXPECT_TRUE(main.MasterMissing());
    main.cmdMaster_Click();
    EXPECT_TRUE(masterStart);
    EXPECT_TRUE(gone);
    EXPECT_EQ(asked, 0);
}

TEST_F(MainWindowTest, withoutShipmentPartnerOrStaff_handsOver)
{
    partner("101", "東商店", "1", "");
    EXPECT_TRUE(load().MasterMissing());
    EXPECT_EQ(box.shown.back().title, u"出荷先の未登録エラー"_s);
    partner("201", "南商店", "", "1");
    EXPECT_TRUE(load().MasterMissing());
    EXPECT_EQ(box.shown.back().title, u"担当者の未登録エラー"_s);
}

TEST_F(MainWindowTest, withoutGoods_theOperatorDecides)
{
    partner("101", "東商店", "1", "1");
    shop.add(tantouTable, {"01", "山田"});
    box.answers = {BoxAnswer::Yes};
    EXPECT_TRUE(load().MasterMissing());
    EXPECT_EQ(box.shown.back().title, u"商品の未登録"_s);
    EXPECT_EQ(box.shown.back().icon, BoxIcon::Exclamation);
    box.answers = {BoxAnswer::No};
    EXPECT_FALSE(load().MasterMissing());
    EXPECT_TRUE(shortWait.isVisible());
    shortWait.unload();
}

TEST_F(MainWindowTest, listsDatesAndCaptions_areFilled)
{
    fillShop();
    open();
    EXPECT_EQ(window->windowTitle(), u" すいすいＴＡＧ　　【 入出荷在庫管理 】　　Tarnvik Works Co.,Ltd."_s);
    EXPECT_EQ(control<QComboBox>(u"cmbTantou"_s).count(), 2);
    EXPECT_EQ(control<QComboBox>(u"cmbNSaki"_s).currentText(), u"東商店"_s);
    EXPECT_EQ(control<QComboBox>(u"cmbSSaki"_s).count(), 1);
    EXPECT_EQ(control<QComboBox>(u"cmbNLSaki"_s).count(), 3);
    EXPECT_EQ(control<QComboBox>(u"cmbNLSaki"_s).currentText(), u"（すべて）"_s);
    EXPECT_EQ(control<QComboBox>(u"cmbSLTantou"_s).currentText(), u"（すべて）"_s);
    for (const QString& letters : {u"N"_s, u"S"_s, u"NL"_s, u"SL"_s}) {
        EXPECT_EQ(control<QLineEdit>(u"txt%1yyyy_F"_s.arg(letters)).text(), u"2026"_s);
        EXPECT_EQ(control<QLineEdit>(u"txt%1dd_T"_s.arg(letters)).text(), u"01"_s);
    }
    EXPECT_EQ(control<QLabel>(u"lblNToday"_s).text(), u"2026年04月01日"_s);
    const auto& tabs = control<QTabWidget>(u"SSTab"_s);
    EXPECT_EQ(tabs.tabText(0), u" 入荷 登録 "_s);
    EXPECT_EQ(tabs.tabText(2), u" 在庫 一覧 "_s);
    EXPECT_EQ(control<QGroupBox>(u"fraNSaki"_s).title(), u" 入荷先 名称 "_s);
    EXPECT_EQ(control<QGroupBox>(u"fraOutData"_s).title(), u" 【 出荷 】 情報 "_s);
    EXPECT_EQ(control<QGroupBox>(u"fraStockData"_s).title(), u" 在庫数 "_s);
    EXPECT_EQ(control<QGroupBox>(u"fraNLWhere"_s).title(), u" 【 入荷 】 明細 表示条件 "_s);
    EXPECT_EQ(control<QLabel>(u"lblSLTantou"_s).text(), u"担当者"_s);
    EXPECT_EQ(grid(Tab::Shipment).text(movementSide(Side::Shipment).cells.returned[1], 0), "不良品返品");
    EXPECT_EQ(window->currentTab(), Tab::Receipt);
    EXPECT_TRUE(window->TabLoaded(Tab::Receipt) && window->TabLoaded(Tab::Shipment));
    EXPECT_TRUE(field(Tab::Receipt).hasFocus());
}

TEST_F(MainWindowTest, emptyFirstHeading_leavesAllAsDesigned_andStillSearches)
{
    fillShop();
    QFile file(shop.base() + u"/Ini/AppIni.ini"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[InpHeading]\n1=\n2=別の名\n[Term]\n0=仕入\n");
    file.close();
    ini.setIniFolder(shop.base() + u"/Ini"_s);
    open();
    EXPECT_EQ(control<QTabWidget>(u"SSTab"_s).tabText(0), u" 入荷 登録 "_s);
    EXPECT_EQ(grid(Tab::Receipt).text(receiptCells.name, 0), "名称");
    EXPECT_TRUE(window->TabLoaded(Tab::Receipt));
}

TEST_F(MainWindowTest, guardAnsweredWithCancel_staysOnTheTab_withTheFocusInItsGrid)
{
    fillShop();
    open();
    leaveAnEdit();
    box.answers = {BoxAnswer::Cancel};
    window->selectTab(1);
    ASSERT_EQ(box.shown.back().title, u"すいすいＴＡＧ"_s);
    EXPECT_EQ(
        box.shown.back().text,
        u"　　「 入荷 登録 」が変更されています。\r\n\r\n　　　更新を行いますか？　　　（ 戻る ： キャンセル ）　　"_s);
    EXPECT_EQ(box.shown.back().buttons, BoxButtons::YesNoCancel);
    EXPECT_EQ(window->currentTab(), Tab::Receipt);
    EXPECT_TRUE(grid(Tab::Receipt).hasFocus());
    EXPECT_TRUE(field(Tab::Receipt).isEnabled());
    EXPECT_EQ(grid(Tab::Receipt).text(receiptCells.quantity, 1), "20");
    EXPECT_TRUE(window->dirty(Side::Receipt));
    EXPECT_TRUE(window->formEnabled());
}

TEST_F(MainWindowTest, guardAnsweredWithNo_dropsTheEdits)
{
    fillShop();
    open();
    leaveAnEdit();
    box.answers = {BoxAnswer::No};
    window->selectTab(1);
    EXPECT_EQ(window->currentTab(), Tab::Shipment);
    EXPECT_FALSE(window->dirty(Side::Receipt));
    window->selectTab(0);
    EXPECT_EQ(grid(Tab::Receipt).text(receiptCells.quantity, 1), "12");
}

TEST_F(MainWindowTest, guardAnsweredWithYes_writes_andAFailingUpdateStaysDirty)
{
    fillShop();
    open();
    leaveAnEdit();
    box.answers = {BoxAnswer::Yes};
    window->selectTab(1);
    EXPECT_FALSE(window->dirty(Side::Receipt));
    EXPECT_EQ(shop.query("SELECT ZaikoSuu FROM ZaikoTB"), std::vector<std::string>{"20"});
    window->selectTab(0);
    leaveAnEdit();
    shop.execute("UPDATE InpTB SET Bikou='other'");
    box.answers = {BoxAnswer::Yes};
    window->selectTab(1);
    EXPECT_EQ(window->currentTab(), Tab::Shipment); // the change of tab goes on
    EXPECT_TRUE(window->dirty(Side::Receipt));
    EXPECT_EQ(shop.query("SELECT ZaikoSuu FROM ZaikoTB"), std::vector<std::string>{"32"});
}

TEST_F(MainWindowTest, aChangeOfTab_letsTheFocusPassNoOtherControl)
{
    fillShop();
    frmMain& main = open();
    std::vector<QString> entered;
    QObject::connect(qApp, &QApplication::focusChanged, &main, [&](QWidget*, QWidget* now) {
        if (now != nullptr)
            entered.push_back(now->objectName());
    });
    const std::array names{u"txtNBarCode"_s, u"txtSBarCode"_s, u"txtZBarCode"_s, u"txtNLBarCode"_s,
                           u"txtSLBarCode"_s};
    for (const int tab : {1, 2, 3, 4, 0, 3, 1}) {
        entered.clear();
        main.selectTab(tab);
        ASSERT_FALSE(entered.empty());
        EXPECT_EQ(entered.back(), names.at(static_cast<std::size_t>(tab)));
        entered.pop_back();
        for (const QString& name : entered)
            EXPECT_EQ(name, u"tab_%1"_s.arg(tab)) << name.toStdString();
    }
}

TEST_F(MainWindowTest, enterInTheQuantityCell_goesToTheCodeField_selected)
{
    fillShop();
    open();
    window->GoodsCodeSet(u"4901001000017"_s);
    EXPECT_TRUE(grid(Tab::Receipt).hasFocus());
    EXPECT_EQ(grid(Tab::Receipt).ActiveCol(), receiptCells.quantity);
    QTest::keyClick(&grid(Tab::Receipt), Qt::Key_Return);
    EXPECT_TRUE(field(Tab::Receipt).hasFocus());
    EXPECT_EQ(field(Tab::Receipt).selectedText(), u"4901001000017"_s);
}

TEST_F(MainWindowTest, scannedValues_reachTheirTargets)
{
    fillShop();
    open();
    MainBarCodeChk(u"@02@"_s, *window);
    EXPECT_EQ(control<QComboBox>(u"cmbTantou"_s).currentText(), u"佐藤"_s);
    MainBarCodeChk(u"#102#"_s, *window);
    EXPECT_EQ(control<QComboBox>(u"cmbNSaki"_s).currentText(), u"西商店"_s);
    MainBarCodeChk(u"#999#"_s, *window);
    EXPECT_EQ(control<QComboBox>(u"cmbNSaki"_s).currentText(), u"西商店"_s);
    MainBarCodeChk(u"4901001000017"_s, *window);
    EXPECT_EQ(shop.query("SELECT NyuSakiCD,TanCD FROM InpTB"), std::vector<std::string>{"102|02"});
    MainBarCodeChk(u"[4]"_s, *window);
    EXPECT_EQ(window->currentTab(), Tab::ShipmentList);
    MainBarCodeChk(u"[4]"_s, *window);
    EXPECT_EQ(window->currentTab(), Tab::ShipmentList);
    MainBarCodeChk(u"@01@"_s, *window);
    EXPECT_EQ(control<QComboBox>(u"cmbSLTantou"_s).currentText(), u"山田"_s);
    EXPECT_TRUE(control<QWidget>(u"cmdSLKensaku"_s).hasFocus());
    EXPECT_EQ(control<QComboBox>(u"cmbTantou"_s).currentText(), u"佐藤"_s);
    MainBarCodeChk(u"[2]"_s, *window);
    MainBarCodeChk(u"#101#"_s, *window); // the stock tab knows no partners
    for (const QString& nothing : {u"[P]"_s, u"[T]"_s, u"[K]"_s, u"[zz]"_s, u"[4"_s, QString()})
        MainBarCodeChk(nothing, *window);
    EXPECT_EQ(window->currentTab(), Tab::Stock);
    EXPECT_THROW(MainBarCodeChk(u"[10]"_s, *window), RunTimeError);
    EXPECT_THROW(MainBarCodeChk(u"[2X]"_s, *window), RunTimeError);
    EXPECT_THROW(MainBarCodeChk(u"#"_s, *window), RunTimeError);
}

TEST_F(MainWindowTest, closing_asksTheGuardFirst_thenTheEnd)
{
    fillShop();
    open();
    leaveAnEdit();
    box.answers = {BoxAnswer::Cancel};
    EXPECT_FALSE(window->close());
    EXPECT_EQ(asked, 0);
    EXPECT_TRUE(window->isVisible());
    endAnswer = false; // 戻る
    box.answers = {BoxAnswer::No};
    EXPECT_FALSE(window->close());
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(grid(Tab::Receipt).text(receiptCells.quantity, 1), "12"); // the stored values again
    EXPECT_TRUE(control<QWidget>(u"CmdEnd"_s).hasFocus());
    EXPECT_TRUE(window->formEnabled());
    EXPECT_FALSE(gone);
    endAnswer = true;
    MainBarCodeChk(u"[U]"_s, *window);
    EXPECT_EQ(asked, 2);
    EXPECT_TRUE(gone);
}

TEST_F(MainWindowTest, handOver_withoutUnsavedEdits_asksNothing)
{
    fillShop();
    open();
    MainBarCodeChk(u"[O]"_s, *window);
    EXPECT_TRUE(gone && masterStart);
    EXPECT_EQ(asked, 0);
    EXPECT_TRUE(box.shown.empty());
}

TEST_F(MainWindowTest, handOver_isTakenBack_whenTheGuardIsCancelled)
{
    fillShop();
    open();
    leaveAnEdit();
    box.answers = {BoxAnswer::Cancel};
    window->cmdMaster_Click();
    EXPECT_FALSE(gone || masterStart);
    EXPECT_TRUE(window->formEnabled());
}

} // namespace suisui::test

// The routines that open the label dialog.
#include <QApplication>
#include <QTimer>

#include <gtest/gtest.h>

#include "barcode/label/BarCodePrintOut.h"
#include "tests/barcode/label/LabelDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

using Desk = LabelDialogDesk;

struct Entry
{
    /// Runs \a enter and looks at the dialog that opens; false when none does.
    bool through(const std::function<void(const LabelDesk&)>& enter,
                 const std::function<void(QDialog&)>& look)
    {
        bool up = false;
        QTimer::singleShot(0, &desk.grid, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                return;
            up = true;
            look(*dialog);
            dialog->reject();
        });
        enter({desk.ini, desk.box, desk.paper, [] { return QString(); }, nullptr});
        QCoreApplication::processEvents();
        return up;
    }

    Desk desk;
};

QString textOf(const QDialog& dialog, const char* name)
{
    const auto* widget = dialog.findChild<QWidget*>(QString::fromLatin1(name));
    return widget->property("text").toString();
}

} // namespace

TEST(LabelEntries, anEmptyGrid_isRefused)
{
    Entry entry;
    entry.desk.grid.setMaxRows(0);
    const auto none = [](QDialog&) {};
    const auto refused = [&](const std::function<void(const LabelDesk&)>& enter) {
        entry.desk.box.shown.clear();
        EXPECT_FALSE(entry.through(enter, none));
        ASSERT_EQ(entry.desk.box.shown.size(), 1U);
        EXPECT_EQ(entry.desk.box.shown[0].title, u"バーコード印刷"_s);
        EXPECT_EQ(
            entry.desk.box.shown[0].text,
            u"印刷する情報がありません。　　　\r\n\r\n対象の情報を表示した後に\r\n再度、印刷して下さい。"_s);
        EXPECT_EQ(entry.desk.box.shown[0].icon, BoxIcon::Stop);
    };
    vaSpread& grid = entry.desk.grid;
    refused([&](const LabelDesk& desk) {
        MainBarCodePrintOut(desk, LabelMode::Receipts, grid, labelMarkColumn, noCell);
    });
    refused([&](const LabelDesk& desk) {
        RptBarCodePrintOut(desk, LabelMode::Receipts, grid, labelMarkColumn, noCell);
    });
    grid.setMaxRows(1);
    refused(
        [&](const LabelDesk& desk) { MstBarCodePrintOut(desk, LabelMode::Goods, grid, labelMarkColumn); });
}

TEST(LabelEntries, receiptsAndShipments_bringTheirWord_rows_andSourceOfNumber)
{
    Entry entry;
    vaSpread& grid = entry.desk.grid;
    grid.SetActiveCell(1, 2);
    EXPECT_TRUE(entry.through(
        [&](const LabelDesk& desk) {
            MainBarCodePrintOut(desk, LabelMode::Receipts, grid, labelMarkColumn, labelQuantityColumn);
        },
        [](QDialog& dialog) {
            EXPECT_EQ(textOf(dialog, "lblSyori"), u"【 入荷 】"_s);
            EXPECT_EQ(textOf(dialog, "txtLine_0"), u"2"_s);
            EXPECT_EQ(textOf(dialog, "txtLine_1"), u"3"_s);
            EXPECT_EQ(textOf(dialog, "lblPrtNum_1"), u"数量分 "_s);
            EXPECT_EQ(textOf(dialog, "optPrint_0"), u" 「 印刷 」 にチェックのついている行を印刷する。"_s);
        }));
    EXPECT_TRUE(entry.through(
        [&](const LabelDesk& desk) {
            MainBarCodePrintOut(desk, LabelMode::Shipments, grid, labelMarkColumn, noCell);
        },
        [](QDialog& dialog) {
            EXPECT_EQ(textOf(dialog, "lblSyori"), u"【 出荷 】"_s);
            EXPECT_EQ(textOf(dialog, "lblPrtNum_1"), u"１ 枚 　"_s);
        }));
}

TEST(LabelEntries, masterData_leavesOutTheEmptyLastRow_andAsksForTheNumber)
{
    Entry entry;
    vaSpread& grid = entry.desk.grid;
    grid.SetActiveCell(1, 3);
    EXPECT_TRUE(entry.through(
        [&](const LabelDesk& desk) { MstBarCodePrintOut(desk, LabelMode::Goods, grid, labelMarkColumn); },
        [](QDialog& dialog) {
            EXPECT_EQ(textOf(dialog, "lblSyori"), u"【 商品 】"_s);
            EXPECT_EQ(textOf(dialog, "txtLine_0"), u"2"_s);
            EXPECT_EQ(textOf(dialog, "txtLine_1"), u"2"_s);
            EXPECT_TRUE(dialog.findChild<QWidget*>(u"txtPrtNum"_s)->isVisible());
        }));
}

TEST(LabelEntries, aSlip_printsEveryRowWithACode)
{
    Entry entry;
    EXPECT_TRUE(entry.through(
        [&](const LabelDesk& desk) {
            RptBarCodePrintOut(desk, LabelMode::Shipments, entry.desk.grid, labelMarkColumn,
                               labelQuantityColumn);
        },
        [](QDialog& dialog) {
            EXPECT_EQ(textOf(dialog, "lblSyori"), u"【 伝 票 】"_s);
            EXPECT_EQ(textOf(dialog, "optPrint_0"), u" 「コード」 が入力されている すべての行を印刷する。"_s);
        }));
}

} // namespace suisui::test

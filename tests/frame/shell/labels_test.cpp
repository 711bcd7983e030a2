// Labels from the entry tabs: button, choice and function codes lead to the dialog and from there to paper.
#include <QApplication>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTimer>

#include "barcode/label/frm_PriCheck.h"
#include "tests/support/MainWindowDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

struct LabelWindow : MainWindowDesk
{
    LabelWindow()
    {
        ini.setIniFolder(folder.path());
        fillShop();
        open();
    }

    /// Scans \a functions one after another and works the dialog that comes up; false when none did.
    bool dialogAfter(const QStringList& functions, const std::function<void(frm_PriCheck&)>& work)
    {
        bool up = false;
        QTimer::singleShot(0, window.get(), [&] {
            auto* dialog = qobject_cast<frm_PriCheck*>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                return;
            up = true;
            enabledMeanwhile = window->formEnabled();
            work(*dialog);
            dialog->reject();
        });
        for (const QString& function : functions)
            window->MainBarEtc(function);
        QCoreApplication::processEvents();
        return up;
    }

    QTemporaryDir folder;
    bool enabledMeanwhile = true;
};

} // namespace

TEST(LabelsOfTheEntryTabs, oneLabelOfEachRow_isTheDesignedChoice)
{
    LabelWindow desk;
    desk.window->GoodsCodeSet(u"4901001000017"_s);
    ASSERT_TRUE(desk.dialogAfter({u"N"_s}, [](frm_PriCheck& dialog) { dialog.CmdOK_Click(); }));
    ASSERT_EQ(desk.paper.pages.size(), 1U);
    ASSERT_EQ(desk.paper.pages[0].bars.size(), 1U);
    EXPECT_EQ(desk.paper.pages[0].bars[0].text, u"4901001000017"_s);
    EXPECT_FALSE(desk.enabledMeanwhile);
    EXPECT_TRUE(desk.window->formEnabled());
    EXPECT_EQ(desk.window->focusWidget(), &desk.control<QWidget>(u"cmdNPrint"_s));
    EXPECT_NE(desk.grid(Tab::Receipt).text(movementSide(Side::Receipt).cells.print, 1), "1")
        << "the mark is used up";
}

TEST(LabelsOfTheEntryTabs, byQuantity_theCellsPrintAsTheyAre_savedOrNot)
{
    LabelWindow desk;
    desk.leaveAnEdit(); // 20 in the cell, 12 stored
    ASSERT_EQ(desk.grid(Tab::Receipt).text(movementSide(Side::Receipt).cells.quantity, 1), "20");
    ASSERT_TRUE(desk.dialogAfter({u"M"_s, u"N"_s}, [](frm_PriCheck& dialog) { dialog.CmdOK_Click(); }));
    ASSERT_EQ(desk.paper.pages.size(), 2U);
    EXPECT_EQ(desk.paper.pages[0].bars.size() + desk.paper.pages[1].bars.size(), 20U);
    EXPECT_TRUE(desk.window->dirty(Side::Receipt)) << "nothing was stored on the way";
    ASSERT_TRUE(desk.dialogAfter({u"L"_s, u"N"_s}, [](frm_PriCheck&) {}));
}

TEST(LabelsOfTheEntryTabs, shipments_haveSettingsOfTheirOwn)
{
    LabelWindow desk;
    desk.window->selectTab(1);
    desk.window->GoodsCodeSet(u"4901001000017"_s);
    ASSERT_TRUE(desk.dialogAfter({u"N"_s}, [](frm_PriCheck& dialog) { dialog.CmdOK_Click(); }));
    EXPECT_EQ(desk.ini.labelSetting(LabelMode::Shipments, u"Yousi"_s), u"0"_s);
    EXPECT_TRUE(desk.ini.labelSetting(LabelMode::Receipts, u"Yousi"_s).isEmpty());
    EXPECT_EQ(desk.window->focusWidget(), &desk.control<QWidget>(u"cmdSPrint"_s));
}

TEST(LabelsOfTheEntryTabs, anEmptyGrid_isRefused)
{
    LabelWindow desk;
    desk.box.shown.clear();
    EXPECT_FALSE(desk.dialogAfter({u"N"_s}, [](frm_PriCheck&) {}));
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"バーコード印刷"_s);
    EXPECT_TRUE(desk.window->formEnabled());
}

TEST(LabelsOfTheEntryTabs, captionsAreTheKnownOnes)
{
    LabelWindow desk;
    EXPECT_EQ(desk.control<QRadioButton>(u"optNPrint1"_s).text(), u" １枚 印刷します"_s);
    EXPECT_EQ(desk.control<QRadioButton>(u"optSPrintS"_s).text(), u" 数量分 印刷します"_s);
    EXPECT_EQ(desk.control<QPushButton>(u"cmdSPrint"_s).text(), u"バーコード印刷"_s);
    EXPECT_TRUE(desk.control<QRadioButton>(u"optNPrint1"_s).isChecked());
}

} // namespace suisui::test

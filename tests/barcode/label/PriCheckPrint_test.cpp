// The label dialog: what is remembered, and the print.
#include <QTest>

#include <gtest/gtest.h>

#include "tests/barcode/label/LabelDesk.h"
#include "tests/support/Eventually.h"
#include "tests/support/ExpectBox.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

using Desk = LabelDialogDesk;

} // namespace

TEST(PriCheckPrint, aSavedPitchOutsideTheSteps_opensAsThree)
{
    for (const QString& saved : {u"25"_s, u"x"_s, u"0"_s, u"-1"_s, u"1e300"_s}) {
        Desk desk;
        ASSERT_TRUE(desk.ini.setLabelSetting(LabelMode::Receipts, u"Yousi"_s, u"1"_s));
        ASSERT_TRUE(desk.ini.setLabelSetting(LabelMode::Receipts, u"BarPich"_s, saved));
        desk.open();
        EXPECT_EQ(desk.choice("cmbBarPich")->currentText(), u"3"_s) << saved.toStdString();
        EXPECT_EQ(desk.paper.barPitch(), 3);
    }
}

TEST(PriCheckPrint, whatWasPrintedLast_isProposedAgain_forItsSourceAlone)
{
    Desk desk;
    desk.open();
    desk.sheet(3);
    desk.sheet(4);
    desk.choice("cmbBarPich")->setCurrentIndex(4);
    desk.type("txtBarHeight", u"9.5");
    desk.type("txtXYpoint_0", u"11.1");
    desk.type("txtXYpoint_1", u"12.2");
    desk.type("txtWHPich_0", u"50");
    desk.type("txtWHPich_1", u"24");
    desk.type("txtOnePageNum_0", u"3");
    desk.type("txtOnePageNum_1", u"8");
    desk.button("chkName")->setChecked(false);
    desk.type("txtNameXYpoint_0", u"1");
    desk.type("txtCodeXYpoint_1", u"10");
    desk.button("chkKinou_1")->setChecked(true);
    desk.type("txtKinouXYpoint_3", u"222");
    desk.dialog->CmdOK_Click();
    ASSERT_TRUE(desk.dialog->printed());
    EXPECT_TRUE(desk.box.shown.empty());

    const auto look = [&] {
        EXPECT_TRUE(desk.button("optYousi_4")->isChecked());
        EXPECT_EQ(desk.choice("cmbBarPich")->currentText(), u"5"_s);
        EXPECT_EQ(desk.paper.barPitch(), 5);
        EXPECT_EQ(desk.text("txtBarHeight"), "9.5");
        EXPECT_EQ(desk.text("txtXYpoint_0"), "11.1");
        EXPECT_EQ(desk.text("txtXYpoint_1"), "12.2");
        EXPECT_EQ(desk.text("txtWHPich_0"), "50");
        EXPECT_EQ(desk.text("txtWHPich_1"), "24");
        EXPECT_EQ(desk.choice("cmbStart")->count(), 24);
        EXPECT_FALSE(desk.button("chkName")->isChecked());
        EXPECT_TRUE(desk.button("chkCode")->isChecked());
        EXPECT_EQ(desk.text("txtNameXYpoint_0"), "1");
        EXPECT_EQ(desk.text("txtCodeXYpoint_1"), "10");
        EXPECT_FALSE(desk.button("chkKinou_0")->isChecked());
        EXPECT_TRUE(desk.button("chkKinou_1")->isChecked());
        EXPECT_EQ(desk.text("txtKinouXYpoint_3"), "222");
    };
    desk.fill({{"A"}});
    desk.open();
    look();
    AppIni again;
    again.setIniFolder(desk.iniFolder);
    EXPECT_EQ(again.labelSetting(LabelMode::Receipts, u"PageColumns"_s), u"3"_s);
    desk.source.mode = LabelMode::Shipments;
    desk.open();
    EXPECT_TRUE(desk.button("optYousi_0")->isChecked());
    EXPECT_EQ(desk.text("txtBarHeight"), "12.00");
}

TEST(PriCheckPrint, theStripOfFunctionCodes_isRememberedWithItsRow)
{
    Desk desk;
    desk.open();
    desk.button("chkKinou_1")->setChecked(true);
    desk.dialog->CmdOK_Click();
    desk.fill({{"A"}});
    desk.open();
    EXPECT_TRUE(desk.button("chkKinou_1")->isChecked());
    EXPECT_FALSE(desk.button("chkKinou_0")->isChecked());
    EXPECT_EQ(desk.text("txtOnePageNum_1"), "5");
    EXPECT_EQ(desk.choice("cmbStart")->count(), 10);
    EXPECT_FALSE(desk.button("opt0_10")->isVisible());
    EXPECT_TRUE(desk.field("txtKinouXYpoint_2")->isEnabled());
    EXPECT_FALSE(desk.field("txtKinouXYpoint_0")->isEnabled());
}

TEST(PriCheckPrint, aCancelledPrint_writesNothing_andKeepsTheDialog)
{
    Desk desk;
    desk.open();
    desk.type("txtBarHeight", u"9");
    desk.paper.chosen = PrinterChoice::Cancelled;
    desk.dialog->CmdOK_Click();
    EXPECT_EQ(desk.paper.calls, (std::vector<std::string>{"orientation", "choose"}));
    EXPECT_FALSE(desk.dialog->printed());
    EXPECT_TRUE(desk.dialog->isVisible());
    EXPECT_EQ(desk.text("txtBarHeight"), "9");
    EXPECT_EQ(desk.marks(), "111");
    EXPECT_FALSE(QFile::exists(desk.iniFolder + u"/AppIni.ini"_s));
    desk.scan = u"[T]"_s;
    EXPECT_TRUE(eventually([&] { return !desk.dialog->isVisible(); })) << "the reader is read again";
}

TEST(PriCheckPrint, settingsFullOfNonsense_openAndPrint)
{
    const QStringList nonsense{u"x"_s, u"-1"_s,    u"0"_s,    u"1e300"_s, u"99999999999"_s, u"　"_s,
                               u""_s,  u"4"_s,     u"10"_s,   u"3.7"_s,   u"--"_s,          u"鉛筆"_s,
                               u"2"_s, u"-12.5"_s, u"0.01"_s, u"1,000"_s, u"\"\""_s};
    std::mt19937 random(printedSeed());
    for (int round = 0; round < 40; ++round) {
        Desk desk(oneRowOf("5"));
        QStringList values;
        std::vector<std::pair<QString, QString>> settings;
        for (const LabelFieldRow& row : labelFields())
            if (row.saving.key != nullptr) {
                values +=
                    nonsense.at(static_cast<qsizetype>(random() % static_cast<unsigned>(nonsense.size())));
                settings.emplace_back(QString::fromUtf16(row.saving.key), values.last());
            }
        ASSERT_EQ(settings.size(), 21U);
        ASSERT_TRUE(desk.ini.setLabelSettings(LabelMode::Receipts, settings));
        desk.open();
        desk.dialog->CmdOK_Click();
        EXPECT_TRUE(desk.dialog->printed() || desk.box.shown.size() == 1) << values.join(u'|').toStdString();
    }
}

// ---- print

TEST(PriCheckPrint, nothingMarked_neverReachesThePrinterDialog)
{
    Desk desk({{"A", "1", false}});
    desk.open();
    EXPECT_EQ(desk.dialog->PageTotal(), 0);
    desk.dialog->CmdOK_Click();
    expectOneBox(
        desk.box,
        {.title = u"印刷する情報なし エラー"_s,
         .text =
             u"印刷する情報がありません。\r\n\r\n印刷する条件が正しいか確認した後に　　　\r\n再度、印刷して下さい。"_s,
         .icon = BoxIcon::Stop});
    EXPECT_TRUE(desk.paper.calls.empty());
    EXPECT_TRUE(desk.dialog->isVisible());
}

TEST(PriCheckPrint, aPrint_goesPortrait_choosesThePrinter_andClosesTheDialog)
{
    Desk desk;
    desk.open();
    desk.dialog->CmdOK_Click();
    EXPECT_EQ(desk.paper.calls, (std::vector<std::string>{"orientation", "choose", "start document",
                                                          "start page", "end page", "end document"}));
    EXPECT_FALSE(desk.dialog->isVisible());
    EXPECT_EQ(desk.paper.pages.at(0).bars.size(), 3U);
    EXPECT_EQ(desk.marks(), "000");
}

TEST(PriCheckPrint, aRange_marksItsRows_andPrintsThem)
{
    Desk desk({{"A", "1"}, {"B", "1", false}, {"C", "2", false}, {"D", "1"}});
    desk.open();
    desk.button("optPrint_1")->setChecked(true);
    desk.type("txtLine_0", u"2");
    desk.type("txtLine_1", u"3");
    desk.dialog->CmdOK_Click();
    ASSERT_EQ(desk.paper.pages.size(), 1U);
    ASSERT_EQ(desk.paper.pages[0].bars.size(), 3U);
    EXPECT_EQ(desk.paper.pages[0].bars[0].text, u"B"_s);
    EXPECT_EQ(desk.paper.pages[0].bars[2].text, u"C"_s);
    EXPECT_EQ(desk.marks(), "1001");
}

TEST(PriCheckPrint, thePageRange_isPutRight_andPrinted)
{
    Desk desk(oneRowOf("40"));
    desk.open();
    ASSERT_EQ(desk.pages(), "1-4");
    desk.type("txtPage_0", u"2");
    desk.type("txtPage_1", u"99");
    desk.dialog->CmdOK_Click();
    EXPECT_EQ(desk.paper.pages.size(), 3U);
    EXPECT_EQ(desk.pages(), "2-4");
}

TEST(PriCheckPrint, randomJobs_countAsManyPagesAsTheEngineOpens)
{
    std::mt19937 random(printedSeed());
    const auto upTo = [&](unsigned n) { return static_cast<int>(random() % n); };
    std::size_t pages = 0;
    for (int round = 0; round < 60; ++round) {
        std::vector<Desk::Row> rows(static_cast<std::size_t>(1 + upTo(8)));
        for (auto& row : rows)
            row = {upTo(6) == 0 ? "" : "C" + std::to_string(upTo(99)), std::to_string(upTo(30)),
                   upTo(3) != 0};
        Desk desk(rows);
        desk.open();
        desk.sheet(upTo(4));
        desk.choice("cmbStart")
            ->setCurrentIndex(upTo(static_cast<unsigned>(desk.choice("cmbStart")->count())));
        if (upTo(2) == 0) {
            desk.button("optPrint_1")->setChecked(true);
            desk.field("txtLine_0")->setText(QString::number(1 + upTo(static_cast<unsigned>(rows.size()))));
        }
        const auto counted = static_cast<std::size_t>(desk.dialog->PageTotal());
        pages += counted;
        desk.dialog->CmdOK_Click();
        ASSERT_EQ(desk.paper.pages.size(), counted) << "round " << round;
        for (const auto& page : desk.paper.pages)
            ASSERT_FALSE(page.bars.empty()) << "round " << round;
    }
    EXPECT_GT(pages, 60U);
}

TEST(PriCheckPrint, aQuantityBeyondAllPaper_isRefused_unlessPagesAreNamed)
{
    Desk desk(oneRowOf("99999999999"));
    desk.open();
    desk.dialog->CmdOK_Click();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"ページ指定 エラー"_s);
    EXPECT_TRUE(desk.paper.calls.empty());
    desk.type("txtPage_0", u"7");
    desk.type("txtPage_1", u"8");
    desk.dialog->CmdOK_Click();
    EXPECT_EQ(desk.paper.pages.size(), 2U);
}

TEST(PriCheckPrint, whileThePrinterIsChosen_noScanIsRead_andNoSecondPrintBegins)
{
    Desk desk;
    desk.open();
    desk.paper.onChoose = [&] {
        desk.scan = u"[P]"_s;
        desk.dialog->CmdOK_Click();
        letTheTimersTick();
        EXPECT_EQ(desk.scan, u"[P]"_s);
        desk.scan.clear();
    };
    desk.dialog->CmdOK_Click();
    EXPECT_EQ(std::count(desk.paper.calls.begin(), desk.paper.calls.end(), "choose"), 1);
}

TEST(PriCheckPrint, theReader_pressesTheTwoButtons_andNothingElse)
{
    Desk desk;
    desk.open();
    desk.scan = u"4901234567894"_s;
    ASSERT_TRUE(eventually([&] { return desk.scan.isEmpty(); }));
    EXPECT_TRUE(desk.dialog->isVisible());
    desk.scan = u"[P]"_s;
    EXPECT_TRUE(eventually([&] { return desk.dialog->printed(); }));
    desk.fill({{"A"}});
    desk.open();
    desk.scan = u"[T]"_s;
    EXPECT_TRUE(eventually([&] { return !desk.dialog->isVisible(); }));
    EXPECT_FALSE(desk.dialog->printed());
}

} // namespace suisui::test

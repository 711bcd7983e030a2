// The label dialog: sheets, page count, what depends on what, checks, keys, what is remembered.
#include <QCheckBox>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

#include "barcode/label/LabelSheets.h"
#include "tests/barcode/label/LabelDesk.h"
#include "tests/support/Eventually.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

using Desk = LabelDialogDesk;

std::vector<Desk::Row> oneRowOf(const char* quantity)
{
    return {{"A", quantity}};
}

} // namespace

TEST(PriCheck, opensOnTheFirstSheet_withItsFigures)
{
    Desk desk;
    desk.open();
    EXPECT_EQ(desk.dialog->windowTitle(), u"バーコード印刷"_s);
    EXPECT_EQ(desk.find<QLabel>("lblSyori")->text(), u"【 入荷 】"_s);
    EXPECT_TRUE(desk.button("optYousi_0")->isChecked());
    EXPECT_EQ(desk.button("optYousi_0")->text(), u"Ａ４用紙\n　１２面"_s);
    EXPECT_EQ(desk.button("optYousi_4")->text(), u"【フリー】"_s);
    EXPECT_EQ(desk.find<QLabel>("lblYosiName")->text(), u"Ａ４用紙　１２面\nHISAGO (タックシール)"_s);
    EXPECT_EQ(desk.choice("cmbBarPich")->currentText(), u"3"_s);
    EXPECT_EQ(desk.paper.barPitch(), 3);
    EXPECT_EQ(desk.text("txtBarHeight"), "12.00");
    EXPECT_EQ(desk.text("txtXYpoint_0"), "30.00");
    EXPECT_EQ(desk.text("txtWHPich_0"), "88.00");
    EXPECT_EQ(desk.text("txtNameXYpoint_1"), "-5.00");
    EXPECT_EQ(desk.choice("cmbStart")->count(), 12);
    EXPECT_EQ(desk.text("txtKinouXYpoint_3"), "228.00");
    EXPECT_TRUE(desk.find<QWidget>("frame_yousi_0")->isVisible());
    EXPECT_FALSE(desk.find<QWidget>("frame_yousi_1")->isVisible());
}

TEST(PriCheck, everySheet_writesItsFigures_andShowsItsPicture)
{
    Desk desk;
    desk.open();
    for (const int index : {3, 2, 1, 0}) {
        const LabelSheet& sheet = labelSheets.at(static_cast<std::size_t>(index));
        desk.sheet(index);
        const auto is = [&](const char* name, const char16_t* text) {
            EXPECT_EQ(desk.field(name)->text(), QString::fromUtf16(text)) << name << " of sheet " << index;
        };
        EXPECT_EQ(desk.choice("cmbBarPich")->currentText(), QString::fromUtf16(sheet.barPitch));
        is("txtBarHeight", sheet.barHeight);
        is("txtXYpoint_0", sheet.startX);
        is("txtXYpoint_1", sheet.startY);
        is("txtWHPich_0", sheet.width);
        is("txtWHPich_1", sheet.height);
        is("txtNameXYpoint_0", sheet.name.x);
        is("txtNameXYpoint_1", sheet.name.y);
        is("txtCodeXYpoint_0", sheet.code.x);
        is("txtCodeXYpoint_1", sheet.code.y);
        EXPECT_EQ(desk.button("chkName")->isChecked(), sheet.name.on);
        EXPECT_EQ(desk.button("chkCode")->isChecked(), sheet.code.on);
        EXPECT_EQ(desk.field("txtOnePageNum_0")->text().toInt(), sheet.columns);
        EXPECT_EQ(desk.field("txtOnePageNum_1")->text().toInt(), sheet.rows);
        EXPECT_FALSE(desk.field("txtOnePageNum_0")->isEnabled());
        EXPECT_EQ(desk.button("chkKinou_0")->isEnabled(), index == 0);
        EXPECT_EQ(desk.find<QLabel>("lblKinouSetumei")->isEnabled(), index == 0);
        const QString frame = u"frame_yousi_%1"_s.arg(index);
        EXPECT_TRUE(desk.dialog->findChild<QWidget*>(frame)->isVisible());
        EXPECT_EQ(desk.dialog->findChild<QWidget*>(frame)->findChildren<QRadioButton*>().size(),
                  sheet.columns * sheet.rows);
    }
}

TEST(PriCheck, theFreeSheet_leavesTheFields_andOpensColumnsAndRows)
{
    Desk desk;
    desk.open();
    desk.sheet(3);
    desk.sheet(4);
    EXPECT_EQ(desk.find<QLabel>("lblYosiName")->text(), u"【 フリー 】\n自由設定"_s);
    EXPECT_EQ(desk.text("txtXYpoint_1"), "13.00");
    EXPECT_EQ(desk.text("txtOnePageNum_0"), "4");
    EXPECT_TRUE(desk.field("txtOnePageNum_0")->isEnabled());
    EXPECT_TRUE(desk.field("txtOnePageNum_1")->isEnabled());
    EXPECT_TRUE(desk.button("chkKinou_0")->isEnabled());
    EXPECT_FALSE(desk.button("chkKinou_0")->isChecked());
}

TEST(PriCheck, theWidthOfASheetOfOneColumn_isShownDisabled)
{
    Desk desk;
    desk.open();
    desk.sheet(2);
    EXPECT_EQ(desk.text("txtWHPich_0"), "00.00");
    EXPECT_FALSE(desk.field("txtWHPich_0")->isEnabled());
    EXPECT_FALSE(desk.find<QLabel>("lblWHPich_0")->isEnabled());
    EXPECT_FALSE(desk.find<QLabel>("lblWHUnit_0")->isEnabled());
    EXPECT_TRUE(desk.field("txtWHPich_1")->isEnabled());
    desk.sheet(1);
    EXPECT_TRUE(desk.field("txtWHPich_0")->isEnabled());
}

TEST(PriCheck, theCountOfPages_followsQuantityAndStart)
{
    struct Case
    {
        const char* quantity;
        int start;
        const char* pages;
    };
    for (const Case& each : {Case{"12", 1, "1-1"}, Case{"13", 1, "1-2"}, Case{"12", 2, "1-2"},
                             Case{"5", 8, "1-1"}, Case{"0", 1, "0-0"}}) {
        Desk desk(oneRowOf(each.quantity));
        desk.open();
        desk.choice("cmbStart")->setCurrentIndex(each.start - 1);
        EXPECT_EQ(desk.pages(), each.pages) << each.quantity << " from " << each.start;
    }
}

TEST(PriCheck, onlyMarkedRowsWithACode_areCounted_andNoQuantityThatIsNoNumber)
{
    Desk desk({{"A", "5"}, {"B", "50", false}, {"", "50"}, {"D", "many"}, {"E", ""}, {"F", "8"}});
    desk.open();
    EXPECT_EQ(desk.pages(), "1-2");
    EXPECT_EQ(desk.dialog->PageTotal(), 2);
}

TEST(PriCheck, withoutAQuantityColumn_theNumberForEachRowCounts)
{
    Desk desk;
    desk.source.quantityColumn = 0;
    desk.open();
    EXPECT_EQ(desk.pages(), "1-1");
    desk.type("txtPrtNum", u"5");
    EXPECT_EQ(desk.pages(), "1-2");
    desk.type("txtPrtNum", u"");
    EXPECT_EQ(desk.pages(), "1-2") << "a bad value halts the count";
}

TEST(PriCheck, aRangeOfRows_countsWithoutMarks)
{
    Desk desk({{"A", "12"}, {"B", "12", false}, {"C", "12", false}});
    desk.open();
    EXPECT_FALSE(desk.field("txtLine_0")->isEnabled());
    desk.button("optPrint_1")->setChecked(true);
    EXPECT_TRUE(desk.field("txtLine_0")->isEnabled());
    EXPECT_TRUE(desk.find<QLabel>("lblLine_1")->isEnabled());
    EXPECT_EQ(desk.pages(), "1-3");
    desk.type("txtLine_0", u"2");
    EXPECT_EQ(desk.pages(), "1-2");
    for (const char16_t* bad : {u"", u"0", u"4", u"x"}) {
        desk.type("txtLine_1", bad);
        EXPECT_EQ(desk.pages(), "0-0") << QString::fromUtf16(bad).toStdString();
    }
    desk.button("optPrint_0")->setChecked(true);
    EXPECT_EQ(desk.pages(), "1-1");
}

TEST(PriCheck, aTickOfFunctionCodes_takesTheLastRowOfTheFirstSheet_andStartsAgainAtOne)
{
    Desk desk;
    desk.open();
    desk.button("opt0_11")->setChecked(true);
    EXPECT_EQ(desk.choice("cmbStart")->currentText(), u"12"_s);
    desk.button("chkKinou_0")->setChecked(true);
    EXPECT_EQ(desk.text("txtOnePageNum_1"), "5");
    EXPECT_EQ(desk.choice("cmbStart")->count(), 10);
    EXPECT_EQ(desk.choice("cmbStart")->currentText(), u"1"_s);
    EXPECT_FALSE(desk.button("opt0_10")->isVisible());
    EXPECT_FALSE(desk.button("opt0_11")->isVisible());
    EXPECT_TRUE(desk.button("opt0_0")->isChecked());
    EXPECT_TRUE(desk.field("txtKinouXYpoint_0")->isEnabled());
    EXPECT_FALSE(desk.field("txtKinouXYpoint_2")->isEnabled());
    desk.button("chkKinou_1")->setChecked(true);
    desk.button("chkKinou_0")->setChecked(false);
    EXPECT_EQ(desk.choice("cmbStart")->count(), 10);
    desk.button("chkKinou_1")->setChecked(false);
    EXPECT_EQ(desk.choice("cmbStart")->count(), 12);
    EXPECT_TRUE(desk.button("opt0_10")->isVisible());
}

TEST(PriCheck, anotherSheet_unticksTheFunctionCodes_andShowsAllButtonsAgain)
{
    Desk desk;
    desk.open();
    desk.button("chkKinou_0")->setChecked(true);
    desk.sheet(1);
    EXPECT_FALSE(desk.button("chkKinou_0")->isChecked());
    EXPECT_FALSE(desk.field("txtKinouXYpoint_0")->isEnabled());
    EXPECT_EQ(desk.choice("cmbStart")->count(), 24);
    desk.sheet(0);
    EXPECT_TRUE(desk.button("opt0_11")->isVisible());
    EXPECT_EQ(desk.choice("cmbStart")->count(), 12);
}

TEST(PriCheck, oneColumnAndOneRow_leaveNoChoiceOfTheFirstLabel)
{
    Desk desk;
    desk.open();
    desk.sheet(4);
    desk.button("chkKinou_0")->setChecked(true);
    desk.type("txtOnePageNum_0", u"1");
    desk.type("txtOnePageNum_1", u"1");
    EXPECT_FALSE(desk.choice("cmbStart")->isEnabled());
    EXPECT_FALSE(desk.find<QLabel>("lblStart")->isEnabled());
    EXPECT_FALSE(desk.button("chkKinou_0")->isEnabled());
    EXPECT_FALSE(desk.field("txtKinouXYpoint_0")->isEnabled());
    EXPECT_EQ(desk.pages(), "1-3");
    desk.type("txtOnePageNum_1", u"2");
    EXPECT_TRUE(desk.choice("cmbStart")->isEnabled());
    EXPECT_TRUE(desk.button("chkKinou_0")->isEnabled());
    EXPECT_TRUE(desk.field("txtKinouXYpoint_0")->isEnabled());
}

TEST(PriCheck, columnsThatAreNoNumber_changeNothing)
{
    Desk desk;
    desk.open();
    desk.sheet(4);
    for (const char16_t* bad : {u"", u"0", u"x"}) {
        desk.type("txtOnePageNum_0", bad);
        EXPECT_EQ(desk.choice("cmbStart")->count(), 12);
        EXPECT_EQ(desk.pages(), "1-1");
    }
}

TEST(PriCheck, buttonsOfThePicture_andTheListOfStarts_followEachOther)
{
    Desk desk;
    desk.open();
    for (int sheet = 0; sheet < fixedSheets; ++sheet) {
        desk.sheet(sheet);
        const int last = desk.choice("cmbStart")->count() - 1;
        const QString name = u"opt%1_%2"_s.arg(sheet);
        desk.dialog->findChild<QRadioButton*>(u"opt%1_%2"_s.arg(sheet).arg(last))->click();
        EXPECT_EQ(desk.choice("cmbStart")->currentIndex(), last);
        desk.choice("cmbStart")->setCurrentIndex(2);
        EXPECT_TRUE(desk.dialog->findChild<QRadioButton*>(u"opt%1_2"_s.arg(sheet))->isChecked());
    }
    desk.sheet(4);
    desk.choice("cmbStart")->setCurrentIndex(4);
    EXPECT_EQ(desk.choice("cmbStart")->currentIndex(), 4);
}

TEST(PriCheck, ticksOfNameAndCode_openTheirFields)
{
    Desk desk;
    desk.open();
    for (const auto& [box, x, y] : {std::tuple{"chkName", "txtNameXYpoint_0", "txtNameXYpoint_1"},
                                    std::tuple{"chkCode", "txtCodeXYpoint_0", "txtCodeXYpoint_1"}}) {
        desk.button(box)->setChecked(false);
        EXPECT_FALSE(desk.field(x)->isEnabled());
        EXPECT_FALSE(desk.field(y)->isEnabled());
        desk.button(box)->setChecked(true);
        EXPECT_TRUE(desk.field(x)->isEnabled());
    }
}

TEST(PriCheck, whereTheNumberIsGiven_itIsNotAskedFor)
{
    Desk desk;
    desk.source.asksForNumber = false;
    desk.open();
    EXPECT_FALSE(desk.field("txtPrtNum")->isVisible());
    EXPECT_EQ(desk.find<QLabel>("lblPrtNum_1")->text(), u"数量分 "_s);
    desk.source.quantityColumn = 0;
    desk.open();
    EXPECT_EQ(desk.find<QLabel>("lblPrtNum_1")->text(), u"１ 枚 　"_s);
    EXPECT_EQ(desk.pages(), "1-1");
}

// ---- what is remembered

TEST(PriCheck, aSavedPitchOutsideTheSteps_opensAsThree)
{
    for (const QString& saved : {u"25"_s, u"x"_s, u"0"_s, u"-1"_s, u"1e300"_s}) {
        Desk desk;
        ASSERT_TRUE(desk.ini.setLabelSetting(3, u"Yousi"_s, u"1"_s));
        ASSERT_TRUE(desk.ini.setLabelSetting(3, u"BarPich"_s, saved));
        desk.open();
        EXPECT_EQ(desk.choice("cmbBarPich")->currentText(), u"3"_s) << saved.toStdString();
        EXPECT_EQ(desk.paper.barPitch(), 3);
    }
}

TEST(PriCheck, whatWasPrintedLast_isProposedAgain_forItsSourceAlone)
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
    EXPECT_EQ(again.labelSetting(3, u"PageColumns"_s), u"3"_s);
    desk.source.mode = 4;
    desk.open();
    EXPECT_TRUE(desk.button("optYousi_0")->isChecked());
    EXPECT_EQ(desk.text("txtBarHeight"), "12.00");
}

TEST(PriCheck, aCancelledPrint_writesNothing_andKeepsTheDialog)
{
    Desk desk;
    desk.open();
    desk.type("txtBarHeight", u"9");
    desk.paper.chosen = 0;
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

TEST(PriCheck, settingsFullOfNonsense_openAndPrint)
{
    const QStringList nonsense{u"x"_s, u"-1"_s,    u"0"_s,    u"1e300"_s, u"99999999999"_s, u"　"_s,
                               u""_s,  u"4"_s,     u"10"_s,   u"3.7"_s,   u"--"_s,          u"鉛筆"_s,
                               u"2"_s, u"-12.5"_s, u"0.01"_s, u"1,000"_s, u"\"\""_s};
    std::mt19937 random(printedSeed());
    for (int round = 0; round < 40; ++round) {
        Desk desk(oneRowOf("5"));
        QStringList values;
        for (qsizetype i = 0; i < AppIni::labelSettingNames().size(); ++i)
            values += nonsense.at(static_cast<qsizetype>(random() % static_cast<unsigned>(nonsense.size())));
        ASSERT_TRUE(desk.ini.setLabelSettings(3, values));
        desk.open();
        desk.dialog->CmdOK_Click();
        EXPECT_TRUE(desk.dialog->printed() || desk.box.shown.size() == 1) << values.join(u'|').toStdString();
    }
}

// ---- print

TEST(PriCheck, nothingMarked_neverReachesThePrinterDialog)
{
    Desk desk({{"A", "1", false}});
    desk.open();
    EXPECT_EQ(desk.dialog->PageTotal(), 0);
    desk.dialog->CmdOK_Click();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"印刷する情報なし エラー"_s);
    EXPECT_EQ(
        desk.box.shown[0].text,
        u"印刷する情報がありません。\r\n\r\n印刷する条件が正しいか確認した後に　　　\r\n再度、印刷して下さい。"_s);
    EXPECT_EQ(desk.box.shown[0].icon, BoxIcon::Stop);
    EXPECT_TRUE(desk.paper.calls.empty());
    EXPECT_TRUE(desk.dialog->isVisible());
}

TEST(PriCheck, aPrint_goesPortrait_choosesThePrinter_andClosesTheDialog)
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

TEST(PriCheck, aRange_marksItsRows_andPrintsThem)
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

TEST(PriCheck, thePageRange_isPutRight_andPrinted)
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

TEST(PriCheck, randomJobs_countAsManyPagesAsTheEngineOpens)
{
    std::mt19937 random(printedSeed());
    const auto upTo = [&](unsigned n) { return static_cast<int>(random() % n); };
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
        desk.dialog->CmdOK_Click();
        ASSERT_EQ(desk.paper.pages.size(), counted) << "round " << round;
        for (const auto& page : desk.paper.pages)
            ASSERT_FALSE(page.bars.empty()) << "round " << round;
    }
}

TEST(PriCheck, aQuantityBeyondAllPaper_isRefused_unlessPagesAreNamed)
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

TEST(PriCheck, whileThePrinterIsChosen_noScanIsRead_andNoSecondPrintBegins)
{
    Desk desk;
    desk.open();
    desk.paper.onChoose = [&] {
        desk.scan = u"[P]"_s;
        desk.dialog->CmdOK_Click();
        QTest::qWait(20);
        EXPECT_EQ(desk.scan, u"[P]"_s);
        desk.scan.clear();
    };
    desk.dialog->CmdOK_Click();
    EXPECT_EQ(std::count(desk.paper.calls.begin(), desk.paper.calls.end(), "choose"), 1);
}

TEST(PriCheck, theReader_pressesTheTwoButtons_andNothingElse)
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

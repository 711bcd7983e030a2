// The button 一覧印刷 of the list tabs: what the tab hands to its report at print time.
#include <algorithm>
#include <deque>

#include <gtest/gtest.h>

#include <QRadioButton>

#include "lists/StockPage.h"
#include "tests/lists/ListDesk.h"
#include "tests/lists/report/ReportDesk.h"
#include "tests/support/PdfText.h"

namespace suisui::test {

namespace {

/// Prints without anybody at the dialogs: the reader presses their buttons.
struct Printing : ReportDesk
{
    AppIni ini;
    TestClock clock;
    ScriptedMsgBox box;
    ListPrinting services{ini, clock, box, printer, folder.path(), [] { return u"[P]"_s; }};

    /// A word by itself, not within another one.
    [[nodiscard]] bool hasTitle(const QString& title) const
    {
        const auto words = pdfWords(setup->file);
        return std::any_of(words.begin(), words.end(),
                           [&title](const PdfWord& word) { return word.text == title; });
    }
    [[nodiscard]] QString printed() const
    {
        QString all;
        for (const PdfWord& word : pdfWords(setup->file))
            all += word.text;
        return all;
    }
};

class ReportButtonTest : public ::testing::TestWithParam<Side>
{
protected:
    ReportButtonTest() : desk(GetParam()) { desk.page->setListPrinting(printing.services); }

    void press() { desk.control<QPushButton>(u"cmdRptXList"_s).click(); }

    Printing printing;
    ListDesk desk;
};

} // namespace

TEST_P(ReportButtonTest, withoutAListThereIsABoxAndNothingElse)
{
    press();
    ASSERT_EQ(printing.box.shown.size(), 1U);
    EXPECT_EQ(printing.box.shown[0].title, u"一覧印刷"_s);
    EXPECT_EQ(printing.setup->timesAsked, 0);
}

TEST_P(ReportButtonTest, theListIsPrinted_withTheConditionsAsTheyAreNow)
{
    desk.store({{.name = "ぶどう", .quantity = "0000003", .remark = "至急"},
                {.date = "20260402", .name = "みかん"}});
    desk.search();
    desk.period(u"20260307"_s, u"20260809"_s); // changed after the search, but it is what is printed
    desk.page->partnerChoice()->setCurrentIndex(1);
    desk.page->staffChoice()->setCurrentIndex(0);
    press();
    EXPECT_TRUE(printing.box.shown.empty());
    const auto words = pdfWords(printing.setup->file);
    EXPECT_EQ(textIn(words, 1, QRectF(54, 51, 180, 13)), u"2026年03月07日～2026年08月09日"_s);
    EXPECT_EQ(textIn(words, 1, QRectF(99, 63.8, 200, 12.7)), u"西商店"_s);
    EXPECT_EQ(textIn(words, 1, QRectF(349, 63.8, 225, 12.7)), u"（すべて）"_s);
    EXPECT_EQ(textIn(words, 1, QRectF(625, 63.8, 175, 12.7)), u"山田"_s);
    for (const QString& text : {u"ぶどう"_s, u"みかん"_s, u"至急"_s, u"小計"_s, u"合計"_s, u"備考"_s})
        EXPECT_TRUE(printing.printed().contains(text)) << text.toStdString();
}

TEST_P(ReportButtonTest, theBoxForSums_hidesTwoTitles_evenWithoutANewSearch)
{
    desk.store({{.name = "ぶどう"}});
    desk.search();
    const QString day = desk.bySide(u"入荷日"_s, u"出荷日"_s);
    press();
    EXPECT_TRUE(printing.hasTitle(u"備考"_s));
    EXPECT_TRUE(printing.hasTitle(day));
    desk.sumBox().setChecked(true);
    press();
    EXPECT_FALSE(printing.hasTitle(u"備考"_s));
    EXPECT_FALSE(printing.hasTitle(day));
    EXPECT_TRUE(printing.printed().contains(u"2026/04/01"_s)); // the rows stay
}

INSTANTIATE_TEST_SUITE_P(BothSides, ReportButtonTest, ::testing::Values(Side::Receipt, Side::Shipment),
                         [](const auto& tried) { return sideName(tried.param); });

TEST(StockReportButton, printsTheGridAndTheTitlesOfItsView)
{
    Printing printing;
    ListDesk desk(Side::Receipt); // lends its services
    StockPage page({desk.db, printing.ini, printing.clock, printing.box, desk.frame});
    page.setListPrinting(printing.services);
    auto* button = page.findChild<QPushButton*>(u"cmdRptZList"_s);
    ASSERT_NE(button, nullptr);
    button->click();
    ASSERT_EQ(printing.box.shown.size(), 1U);
    EXPECT_EQ(printing.box.shown[0].title, u"一覧印刷"_s);

    page.grid()->setMaxRows(1);
    page.grid()->SetText(StockCells::name, 1, u"ぶどう"_s);
    page.findChild<QRadioButton*>(u"optZNormal"_s)->setChecked(true);
    button->click();
    EXPECT_TRUE(printing.printed().contains(u"ぶどう"_s));
    EXPECT_FALSE(printing.printed().contains(u"値引き"_s));
    page.findChild<QRadioButton*>(u"optZDetail"_s)->setChecked(true);
    page.grid()->setMaxRows(1);
    button->click();
    EXPECT_TRUE(printing.printed().contains(u"値引き"_s));
    EXPECT_TRUE(printing.printed().contains(u"（合計）"_s));
}

} // namespace suisui::test

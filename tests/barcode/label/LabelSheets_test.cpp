// The sheets that the shop can buy, figure for figure, and the job that the fields make, field for field.
#include "barcode/label/LabelSheets.h"

#include <limits>

#include <gtest/gtest.h>

#include <QStringList>

#include "tests/barcode/label/SetupDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

QString text(const char16_t* of)
{
    return QString::fromUtf16(of);
}

QString both(const QString& first, const QString& second)
{
    return first + u' ' + second;
}

QString textOf(const SheetText& of)
{
    return both(of.on ? u"on"_s : u"off"_s, both(text(of.x), text(of.y)));
}

/// A sheet as the shop's list of sheets has it.
QString lineOf(const LabelSheet& sheet)
{
    const QStringList parts{text(sheet.title),
                            text(sheet.maker),
                            text(sheet.barPitch),
                            text(sheet.barHeight),
                            both(text(sheet.startX), text(sheet.startY)),
                            both(text(sheet.width), text(sheet.height)),
                            both(QString::number(sheet.columns), QString::number(sheet.rows)),
                            textOf(sheet.name),
                            textOf(sheet.code)};
    return parts.join(u" | "_s);
}

} // namespace

TEST(LabelSheets, areWhatTheShopBuys)
{
    const struct
    {
        QString line;
        QString paper;
        QString labels;
        QString frame;
        bool functionCodes;
    } sheets[] = {
        {u"Ａ４用紙　１２面 | HISAGO (タックシール) | 3 | 12.00 | 30.00 30.00 | 88.00 42.00 | 2 6 | on 0.00 -5.00 | on 0.00 13.00"_s,
         u"Ａ４用紙"_s, u"　１２面"_s, u" Ａ４サイズ（縦） "_s, true},
        {u"連続紙　２４面 | HISAGO (ﾊﾞｰｺｰﾄﾞ用ﾗﾍﾞﾙ) | 2 | 12.00 | 9.00 4.00 | 55.50 21.20 | 2 12 | off 0 0 | on -0.20 10.00"_s,
         u"連続紙"_s, u"　２４面"_s, u" 連続紙 "_s, false},
        {u"連続紙　６面 | HISAGO (タックシール) | 2 | 12.00 | 5.00 8.00 | 00.00 46.50 | 1 6 | on 0.00 -5.00 | on 0.00 13.00"_s,
         u"連続紙"_s, u"　６面"_s, u" 連続紙 "_s, false},
        {u"Ａ４用紙　４４面 | A-one (紙ラベル) | 3 | 11.00 | 10.00 13.00 | 48.10 25.50 | 4 11 | on 0.00 -3.50 | on 0.00 11.00"_s,
         u"Ａ４用紙"_s, u"　４４面"_s, u" Ａ４サイズ（縦） "_s, false},
    };
    static_assert(std::size(sheets) == fixedSheets && sheetChoices == fixedSheets + 1 && freeSheet == 4);
    for (std::size_t i = 0; i < fixedSheets; ++i) {
        const LabelSheet& sheet = labelSheets.at(i);
        EXPECT_EQ(lineOf(sheet), sheets[i].line) << lineOf(sheet).toStdString();
        EXPECT_EQ(text(sheet.paper), sheets[i].paper) << i;
        EXPECT_EQ(text(sheet.labels), sheets[i].labels) << i;
        EXPECT_EQ(text(sheet.frame), sheets[i].frame) << i;
        EXPECT_EQ(sheet.functionCodes, sheets[i].functionCodes) << i;
    }
}

TEST(LabelSheets, theFirstOne_placesTheFunctionCodes_andTheOthersLeaveThem)
{
    using enum LabelField;
    SetupDesk desk;
    const auto strips = [&desk] {
        return desk.text(screenX) + ' ' + desk.text(screenY) + ' ' + desk.text(searchX) + ' '
               + desk.text(searchY);
    };
    EXPECT_EQ(strips(), "5.00 208.00 -6.00 228.00");
    desk.sheet(freeSheet);
    for (const LabelField field : {screenX, screenY, searchX, searchY})
        desk.set(field, u"7");
    for (const int index : {1, 2, 3}) {
        desk.sheet(index);
        EXPECT_EQ(strips(), "7 7 7 7") << index;
    }
    desk.sheet(0);
    EXPECT_EQ(strips(), "5.00 208.00 -6.00 228.00");
}

TEST(LabelJobs, takeEachFigureFromItsField)
{
    using enum LabelField;
    SetupDesk desk({9, 8, 7, 6, 5, 4});
    desk.useEverything();
    const std::pair<LabelField, const char16_t*> figures[] = {
        {columns, u"3"},  {rows, u"4"},        {startX, u"1.5"},   {startY, u"2.5"},   {width, u"3.5"},
        {height, u"4.5"}, {barHeight, u"5.5"}, {nameX, u"6.5"},    {nameY, u"7.5"},    {codeX, u"8.5"},
        {codeY, u"9.5"},  {screenX, u"10.5"},  {screenY, u"11.5"}, {searchX, u"12.5"}, {searchY, u"13.5"},
        {eachRow, u"14"}, {firstRow, u"2"},    {lastRow, u"5"},    {startLabel, u"6"},
    };
    for (const auto& [field, figure] : figures)
        desk.set(field, figure);
    desk.setup.LabelWrap = u"*"_s;
    const LabelJob job = desk.setup.job();
    const auto at = [](const LabelPart& part) {
        EXPECT_TRUE(part.on);
        return std::pair(part.place.x.value(), part.place.y.value());
    };
    EXPECT_EQ(job.grid.columns, 3);
    EXPECT_EQ(job.grid.rows, 4);
    EXPECT_EQ(job.grid.start.x, 1.5_mm);
    EXPECT_EQ(job.grid.start.y, 2.5_mm);
    EXPECT_EQ(job.grid.width, 3.5_mm);
    EXPECT_EQ(job.grid.height, 4.5_mm);
    EXPECT_EQ(job.barHeight, 5.5_mm);
    EXPECT_EQ(at(job.name), std::pair(6.5, 7.5));
    EXPECT_EQ(at(job.code), std::pair(8.5, 9.5));
    EXPECT_EQ(at(job.screenCodes), std::pair(10.5, 11.5));
    EXPECT_EQ(at(job.searchCodes), std::pair(12.5, 13.5));
    EXPECT_EQ(job.eachRow, 14);
    EXPECT_EQ(job.startRow, 2);
    EXPECT_EQ(job.endRow, 5);
    EXPECT_EQ(job.startLabel, 6);
    EXPECT_EQ(job.wrap, u"*"_s);
    for (const LabelField box : {name, code, screenCodes, searchCodes})
        desk.setup.tick(box, false);
    desk.set(rows, u"1");
    desk.set(startLabel, u"0");
    desk.set(firstRow, u"0");
    const LabelJob other = desk.setup.job();
    EXPECT_FALSE(other.name.on || other.code.on || other.screenCodes.on || other.searchCodes.on);
    EXPECT_EQ(other.grid.height, 0_mm) << "one row has no pitch";
    EXPECT_EQ(other.startLabel, 1);
    EXPECT_EQ(other.startRow, 1);
    desk.set(columns, u"x");
    desk.set(rows, u"-1");
    EXPECT_EQ(desk.setup.job().grid.columns, 1);
    EXPECT_EQ(desk.setup.job().grid.rows, 0);
    desk.setup.tick(markedRows, true);
    EXPECT_EQ(desk.setup.job().startRow, 1);
    EXPECT_EQ(desk.setup.job().endRow, 6);
}

TEST(LabelSetups, countsFromOneToNinetyNine_makeAPage)
{
    SetupDesk desk;
    desk.sheet(freeSheet);
    for (const auto& [typed, capacity] : {std::pair{u"1", 6},
                                          {u"1.9", 6},
                                          {u"99", 594},
                                          {u"99.5", 594},
                                          {u"0.9", 594},
                                          {u"-2", 594},
                                          {u"2", 12}}) {
        desk.set(LabelField::columns, typed);
        EXPECT_EQ(desk.setup.capacity(), capacity) << QString::fromUtf16(typed).toStdString();
    }
}

TEST(LabelSetups, theStripBeginsAtTheEleventhLabel)
{
    using enum LabelField;
    for (const LabelField box : {screenCodes, searchCodes}) {
        SetupDesk desk;
        desk.set(startLabel, u"10");
        desk.setup.tick(box, true);
        EXPECT_FALSE(desk.setup.positionOffered(10));
        EXPECT_TRUE(desk.setup.positionOffered(9));
        EXPECT_TRUE(desk.setup.positionOffered(0));
        EXPECT_EQ(desk.text(rows), "5");
        desk.setup.tick(box, false);
        EXPECT_TRUE(desk.setup.positionOffered(11));
        EXPECT_EQ(desk.text(rows), "6");
    }
    SetupDesk desk;
    desk.setup.tick(screenCodes, true);
    desk.setup.tick(searchCodes, true);
    desk.setup.tick(screenCodes, false);
    EXPECT_EQ(desk.text(rows), "5") << "the other one is still there";
    desk.sheet(0);
    EXPECT_TRUE(desk.setup.ticked(searchCodes)) << "the same sheet again is no choice";
    desk.sheet(3);
    EXPECT_FALSE(desk.setup.ticked(searchCodes));
    EXPECT_TRUE(desk.setup.positionOffered(43));
}

TEST(LabelPageEdges, rangesAreRounded_andEmptyOnesToo)
{
    const struct
    {
        QString first, last;
        std::int32_t total;
        LabelPageRange wanted;
    } cases[] = {
        {u"1.4"_s, u"2.6"_s, 5, {1, 3}}, {u"2.5"_s, u"3.5"_s, 5, {2, 4}}, {u"0.5"_s, u"9"_s, 5, {1, 5}},
        {u"5"_s, u"5"_s, 5, {5, 5}},     {u"6"_s, u"6"_s, 5, {1, 5}},     {u"0"_s, u"0"_s, 0, {1, 0}},
        {u"2"_s, u"1"_s, 5, {2, 5}},     {u"1"_s, u"1"_s, 5, {1, 1}},
    };
    for (const auto& each : cases) {
        const LabelPageRange range = labelPageRange(each.first, each.last, each.total);
        EXPECT_EQ(range.first, each.wanted.first) << each.first.toStdString();
        EXPECT_EQ(range.last, each.wanted.last) << each.last.toStdString();
    }
    EXPECT_EQ(labelsOf(1e300), 1000000000000);
    EXPECT_EQ(labelsOf(-1e300), -1000000000000);
    EXPECT_EQ(pagesNeeded(5, 1, 1), 5);
    EXPECT_EQ(pagesNeeded(5, -1, 1), 0);
}

} // namespace suisui::test

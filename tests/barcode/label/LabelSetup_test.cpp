// What follows from what the operator sets for a print of labels: sheets, page count, disabled fields, where
// Enter goes.
#include "barcode/label/LabelSetup.h"

#include <gtest/gtest.h>

#include "barcode/label/LabelSheets.h"
#include "platform/widgets/KeyCodes.h"
#include "tests/barcode/label/SetupDesk.h"
#include "tests/support/Seed.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

/// Where Enter goes from each field in turn, until the OK button.
std::vector<LabelField> chainFrom(const LabelSetup& setup, LabelField field)
{
    std::vector<LabelField> chain;
    while (field != LabelField::print && chain.size() <= labelFieldCount) {
        field = setup.next(field);
        chain.push_back(field);
    }
    return chain;
}

} // namespace

TEST(LabelSetup, eachFixedSheet_writesItsFigures)
{
    SetupDesk desk;
    for (const int index : {3, 2, 1, 0}) {
        desk.sheet(index);
        const LabelSheet& sheet = labelSheets.at(static_cast<std::size_t>(index));
        const auto is = [&](LabelField field, const char16_t* text) {
            EXPECT_EQ(desk.setup.text(field), QString::fromUtf16(text))
                << rowOf(field).control << " of " << index;
        };
        is(LabelField::barPitch, sheet.barPitch);
        is(LabelField::barHeight, sheet.barHeight);
        is(LabelField::startX, sheet.startX);
        is(LabelField::startY, sheet.startY);
        is(LabelField::width, sheet.width);
        is(LabelField::height, sheet.height);
        is(LabelField::nameX, sheet.name.x);
        is(LabelField::nameY, sheet.name.y);
        is(LabelField::codeX, sheet.code.x);
        is(LabelField::codeY, sheet.code.y);
        EXPECT_EQ(desk.setup.ticked(LabelField::name), sheet.name.on);
        EXPECT_EQ(desk.setup.ticked(LabelField::code), sheet.code.on);
        EXPECT_EQ(desk.setup.capacity(), sheet.columns * sheet.rows);
        EXPECT_FALSE(desk.setup.enabled(LabelField::columns));
        EXPECT_EQ(desk.setup.enabled(LabelField::screenCodes), sheet.functionCodes);
        EXPECT_EQ(desk.setup.enabled(LabelField::width), sheet.columns > 1);
        EXPECT_TRUE(desk.setup.enabled(LabelField::height));
    }
}

TEST(LabelSetup, theFreeSheet_keepsTheFigures_andOpensTheGrid)
{
    SetupDesk desk;
    desk.sheet(3);
    desk.sheet(4);
    EXPECT_EQ(desk.setup.fixedSheet(), nullptr);
    EXPECT_EQ(desk.text(LabelField::startY), "13.00");
    EXPECT_EQ(desk.setup.capacity(), 44);
    EXPECT_TRUE(desk.setup.enabled(LabelField::columns));
    EXPECT_TRUE(desk.setup.enabled(LabelField::rows));
    EXPECT_TRUE(desk.setup.enabled(LabelField::searchCodes));
}

TEST(LabelSetup, pages_followQuantityAndFirstLabel)
{
    struct Case
    {
        std::int64_t labels;
        const char16_t* start;
        const char* pages;
    };
    for (const Case& each :
         {Case{12, u"1", "1-1"}, Case{13, u"1", "1-2"}, Case{12, u"2", "1-2"}, Case{5, u"8", "1-1"},
          Case{6, u"8", "1-2"}, Case{1, u"12", "1-1"}, Case{2, u"12", "1-2"}, Case{0, u"1", "0-0"}}) {
        SetupDesk desk({each.labels});
        desk.set(LabelField::startLabel, each.start);
        EXPECT_EQ(desk.pages(), each.pages) << each.labels << " labels";
    }
}

TEST(LabelSetup, aBadCount_leavesTheLastPages_zeroLabelsEmptyThem)
{
    SetupDesk desk({1, 1, 1}, {.byQuantity = false});
    desk.set(LabelField::eachRow, u"5");
    EXPECT_EQ(desk.pages(), "1-2");
    for (const char16_t* bad : {u"", u"x", u"-"}) {
        desk.set(LabelField::eachRow, bad);
        EXPECT_EQ(desk.pages(), "1-2");
        EXPECT_EQ(desk.setup.pageTotal(), 2);
    }
    desk.set(LabelField::eachRow, u"0");
    EXPECT_EQ(desk.pages(), "0-0");
    EXPECT_EQ(desk.setup.pageTotal(), 0);
}

TEST(LabelSetup, aRangeOfRows_countsWithoutMarks_withinTheGrid)
{
    SetupDesk desk({12, -12, -12});
    EXPECT_EQ(desk.pages(), "1-1");
    EXPECT_FALSE(desk.setup.enabled(LabelField::firstRow));
    desk.setup.tick(LabelField::rowRange, true);
    EXPECT_FALSE(desk.setup.ticked(LabelField::markedRows));
    EXPECT_TRUE(desk.setup.enabled(LabelField::firstRow));
    EXPECT_EQ(desk.pages(), "1-3");
    desk.set(LabelField::firstRow, u"2");
    EXPECT_EQ(desk.pages(), "1-2");
    desk.set(LabelField::lastRow, u"2");
    EXPECT_EQ(desk.pages(), "1-1");
    for (const char16_t* bad : {u"", u"x", u"0", u"1", u"4"}) {
        desk.set(LabelField::lastRow, bad);
        EXPECT_EQ(desk.pages(), "0-0") << QString::fromUtf16(bad).toStdString();
    }
    desk.set(LabelField::lastRow, u"3");
    desk.set(LabelField::firstRow, u"0");
    EXPECT_EQ(desk.pages(), "0-0");
    desk.setup.tick(LabelField::markedRows, true);
    EXPECT_FALSE(desk.setup.ticked(LabelField::rowRange));
    EXPECT_EQ(desk.pages(), "1-1");
}

TEST(LabelSetup, columnsAndRows_makeTheListOfFirstLabels)
{
    SetupDesk desk;
    desk.sheet(4);
    desk.set(LabelField::startLabel, u"7");
    desk.set(LabelField::columns, u"3");
    EXPECT_EQ(desk.setup.capacity(), 18);
    EXPECT_EQ(desk.text(LabelField::startLabel), "1");
    for (const char16_t* bad : {u"", u"0", u"x", u"100"}) {
        desk.set(LabelField::columns, bad);
        EXPECT_EQ(desk.setup.capacity(), 18) << QString::fromUtf16(bad).toStdString();
    }
    desk.set(LabelField::columns, u"99");
    desk.set(LabelField::rows, u"99");
    EXPECT_EQ(desk.setup.capacity(), 9801);
}

TEST(LabelSetup, oneLabelAPage_leavesNoFirstLabelToChoose)
{
    SetupDesk desk;
    desk.sheet(4);
    desk.setup.tick(LabelField::screenCodes, true);
    desk.set(LabelField::columns, u"1");
    EXPECT_FALSE(desk.setup.enabled(LabelField::width));
    EXPECT_TRUE(desk.setup.enabled(LabelField::startLabel));
    desk.set(LabelField::rows, u"1");
    EXPECT_FALSE(desk.setup.enabled(LabelField::height));
    EXPECT_FALSE(desk.setup.enabled(LabelField::startLabel));
    EXPECT_FALSE(desk.setup.enabled(LabelField::screenCodes));
    EXPECT_FALSE(desk.setup.enabled(LabelField::screenX));
    EXPECT_EQ(desk.pages(), "1-3");
    desk.set(LabelField::rows, u"2");
    EXPECT_TRUE(desk.setup.enabled(LabelField::startLabel));
    EXPECT_TRUE(desk.setup.enabled(LabelField::screenX));
}

TEST(LabelSetup, aTickOfFunctionCodes_takesARow_fromTheFirstSheetAlone)
{
    SetupDesk desk;
    desk.set(LabelField::startLabel, u"12");
    EXPECT_TRUE(desk.setup.positionOffered(11));
    desk.setup.tick(LabelField::searchCodes, true);
    EXPECT_EQ(desk.text(LabelField::rows), "5");
    EXPECT_EQ(desk.setup.capacity(), 10);
    EXPECT_EQ(desk.text(LabelField::startLabel), "1");
    EXPECT_TRUE(desk.setup.positionOffered(9));
    EXPECT_FALSE(desk.setup.positionOffered(10));
    EXPECT_TRUE(desk.setup.enabled(LabelField::searchX));
    EXPECT_FALSE(desk.setup.enabled(LabelField::screenX));
    desk.setup.tick(LabelField::searchCodes, false);
    EXPECT_EQ(desk.setup.capacity(), 12);
    desk.sheet(4);
    desk.setup.tick(LabelField::searchCodes, true);
    EXPECT_EQ(desk.text(LabelField::rows), "6");
    desk.sheet(1);
    EXPECT_FALSE(desk.setup.ticked(LabelField::searchCodes));
    EXPECT_FALSE(desk.setup.mayHoldStrip());
}

TEST(LabelSetup, enter_walksTheWholeChain_whenNothingIsGrey)
{
    SetupDesk desk;
    desk.useEverything();
    using enum LabelField;
    EXPECT_EQ(chainFrom(desk.setup, rowRange),
              (std::vector{firstRow,    lastRow, firstPage, lastPage,    sheet,   eachRow,  startLabel,
                           startY,      startX,  columns,   barHeight,   height,  barPitch, rows,
                           width,       name,    nameX,     nameY,       code,    codeX,    codeY,
                           screenCodes, screenX, screenY,   searchCodes, searchX, searchY,  print}));
}

TEST(LabelSetup, enter_passesByWhatIsGreyOrHidden)
{
    SetupDesk desk({1}, {.asksForNumber = false});
    desk.sheet(2);
    desk.setup.tick(LabelField::name, false);
    using enum LabelField;
    EXPECT_EQ(chainFrom(desk.setup, markedRows),
              (std::vector{firstPage, lastPage, position, sheet, startLabel, startY, startX, barHeight,
                           height, barPitch, name, code, codeX, codeY, print}));
}

TEST(LabelSetup, theJob_isWhatTheFieldsSay)
{
    SetupDesk desk({3, 4});
    desk.useEverything();
    desk.set(LabelField::columns, u"1");
    desk.set(LabelField::startX, u"-1.5");
    desk.set(LabelField::nameY, u"-5.25");
    desk.set(LabelField::searchX, u"7");
    desk.set(LabelField::firstRow, u"2");
    desk.set(LabelField::startLabel, u"3");
    const LabelJob job = desk.setup.job();
    EXPECT_EQ(job.grid.columns, 1);
    EXPECT_EQ(job.grid.rows, 6);
    EXPECT_EQ(job.grid.start.x, -1.5_mm);
    EXPECT_EQ(job.grid.width, 0_mm) << "one column has no pitch";
    EXPECT_EQ(job.grid.height, 42_mm);
    EXPECT_EQ(job.startLabel, 3);
    EXPECT_EQ(job.barHeight, 12_mm);
    EXPECT_TRUE(job.name.on);
    EXPECT_EQ(job.name.place.y, -5.25_mm);
    EXPECT_EQ(job.searchCodes.place.x, 7_mm);
    EXPECT_EQ(job.startRow, 2);
    EXPECT_EQ(job.endRow, 2);
    desk.setup.tick(LabelField::markedRows, true);
    EXPECT_EQ(desk.setup.job().startRow, 1);
    EXPECT_EQ(desk.setup.job().endRow, 2);
}

TEST(LabelSetup, typingLimits_areThoseOfTheForm)
{
    int digits = 0;
    for (const LabelFieldRow& row : labelFields()) {
        const bool grid = row.field == LabelField::columns || row.field == LabelField::rows;
        EXPECT_EQ(row.typing.pasteToo, grid) << row.control;
        if (row.typing.keys == LabelKeys::measure) {
            EXPECT_EQ(row.typing.length, 6) << row.control;
        }
        digits += row.typing.keys == LabelKeys::digits ? row.typing.length : 0;
    }
    EXPECT_EQ(digits, 2 * 4 + 2 * 4 + 3 + 2 * 2) << "rows, pages, labels, columns and rows";
    for (int key = 0; key < 256; ++key) {
        int passed = key;
        const bool wanted =
            QByteArray("0123456789-.\x03\x08\x0d").contains(static_cast<char>(key)) && key != 0;
        EXPECT_EQ(measureKeyCheck(passed), wanted ? key : 0) << key;
    }
}

TEST(LabelSetup, anythingTyped_keepsPagesWithinWhatIsCounted)
{
    const char16_t* texts[] = {u"",   u"0",  u"1", u"2",     u"7",   u"12",
                               u"99", u"-3", u"x", u"1e300", u"0.5", u"1,000"};
    std::mt19937 random(printedSeed());
    for (int round = 0; round < 100; ++round) {
        SetupDesk desk({5, -7, 0, 30});
        for (int step = 0; step < 60; ++step) {
            const auto field = static_cast<LabelField>(random() % labelFieldCount);
            if (field == LabelField::sheet)
                desk.sheet(static_cast<int>(random() % sheetChoices));
            else if (field == LabelField::startLabel)
                desk.setup.set(field, QString::number(1 + random() % 9));
            else if (qstrncmp(rowOf(field).control, "chk", 3) == 0 || field == LabelField::rowRange)
                desk.setup.tick(field, random() % 2 == 0);
            else if (field != LabelField::markedRows)
                desk.set(field, texts[random() % std::size(texts)]);
            const LabelPageRange pages = desk.setup.pages();
            ASSERT_LE(pages.first, std::max(pages.last, 1));
            ASSERT_LE(pages.last, std::max(desk.setup.pageTotal(), 1));
            ASSERT_NE(desk.setup.ticked(LabelField::markedRows), desk.setup.ticked(LabelField::rowRange));
            ASSERT_LE(desk.setup.job().grid.capacity(), std::int64_t{1} << 62);
        }
    }
}

} // namespace suisui::test

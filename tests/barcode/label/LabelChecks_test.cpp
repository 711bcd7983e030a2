// Each check before a print of labels, at its limit and beyond it, with the words of its box.
#include "barcode/label/LabelChecks.h"

#include <gtest/gtest.h>

#include "tests/barcode/label/RefusalWords.h"
#include "tests/barcode/label/SetupDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

/// What a text amounts to.
enum class Amount { NotANumber, Nothing, LessThanOne, AtLeastOne };

struct Limit
{
    const char16_t* text;
    Amount amount;
};
constexpr Limit limits[] = {
    {u"", Amount::NotANumber},      {u"-", Amount::NotANumber},     {u".", Amount::NotANumber},
    {u"x", Amount::NotANumber},     {u"1.2.3", Amount::NotANumber}, {u"0", Amount::Nothing},
    {u"00", Amount::Nothing},       {u"0.00", Amount::Nothing},     {u"0.4", Amount::LessThanOne},
    {u"0.5", Amount::LessThanOne},  {u"0.51", Amount::AtLeastOne},  {u"0.6", Amount::AtLeastOne},
    {u"-0.5", Amount::LessThanOne}, {u"1", Amount::AtLeastOne},     {u"1,000", Amount::AtLeastOne},
};

void expectRefused(const SetupDesk& desk, const RefusalWords& row, const QString& text)
{
    const auto refusal = refusalOf(desk.setup);
    ASSERT_TRUE(refusal) << rowOf(row.field).control;
    EXPECT_EQ(refusal->title, QString::fromUtf16(row.title));
    EXPECT_EQ(refusal->text, text);
    EXPECT_EQ(refusal->field, row.field);
    EXPECT_FALSE(refusal->rows);
}

/// A range of rows that cannot be is refused in these words, and others are put in its place.
void expectRange(const SetupDesk& desk, const QString& title, const QString& text, LabelField focus,
                 const CorrectedRows& wanted)
{
    const auto refusal = refusalOf(desk.setup);
    ASSERT_TRUE(refusal && refusal->rows);
    EXPECT_EQ(refusal->title, title);
    EXPECT_EQ(refusal->text, text);
    EXPECT_EQ(refusal->field, focus);
    EXPECT_EQ(refusal->rows->first, wanted.first);
    EXPECT_EQ(refusal->rows->last, wanted.last);
    EXPECT_EQ(refusal->rows->afterFocus, wanted.afterFocus);
}

/// The title of what is refused; empty when nothing is.
QString titleOf(const SetupDesk& desk)
{
    const auto refusal = refusalOf(desk.setup);
    return refusal ? refusal->title : QString();
}

} // namespace

TEST(LabelChecks, everyField_isRefusedInItsWords_atItsLimits)
{
    for (const RefusalWords& row : refusalWords)
        for (const Limit& limit : limits) {
            SetupDesk desk;
            desk.useEverything();
            desk.set(row.field, limit.text);
            SCOPED_TRACE(rowOf(row.field).control);
            SCOPED_TRACE(desk.text(row.field));
            // The height of the bars is rounded, half to even, the other fields are not.
            const Amount least =
                row.field == LabelField::barHeight ? Amount::AtLeastOne : Amount::LessThanOne;
            if (limit.amount == Amount::NotANumber)
                expectRefused(desk, row, row.textOfNoNumber());
            else if (row.zero != nullptr && limit.amount < least)
                expectRefused(desk, row, row.textOfZero());
            else
                EXPECT_NE(titleOf(desk), QString::fromUtf16(row.title));
        }
}

TEST(LabelChecks, theFirstBadField_isTheOneThatIsNamed)
{
    for (std::size_t bad = 0; bad < std::size(refusalWords); ++bad) {
        SetupDesk desk;
        desk.useEverything();
        for (std::size_t i = bad; i < std::size(refusalWords); ++i)
            if (refusalWords[i].field != LabelField::columns && refusalWords[i].field != LabelField::rows)
                desk.set(refusalWords[i].field, u"x");
        if (refusalWords[bad].field != LabelField::columns && refusalWords[bad].field != LabelField::rows) {
            EXPECT_EQ(titleOf(desk), QString::fromUtf16(refusalWords[bad].title));
        }
    }
}

TEST(LabelChecks, whatIsGrey_isNotChecked)
{
    SetupDesk desk;
    desk.sheet(2);
    desk.set(LabelField::width, u"");
    desk.setup.tick(LabelField::name, false);
    desk.set(LabelField::nameX, u"x");
    desk.set(LabelField::screenX, u"x");
    desk.set(LabelField::firstRow, u"");
    EXPECT_FALSE(refusalOf(desk.setup));
    desk.setup.tick(LabelField::name, true);
    EXPECT_EQ(titleOf(desk), u"名称印刷 ： 横 エラー"_s);
}

TEST(LabelChecks, aRangeTurnedRound_isSwapped)
{
    SetupDesk desk;
    desk.setup.tick(LabelField::rowRange, true);
    desk.set(LabelField::firstRow, u"3");
    EXPECT_FALSE(refusalOf(desk.setup)) << "one row";
    desk.set(LabelField::lastRow, u"2");
    expectRange(
        desk, u"印刷開始行 > 印刷最終行 エラー"_s,
        u"「印刷最終行」 が 「印刷開始行」 よりも小さいです。　　　\r\n\r\n　　印刷開始行 ： 3　　印刷最終行 ： 2\r\n\r\n「印刷最終行」 と 「印刷開始行」 を入れ替えます。\r\n\r\n　　確認した後に、再度、印刷して下さい。"_s,
        LabelField::firstRow, {.first = u"2"_s, .last = u"3"_s, .afterFocus = true});
}

TEST(LabelChecks, aRangeBeyondTheGrid_becomesAllRows)
{
    SetupDesk desk;
    desk.setup.tick(LabelField::rowRange, true);
    desk.set(LabelField::firstRow, u"2");
    desk.set(LabelField::lastRow, u"3");
    EXPECT_FALSE(refusalOf(desk.setup)) << "the last row";
    desk.set(LabelField::lastRow, u"4");
    expectRange(
        desk, u"印刷可能範囲 < 印刷最終行 エラー"_s,
        u"「印刷最終行」 が 印刷可能な範囲を超えています。　　　\r\n\r\n　　印刷可能範囲 ： 1 ～ 3 行\r\n\r\n　　「印刷開始行」 と 「印刷最終行」 に\r\n　　　印刷可能な範囲を設定します。\r\n\r\n　　確認した後に、再度、印刷して下さい。"_s,
        LabelField::lastRow, {.first = u"1"_s, .last = u"3"_s, .afterFocus = false});
}

TEST(LabelChecks, nothingToPrint_isSaid_withTheFocusLeftAlone)
{
    SetupDesk desk({0, -5});
    const auto refusal = refusalOf(desk.setup);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->title, u"印刷する情報なし エラー"_s);
    EXPECT_EQ(
        refusal->text,
        u"印刷する情報がありません。\r\n\r\n印刷する条件が正しいか確認した後に　　　\r\n再度、印刷して下さい。"_s);
    EXPECT_FALSE(refusal->field);
}

TEST(LabelChecks, morePagesThanTheFieldsCanName_areRefused)
{
    SetupDesk most({9999 * 12});
    EXPECT_EQ(most.setup.pageTotal(), 9999);
    EXPECT_FALSE(refusalOf(most.setup));
    SetupDesk tooMany({9999 * 12 + 1});
    const auto refusal = refusalOf(tooMany.setup);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->title, u"ページ指定 エラー"_s);
    EXPECT_TRUE(refusal->text.startsWith(u"一度に 印刷できるのは 9999 ページまでです。"_s));
    EXPECT_EQ(refusal->field, LabelField::lastPage);
    tooMany.set(LabelField::lastPage, u"9999");
    EXPECT_FALSE(refusalOf(tooMany.setup)) << "the chosen pages count, not all pages";
}

} // namespace suisui::test

// Each check before a print of labels, at its limit and beyond it, with the words of its box.
#include "barcode/label/LabelChecks.h"

#include <gtest/gtest.h>

#include "tests/barcode/label/SetupDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

const QString noNumber = u"\r\n\r\n数値入力した後に、再度、印刷して下さい。"_s;
const QString tooSmall = u"\r\n\r\n１ 以上の数値を入力した後に、再度、印刷して下さい。　　　"_s;

struct Words
{
    LabelField field;
    const char16_t* title;
    const char16_t* noNumber;
    const char16_t* zero = nullptr;
};

// In the order of the checks.
constexpr Words words[] = {
    {LabelField::startY, u"印刷開始位置 ： 縦 エラー",
     u"「印刷開始位置 ： 縦」 が 数値入力されていません。　　　"},
    {LabelField::startX, u"印刷開始位置 ： 横 エラー",
     u"「印刷開始位置 ： 横」 が 数値入力されていません。　　　"},
    {LabelField::columns, u"１ページ内の列数 エラー",
     u"「１ページ内の列数」 が 数値入力されていません。　　　",
     u"「１ページ内の列数」 に ０ は入力できません。"},
    {LabelField::barHeight, u"線高 エラー", u"「線高」 が 数値入力されていません。　　　",
     u"「線高」 に １ より小さい数値は入力できません。"},
    {LabelField::height, u"ラベル高 エラー", u"「ラベル高」 が 数値入力されていません。　　　"},
    {LabelField::rows, u"１ページ内の行数 エラー", u"「１ページ内の行数」 が 数値入力されていません。　　　",
     u"「１ページ内の行数」 に ０ は入力できません。"},
    {LabelField::width, u"ラベル幅 エラー", u"「ラベル幅」 が 数値入力されていません。　　　"},
    {LabelField::nameX, u"名称印刷 ： 横 エラー", u"「名称印刷 ： 横」 が 数値入力されていません。　　　"},
    {LabelField::nameY, u"名称印刷 ： 縦 エラー", u"「名称印刷 ： 縦」 が 数値入力されていません。　　　"},
    {LabelField::codeX, u"コード印刷 ： 横 エラー",
     u"「コード印刷 ： 横」 が 数値入力されていません。　　　"},
    {LabelField::codeY, u"コード印刷 ： 縦 エラー",
     u"「コード印刷 ： 縦」 が 数値入力されていません。　　　"},
    {LabelField::screenX, u"画面切替 印刷 ： 横 エラー",
     u"「画面切替 印刷 ： 横」 が 数値入力されていません。　　　"},
    {LabelField::screenY, u"画面切替 印刷 ： 縦 エラー",
     u"「画面切替 印刷 ： 縦」 が 数値入力されていません。　　　"},
    {LabelField::searchX, u"検索機能 印刷 ： 横 エラー",
     u"「検索機能 印刷 ： 横」 が 数値入力されていません。　　　"},
    {LabelField::searchY, u"検索機能 印刷 ： 縦 エラー",
     u"「検索機能 印刷 ： 縦」 が 数値入力されていません。　　　"},
    {LabelField::eachRow, u"ラベル印刷枚数 エラー", u"「ラベル印刷枚数」 が 数値入力されていません。　　　"},
    {LabelField::firstRow, u"印刷開始行 エラー", u"「印刷開始行」 が 数値入力されていません。　　　",
     u"「印刷開始行」 に ０ は入力できません。"},
    {LabelField::lastRow, u"印刷最終行 エラー", u"「印刷最終行」 が 数値入力されていません。　　　",
     u"「印刷最終行」 に ０ は入力できません。"},
};

struct Limit
{
    const char16_t* text;
    bool number;
    bool notZero;
    bool atLeastOne;
};
constexpr Limit limits[] = {
    {u"", false, false, false},   {u"-", false, false, false},     {u".", false, false, false},
    {u"x", false, false, false},  {u"1.2.3", false, false, false}, {u"0", true, false, false},
    {u"00", true, false, false},  {u"0.00", true, false, false},   {u"0.4", true, true, false},
    {u"0.5", true, true, false},  {u"0.51", true, true, true},     {u"0.6", true, true, true},
    {u"-0.5", true, true, false}, {u"1", true, true, true},        {u"1,000", true, true, true},
};

void expectRefused(const SetupDesk& desk, const Words& row, const QString& text)
{
    const auto refusal = refusalOf(desk.setup);
    ASSERT_TRUE(refusal) << rowOf(row.field).control;
    EXPECT_EQ(refusal->title, QString::fromUtf16(row.title));
    EXPECT_EQ(refusal->text, text);
    EXPECT_EQ(refusal->field, row.field);
    EXPECT_FALSE(refusal->rows);
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
    for (const Words& row : words)
        for (const Limit& limit : limits) {
            SetupDesk desk;
            desk.useEverything();
            desk.set(row.field, limit.text);
            SCOPED_TRACE(rowOf(row.field).control);
            SCOPED_TRACE(desk.text(row.field));
            const bool bar = row.field == LabelField::barHeight;
            if (!limit.number)
                expectRefused(desk, row, QString::fromUtf16(row.noNumber) + noNumber);
            else if (row.zero != nullptr && !(bar ? limit.atLeastOne : limit.notZero))
                expectRefused(desk, row, QString::fromUtf16(row.zero) + tooSmall);
            else
                EXPECT_NE(titleOf(desk), QString::fromUtf16(row.title));
        }
}

TEST(LabelChecks, theFirstBadField_isTheOneThatIsNamed)
{
    for (std::size_t bad = 0; bad < std::size(words); ++bad) {
        SetupDesk desk;
        desk.useEverything();
        for (std::size_t i = bad; i < std::size(words); ++i)
            if (words[i].field != LabelField::columns && words[i].field != LabelField::rows)
                desk.set(words[i].field, u"x");
        if (words[bad].field != LabelField::columns && words[bad].field != LabelField::rows) {
            EXPECT_EQ(titleOf(desk), QString::fromUtf16(words[bad].title));
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
    const auto refusal = refusalOf(desk.setup);
    ASSERT_TRUE(refusal && refusal->rows);
    EXPECT_EQ(refusal->title, u"印刷開始行 > 印刷最終行 エラー"_s);
    EXPECT_EQ(
        refusal->text,
        u"「印刷最終行」 が 「印刷開始行」 よりも小さいです。　　　\r\n\r\n　　印刷開始行 ： 3　　印刷最終行 ： 2\r\n\r\n「印刷最終行」 と 「印刷開始行」 を入れ替えます。\r\n\r\n　　確認した後に、再度、印刷して下さい。"_s);
    EXPECT_EQ(refusal->field, LabelField::firstRow);
    EXPECT_EQ(refusal->rows->first, u"2"_s);
    EXPECT_EQ(refusal->rows->last, u"3"_s);
    EXPECT_TRUE(refusal->rows->afterFocus);
}

TEST(LabelChecks, aRangeBeyondTheGrid_becomesAllRows)
{
    SetupDesk desk;
    desk.setup.tick(LabelField::rowRange, true);
    desk.set(LabelField::firstRow, u"2");
    desk.set(LabelField::lastRow, u"3");
    EXPECT_FALSE(refusalOf(desk.setup)) << "the last row";
    desk.set(LabelField::lastRow, u"4");
    const auto refusal = refusalOf(desk.setup);
    ASSERT_TRUE(refusal && refusal->rows);
    EXPECT_EQ(refusal->title, u"印刷可能範囲 < 印刷最終行 エラー"_s);
    EXPECT_EQ(
        refusal->text,
        u"「印刷最終行」 が 印刷可能な範囲を超えています。　　　\r\n\r\n　　印刷可能範囲 ： 1 ～ 3 行\r\n\r\n　　「印刷開始行」 と 「印刷最終行」 に\r\n　　　印刷可能な範囲を設定します。\r\n\r\n　　確認した後に、再度、印刷して下さい。"_s);
    EXPECT_EQ(refusal->field, LabelField::lastRow);
    EXPECT_EQ(refusal->rows->first, u"1"_s);
    EXPECT_EQ(refusal->rows->last, u"3"_s);
    EXPECT_FALSE(refusal->rows->afterFocus);
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

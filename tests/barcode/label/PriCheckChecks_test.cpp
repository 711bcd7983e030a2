// What the label dialog refuses when OK is pressed, in order and to the letter.
#include <gtest/gtest.h>

#include "tests/barcode/label/LabelDesk.h"
#include "tests/support/ExpectBox.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

using Desk = LabelDialogDesk;

const QString noNumber = u"\r\n\r\n数値入力した後に、再度、印刷して下さい。"_s;
const QString tooSmall = u"\r\n\r\n１ 以上の数値を入力した後に、再度、印刷して下さい。　　　"_s;

struct Refusal
{
    const char* field;
    const char16_t* typed;
    const char16_t* title;
    const char16_t* firstLine;
    bool zero = false;
};

// In the order of the checks.
constexpr Refusal fieldRefusals[] = {
    {"txtXYpoint_1", u"-", u"印刷開始位置 ： 縦 エラー",
     u"「印刷開始位置 ： 縦」 が 数値入力されていません。　　　"},
    {"txtXYpoint_0", u"", u"印刷開始位置 ： 横 エラー",
     u"「印刷開始位置 ： 横」 が 数値入力されていません。　　　"},
    {"txtOnePageNum_0", u"x", u"１ページ内の列数 エラー",
     u"「１ページ内の列数」 が 数値入力されていません。　　　"},
    {"txtOnePageNum_0", u"0", u"１ページ内の列数 エラー", u"「１ページ内の列数」 に ０ は入力できません。",
     true},
    {"txtBarHeight", u".", u"線高 エラー", u"「線高」 が 数値入力されていません。　　　"},
    {"txtBarHeight", u"0.5", u"線高 エラー", u"「線高」 に １ より小さい数値は入力できません。", true},
    {"txtWHPich_1", u"1.2.3", u"ラベル高 エラー", u"「ラベル高」 が 数値入力されていません。　　　"},
    {"txtOnePageNum_1", u"", u"１ページ内の行数 エラー",
     u"「１ページ内の行数」 が 数値入力されていません。　　　"},
    {"txtOnePageNum_1", u"00", u"１ページ内の行数 エラー", u"「１ページ内の行数」 に ０ は入力できません。",
     true},
    {"txtWHPich_0", u"--5", u"ラベル幅 エラー", u"「ラベル幅」 が 数値入力されていません。　　　"},
    {"txtNameXYpoint_0", u"", u"名称印刷 ： 横 エラー",
     u"「名称印刷 ： 横」 が 数値入力されていません。　　　"},
    {"txtNameXYpoint_1", u"", u"名称印刷 ： 縦 エラー",
     u"「名称印刷 ： 縦」 が 数値入力されていません。　　　"},
    {"txtCodeXYpoint_0", u"", u"コード印刷 ： 横 エラー",
     u"「コード印刷 ： 横」 が 数値入力されていません。　　　"},
    {"txtCodeXYpoint_1", u"", u"コード印刷 ： 縦 エラー",
     u"「コード印刷 ： 縦」 が 数値入力されていません。　　　"},
    {"txtKinouXYpoint_0", u"", u"画面切替 印刷 ： 横 エラー",
     u"「画面切替 印刷 ： 横」 が 数値入力されていません。　　　"},
    {"txtKinouXYpoint_1", u"", u"画面切替 印刷 ： 縦 エラー",
     u"「画面切替 印刷 ： 縦」 が 数値入力されていません。　　　"},
    {"txtKinouXYpoint_2", u"", u"検索機能 印刷 ： 横 エラー",
     u"「検索機能 印刷 ： 横」 が 数値入力されていません。　　　"},
    {"txtKinouXYpoint_3", u"", u"検索機能 印刷 ： 縦 エラー",
     u"「検索機能 印刷 ： 縦」 が 数値入力されていません。　　　"},
    {"txtPrtNum", u"", u"ラベル印刷枚数 エラー", u"「ラベル印刷枚数」 が 数値入力されていません。　　　"},
};

constexpr Refusal rowRefusals[] = {
    {"txtLine_0", u"", u"印刷開始行 エラー", u"「印刷開始行」 が 数値入力されていません。　　　"},
    {"txtLine_0", u"0", u"印刷開始行 エラー", u"「印刷開始行」 に ０ は入力できません。", true},
    {"txtLine_1", u"x", u"印刷最終行 エラー", u"「印刷最終行」 が 数値入力されていません。　　　"},
    {"txtLine_1", u"0", u"印刷最終行 エラー", u"「印刷最終行」 に ０ は入力できません。", true},
};

void expectRefused(Desk& desk, const Refusal& refusal)
{
    SCOPED_TRACE(refusal.field);
    desk.box.shown.clear();
    desk.dialog->CmdOK_Click();
    expectOneBox(desk.box,
                 {.title = QString::fromUtf16(refusal.title),
                  .text = QString::fromUtf16(refusal.firstLine) + (refusal.zero ? tooSmall : noNumber),
                  .icon = BoxIcon::Stop});
    EXPECT_EQ(desk.dialog->focusWidget(), desk.field(refusal.field)) << refusal.field;
    EXPECT_TRUE(desk.paper.calls.empty());
    EXPECT_EQ(desk.text(refusal.field), QString::fromUtf16(refusal.typed).toStdString());
}

/// Asks for the labels of these rows and presses OK.
void printRows(Desk& desk, const char16_t* first, const char16_t* last)
{
    desk.open();
    desk.button("optPrint_1")->setChecked(true);
    desk.type("txtLine_0", first);
    desk.type("txtLine_1", last);
    desk.dialog->CmdOK_Click();
}

} // namespace

TEST(PriCheckChecks, everyField_isRefusedInItsWords_andGetsTheFocus)
{
    for (const Refusal& refusal : fieldRefusals) {
        Desk desk;
        desk.openWithEverything();
        desk.type(refusal.field, refusal.typed);
        expectRefused(desk, refusal);
    }
    for (const Refusal& refusal : rowRefusals) {
        Desk desk;
        desk.openWithEverything();
        desk.button("optPrint_1")->setChecked(true);
        desk.type(refusal.field, refusal.typed);
        expectRefused(desk, refusal);
    }
}

TEST(PriCheckChecks, theFirstOfTwoBadFields_isTheOneOfTheEarlierCheck)
{
    std::vector<Refusal> all(std::begin(fieldRefusals), std::end(fieldRefusals));
    all.insert(all.end(), std::begin(rowRefusals), std::end(rowRefusals));
    int compared = 0;
    for (std::size_t i = 0; i + 1 < all.size(); ++i) {
        if (std::string(all[i].field) == all[i + 1].field)
            continue;
        Desk desk;
        desk.openWithEverything();
        desk.button("optPrint_1")->setChecked(true);
        desk.type(all[i + 1].field, all[i + 1].typed);
        desk.type(all[i].field, all[i].typed);
        if (!desk.field(all[i].field)->isEnabled())
            continue;
        expectRefused(desk, all[i]);
        ++compared;
    }
    EXPECT_EQ(compared, 17) << "a pair is skipped only where the earlier field is disabled";
}

TEST(PriCheckChecks, aFieldThatDoesNotCount_isNotChecked)
{
    Desk desk;
    desk.open();
    desk.sheet(2);
    desk.type("txtWHPich_0", u"");
    desk.button("chkName")->setChecked(false);
    desk.type("txtNameXYpoint_0", u"x");
    desk.type("txtKinouXYpoint_0", u"x");
    desk.type("txtLine_0", u"");
    desk.dialog->CmdOK_Click();
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_TRUE(desk.dialog->printed());
}

TEST(PriCheckChecks, theBarHeight_isTestedAsAWholeNumber)
{
    for (const auto& [height, good] :
         {std::pair{u"0.5", false}, std::pair{u"0.6", true}, std::pair{u"0", false}, std::pair{u"1.5", true},
          std::pair{u"0.4", false}}) {
        Desk desk;
        desk.open();
        desk.type("txtBarHeight", height);
        desk.dialog->CmdOK_Click();
        EXPECT_EQ(desk.dialog->printed(), good) << QString::fromUtf16(height).toStdString();
    }
}

TEST(PriCheckChecks, aRangeTurnedRound_isSwapped_andNotPrinted)
{
    Desk desk;
    printRows(desk, u"3", u"2");
    expectOneBox(
        desk.box,
        {.title = u"印刷開始行 > 印刷最終行 エラー"_s,
         .text =
             u"「印刷最終行」 が 「印刷開始行」 よりも小さいです。　　　\r\n\r\n　　印刷開始行 ： {first}　　印刷最終行 ： {last}\r\n\r\n「印刷最終行」 と 「印刷開始行」 を入れ替えます。\r\n\r\n　　確認した後に、再度、印刷して下さい。"_s
                 .replace(u"{first}"_s, u"3"_s)
                 .replace(u"{last}"_s, u"2"_s),
         .icon = BoxIcon::Stop});
    EXPECT_EQ(desk.text("txtLine_0"), "2");
    EXPECT_EQ(desk.text("txtLine_1"), "3");
    EXPECT_TRUE(desk.paper.calls.empty());
    desk.dialog->CmdOK_Click();
    EXPECT_EQ(desk.paper.pages.at(0).bars.size(), 2U);
}

TEST(PriCheckChecks, aRangeThatIsTooLong_becomesAllRows)
{
    Desk desk;
    printRows(desk, u"2", u"4");
    expectOneBox(
        desk.box,
        {.title = u"印刷可能範囲 < 印刷最終行 エラー"_s,
         .text =
             u"「印刷最終行」 が 印刷可能な範囲を超えています。　　　\r\n\r\n　　印刷可能範囲 ： 1 ～ {EndRow} 行\r\n\r\n　　「印刷開始行」 と 「印刷最終行」 に\r\n　　　印刷可能な範囲を設定します。\r\n\r\n　　確認した後に、再度、印刷して下さい。"_s
                 .replace(u"{EndRow}"_s, u"3"_s),
         .icon = BoxIcon::Stop});
    EXPECT_EQ(desk.text("txtLine_0"), "1");
    EXPECT_EQ(desk.text("txtLine_1"), "3");
    EXPECT_EQ(desk.dialog->focusWidget(), desk.field("txtLine_1"));
    EXPECT_EQ(desk.pages(), "1-1");
}

} // namespace suisui::test

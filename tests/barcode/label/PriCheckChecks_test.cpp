// What the label dialog refuses when OK is pressed, in order and to the letter.
#include <algorithm>

#include <gtest/gtest.h>

#include "tests/barcode/label/LabelDesk.h"
#include "tests/barcode/label/RefusalWords.h"
#include "tests/support/ExpectBox.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

using Desk = LabelDialogDesk;

/// What is typed into a field, so that it is refused.
struct Refusal
{
    LabelField field;
    const char16_t* typed;
    bool zero = false; ///< it is a number, and too small

    [[nodiscard]] const char* control() const { return rowOf(field).control; }
    [[nodiscard]] const RefusalWords& words() const
    {
        return *std::find_if(std::begin(refusalWords), std::end(refusalWords),
                             [this](const RefusalWords& each) { return each.field == field; });
    }
};

// In the order of the checks.
constexpr Refusal fieldRefusals[] = {
    {LabelField::startY, u"-"},        {LabelField::startX, u""},     {LabelField::columns, u"x"},
    {LabelField::columns, u"0", true}, {LabelField::barHeight, u"."}, {LabelField::barHeight, u"0.5", true},
    {LabelField::height, u"1.2.3"},    {LabelField::rows, u""},       {LabelField::rows, u"00", true},
    {LabelField::width, u"--5"},       {LabelField::nameX, u""},      {LabelField::nameY, u""},
    {LabelField::codeX, u""},          {LabelField::codeY, u""},      {LabelField::screenX, u""},
    {LabelField::screenY, u""},        {LabelField::searchX, u""},    {LabelField::searchY, u""},
    {LabelField::eachRow, u""},
};

constexpr Refusal rowRefusals[] = {
    {LabelField::firstRow, u""},
    {LabelField::firstRow, u"0", true},
    {LabelField::lastRow, u"x"},
    {LabelField::lastRow, u"0", true},
};

void expectRefused(Desk& desk, const Refusal& refusal)
{
    SCOPED_TRACE(refusal.control());
    desk.box.shown.clear();
    desk.dialog->CmdOK_Click();
    expectOneBox(desk.box,
                 {.title = QString::fromUtf16(refusal.words().title),
                  .text = refusal.zero ? refusal.words().textOfZero() : refusal.words().textOfNoNumber(),
                  .icon = BoxIcon::Stop});
    EXPECT_EQ(desk.dialog->focusWidget(), desk.field(refusal.control()));
    EXPECT_TRUE(desk.paper.calls.empty());
    EXPECT_EQ(desk.text(refusal.control()), QString::fromUtf16(refusal.typed).toStdString());
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
        desk.type(refusal.control(), refusal.typed);
        expectRefused(desk, refusal);
    }
    for (const Refusal& refusal : rowRefusals) {
        Desk desk;
        desk.openWithEverything();
        desk.button("optPrint_1")->setChecked(true);
        desk.type(refusal.control(), refusal.typed);
        expectRefused(desk, refusal);
    }
}

TEST(PriCheckChecks, theFirstOfTwoBadFields_isTheOneOfTheEarlierCheck)
{
    std::vector<Refusal> all(std::begin(fieldRefusals), std::end(fieldRefusals));
    all.insert(all.end(), std::begin(rowRefusals), std::end(rowRefusals));
    int compared = 0;
    for (std::size_t i = 0; i + 1 < all.size(); ++i) {
        if (all[i].field == all[i + 1].field)
            continue;
        Desk desk;
        desk.openWithEverything();
        desk.button("optPrint_1")->setChecked(true);
        desk.type(all[i + 1].control(), all[i + 1].typed);
        desk.type(all[i].control(), all[i].typed);
        if (!desk.field(all[i].control())->isEnabled())
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

// What the label dialog refuses when OK is pressed, in its order and to the letter; its keys; the ways into
// it.
#include <QCheckBox>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "barcode/label/BarCodePrintOut.h"
#include "tests/barcode/label/LabelDesk.h"

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

/// The free sheet of two by six with everything ticked, so that every check applies.
void openWithEverything(Desk& desk)
{
    desk.open();
    desk.sheet(4);
    desk.button("chkKinou_0")->setChecked(true);
    desk.button("chkKinou_1")->setChecked(true);
}

void expectRefused(Desk& desk, const Refusal& refusal)
{
    desk.box.shown.clear();
    desk.dialog->CmdOK_Click();
    ASSERT_EQ(desk.box.shown.size(), 1U) << refusal.field;
    EXPECT_EQ(desk.box.shown[0].title, QString::fromUtf16(refusal.title));
    EXPECT_EQ(desk.box.shown[0].text,
              QString::fromUtf16(refusal.firstLine) + (refusal.zero ? tooSmall : noNumber));
    EXPECT_EQ(desk.box.shown[0].icon, BoxIcon::Stop);
    EXPECT_EQ(desk.dialog->focusWidget(), desk.field(refusal.field)) << refusal.field;
    EXPECT_TRUE(desk.paper.calls.empty());
    EXPECT_EQ(desk.text(refusal.field), QString::fromUtf16(refusal.typed).toStdString());
}

} // namespace

TEST(PriCheckChecks, everyField_isRefusedInItsWords_andGetsTheFocus)
{
    for (const Refusal& refusal : fieldRefusals) {
        Desk desk;
        openWithEverything(desk);
        desk.type(refusal.field, refusal.typed);
        expectRefused(desk, refusal);
    }
    for (const Refusal& refusal : rowRefusals) {
        Desk desk;
        openWithEverything(desk);
        desk.button("optPrint_1")->setChecked(true);
        desk.type(refusal.field, refusal.typed);
        expectRefused(desk, refusal);
    }
}

TEST(PriCheckChecks, theFirstOfTwoBadFields_isTheOneOfTheEarlierCheck)
{
    std::vector<Refusal> all(std::begin(fieldRefusals), std::end(fieldRefusals));
    all.insert(all.end(), std::begin(rowRefusals), std::end(rowRefusals));
    for (std::size_t i = 0; i + 1 < all.size(); ++i) {
        if (std::string(all[i].field) == all[i + 1].field)
            continue;
        Desk desk;
        openWithEverything(desk);
        desk.button("optPrint_1")->setChecked(true);
        desk.type(all[i + 1].field, all[i + 1].typed);
        desk.type(all[i].field, all[i].typed);
        if (desk.field(all[i].field)->isEnabled())
            expectRefused(desk, all[i]);
    }
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
    desk.open();
    desk.button("optPrint_1")->setChecked(true);
    desk.type("txtLine_0", u"3");
    desk.type("txtLine_1", u"2");
    desk.dialog->CmdOK_Click();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"印刷開始行 > 印刷最終行 エラー"_s);
    EXPECT_EQ(
        desk.box.shown[0].text,
        u"「印刷最終行」 が 「印刷開始行」 よりも小さいです。　　　\r\n\r\n　　印刷開始行 ： {first}　　印刷最終行 ： {last}\r\n\r\n「印刷最終行」 と 「印刷開始行」 を入れ替えます。\r\n\r\n　　確認した後に、再度、印刷して下さい。"_s
            .replace(u"{first}"_s, u"3"_s)
            .replace(u"{last}"_s, u"2"_s));
    EXPECT_EQ(desk.text("txtLine_0"), "2");
    EXPECT_EQ(desk.text("txtLine_1"), "3");
    EXPECT_TRUE(desk.paper.calls.empty());
    desk.dialog->CmdOK_Click();
    EXPECT_EQ(desk.paper.pages.at(0).bars.size(), 2U);
}

TEST(PriCheckChecks, aRangeThatIsTooLong_becomesAllRows)
{
    Desk desk;
    desk.open();
    desk.button("optPrint_1")->setChecked(true);
    desk.type("txtLine_0", u"2");
    desk.type("txtLine_1", u"4");
    desk.dialog->CmdOK_Click();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(desk.box.shown[0].title, u"印刷可能範囲 < 印刷最終行 エラー"_s);
    EXPECT_EQ(
        desk.box.shown[0].text,
        u"「印刷最終行」 が 印刷可能な範囲を超えています。　　　\r\n\r\n　　印刷可能範囲 ： 1 ～ {EndRow} 行\r\n\r\n　　「印刷開始行」 と 「印刷最終行」 に\r\n　　　印刷可能な範囲を設定します。\r\n\r\n　　確認した後に、再度、印刷して下さい。"_s
            .replace(u"{EndRow}"_s, u"3"_s));
    EXPECT_EQ(desk.text("txtLine_0"), "1");
    EXPECT_EQ(desk.text("txtLine_1"), "3");
    EXPECT_EQ(desk.dialog->focusWidget(), desk.field("txtLine_1"));
    EXPECT_EQ(desk.pages(), "1-1");
}

// ---- keys

TEST(PriCheckKeys, enterWalksTheChain)
{
    struct Step
    {
        const char* from;
        const char* to;
    };
    constexpr Step steps[] = {
        {"optPrint_1", "txtLine_0"},
        {"txtLine_0", "txtLine_1"},
        {"txtLine_1", "txtPage_0"},
        {"txtPage_0", "txtPage_1"},
        {"txtPage_1", "optYousi_4"},
        {"optYousi_4", "txtPrtNum"},
        {"txtPrtNum", "cmbStart"},
        {"cmbStart", "txtXYpoint_1"},
        {"txtXYpoint_1", "txtXYpoint_0"},
        {"txtXYpoint_0", "txtOnePageNum_0"},
        {"txtOnePageNum_0", "txtBarHeight"},
        {"txtBarHeight", "txtWHPich_1"},
        {"txtWHPich_1", "cmbBarPich"},
        {"cmbBarPich", "txtOnePageNum_1"},
        {"txtOnePageNum_1", "txtWHPich_0"},
        {"txtWHPich_0", "chkName"},
        {"chkName", "txtNameXYpoint_0"},
        {"txtNameXYpoint_0", "txtNameXYpoint_1"},
        {"txtNameXYpoint_1", "chkCode"},
        {"chkCode", "txtCodeXYpoint_0"},
        {"txtCodeXYpoint_0", "txtCodeXYpoint_1"},
        {"txtCodeXYpoint_1", "chkKinou_0"},
        {"chkKinou_0", "txtKinouXYpoint_0"},
        {"txtKinouXYpoint_0", "txtKinouXYpoint_1"},
        {"txtKinouXYpoint_1", "chkKinou_1"},
        {"chkKinou_1", "txtKinouXYpoint_2"},
        {"txtKinouXYpoint_2", "txtKinouXYpoint_3"},
        {"txtKinouXYpoint_3", "CmdOK"},
    };
    Desk desk;
    openWithEverything(desk);
    desk.button("optPrint_1")->setChecked(true);
    for (const Step& step : steps) {
        auto* from = desk.find<QWidget>(step.from);
        from->setFocus();
        QTest::keyClick(from, Qt::Key_Return);
        EXPECT_EQ(desk.dialog->focusWidget(), desk.find<QWidget>(step.to)) << "from " << step.from;
    }
    EXPECT_TRUE(desk.paper.calls.empty()) << "no Enter on the way has pressed a button";
}

TEST(PriCheckKeys, enterPassesByWhatIsDisabled)
{
    Desk desk;
    desk.source.asksForNumber = false;
    desk.open();
    const auto enter = [&](const char* name) {
        auto* from = desk.find<QWidget>(name);
        from->setFocus();
        QTest::keyClick(from, Qt::Key_Return);
        return desk.dialog->focusWidget()->objectName().toStdString();
    };
    EXPECT_EQ(enter("optPrint_0"), "txtPage_0");
    desk.choice("cmbStart")->setCurrentIndex(6);
    EXPECT_EQ(enter("txtPage_1"), "opt0_6");
    EXPECT_EQ(enter("opt0_6"), "optYousi_0");
    EXPECT_EQ(enter("optYousi_0"), "cmbStart");
    EXPECT_EQ(enter("txtXYpoint_0"), "txtBarHeight");
    EXPECT_EQ(enter("cmbBarPich"), "txtWHPich_0");
    EXPECT_EQ(enter("chkKinou_0"), "chkKinou_1");
    EXPECT_EQ(enter("chkKinou_1"), "CmdOK");
    desk.button("chkName")->setChecked(false);
    EXPECT_EQ(enter("chkName"), "chkCode");
    desk.button("chkCode")->setChecked(false);
    EXPECT_EQ(enter("chkCode"), "chkKinou_0");
    desk.sheet(2);
    EXPECT_EQ(enter("chkCode"), "txtCodeXYpoint_0");
    EXPECT_EQ(enter("txtCodeXYpoint_1"), "CmdOK");
    EXPECT_EQ(enter("cmbBarPich"), "chkName");
    desk.sheet(4);
    desk.type("txtOnePageNum_1", u"1");
    EXPECT_EQ(enter("optYousi_4"), "txtXYpoint_1");
    EXPECT_EQ(enter("txtBarHeight"), "cmbBarPich");
    EXPECT_EQ(enter("txtOnePageNum_1"), "chkName");
}

TEST(PriCheckKeys, fieldsLetThroughTheirKeys_upToTheirLength)
{
    struct Case
    {
        const char* field;
        const char* keys;
        const char* stays;
    };
    for (const Case& each :
         {Case{"txtLine_0", "1a2-3.456", "1234"}, Case{"txtPage_0", "98765", "9876"},
          Case{"txtPrtNum", "12345", "123"}, Case{"txtOnePageNum_0", "3x21", "32"},
          Case{"txtXYpoint_0", "-12.3456", "-12.34"}, Case{"txtBarHeight", "1e2+3 4", "1234"},
          Case{"txtKinouXYpoint_3", "22222.222", "22222."}}) {
        Desk desk;
        openWithEverything(desk);
        desk.button("optPrint_1")->setChecked(true);
        QLineEdit* field = desk.field(each.field);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, QString::fromLatin1(each.keys));
        EXPECT_EQ(desk.text(each.field), each.stays) << each.field;
        QTest::keyClick(field, Qt::Key_Backspace);
        EXPECT_EQ(field->text().size(), std::string(each.stays).size() - 1)
            << "Backspace goes through at the limit";
        field->setText(QString::fromLatin1(each.stays));
        field->selectAll();
        QTest::keyClick(field, Qt::Key_7);
        EXPECT_EQ(desk.text(each.field), "7") << "selected text can always be replaced";
    }
}

TEST(PriCheckKeys, focusIsCyanWithTheTextSelected_andWhiteAfterwards)
{
    Desk desk;
    desk.open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(desk.dialog.get()));
    QLineEdit* field = desk.field("txtBarHeight");
    field->setFocus();
    EXPECT_EQ(field->palette().color(QPalette::Base), QColor(0, 255, 255));
    EXPECT_EQ(field->selectedText(), u"12.00"_s);
    desk.field("txtXYpoint_0")->setFocus();
    EXPECT_EQ(field->palette().color(QPalette::Base), QColor(Qt::white));
}

TEST(PriCheckKeys, pastedColumns_areNoMoreThanTheFieldHolds)
{
    Desk desk;
    desk.open();
    desk.sheet(4);
    desk.field("txtOnePageNum_0")->selectAll();
    desk.field("txtOnePageNum_0")->insert(u"99999999"_s);
    EXPECT_EQ(desk.text("txtOnePageNum_0"), "99");
    desk.field("txtOnePageNum_1")->selectAll();
    desk.field("txtOnePageNum_1")->insert(u"99999999"_s);
    EXPECT_EQ(desk.choice("cmbStart")->count(), 99 * 99);
}

// ---- the ways in

namespace {

struct Entry
{
    /// Works \a enter and presses \a button of the dialog that comes up; empty when none did.
    QString through(const std::function<void(const LabelDesk&)>& enter,
                    const std::function<void(QDialog&)>& look)
    {
        bool up = false;
        QTimer::singleShot(0, &desk.grid, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr)
                return;
            up = true;
            look(*dialog);
            dialog->reject();
        });
        enter({desk.ini, desk.box, desk.paper, [] { return QString(); }, nullptr});
        QCoreApplication::processEvents();
        return up ? u"dialog"_s : u"refused"_s;
    }

    Desk desk;
};

QString textOf(const QDialog& dialog, const char* name)
{
    const auto* widget = dialog.findChild<QWidget*>(QString::fromLatin1(name));
    return widget->property("text").toString();
}

} // namespace

TEST(LabelEntries, anEmptyGrid_isRefused)
{
    Entry entry;
    entry.desk.grid.setMaxRows(0);
    const auto none = [](QDialog&) {};
    const auto refused = [&](const std::function<void(const LabelDesk&)>& enter) {
        entry.desk.box.shown.clear();
        EXPECT_EQ(entry.through(enter, none), u"refused"_s);
        ASSERT_EQ(entry.desk.box.shown.size(), 1U);
        EXPECT_EQ(entry.desk.box.shown[0].title, u"バーコード印刷"_s);
        EXPECT_EQ(
            entry.desk.box.shown[0].text,
            u"印刷する情報がありません。　　　\r\n\r\n対象の情報を表示した後に\r\n再度、印刷して下さい。"_s);
        EXPECT_EQ(entry.desk.box.shown[0].icon, BoxIcon::Stop);
    };
    vaSpread& grid = entry.desk.grid;
    refused([&](const LabelDesk& desk) { MainBarCodePrintOut(desk, 3, grid, labelMarkColumn, 0); });
    refused([&](const LabelDesk& desk) { RptBarCodePrintOut(desk, 3, grid, labelMarkColumn, 0); });
    grid.setMaxRows(1);
    refused([&](const LabelDesk& desk) { MstBarCodePrintOut(desk, 0, grid, labelMarkColumn); });
}

TEST(LabelEntries, receiptsAndShipments_comeWithTheirWord_theirRows_andTheSourceOfTheNumber)
{
    Entry entry;
    vaSpread& grid = entry.desk.grid;
    grid.SetActiveCell(1, 2);
    EXPECT_EQ(entry.through(
                  [&](const LabelDesk& desk) {
                      MainBarCodePrintOut(desk, 3, grid, labelMarkColumn, labelQuantityColumn);
                  },
                  [](QDialog& dialog) {
                      EXPECT_EQ(textOf(dialog, "lblSyori"), u"【 入荷 】"_s);
                      EXPECT_EQ(textOf(dialog, "txtLine_0"), u"2"_s);
                      EXPECT_EQ(textOf(dialog, "txtLine_1"), u"3"_s);
                      EXPECT_EQ(textOf(dialog, "lblPrtNum_1"), u"数量分 "_s);
                      EXPECT_EQ(textOf(dialog, "optPrint_0"),
                                u" 「 印刷 」 にチェックのついている行を印刷する。"_s);
                  }),
              u"dialog"_s);
    EXPECT_EQ(
        entry.through([&](const LabelDesk& desk) { MainBarCodePrintOut(desk, 4, grid, labelMarkColumn, 0); },
                      [](QDialog& dialog) {
                          EXPECT_EQ(textOf(dialog, "lblSyori"), u"【 出荷 】"_s);
                          EXPECT_EQ(textOf(dialog, "lblPrtNum_1"), u"１ 枚 　"_s);
                      }),
        u"dialog"_s);
}

TEST(LabelEntries, masterData_leavesOutTheEmptyLastRow_andAsksForTheNumber)
{
    Entry entry;
    vaSpread& grid = entry.desk.grid;
    grid.SetActiveCell(1, 3);
    EXPECT_EQ(
        entry.through([&](const LabelDesk& desk) { MstBarCodePrintOut(desk, 0, grid, labelMarkColumn); },
                      [](QDialog& dialog) {
                          EXPECT_EQ(textOf(dialog, "lblSyori"), u"【 商品 】"_s);
                          EXPECT_EQ(textOf(dialog, "txtLine_0"), u"2"_s);
                          EXPECT_EQ(textOf(dialog, "txtLine_1"), u"2"_s);
                          EXPECT_TRUE(dialog.findChild<QWidget*>(u"txtPrtNum"_s)->isVisible());
                      }),
        u"dialog"_s);
}

TEST(LabelEntries, aSlip_printsEveryRowWithACode)
{
    Entry entry;
    EXPECT_EQ(entry.through(
                  [&](const LabelDesk& desk) {
                      RptBarCodePrintOut(desk, 4, entry.desk.grid, labelMarkColumn, labelQuantityColumn);
                  },
                  [](QDialog& dialog) {
                      EXPECT_EQ(textOf(dialog, "lblSyori"), u"【 伝 票 】"_s);
                      EXPECT_EQ(textOf(dialog, "optPrint_0"),
                                u" 「コード」 が入力されている すべての行を印刷する。"_s);
                  }),
              u"dialog"_s);
}

} // namespace suisui::test

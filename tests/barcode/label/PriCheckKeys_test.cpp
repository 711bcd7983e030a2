// The keys of the label dialog: where Enter goes, and what the fields accept.
#include <QTest>

#include <gtest/gtest.h>

#include "tests/barcode/label/LabelDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

using Desk = LabelDialogDesk;

} // namespace

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
    desk.openWithEverything();
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
        desk.openWithEverything();
        desk.button("optPrint_1")->setChecked(true);
        QLineEdit* field = desk.field(each.field);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, QString::fromLatin1(each.keys));
        EXPECT_EQ(desk.text(each.field), each.stays) << each.field;
        QTest::keyClick(field, Qt::Key_Backspace);
        EXPECT_EQ(field->text().size(), std::string(each.stays).size() - 1)
            << "Backspace is accepted at the limit";
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
    desk.field("txtOnePageNum_1")->selectAll();
    desk.field("txtOnePageNum_1")->insert(u"-5"_s);
    EXPECT_EQ(desk.text("txtOnePageNum_1"), "99");
}

} // namespace suisui::test

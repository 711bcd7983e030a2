// Where the cursor goes in both lists, so that they can be operated with a reader or the keyboard alone.
#include <gtest/gtest.h>

#include <QTest>

#include "tests/lists/ListDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

class ListFocus : public testing::TestWithParam<Side>
{
protected:
    ListFocus() { desk.page->show(); }

    /// The control that has the focus, or would have it if the window were active.
    [[nodiscard]] QWidget* focused() const { return desk.page->focusWidget(); }
    void leaveFor(QWidget& elsewhere) const
    {
        elsewhere.setFocus();
        ASSERT_EQ(focused(), &elsewhere);
    }

    ListDesk desk{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Sides, ListFocus, testing::Values(Side::Receipt, Side::Shipment),
                         [](const auto& tested) { return sideName(tested.param); });

} // namespace

TEST_P(ListFocus, ofASearch_goesToTheList_orBackToTheCodeField)
{
    desk.storeMany(2);
    leaveFor(*desk.page->searchButton());
    desk.search();
    EXPECT_EQ(focused(), &desk.grid());
    desk.period(u"20270101"_s, u"20271231"_s);
    leaveFor(*desk.page->searchButton());
    desk.search();
    EXPECT_EQ(focused(), desk.page->barCodeField());
}

TEST_P(ListFocus, staysWithTheList_whenTheQuestionIsDeclined)
{
    desk.store({{.date = "20260101"}});
    desk.search();
    desk.storeMany(1001);
    leaveFor(*desk.page->searchButton());
    desk.box.answers = {BoxAnswer::No};
    desk.search();
    EXPECT_EQ(focused(), &desk.grid());
}

TEST_P(ListFocus, goesToTheCodeField_whenDeclinedOverAnEmptyGrid)
{
    desk.storeMany(1001);
    leaveFor(*desk.page->searchButton());
    desk.box.answers = {BoxAnswer::No};
    desk.search();
    EXPECT_EQ(desk.grid().MaxRows(), 0);
    EXPECT_EQ(focused(), desk.page->barCodeField());
}

TEST_P(ListFocus, ofAnAcceptedCode_goesToTheSearch_ofAnUnknownOneStays)
{
    desk.goods("4901", "りんご");
    for (const QString& accepted : {u"4901"_s, u"*"_s, u"49??"_s}) {
        leaveFor(*desk.page->barCodeField());
        desk.enter(accepted);
        EXPECT_EQ(focused(), desk.page->searchButton()) << accepted.toStdString();
    }
    desk.enter(u"777"_s); // scanned while the cursor is elsewhere
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(focused(), desk.page->barCodeField());
}

TEST_P(ListFocus, movesOnByEnter_fromPartnerToPersonToTheSearch)
{
    leaveFor(*desk.page->partnerChoice());
    QTest::keyClick(desk.page->partnerChoice(), Qt::Key_Return);
    EXPECT_EQ(focused(), desk.page->staffChoice());
    QTest::keyClick(desk.page->staffChoice(), Qt::Key_Enter);
    EXPECT_EQ(focused(), desk.page->searchButton());
}

TEST_P(ListFocus, goesToTheFirstBox_ofAPeriodThatRunsBackwards)
{
    desk.storeMany(2);
    desk.search();
    desk.period(u"20260201"_s, u"20260131"_s);
    leaveFor(*desk.page->searchButton());
    desk.search();
    ASSERT_EQ(desk.box.shown.size(), 1U);
    EXPECT_EQ(focused(), &desk.control<QLineEdit>(u"txtXLyyyy_F"_s));
    EXPECT_EQ(desk.grid().MaxRows(), 4);
}

} // namespace suisui::test

// The four periods of the main window: all their boxes behave alike, and a wrong one leaves the window ready
// to have it put right.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QTest>

#include "tests/support/MainWindowDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

struct Period
{
    Tab tab;
    const char16_t* letters; ///< in the names of its controls
};

constexpr Period periods[] = {
    {Tab::Receipt, u"N"}, {Tab::Shipment, u"S"}, {Tab::ReceiptList, u"NL"}, {Tab::ShipmentList, u"SL"}};

class PeriodTest : public ::testing::TestWithParam<Period>, protected MainWindowDesk
{
protected:
    PeriodTest()
    {
        fillShop();
        open();
        window->showTab(GetParam().tab);
        for (const QString& name : {u"yyyy_F"_s, u"mm_F"_s, u"dd_F"_s, u"yyyy_T"_s, u"mm_T"_s, u"dd_T"_s})
            boxes.push_back(&control<QLineEdit>(u"txt"_s + letters() + name));
        button = &control<QPushButton>(u"cmd"_s + letters() + u"Kensaku"_s);
        box.shown.clear();
    }
    [[nodiscard]] static QString letters() { return QString::fromUtf16(GetParam().letters); }
    void fill(const QStringList& texts)
    {
        for (std::size_t i = 0; i < boxes.size(); ++i)
            boxes[i]->setText(texts[static_cast<qsizetype>(i)]);
    }

    std::vector<QLineEdit*> boxes;
    QPushButton* button = nullptr;
};

const auto tabName = [](const ::testing::TestParamInfo<Period>& info) {
    return QString::fromUtf16(info.param.letters).toStdString();
};

} // namespace

INSTANTIATE_TEST_SUITE_P(OfEachTab, PeriodTest, ::testing::ValuesIn(periods), tabName);

TEST_P(PeriodTest, enterGoesThroughTheBoxesToTheirOwnButton_andChecksNothing)
{
    fill({u"1"_s, u"99"_s, QString(), u"2"_s, u"88"_s, QString()});
    boxes[0]->setFocus();
    for (std::size_t i = 1; i < boxes.size(); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        ASSERT_TRUE(boxes[i]->hasFocus()) << i;
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(button->hasFocus());
    EXPECT_TRUE(box.shown.empty());
}

TEST_P(PeriodTest, enterMovesOn_fromAFullBoxThatIsNotSelected)
{
    boxes[0]->setFocus();
    boxes[0]->setText(u"2026"_s);
    boxes[0]->end(false);
    QTest::keyClick(boxes[0], Qt::Key_Return);
    EXPECT_TRUE(boxes[1]->hasFocus());
}

TEST_P(PeriodTest, everyBoxTakesItsDigits_isSelectedOnArrival_andMarksTheFocus)
{
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        SCOPED_TRACE(boxes[i]->objectName().toStdString());
        boxes[i]->setText(u"1"_s);
        boxes[i]->setFocus();
        EXPECT_EQ(boxes[i]->selectedText(), u"1"_s);
        EXPECT_EQ(boxes[i]->palette().color(QPalette::Base), QColor(0, 255, 255));
        QTest::keyClicks(boxes[i], u"2a-0 2'6*9"_s);
        EXPECT_EQ(boxes[i]->text(), i % 3 == 0 ? u"2026"_s : u"20"_s);
        button->setFocus();
        EXPECT_EQ(boxes[i]->palette().color(QPalette::Base), QColor(Qt::white));
    }
}

TEST_P(PeriodTest, neitherPasteNorCutByKeyChangesADate)
{
    QGuiApplication::clipboard()->setText(u"12"_s);
    for (QLineEdit* each : boxes) {
        each->setText(u"7"_s);
        each->setFocus();
        QTest::keyClick(each, Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(each, Qt::Key_X, Qt::ControlModifier);
        EXPECT_EQ(each->text(), u"7"_s) << each->objectName().toStdString();
    }
}

TEST_P(PeriodTest, onePeriodThatEndsADayEarly_leavesWindowPointerAndFocusReady)
{
    fill({u"2026"_s, u"4"_s, u"2"_s, u"2026"_s, u"4"_s, u"1"_s});
    button->click();
    ASSERT_EQ(box.shown.size(), 1U);
    EXPECT_EQ(box.shown[0].title, u"日付エラー"_s);
    EXPECT_TRUE(box.shown[0].text.contains(u"　2026/04/02   >   2026/04/01\r\n"_s));
    EXPECT_TRUE(boxes[0]->hasFocus());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    QTest::keyClicks(QApplication::focusWidget(), u"2025"_s); // the window takes keys again
    EXPECT_EQ(boxes[0]->text(), u"2025"_s);
    button->click();
    EXPECT_EQ(box.shown.size(), 1U) << "and the period can be put right";
}

TEST_P(PeriodTest, aMonthThatDoesNotExist_staysInItsBox_whichGetsTheFocus)
{
    for (const QString& month : {u"13"_s, u"00"_s}) {
        fill({u"2026"_s, u"4"_s, u"1"_s, u"2026"_s, month, u"1"_s});
        box.shown.clear();
        button->click();
        ASSERT_EQ(box.shown.size(), 1U);
        EXPECT_EQ(box.shown[0].text, u"「月」 が 正しく入力されていません。　　　"_s);
        EXPECT_EQ(boxes[4]->text(), month);
        EXPECT_TRUE(boxes[4]->hasFocus());
        EXPECT_EQ(boxes[5]->text(), u"01"_s) << "good or bad, the boxes are padded";
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    }
}

TEST_P(PeriodTest, theSameDayTwiceIsAPeriod)
{
    fill({u"2026"_s, u"4"_s, u"1"_s, u"2026"_s, u"4"_s, u"1"_s});
    button->click();
    EXPECT_TRUE(box.shown.empty());
    EXPECT_EQ(boxes[1]->text(), u"04"_s) << "padded";
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

} // namespace suisui::test

// The label dialog: sheets, page count, what depends on what.
#include <QCoreApplication>
#include <QLabel>

#include <gtest/gtest.h>

#include "barcode/label/LabelSheets.h"
#include "barcode/label/PagePicture.h"
#include "barcode/label/SheetPicture.h"
#include "frame/support/KeyField.h"
#include "tests/barcode/label/LabelDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

using Desk = LabelDialogDesk;

QAbstractButton* positionButton(const Desk& desk, int sheet, int position)
{
    return desk.button(("opt" + std::to_string(sheet) + "_" + std::to_string(position)).c_str());
}

} // namespace

TEST(PriCheck, opensOnTheFirstSheet_withItsFigures)
{
    Desk desk;
    desk.open();
    EXPECT_EQ(desk.dialog->windowTitle(), u"バーコード印刷"_s);
    EXPECT_EQ(desk.find<QLabel>("lblSyori")->text(), u"【 入荷 】"_s);
    EXPECT_TRUE(desk.button("optYousi_0")->isChecked());
    EXPECT_EQ(desk.button("optYousi_0")->text(), u"Ａ４用紙\n　１２面"_s);
    EXPECT_EQ(desk.button("optYousi_4")->text(), u"【フリー】"_s);
    EXPECT_EQ(desk.find<QLabel>("lblYosiName")->text(), u"Ａ４用紙　１２面\nHISAGO (タックシール)"_s);
    EXPECT_EQ(desk.choice("cmbBarPich")->currentText(), u"3"_s);
    EXPECT_EQ(desk.paper.barPitch(), 3);
    EXPECT_EQ(desk.text("txtBarHeight"), "12.00");
    EXPECT_EQ(desk.text("txtXYpoint_0"), "30.00");
    EXPECT_EQ(desk.text("txtWHPich_0"), "88.00");
    EXPECT_EQ(desk.text("txtNameXYpoint_1"), "-5.00");
    EXPECT_EQ(desk.choice("cmbStart")->count(), 12);
    EXPECT_EQ(desk.text("txtKinouXYpoint_3"), "228.00");
    EXPECT_TRUE(desk.find<QWidget>("frame_yousi_0")->isVisible());
    EXPECT_FALSE(desk.find<QWidget>("frame_yousi_1")->isVisible());
}

TEST(PriCheck, everyFieldOfTheTable_hasItsControlAndLabels)
{
    Desk desk;
    desk.open();
    for (const LabelFieldRow& row : labelFields())
        for (const char* name : {row.control, row.labels[0], row.labels[1]})
            if (name != nullptr) {
                EXPECT_NE(desk.dialog->findChild<QWidget*>(QString::fromLatin1(name)), nullptr) << name;
            }
    EXPECT_EQ(desk.dialog->findChildren<KeyField*>().size(), 20) << "a field of its own needs a row";
}

TEST(PriCheck, everySheet_writesItsFigures_andShowsItsPicture)
{
    Desk desk;
    desk.open();
    for (const int index : {3, 2, 1, 0}) {
        const LabelSheet& sheet = labelSheets.at(static_cast<std::size_t>(index));
        desk.sheet(index);
        const auto is = [&](const char* name, const char16_t* text) {
            EXPECT_EQ(desk.field(name)->text(), QString::fromUtf16(text)) << name << " of sheet " << index;
        };
        EXPECT_EQ(desk.choice("cmbBarPich")->currentText(), QString::fromUtf16(sheet.barPitch));
        is("txtBarHeight", sheet.barHeight);
        is("txtXYpoint_0", sheet.startX);
        is("txtXYpoint_1", sheet.startY);
        is("txtWHPich_0", sheet.width);
        is("txtWHPich_1", sheet.height);
        is("txtNameXYpoint_0", sheet.name.x);
        is("txtNameXYpoint_1", sheet.name.y);
        is("txtCodeXYpoint_0", sheet.code.x);
        is("txtCodeXYpoint_1", sheet.code.y);
        EXPECT_EQ(desk.button("chkName")->isChecked(), sheet.name.on);
        EXPECT_EQ(desk.button("chkCode")->isChecked(), sheet.code.on);
        EXPECT_EQ(desk.field("txtOnePageNum_0")->text().toInt(), sheet.columns);
        EXPECT_EQ(desk.field("txtOnePageNum_1")->text().toInt(), sheet.rows);
        EXPECT_FALSE(desk.field("txtOnePageNum_0")->isEnabled());
        EXPECT_EQ(desk.button("chkKinou_0")->isEnabled(), index == 0);
        EXPECT_EQ(desk.find<QLabel>("lblKinouSetumei")->isEnabled(), index == 0);
        const QString frame = u"frame_yousi_%1"_s.arg(index);
        EXPECT_TRUE(desk.dialog->findChild<QWidget*>(frame)->isVisible());
        EXPECT_EQ(desk.dialog->findChild<QWidget*>(frame)->findChildren<QRadioButton*>().size(),
                  sheet.columns * sheet.rows);
    }
}

TEST(PriCheck, theFreeSheet_leavesTheFields_andOpensColumnsAndRows)
{
    Desk desk;
    desk.open();
    desk.sheet(3);
    desk.sheet(4);
    EXPECT_EQ(desk.find<QLabel>("lblYosiName")->text(), u"【 フリー 】\n自由設定"_s);
    EXPECT_EQ(desk.text("txtXYpoint_1"), "13.00");
    EXPECT_EQ(desk.text("txtOnePageNum_0"), "4");
    EXPECT_TRUE(desk.field("txtOnePageNum_0")->isEnabled());
    EXPECT_TRUE(desk.field("txtOnePageNum_1")->isEnabled());
    EXPECT_TRUE(desk.button("chkKinou_0")->isEnabled());
    EXPECT_FALSE(desk.button("chkKinou_0")->isChecked());
}

TEST(PriCheck, theWidthOfASheetOfOneColumn_isShownDisabled)
{
    Desk desk;
    desk.open();
    desk.sheet(2);
    EXPECT_EQ(desk.text("txtWHPich_0"), "00.00");
    EXPECT_FALSE(desk.field("txtWHPich_0")->isEnabled());
    EXPECT_FALSE(desk.find<QLabel>("lblWHPich_0")->isEnabled());
    EXPECT_FALSE(desk.find<QLabel>("lblWHUnit_0")->isEnabled());
    EXPECT_TRUE(desk.field("txtWHPich_1")->isEnabled());
    desk.sheet(1);
    EXPECT_TRUE(desk.field("txtWHPich_0")->isEnabled());
}

TEST(PriCheck, theCountOfPages_followsQuantityAndStart)
{
    struct Case
    {
        const char* quantity;
        int start;
        const char* pages;
    };
    for (const Case& each : {Case{"12", 1, "1-1"}, Case{"13", 1, "1-2"}, Case{"12", 2, "1-2"},
                             Case{"5", 8, "1-1"}, Case{"0", 1, "0-0"}}) {
        Desk desk(oneRowOf(each.quantity));
        desk.open();
        desk.choice("cmbStart")->setCurrentIndex(each.start - 1);
        EXPECT_EQ(desk.pages(), each.pages) << each.quantity << " from " << each.start;
    }
}

TEST(PriCheck, onlyMarkedRowsWithACode_andANumber_areCounted)
{
    Desk desk({{"A", "5"}, {"B", "50", false}, {"", "50"}, {"D", "many"}, {"E", ""}, {"F", "8"}});
    desk.open();
    EXPECT_EQ(desk.pages(), "1-2");
    EXPECT_EQ(desk.dialog->PageTotal(), 2);
}

TEST(PriCheck, withoutAQuantityColumn_theNumberForEachRowCounts)
{
    Desk desk;
    desk.source.quantityColumn = 0;
    desk.open();
    EXPECT_EQ(desk.pages(), "1-1");
    desk.type("txtPrtNum", u"5");
    EXPECT_EQ(desk.pages(), "1-2");
    desk.type("txtPrtNum", u"");
    EXPECT_EQ(desk.pages(), "1-2") << "an invalid value keeps the last count";
}

TEST(PriCheck, aRangeOfRows_countsWithoutMarks)
{
    Desk desk({{"A", "12"}, {"B", "12", false}, {"C", "12", false}});
    desk.open();
    EXPECT_FALSE(desk.field("txtLine_0")->isEnabled());
    desk.button("optPrint_1")->setChecked(true);
    EXPECT_TRUE(desk.field("txtLine_0")->isEnabled());
    EXPECT_TRUE(desk.find<QLabel>("lblLine_1")->isEnabled());
    EXPECT_EQ(desk.pages(), "1-3");
    desk.type("txtLine_0", u"2");
    EXPECT_EQ(desk.pages(), "1-2");
    for (const char16_t* bad : {u"", u"0", u"4", u"x"}) {
        desk.type("txtLine_1", bad);
        EXPECT_EQ(desk.pages(), "0-0") << QString::fromUtf16(bad).toStdString();
    }
    desk.button("optPrint_0")->setChecked(true);
    EXPECT_EQ(desk.pages(), "1-1");
}

TEST(PriCheck, aTickOfFunctionCodes_takesTheLastRow_andStartsAgainAtOne)
{
    Desk desk;
    desk.open();
    desk.button("opt0_11")->setChecked(true);
    EXPECT_EQ(desk.choice("cmbStart")->currentText(), u"12"_s);
    desk.button("chkKinou_0")->setChecked(true);
    EXPECT_EQ(desk.text("txtOnePageNum_1"), "5");
    EXPECT_EQ(desk.choice("cmbStart")->count(), 10);
    EXPECT_EQ(desk.choice("cmbStart")->currentText(), u"1"_s);
    EXPECT_FALSE(desk.button("opt0_10")->isVisible());
    EXPECT_FALSE(desk.button("opt0_11")->isVisible());
    EXPECT_TRUE(desk.button("opt0_0")->isChecked());
    EXPECT_TRUE(desk.field("txtKinouXYpoint_0")->isEnabled());
    EXPECT_FALSE(desk.field("txtKinouXYpoint_2")->isEnabled());
    desk.button("chkKinou_1")->setChecked(true);
    desk.button("chkKinou_0")->setChecked(false);
    EXPECT_EQ(desk.choice("cmbStart")->count(), 10);
    desk.button("chkKinou_1")->setChecked(false);
    EXPECT_EQ(desk.choice("cmbStart")->count(), 12);
    EXPECT_TRUE(desk.button("opt0_10")->isVisible());
}

TEST(PriCheck, anotherSheet_unticksTheFunctionCodes_andShowsAllButtonsAgain)
{
    Desk desk;
    desk.open();
    desk.button("chkKinou_0")->setChecked(true);
    desk.sheet(1);
    EXPECT_FALSE(desk.button("chkKinou_0")->isChecked());
    EXPECT_FALSE(desk.field("txtKinouXYpoint_0")->isEnabled());
    EXPECT_EQ(desk.choice("cmbStart")->count(), 24);
    desk.sheet(0);
    EXPECT_TRUE(desk.button("opt0_11")->isVisible());
    EXPECT_EQ(desk.choice("cmbStart")->count(), 12);
}

TEST(PriCheck, oneColumnAndOneRow_leaveNoChoiceOfTheFirstLabel)
{
    Desk desk;
    desk.open();
    desk.sheet(4);
    desk.button("chkKinou_0")->setChecked(true);
    desk.type("txtOnePageNum_0", u"1");
    desk.type("txtOnePageNum_1", u"1");
    EXPECT_FALSE(desk.choice("cmbStart")->isEnabled());
    EXPECT_FALSE(desk.find<QLabel>("lblStart")->isEnabled());
    EXPECT_FALSE(desk.button("chkKinou_0")->isEnabled());
    EXPECT_FALSE(desk.field("txtKinouXYpoint_0")->isEnabled());
    EXPECT_EQ(desk.pages(), "1-3");
    desk.type("txtOnePageNum_1", u"2");
    EXPECT_TRUE(desk.choice("cmbStart")->isEnabled());
    EXPECT_TRUE(desk.button("chkKinou_0")->isEnabled());
    EXPECT_TRUE(desk.field("txtKinouXYpoint_0")->isEnabled());
}

TEST(PriCheck, columnsThatAreNotANumber_changeNothing)
{
    Desk desk;
    desk.open();
    desk.sheet(4);
    for (const char16_t* bad : {u"", u"0", u"x"}) {
        desk.type("txtOnePageNum_0", bad);
        EXPECT_EQ(desk.choice("cmbStart")->count(), 12);
        EXPECT_EQ(desk.pages(), "1-1");
    }
}

TEST(PriCheck, buttonsOfThePicture_andTheListOfStarts_followEachOther)
{
    Desk desk;
    desk.open();
    for (int sheet = 0; sheet < fixedSheets; ++sheet) {
        desk.sheet(sheet);
        const int last = desk.choice("cmbStart")->count() - 1;
        const QString name = u"opt%1_%2"_s.arg(sheet);
        desk.dialog->findChild<QRadioButton*>(u"opt%1_%2"_s.arg(sheet).arg(last))->click();
        EXPECT_EQ(desk.choice("cmbStart")->currentIndex(), last);
        desk.choice("cmbStart")->setCurrentIndex(2);
        EXPECT_TRUE(desk.dialog->findChild<QRadioButton*>(u"opt%1_2"_s.arg(sheet))->isChecked());
    }
    desk.sheet(4);
    desk.choice("cmbStart")->setCurrentIndex(4);
    EXPECT_EQ(desk.choice("cmbStart")->currentIndex(), 4);
}

TEST(PriCheck, ticksOfNameAndCode_openTheirFields)
{
    Desk desk;
    desk.open();
    for (const auto& [box, x, y] : {std::tuple{"chkName", "txtNameXYpoint_0", "txtNameXYpoint_1"},
                                    std::tuple{"chkCode", "txtCodeXYpoint_0", "txtCodeXYpoint_1"}}) {
        desk.button(box)->setChecked(false);
        EXPECT_FALSE(desk.field(x)->isEnabled());
        EXPECT_FALSE(desk.field(y)->isEnabled());
        desk.button(box)->setChecked(true);
        EXPECT_TRUE(desk.field(x)->isEnabled());
    }
}

TEST(PriCheck, whereTheNumberIsGiven_itIsNotAskedFor)
{
    Desk desk;
    desk.source.asksForNumber = false;
    desk.open();
    EXPECT_FALSE(desk.field("txtPrtNum")->isVisible());
    EXPECT_EQ(desk.find<QLabel>("lblPrtNum_1")->text(), u"数量分 "_s);
    desk.source.quantityColumn = 0;
    desk.open();
    EXPECT_EQ(desk.find<QLabel>("lblPrtNum_1")->text(), u"１ 枚 　"_s);
    EXPECT_EQ(desk.pages(), "1-1");
}

TEST(PriCheck, eachRoundButton_isOverTheBarsOfItsLabel_andLetsThemBeSeen)
{
    Desk desk(std::vector<Desk::Row>{{"4901001000017", "44"}});
    frm_PriCheck& dialog = desk.open();
    for (int sheet = 0; sheet < 4; ++sheet) {
        SCOPED_TRACE(sheet);
        desk.sheet(sheet);
        for (const QSize& size : {QSize(1260, 750), QSize(1000, 720)}) {
            dialog.resize(size);
            QCoreApplication::processEvents();
            const LabelSheet& each = labelSheets.at(static_cast<std::size_t>(sheet));
            const auto button = [&](int position) { return positionButton(desk, sheet, position); };
            const auto& picture = *static_cast<SheetPicture*>(button(0)->parentWidget());
            const double pixels = picture.pageSize().width() / paperWidth.value();
            const QPoint corner = picture.rect().center()
                                  - QPoint(picture.pageSize().width() / 2, picture.pageSize().height() / 2);
            const auto millimetres = [](const char16_t* text) { return QString::fromUtf16(text).toDouble(); };
            const double width = each.columns > 1 ? millimetres(each.width) : paperWidth.value() / 2;
            for (int column = 0; column < each.columns; ++column) {
                const QRect place = button(column)->geometry();
                const double bars = corner.x() + (millimetres(each.startX) + column * width) * pixels;
                EXPECT_GT(place.left(), bars - 4) << column;
                EXPECT_LT(place.right(), bars + width / 2 * pixels) << column << ": nearer to the next label";
                const double middle =
                    corner.y() + (millimetres(each.startY) + millimetres(each.barHeight) / 2) * pixels;
                EXPECT_NEAR(place.center().y(), middle, 3);
            }
        }
        // An outline: the paper is seen inside the ring.
        QAbstractButton* other = positionButton(desk, sheet, 1);
        const QImage ring = other->grab().toImage();
        const QColor middle = ring.pixelColor(ring.rect().center());
        EXPECT_NE(middle, QColor(0, 90, 200));
        other->setChecked(true);
        EXPECT_EQ(other->grab().toImage().pixelColor(ring.rect().center()), QColor(0, 90, 200));
    }
}

} // namespace suisui::test

// What is typed or pasted into the cells: only numbers, dates and times reach the table.
#include <QApplication>
#include <QClipboard>
#include <QRegularExpression>
#include <QTest>

#include "tests/movement/edit/EditTest.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

TEST_P(EditTest, whatIsNotANumberDateOrTime_neverReachesTheTable)
{
    const QString evil[] = {u"abc"_s,       u" "_s,     u"-"_s,          u"--1"_s,
                            u"+5"_s,        u"1.5"_s,   u"1e9"_s,        u"12345678901234567890"_s,
                            u"-99999999"_s, u"１２"_s,  u"2026/02/30"_s, u"99999999"_s,
                            u"25:00:00"_s,  u"12:60"_s, u"'; --"_s,      u"x\ty\r\nz"_s,
                            u""_s,          u"0x10"_s};
    bookThree();
    page->show();
    page->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(page));
    vaSpread& grid = *page->grid();
    int typed = 0;
    for (int column = 1; column <= grid.MaxCols(); ++column) {
        for (const QString& text : evil) {
            for (const bool pasted : {false, true}) {
                grid.SetActiveCell(column, 2);
                grid.setFocus();
                QTest::keyClick(&grid, Qt::Key_F2);
                QWidget* editor = QApplication::focusWidget();
                if (!grid.isEditing())
                    continue;
                ++typed;
                QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
                if (pasted) {
                    QGuiApplication::clipboard()->setText(text);
                    QTest::keyClick(editor, Qt::Key_V, Qt::ControlModifier);
                } else if (text.isEmpty()) {
                    QTest::keyClick(editor, Qt::Key_Delete);
                } else {
                    for (const QChar letter : text) {
                        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
                        QCoreApplication::sendEvent(editor, &key);
                    }
                }
                QTest::keyClick(editor, Qt::Key_Return);
                EXPECT_FALSE(grid.isEditing());
            }
        }
    }
    EXPECT_GT(typed, 300); // nine columns or more can be edited
    const QString shownName = grid.qtext(cells.name, 2);
    const std::string shownQuantity(grid.text(cells.quantity, 2));
    update();
    EXPECT_EQ(desk.box.shown.back().title, u"更新の完了"_s);
    const bool receipt = GetParam().side == Side::Receipt;
    const auto stored = desk.shop.query(
        receipt ? "SELECT NyuPrice,NyuSuu,NyuNebiki,Henkyaku,Henkyaku,NyuDate,NyuTime,Name FROM "
                  "InpTB ORDER BY InpDate"
                : "SELECT SyuPrice,SyuSuu,SyuNebiki,RHenkyaku,FHenkyaku,SyuDate,SyuTime,Name "
                  "FROM OutTB ORDER BY InpDate");
    const QStringList texts = QString::fromStdString(stored[1]).split(u'|');
    static const QRegularExpression number(u"^-?[0-9]{7,9}$"_s);
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(number.match(texts[i]).hasMatch()) << texts[i].toStdString();
    EXPECT_EQ(texts[1].toInt(), std::stoi(shownQuantity)) << "what is seen is what is stored";
    EXPECT_TRUE(QDate::fromString(texts[5], u"yyyyMMdd"_s).isValid()) << texts[5].toStdString();
    EXPECT_TRUE(QTime::fromString(texts[6], u"HHmmss"_s).isValid()) << texts[6].toStdString();
    EXPECT_EQ(texts[7], shownName);
    EXPECT_EQ(stored[0].substr(0, 15), "0000100|0000005") << "the other rows are unchanged";
}

TEST_P(EditTest, emptiedNumbersBecomeZero_andEmptiedWordsStayEmpty)
{
    bookThree();
    EntryDesk::edit(*page, cells.quantity, 1, "");
    EntryDesk::edit(*page, cells.name, 1, "");
    EXPECT_EQ(page->grid()->text(cells.quantity, 1), "0");
    EXPECT_EQ(page->grid()->text(cells.total, 1), "0");
    update();
    EXPECT_EQ(quantities().back(), "0000000");
    EXPECT_EQ(desk.stockOf("A"), stockAfter(10));
}

} // namespace suisui::test

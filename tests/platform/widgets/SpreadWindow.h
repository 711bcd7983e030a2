// A window with a field and a grid of every kind of column, for the tests of the grid.
#pragma once

#include <string_view>

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include "platform/widgets/vaSpread.h"

namespace suisui::test {

inline constexpr SpreadColumn columns[] = {
    {.heading = "コード", .type = CellType::Locked},
    {.heading = "名称", .type = CellType::Text},
    {.heading = "数量", .type = CellType::Number, .digits = 7},
    {.heading = "日付", .type = CellType::Date},
    {.heading = "時間", .type = CellType::Time},
    {.heading = "印刷", .type = CellType::CheckBox},
    {.heading = "合計", .type = CellType::Figure},
    {.heading = "", .type = CellType::Number, .hidden = true},
};

/// Columns of that grid, from 1.
struct Cell
{
    static constexpr int code = 1;
    static constexpr int name = 2;
    static constexpr int quantity = 3;
    static constexpr int date = 4;
    static constexpr int time = 5;
    static constexpr int mark = 6;
    static constexpr int total = 7;
    static constexpr int posted = 8; ///< hidden
};

class SpreadWindow : public ::testing::Test
{
protected:
    SpreadWindow()
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&field);
        layout->addWidget(&grid);
        grid.setColumns(columns);
        window.resize(900, 400);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void addRow(std::string_view code, std::string_view quantity)
    {
        grid.InsertRows(1);
        const std::string_view texts[] = {code,       "名", quantity, "2026/04/01",
                                          "09:00:00", "1",  "1,200",  "0000005"};
        grid.setRowTexts(1, texts);
    }
    /// Goes to a cell and types its first character, which opens the editor.
    void startTyping(int col, int row, char first)
    {
        grid.SetActiveCell(col, row);
        grid.setFocus();
        QTest::keyClick(&grid, first);
    }
    /// Opens the editor of a cell, types, and ends it with Enter.
    void typeInto(int col, int row, const QString& keys)
    {
        grid.SetActiveCell(col, row);
        grid.setFocus();
        for (const QChar key : keys)
            QTest::keyClick(QApplication::focusWidget(), key.toLatin1());
        pressKey(Qt::Key_Return);
    }

    /// A key for whoever has the focus: the open editor, or the grid.
    static void pressKey(Qt::Key which, Qt::KeyboardModifiers with = {})
    {
        QTest::keyClick(QApplication::focusWidget(), which, with);
    }

    QWidget window;
    QLineEdit field;
    vaSpread grid;
};

} // namespace suisui::test

// A dialog of the history on the screen, with a scripted operator and reader.
#pragma once

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>

#include "frame/support/DialogScan.h"
#include "tests/support/ExpectBox.h"
#include "tests/support/HistoryDesk.h"

namespace suisui::test {

/// What the reader sends while the dialog waits.
struct Scans
{
    std::deque<QString> lines;
    QString operator()()
    {
        if (lines.empty())
            return {};
        const QString line = lines.front();
        lines.pop_front();
        return line;
    }
};

template <typename Widget> Widget& control(const QDialog& dialog, QStringView name)
{
    auto* found = dialog.findChild<Widget*>(name.toString());
    if (found == nullptr)
        throw std::runtime_error("no control " + name.toString().toStdString());
    return *found;
}

inline void press(const QDialog& dialog, const QString& button)
{
    control<QPushButton>(dialog, button).click();
}

struct DialogDesk : HistoryDesk
{
    Scans scans;
    DialogScan::ReadLine readLine = [this] { return scans(); };

    void show(QDialog& dialog)
    {
        dialog.show();
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    }
    /// The one box that was shown; forgotten afterwards.
    Box said()
    {
        EXPECT_EQ(box.shown.size(), 1U);
        Box last = box.shown.empty() ? Box() : box.shown.back();
        box.shown.clear();
        return last;
    }
    void listPeriod(const std::string& from, const std::string& to)
    {
        shop->add(rirekiTable, {from, to, "hst", "98304", "20260301000000"});
    }
};

} // namespace suisui::test

// The pointer over the label dialog: an hourglass while it prints, the usual one while a question is open.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QTimer>

#include "frame/support/ShowModal.h"
#include "tests/barcode/label/LabelDesk.h"

namespace suisui::test {

namespace {

bool hourglass()
{
    const QCursor* pointer = QGuiApplication::overrideCursor();
    return pointer != nullptr && pointer->shape() == Qt::WaitCursor;
}

} // namespace

TEST(PriCheckPointer, isTheUsualOneForTheChoice_andAnHourglassWhileItPrints)
{
    LabelDialogDesk desk;
    bool whileChosen = true;
    bool whilePrinting = false;
    desk.paper.onChoose = [&] { whileChosen = hourglass(); };
    desk.paper.onStart = [&] { whilePrinting = hourglass(); };
    desk.open();
    desk.dialog->CmdOK_Click();
    ASSERT_TRUE(desk.dialog->printed());
    EXPECT_FALSE(whileChosen);
    EXPECT_TRUE(whilePrinting);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(PriCheckPointer, overADialogOfABusyWindow_isTheUsualOne_untilItCloses)
{
    QDialog dialog;
    bool whileAsked = true;
    QTimer::singleShot(0, &dialog, [&] {
        whileAsked = hourglass();
        dialog.accept();
    });
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    showModal(dialog);
    EXPECT_FALSE(whileAsked);
    EXPECT_TRUE(hourglass());
    QGuiApplication::restoreOverrideCursor();
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

} // namespace suisui::test

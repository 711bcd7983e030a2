// The file dialog of a shop that has never saved a history.
#include "history/frm_DirFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QLabel>

#include "store/AppEnv.h"
#include "tests/history/DialogDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

TEST(FirstFolder, withoutAFolderOfLastTime_theDialogOpensAtTheFolderList)
{
    DialogDesk desk;
    ASSERT_EQ(desk.ini.LastHistoryFolder(), QString());
    const AppEnv env(desk.shop->base());
    PlaceQuestion question;
    question.saveMode = true;
    question.fileName = u"RRK20260401-20260430.hst"_s;
    frm_DirFile dialog(question, desk.ini, env, desk.box, desk.readLine, nullptr);
    desk.show(dialog);
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_EQ(control<QLabel>(dialog, u"lblFolder"_s).text(), QDir::currentPath());
}

} // namespace suisui::test

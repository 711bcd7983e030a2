// The file to load on a desktop where one click opens things elsewhere: here it still only chooses.
#include "history/frm_DirFile.h"

#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QProxyStyle>
#include <QStyleFactory>

#include "store/AppEnv.h"
#include "tests/history/DialogDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

/// The style of the program, on such a desktop.
class OneClickStyle final : public QProxyStyle
{
public:
    OneClickStyle() : QProxyStyle(QStyleFactory::create(u"Fusion"_s)) {}
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        return hint == SH_ItemView_ActivateItemOnSingleClick
                   ? 1
                   : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

} // namespace

TEST(FileDialogOnADesktopOfSingleClicks, choosesByAClick_andDecidesByTwo)
{
    QApplication::setStyle(new OneClickStyle); // the application takes it
    DialogDesk desk;
    ASSERT_TRUE(QFile(desk.folder() + u"/RRK20260101-20260131.hst"_s).open(QIODevice::WriteOnly));
    desk.ini.setLastHistoryFolder(desk.folder());
    const AppEnv env(desk.shop->base());
    PlaceQuestion question;
    question.pattern = historyFilePattern(u"hst"_s);
    frm_DirFile dialog(question, desk.ini, env, desk.box, desk.readLine, nullptr);
    desk.show(dialog);
    auto& files = control<QListWidget>(dialog, u"FileList"_s);
    const QPoint place = files.visualItemRect(files.item(0)).center();
    QTest::mouseClick(files.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(control<QLineEdit>(dialog, u"txtFileName"_s).text(), u"RRK20260101-20260131"_s);
    EXPECT_TRUE(desk.box.shown.empty());
    desk.box.answers = {BoxAnswer::Yes};
    QTest::mouseDClick(files.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(desk.box.shown.size(), 1U);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.FileName(), u"RRK20260101-20260131"_s);
}

} // namespace suisui::test

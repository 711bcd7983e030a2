// The folder to save to, or the file to load.
#include "history/frm_DirFile.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTreeView>

#include "store/AppEnv.h"
#include "tests/history/DialogDesk.h"
#include "tests/support/Eventually.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

enum Purpose { ToLoad, ToSave };

struct FileDesk : DialogDesk
{
    FileDesk()
    {
        for (const char* name : {"RRK20260101-20260131.hst", "RRK20260201-20260228.HST",
                                 "RRK20260301-20260331.old", "other.hst"})
            QFile(folder() + u'/' + QString::fromUtf8(name)).open(QIODevice::WriteOnly);
        QDir(shop->base()).mkpath(u"empty"_s);
        ini.setLastHistoryFolder(folder());
    }
    void open(Purpose purpose)
    {
        PlaceQuestion question;
        question.saveMode = purpose == ToSave;
        question.caption = u"場所"_s;
        question.pattern = historyFilePattern(u"hst"_s);
        question.fileName = question.saveMode ? u"RRK20260401-20260430.hst"_s : QString();
        dialog = std::make_unique<frm_DirFile>(question, ini, env, box, readLine, nullptr);
        show(*dialog);
    }
    QListWidget& files() const { return control<QListWidget>(*dialog, u"FileList"_s); }
    QLineEdit& name() const { return control<QLineEdit>(*dialog, u"txtFileName"_s); }
    void expectNothingTaken() const
    {
        EXPECT_TRUE(dialog->Folder().isEmpty());
        EXPECT_TRUE(dialog->FullPath().isEmpty());
        EXPECT_TRUE(dialog->FileName().isEmpty());
    }

    AppEnv env{shop->base()};
    std::unique_ptr<frm_DirFile> dialog;
};

/// The user's home folder, without settings of the desktop, for as long as this object lives.
class HomeFolder
{
public:
    explicit HomeFolder(const QString& folder)
    {
        qputenv("HOME", folder.toLocal8Bit());
        qunsetenv("XDG_CONFIG_HOME");
    }
    ~HomeFolder()
    {
        qputenv("HOME", m_home);
        if (!m_settings.isNull())
            qputenv("XDG_CONFIG_HOME", m_settings);
    }
    HomeFolder(const HomeFolder&) = delete;
    HomeFolder& operator=(const HomeFolder&) = delete;

private:
    QByteArray m_home = qgetenv("HOME");
    QByteArray m_settings = qgetenv("XDG_CONFIG_HOME");
};

const QString confirmation = u"「決定」 します。　よろしいですか？　　　　"_s;

} // namespace

TEST(FileDialog, offersTheFilesOfTheExtensionAlone_inTheFolderOfLastTime)
{
    FileDesk desk;
    desk.open(ToLoad);
    EXPECT_EQ(control<QLabel>(*desk.dialog, u"lblCaption"_s).text(), u"場所"_s);
    EXPECT_EQ(control<QLabel>(*desk.dialog, u"lblFolder"_s).text(), desk.folder());
    ASSERT_EQ(desk.files().count(), 2);
    EXPECT_EQ(desk.files().item(0)->text(), u"RRK20260101-20260131.hst"_s);
    EXPECT_EQ(desk.files().item(1)->text(), u"RRK20260201-20260228.HST"_s);
    EXPECT_FALSE(desk.files().item(0)->icon().isNull());
    EXPECT_TRUE(desk.files().isEnabled());
    EXPECT_FALSE(desk.name().isEnabled());
    EXPECT_EQ(control<QFrame>(*desk.dialog, u"fraBand"_s).palette().color(QPalette::Window),
              QColor(0, 255, 0));
}

TEST(FileDialog, toSave_offersTheFolderAlone)
{
    FileDesk desk;
    desk.open(ToSave);
    EXPECT_EQ(desk.name().text(), u"RRK20260401-20260430.hst"_s);
    EXPECT_FALSE(desk.name().isEnabled());
    EXPECT_FALSE(desk.files().isEnabled());
    EXPECT_EQ(control<QFrame>(*desk.dialog, u"fraBand"_s).palette().color(QPalette::Window),
              QColor(255, 0, 255));
    // A double click on a file does nothing.
    const QPoint place = desk.files().visualItemRect(desk.files().item(0)).center();
    QTest::mouseDClick(desk.files().viewport(), Qt::LeftButton, {}, place);
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_TRUE(desk.dialog->isVisible());
    EXPECT_EQ(desk.name().text(), u"RRK20260401-20260430.hst"_s);

    desk.box.answers = {BoxAnswer::Yes};
    press(*desk.dialog, u"CmdOK"_s);
    expectBox(desk.said(), {u"決定の確認"_s, confirmation, BoxIcon::Question, BoxButtons::YesNo});
    EXPECT_EQ(desk.dialog->Folder(), desk.folder());
    EXPECT_EQ(desk.dialog->FileName(), u"RRK20260401-20260430.hst"_s);
    EXPECT_EQ(desk.dialog->FullPath(), desk.folder() + u"/RRK20260401-20260430.hst"_s);
}

TEST(FileDialog, clickOnAFile_choosesIt_andDoubleClickDecides)
{
    FileDesk desk;
    desk.open(ToLoad);
    const QPoint place = desk.files().visualItemRect(desk.files().item(1)).center();
    QTest::mouseClick(desk.files().viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(desk.name().text(), u"RRK20260201-20260228"_s);
    desk.box.answers = {BoxAnswer::Yes};
    QTest::mouseDClick(desk.files().viewport(), Qt::LeftButton, {}, place);
    EXPECT_FALSE(desk.dialog->isVisible());
    EXPECT_EQ(desk.dialog->FullPath(), desk.folder() + u"/RRK20260201-20260228.HST"_s);
    EXPECT_EQ(desk.dialog->FileName(), u"RRK20260201-20260228"_s);
}

TEST(FileDialog, canBeUsedByKeys)
{
    FileDesk desk;
    desk.open(ToLoad);
    ASSERT_TRUE(desk.files().hasFocus());
    QTest::keyClick(&desk.files(), Qt::Key_Down);
    EXPECT_EQ(desk.name().text(), u"RRK20260101-20260131"_s);
    QTest::keyClick(&desk.files(), Qt::Key_Down);
    EXPECT_EQ(desk.name().text(), u"RRK20260201-20260228"_s);
    QTest::keyClick(&desk.files(), Qt::Key_Up);
    EXPECT_EQ(desk.name().text(), u"RRK20260101-20260131"_s);
    desk.box.answers = {BoxAnswer::Yes};
    QTest::keyClick(&desk.files(), Qt::Key_Return);
    EXPECT_EQ(desk.dialog->FileName(), u"RRK20260101-20260131"_s);
}

TEST(FileDialog, theFramedFileIsTheChosenOne_andAtFirstNoneIs)
{
    FileDesk desk;
    desk.open(ToLoad);
    ASSERT_TRUE(desk.files().hasFocus());
    const auto expectFramedIsChosen = [&desk] {
        const QListWidgetItem* framed = desk.files().currentItem();
        EXPECT_EQ(desk.files().selectedItems().value(0), framed);
        EXPECT_EQ(desk.name().text(),
                  framed != nullptr ? QFileInfo(framed->text()).completeBaseName() : u""_s);
    };
    EXPECT_EQ(desk.files().currentItem(), nullptr);
    expectFramedIsChosen();
    desk.files().clearFocus(); // away and back
    desk.files().setFocus();
    EXPECT_EQ(desk.files().currentItem(), nullptr);
    const std::pair<Qt::Key, Qt::KeyboardModifiers> keys[] = {{Qt::Key_Down, Qt::ControlModifier},
                                                              {Qt::Key_End, Qt::NoModifier},
                                                              {Qt::Key_Home, Qt::NoModifier},
                                                              {Qt::Key_Down, Qt::NoModifier},
                                                              {Qt::Key_Home, Qt::ControlModifier}};
    for (const auto& [key, modifiers] : keys) {
        QTest::keyClick(&desk.files(), key, modifiers);
        ASSERT_NE(desk.files().currentItem(), nullptr) << key;
        expectFramedIsChosen();
    }
}

TEST(FileDialog, homeChoosesTheFirstFile)
{
    FileDesk desk;
    desk.open(ToLoad);
    QTest::keyClick(&desk.files(), Qt::Key_Home);
    EXPECT_EQ(desk.name().text(), u"RRK20260101-20260131"_s);
    desk.box.answers = {BoxAnswer::Yes};
    press(*desk.dialog, u"CmdOK"_s);
    EXPECT_EQ(desk.dialog->FullPath(), desk.folder() + u"/RRK20260101-20260131.hst"_s);
}

TEST(FileDialog, enterInTheList_isTheButton_alsoWhenNothingIsChosen)
{
    FileDesk desk;
    desk.open(ToLoad);
    QTest::keyClick(&desk.files(), Qt::Key_Return);
    EXPECT_EQ(desk.said().title, u"ファイル名 未指定エラー"_s);
    EXPECT_TRUE(desk.dialog->isVisible());
    desk.expectNothingTaken();
    QTest::keyClick(&desk.files(), Qt::Key_Down);
    desk.box.answers = {BoxAnswer::Yes};
    QTest::keyClick(&desk.files(), Qt::Key_Return);
    EXPECT_EQ(desk.dialog->FileName(), u"RRK20260101-20260131"_s);
    EXPECT_FALSE(desk.dialog->isVisible());
}

TEST(FileDialog, withoutAFile_isReported)
{
    FileDesk desk;
    desk.open(ToLoad);
    press(*desk.dialog, u"CmdOK"_s);
    expectBox(
        desk.said(),
        {u"ファイル名 未指定エラー"_s,
         u"「ファイル名」 が指定されていません。\r\n\r\nファイル名を指定した後に、再度、決定して下さい。　　　"_s});
    EXPECT_TRUE(desk.dialog->isVisible());
    desk.scans.lines = {u"[T]"_s};
    EXPECT_TRUE(eventually([&] { return !desk.dialog->isVisible(); }));
    desk.expectNothingTaken();
}

TEST(FileDialog, nameWithAForbiddenCharacter_isReported)
{
    FileDesk desk;
    QFile(desk.folder() + u"/RRK20260501-20260531;.hst"_s).open(QIODevice::WriteOnly);
    desk.open(ToLoad);
    desk.files().setCurrentRow(2);
    press(*desk.dialog, u"CmdOK"_s);
    expectBox(
        desk.said(),
        {u"ファイル名 使用文字エラー"_s,
         u"「ファイル名」 には次の半角文字は使えません。\r\n\r\n　　　　　　 \\ / : , ; * ? \" < > |\r\n\r\nファイル名を修正した後に、再度、決定して下さい。　　　"_s});
    EXPECT_TRUE(desk.dialog->isVisible());
}

TEST(FileDialog, nameThatIsThereAlready_isRefusedBeforeAnythingIsDone)
{
    FileDesk desk;
    QFile(desk.folder() + u"/RRK20260401-20260430.hst"_s).open(QIODevice::WriteOnly);
    desk.open(ToSave);
    press(*desk.dialog, u"CmdOK"_s);
    expectBox(
        desk.said(),
        {u"ファイル 既存エラー"_s,
         u"同じファイル名のファイルが既に存在します。　　　\r\n\r\n　保存先の 「フォルダ （ディレクトリ）」 を変更した後に　　　\r\n　再度、決定して下さい。"_s});
    EXPECT_TRUE(desk.dialog->isVisible());
    // Another folder will do.
    ASSERT_TRUE(desk.dialog->goTo(desk.shop->base() + u"/empty"_s));
    desk.box.answers = {BoxAnswer::Yes};
    press(*desk.dialog, u"CmdOK"_s);
    EXPECT_EQ(desk.dialog->Folder(), desk.shop->base() + u"/empty"_s);
}

TEST(FileDialog, noAtTheConfirmation_goesOn)
{
    FileDesk desk;
    desk.open(ToSave);
    press(*desk.dialog, u"CmdOK"_s);
    EXPECT_EQ(desk.said().title, u"決定の確認"_s);
    EXPECT_TRUE(desk.dialog->isVisible());
    desk.expectNothingTaken();
    desk.box.answers = {BoxAnswer::Yes};
    desk.scans.lines = {u"[P]"_s};
    EXPECT_TRUE(eventually([&] { return !desk.dialog->isVisible(); }));
    EXPECT_EQ(desk.dialog->Folder(), desk.folder());
}

TEST(FileDialog, emptyFolder_forgetsTheFileChosenBefore)
{
    FileDesk desk;
    desk.open(ToLoad);
    desk.files().setCurrentRow(0);
    ASSERT_TRUE(desk.dialog->goTo(desk.shop->base() + u"/empty"_s));
    EXPECT_EQ(desk.files().count(), 0);
    EXPECT_TRUE(desk.name().text().isEmpty());
    press(*desk.dialog, u"CmdOK"_s);
    EXPECT_EQ(desk.said().title, u"ファイル名 未指定エラー"_s);
}

TEST(FileDialog, folderOfLastTimeThatIsGone_isPassedOver)
{
    FileDesk desk;
    desk.ini.setLastHistoryFolder(desk.shop->base() + u"/gone"_s);
    desk.open(ToSave);
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_EQ(control<QLabel>(*desk.dialog, u"lblFolder"_s).text(), QDir::currentPath());
}

TEST(FileDialog, folderThatCannotBeReached_isReported_andTheOneBeforeStays)
{
    FileDesk desk;
    desk.open(ToLoad);
    auto& tree = control<QTreeView>(*desk.dialog, u"DirList"_s);
    const QModelIndex above = tree.currentIndex().parent();
    const auto folderNamed = [&](const QString& name) {
        for (int row = 0; row < tree.model()->rowCount(above); ++row)
            if (const QModelIndex index = tree.model()->index(row, 0, above); index.data().toString() == name)
                return index;
        return QModelIndex();
    };
    ASSERT_TRUE(eventually([&] { return folderNamed(u"empty"_s).isValid(); })); // folders come in bit by bit
    const QModelIndex gone = folderNamed(u"empty"_s);
    const QString path = desk.shop->base() + u"/empty"_s;
    ASSERT_TRUE(QDir(path).removeRecursively());
    tree.setCurrentIndex(gone);
    const Box box = desk.said();
    EXPECT_TRUE(box.text.startsWith(path));
    EXPECT_EQ(control<QLabel>(*desk.dialog, u"lblFolder"_s).text(), desk.folder());
    EXPECT_TRUE(eventually([&] { return tree.currentIndex().data().toString() == u"old"_s; }));
}

TEST(FileDialog, folderThatIsGoneAtTheDecision_isReported)
{
    FileDesk desk;
    desk.open(ToSave);
    ASSERT_TRUE(QDir(desk.folder()).removeRecursively());
    press(*desk.dialog, u"CmdOK"_s);
    EXPECT_EQ(desk.said().title, u"フォルダの準備エラー"_s);
    EXPECT_TRUE(desk.dialog->isVisible());
    desk.expectNothingTaken();
}

TEST(FileDialog, folderThatGoesUnderTheConfirmation_isReported_notReplaced)
{
    for (const Purpose purpose : {ToSave, ToLoad}) {
        FileDesk desk;
        desk.open(purpose);
        const QString chosen = desk.folder();
        if (purpose == ToLoad)
            desk.files().setCurrentRow(0);
        auto& shown = control<QLabel>(*desk.dialog, u"lblFolder"_s);
        desk.box.onShow = [&](const Box& box) {
            if (box.title != u"決定の確認"_s)
                return;
            ASSERT_TRUE(QDir(chosen).removeRecursively());
            ASSERT_TRUE(eventually([&] { return shown.text() != chosen; })) << "the tree leaves it";
        };
        desk.box.answers = {BoxAnswer::Yes};
        press(*desk.dialog, u"CmdOK"_s);
        ASSERT_EQ(desk.box.shown.size(), 2U);
        expectBox(
            desk.box.shown[1],
            {u"フォルダの準備エラー"_s,
             chosen
                 + u"\r\n\r\nフォルダの準備ができていません。\r\n\r\n準備した後に、再度、選択して下さい。　　"_s});
        EXPECT_TRUE(desk.dialog->isVisible());
        desk.expectNothingTaken();
    }
}

TEST(FileDialog, showsTheUsersFolders_whereTheyAre)
{
    FileDesk desk;
    const QString folder = desk.shop->base() + u"/Desktop"_s;
    ASSERT_TRUE(QDir().mkpath(folder));
    const HomeFolder home(desk.shop->base());
    desk.open(ToSave);
    EXPECT_FALSE(control<QPushButton>(*desk.dialog, u"cmdMyDoc"_s).isVisible()) << "there is none";
    auto& place = control<QPushButton>(*desk.dialog, u"cmdDeskTop"_s);
    ASSERT_TRUE(place.isVisible());
    place.click();
    EXPECT_EQ(control<QLabel>(*desk.dialog, u"lblFolder"_s).text(), folder);
}

TEST(FileDialog, cancel_handsBackNothing)
{
    FileDesk desk;
    desk.open(ToLoad);
    desk.files().setCurrentRow(0);
    press(*desk.dialog, u"CmdEnd"_s);
    EXPECT_FALSE(desk.dialog->isVisible());
    desk.expectNothingTaken();
}

TEST(FileDialog, ofBackups_startsInTheirOwnFolder)
{
    FileDesk desk;
    QFile settings(desk.shop->base() + u"/Ini/AppIni.ini"_s);
    ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write((u"[Folder]\nLastBackup="_s + desk.shop->base() + u"/empty\n"_s).toUtf8());
    settings.close();
    desk.ini.setIniFolder(desk.shop->base() + u"/Ini"_s);
    PlaceQuestion question;
    question.kind = u"バックアップ"_s;
    const frm_DirFile dialog(question, desk.ini, desk.env, desk.box, desk.readLine, nullptr);
    EXPECT_EQ(control<QLabel>(dialog, u"lblFolder"_s).text(), desk.shop->base() + u"/empty"_s);
}

} // namespace suisui::test

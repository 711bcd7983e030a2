// The whole run of the program in one process: what it shows on its way up, what it leaves behind, and that
// the master-data program is started when it has let go of the database. The boxes are the real ones.
#include "frame/shell/Main.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include "frame/support/WaitWindow.h"
#include "store/BackupNote.h"
#include "tests/support/AsAnotherUser.h"
#include "tests/support/Eventually.h"
#include "tests/support/TempShop.h"
#include "tests/support/TestClock.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

const QString noPort = u"通信ポート(COM) 未設定"_s; ///< a shop without settings has no reader
const QString endDialog = u" システムを終了します"_s;

class WholeRun : public ::testing::Test
{
protected:
    WholeRun()
    {
        QObject::connect(&look, &QTimer::timeout, &look, [this] { lookAtTheScreen(); });
        look.start(5);
        QDir(shop.base()).mkpath(u"exe"_s);
        QFile master(shop.base() + u"/exe/Master.exe"_s);
        EXPECT_TRUE(master.open(QIODevice::WriteOnly));
        master.write("#!/bin/sh\necho \"$(pwd)\" > started.new; mv started.new started\n");
        master.setPermissions(master.permissions() | QFileDevice::ExeOwner);
    }

    void fillShop()
    {
        shop.add(kokyakuTable, {"101", "東商店", "", "", "", "", "", "", "", "", "", "", "", "1", ""});
        fillShopWithoutReceiptPartner();
    }
    void fillShopWithoutReceiptPartner()
    {
        shop.add(kokyakuTable, {"201", "南商店", "", "", "", "", "", "", "", "", "", "", "", "", "1"});
        shop.add(tantouTable, {"01", "山田"});
        shop.add(masterTable, {"4901001000017", "鉛筆", "", "12", "50", "1", "80", "本", "0"});
    }
    /// \a count movements of one day, long ago unless it is given.
    void fill(const char* table, const char* day, int count, const std::string& date = "20200101")
    {
        AppDB db(shop.databaseFolder());
        ASSERT_EQ(db.Open("trnvik.mdb"), DbStatus::Good);
        db.Execute(std::string("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ")
                   + std::to_string(count) + ") INSERT INTO " + table + " (Code, " + day
                   + ", InpDate, UpdDate) SELECT '4901001000017', '" + date
                   + "', 20200101000000 + i, "
                     "20200101000000 + i FROM n");
        ASSERT_EQ(db.LastStatus(), DbStatus::Good) << db.LastErrText();
        db.Commit();
    }

    /// Answers every box and the question of the end with its first button; the window, once it is up and all
    /// boxes are gone, is what \a work says.
    int run(const std::function<void(frmMain&)>& work)
    {
        atWork = work;
        return program.Main();
    }
    void lookAtTheScreen()
    {
        if (QWidget* dialog = QApplication::activeModalWidget()) {
            const auto* text = dialog->findChild<QLabel*>(u"msgBoxText"_s);
            titles += dialog->windowTitle();
            const QCursor* pointer = QGuiApplication::overrideCursor();
            EXPECT_FALSE(pointer != nullptr && pointer->shape() == Qt::WaitCursor)
                << "an hourglass over " << dialog->windowTitle().toStdString();
            for (QWidget* each : QApplication::topLevelWidgets())
                EXPECT_FALSE(text != nullptr && dynamic_cast<WaitWindow*>(each) != nullptr
                             && each->isVisible())
                    << "a wait window in front of " << dialog->windowTitle().toStdString();
            texts += text != nullptr ? text->text() : QString();
            for (const QString& name : {u"msgBoxOk"_s, u"msgBoxYes"_s, u"CmdOK"_s})
                if (auto* first = dialog->findChild<QAbstractButton*>(name))
                    return first->click();
            return;
        }
        for (QWidget* each : QApplication::topLevelWidgets())
            if (auto* window = dynamic_cast<frmMain*>(each); window != nullptr && window->isVisible()
                                                             && window->formEnabled()
                                                             && titles.contains(noPort) && atWork)
                // Not from here: a timer does not fire again while its own handler runs.
                QMetaObject::invokeMethod(
                    window, [work = std::exchange(atWork, {}), window] { work(*window); },
                    Qt::QueuedConnection);
    }
    [[nodiscard]] bool masterStarted() const
    {
        return eventually([this] { return QFile::exists(shop.base() + u"/started"_s); });
    }
    [[nodiscard]] QString lastUseDate() const { return AppEnv(shop.base()).LastUseDate(); }
    static QAbstractButton* button(frmMain& window, const QString& name)
    {
        return window.findChild<QAbstractButton*>(name);
    }
    static void end(frmMain& window) { button(window, u"CmdEnd"_s)->click(); }

    TempShop shop;
    TestClock clock;
    ScreenMsgBox box;
    Main_Module program{shop.base(), clock, box};
    QTimer look;
    std::function<void(frmMain&)> atWork;
    QStringList titles; ///< of all boxes and dialogs, in their order
    QStringList texts;
};

} // namespace

TEST_F(WholeRun, aFirstStart_searchesToday_andTheNextOneSinceThen)
{
    fillShop();
    const auto dates = [](frmMain& window) {
        QStringList all;
        for (const QString& letters : {u"N"_s, u"S"_s, u"NL"_s, u"SL"_s})
            for (const QString& end : {u"F"_s, u"T"_s}) {
                QString date;
                for (const QString& part : {u"yyyy"_s, u"mm"_s, u"dd"_s})
                    date += window.findChild<QLineEdit*>(u"txt%1%2_%3"_s.arg(letters, part, end))->text();
                all += date;
            }
        return all;
    };
    QStringList first;
    EXPECT_EQ(run([&](frmMain& window) {
                  first = dates(window);
                  end(window);
              }),
              0);
    EXPECT_EQ(first, QStringList(8, u"20260401"_s));
    EXPECT_EQ(titles, (QStringList{noPort, endDialog}));
    EXPECT_EQ(lastUseDate(), u"20260401"_s);
    EXPECT_FALSE(QFile::exists(shop.base() + u"/started"_s));

    clock.setNow(QDateTime(QDate(2026, 4, 15), QTime(9, 0)));
    titles.clear();
    QStringList second;
    atWork = [&](frmMain& window) {
        second = dates(window);
        end(window);
    };
    EXPECT_EQ(program.Main(), 0);
    for (qsizetype i = 0; i < second.size(); i += 2) {
        EXPECT_EQ(second.at(i), u"20260401"_s);
        EXPECT_EQ(second.at(i + 1), u"20260415"_s);
    }
    EXPECT_EQ(second.size(), 8);
    EXPECT_EQ(lastUseDate(), u"20260415"_s);
}

TEST_F(WholeRun, oneMovementOverTheLimit_isWarnedOf_receiptsFirst)
{
    fillShop();
    fill("InpTB", "NyuDate", 25001);
    fill("OutTB", "SyuDate", 25002);
    EXPECT_EQ(run(end), 0);
    const QString warning = u" 履歴を保存して下さい"_s;
    ASSERT_EQ(titles, (QStringList{warning, warning, noPort, endDialog}));
    EXPECT_EQ(
        texts.at(0),
        u"入荷の情報が多くなってきました。\r\n　（入荷の履歴情報： 25001 件）\r\n\r\n履歴が多くなると 処理が遅くなります。　　　　\r\n\r\n 　「履歴の保存」 を行ってください。"_s);
    EXPECT_EQ(
        texts.at(1),
        u"出荷の情報が多くなってきました。\r\n　（出荷の履歴情報： 25002 件）\r\n\r\n履歴が多くなると 処理が遅くなります。　　　　\r\n\r\n 　「履歴の保存」 を行ってください。"_s);
}

TEST_F(WholeRun, movementsJustAtTheLimit_areNotWarnedOf)
{
    fillShop();
    fill("InpTB", "NyuDate", 25000);
    fill("OutTB", "SyuDate", 25000);
    EXPECT_EQ(run(end), 0);
    EXPECT_EQ(titles, (QStringList{noPort, endDialog}));
}

TEST_F(WholeRun, theQuestionsOfTheFirstSearches_haveNoWaitWindowInFrontOfThem)
{
    fillShop();
    fill("InpTB", "NyuDate", 1001, "20260401");
    fill("OutTB", "SyuDate", 1001, "20260401");
    EXPECT_EQ(run(end), 0);
    const QString question = u"表示の確認"_s;
    EXPECT_EQ(titles, (QStringList{question, question, noPort, endDialog}));
}

TEST_F(WholeRun, withoutAReceiptPartner_theMasterProgramIsStarted_unasked)
{
    fillShopWithoutReceiptPartner();
    EXPECT_EQ(run([](frmMain&) { ADD_FAILURE() << "the window was shown"; }), 0);
    EXPECT_EQ(titles, QStringList{u"入荷先の未登録エラー"_s});
    EXPECT_TRUE(masterStarted());
}

TEST_F(WholeRun, theMasterButton_endsUnasked_andStartsItsProgramAfterTheWait)
{
    fillShop();
    int pauses = 0;
    bool free = false;
    clock.onPass = [&] {
        ++pauses;
        AppDB other(shop.databaseFolder()); // a second one could not write while the first has a unit open
        free = other.Open("trnvik.mdb") == DbStatus::Good && QApplication::topLevelWidgets().isEmpty();
        EXPECT_FALSE(QFile::exists(shop.base() + u"/started"_s));
    };
    EXPECT_EQ(run([](frmMain& window) { button(window, u"cmdMaster"_s)->click(); }), 0);
    EXPECT_EQ(titles, QStringList{noPort});
    EXPECT_EQ(pauses, 30);
    EXPECT_TRUE(free);
    EXPECT_EQ(lastUseDate(), u"20260401"_s);
    ASSERT_TRUE(masterStarted());
    QFile started(shop.base() + u"/started"_s);
    ASSERT_TRUE(started.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(started.readAll()).trimmed(), QDir(shop.base()).canonicalPath());
}

TEST_F(WholeRun, aDailyBackupThatFailed_isShownOnce_afterAllBoxesOfTheStart)
{
    fillShop();
    const BackupNote note(shop.base());
    ASSERT_TRUE(note.write({QDateTime(QDate(2026, 3, 31), QTime(12, 30)), u"ディスクの空き容量が足りません"_s,
                            u"不要なファイルを削除して、空き容量を増やして下さい。"_s}));
    EXPECT_EQ(run([](frmMain& window) { end(window); }), 0);
    ASSERT_EQ(titles, (QStringList{noPort, u" バックアップの失敗"_s, endDialog}));
    EXPECT_EQ(
        texts.at(1),
        u"自動のバックアップに 失敗しました。　　　　\r\n\r\n　（ 日時 ： 2026/03/31 12:30 ）\r\n　（ "
        u"理由 ： ディスクの空き容量が足りません ）　　　　\r\n\r\n不要なファイルを削除して、空き容量を増やし"
        u"て下さい。\r\n\r\nその後、端末で 「 tagdb backup 」 を実行すると、\r\nすぐに "
        u"バックアップを作れます。　　　　"_s);
    EXPECT_FALSE(note.read());
    titles.clear();
    EXPECT_EQ(run([](frmMain& window) { end(window); }), 0);
    EXPECT_EQ(titles, (QStringList{noPort, endDialog}));
}

TEST_F(WholeRun, aFolderThatTakesNoLock_whileItsDatabaseTakesWrites_isRefused)
{
    fillShop();
    const std::string database = shop.databaseFile();
    {
        const AsAnotherUser another(shop.base().toStdString(), {shop.databaseFolder(), database});
        EXPECT_EQ(run([](frmMain&) { ADD_FAILURE() << "the window was shown"; }), 0);
    }
    ASSERT_EQ(titles, QStringList{u"プログラムフォルダに書き込めません"_s});
    EXPECT_TRUE(texts.at(0).contains(u"フォルダ｢"_s + shop.base() + u"｣に書き込めないため"_s))
        << texts.at(0).toStdString();
    EXPECT_EQ(lastUseDate(), QString());
}

TEST_F(WholeRun, theShopsFolder_isForItsOwnerAlone_onceTheProgramWasInIt)
{
    fillShop();
    const std::string database = shop.databaseFile();
    ASSERT_EQ(::chmod(database.c_str(), 0644), 0);
    ASSERT_EQ(::chmod(shop.databaseFolder().c_str(), 0755), 0);
    EXPECT_EQ(run([](frmMain& window) { end(window); }), 0);
    const auto rightsOfOthers = [](const std::string& path) {
        struct stat is
        {
        };
        EXPECT_EQ(::stat(path.c_str(), &is), 0) << path;
        return is.st_mode & 0077U;
    };
    for (const std::string& path : {database, shop.databaseFolder(), shop.base().toStdString()})
        EXPECT_EQ(rightsOfOthers(path), 0U) << path;
}

TEST_F(WholeRun, aMissingDatabase_isReported_andNothingIsMade)
{
    fillShop();
    ASSERT_TRUE(QFile::remove(QString::fromStdString(shop.databaseFile())));
    EXPECT_EQ(run([](frmMain&) { ADD_FAILURE() << "the window was shown"; }), 0);
    ASSERT_EQ(titles, QStringList{u"データベースがありません"_s});
    EXPECT_EQ(texts.at(0), u"データファイル｢"_s + shop.base() + u"\\DB\\trnvik.mdb｣が見つかりません。"_s);
    EXPECT_FALSE(QFile::exists(QString::fromStdString(shop.databaseFile())));
    EXPECT_EQ(lastUseDate(), QString());
    EXPECT_FALSE(QFile::exists(shop.base() + u"/started"_s));
}

} // namespace suisui::test

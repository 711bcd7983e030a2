// The three dialogs: their checks, messages and defaults, the keys, and the reader.
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include "history/frmRirekiFileExt.h"
#include "history/frmRirekiFromTo.h"
#include "history/frm_DirFile.h"
#include "store/AppEnv.h"
#include "tests/support/Eventually.h"
#include "tests/support/HistoryDesk.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

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

template <typename Widget> Widget& control(const QDialog& dialog, const QString& name)
{
    auto* found = dialog.findChild<Widget*>(name);
    if (found == nullptr)
        throw std::runtime_error("no control " + name.toStdString());
    return *found;
}

void press(const QDialog& dialog, const QString& button)
{
    control<QPushButton>(dialog, button).click();
}

struct Desk : HistoryDesk
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

void expectBox(const Box& box, const QString& title, const QString& text, BoxIcon icon = BoxIcon::Stop,
               BoxButtons buttons = BoxButtons::Ok, BoxAnswer defaultButton = BoxAnswer::None)
{
    EXPECT_EQ(box.title, title);
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.icon, icon);
    EXPECT_EQ(box.buttons, buttons);
    EXPECT_EQ(box.defaultButton, defaultButton);
}

const QColor cyan(0, 255, 255);

} // namespace

// ---- frmRirekiFileExt

TEST(ExtensionDialog, takesTheTrimmedText)
{
    Desk desk;
    frmRirekiFileExt dialog(desk.box, desk.readLine, nullptr);
    desk.show(dialog);
    EXPECT_TRUE(control<QLabel>(dialog, u"lblCaption"_s).text().contains(u"履歴"_s));
    QTest::keyClicks(&control<QLineEdit>(dialog, u"txtFileExt"_s), u" h t "_s);
    press(dialog, u"CmdOK"_s);
    EXPECT_EQ(dialog.HistoryExt(), u"h t"_s);
    EXPECT_FALSE(dialog.isVisible());
}

TEST(ExtensionDialog, refusesNothingAndForbiddenCharacters)
{
    const QString forbidden[] = {u"\\"_s, u"/"_s,  u":"_s, u","_s, u";"_s, u"*"_s,
                                 u"?"_s,  u"\""_s, u"<"_s, u">"_s, u"|"_s};
    Desk desk;
    frmRirekiFileExt dialog(desk.box, desk.readLine, nullptr);
    desk.show(dialog);
    auto& field = control<QLineEdit>(dialog, u"txtFileExt"_s);
    for (const QString& nothing : {u""_s, u"   "_s}) {
        field.setText(nothing);
        control<QPushButton>(dialog, u"CmdOK"_s).setFocus();
        press(dialog, u"CmdOK"_s);
        expectBox(
            desk.said(), u"拡張子 未指定エラー"_s,
            u"「拡張子」 が指定されていません。\r\n\r\n拡張子を指定した後に、再度、決定して下さい。　　　"_s);
        EXPECT_TRUE(field.hasFocus());
    }
    for (const QString& character : forbidden) {
        field.setText(u"a"_s + character + u"b"_s);
        press(dialog, u"CmdOK"_s);
        expectBox(
            desk.said(), u"拡張子 使用文字エラー"_s,
            u"「拡張子」 には次の半角文字は使えません。\r\n\r\n　　　　　　 \\ / : , ; * ? \" < > |\r\n\r\n拡張子を修正した後に、再度、決定して下さい。　　　"_s);
        EXPECT_TRUE(field.hasFocus());
    }
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(dialog.HistoryExt().isEmpty());
}

TEST(ExtensionDialog, enterMovesToTheButton_andTheFieldIsSelectedWhole)
{
    Desk desk;
    frmRirekiFileExt dialog(desk.box, desk.readLine, nullptr);
    desk.show(dialog);
    auto& field = control<QLineEdit>(dialog, u"txtFileExt"_s);
    EXPECT_EQ(field.palette().color(QPalette::Base), cyan);
    QTest::keyClicks(&field, u"hst"_s);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_TRUE(control<QPushButton>(dialog, u"CmdOK"_s).hasFocus());
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(field.palette().color(QPalette::Base), QColor(Qt::white));
    EXPECT_EQ(control<QPushButton>(dialog, u"CmdOK"_s).palette().color(QPalette::Button), cyan);
    field.setFocus();
    EXPECT_EQ(field.selectedText(), u"hst"_s);
}

TEST(ExtensionDialog, everyWayOut_withoutOk_isACancel)
{
    const std::function<void(QDialog&)> ways[] = {
        [](QDialog& dialog) { press(dialog, u"CmdEnd"_s); },
        [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); },
        [](QDialog& dialog) { dialog.close(); }};
    for (const auto& leave : ways) {
        Desk desk;
        frmRirekiFileExt dialog(desk.box, desk.readLine, nullptr);
        desk.show(dialog);
        control<QLineEdit>(dialog, u"txtFileExt"_s).setText(u"hst"_s);
        leave(dialog);
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_TRUE(dialog.HistoryExt().isEmpty());
    }
}

TEST(ExtensionDialog, isAnsweredByTheReader)
{
    for (const bool ok : {true, false}) {
        Desk desk;
        frmRirekiFileExt dialog(desk.box, desk.readLine, nullptr);
        desk.show(dialog);
        control<QLineEdit>(dialog, u"txtFileExt"_s).setText(u"hst"_s);
        desk.scans.lines = {u"4901001000017"_s, u"[U]"_s, ok ? u"[P]"_s : u"[T]"_s};
        ASSERT_TRUE(eventually([&] { return !dialog.isVisible(); }));
        EXPECT_EQ(dialog.HistoryExt(), ok ? u"hst"_s : QString());
    }
}

TEST(ExtensionDialog, goesOnListening_afterABox_andNotDuringIt)
{
    Desk desk;
    frmRirekiFileExt dialog(desk.box, desk.readLine, nullptr);
    desk.show(dialog);
    desk.box.onShow = [&](const Box&) {
        desk.scans.lines = {u"[T]"_s};
        QTest::qWait(30); // many ticks
        EXPECT_EQ(desk.scans.lines.size(), 1U);
    };
    press(dialog, u"CmdOK"_s);
    ASSERT_TRUE(eventually([&] { return !dialog.isVisible(); }));
}

// ---- frmRirekiFromTo

TEST(PeriodDialog, listsTheSavedPeriods_newestFirst)
{
    Desk desk;
    desk.listPeriod("20260101", "20260131");
    desk.listPeriod("20260301", "20260315");
    frmRirekiFromTo dialog(desk.db, desk.clock, desk.box, desk.readLine, nullptr);
    const auto& list = control<QListWidget>(dialog, u"lstRirekiList"_s);
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.item(0)->text(), u"2026年03月01日 ～ 2026年03月15日"_s);
    EXPECT_EQ(list.item(1)->text(), u"2026年01月01日 ～ 2026年01月31日"_s);
    EXPECT_EQ(control<QLineEdit>(dialog, u"txtyyyy_F"_s).text(), u"2026"_s);
    EXPECT_EQ(control<QLineEdit>(dialog, u"txtmm_F"_s).text(), u"03"_s);
    EXPECT_EQ(control<QLineEdit>(dialog, u"txtdd_F"_s).text(), u"16"_s);
    EXPECT_EQ(control<QLineEdit>(dialog, u"txtyyyy_T"_s).text(), u"2026"_s);
    EXPECT_EQ(control<QLineEdit>(dialog, u"txtmm_T"_s).text(), u"04"_s);
    EXPECT_EQ(control<QLineEdit>(dialog, u"txtdd_T"_s).text(), u"15"_s);
}

TEST(PeriodDialog, withNothingSaved_proposesAMonthFromToday)
{
    Desk desk;
    frmRirekiFromTo dialog(desk.db, desk.clock, desk.box, desk.readLine, nullptr);
    const auto& list = control<QListWidget>(dialog, u"lstRirekiList"_s);
    ASSERT_EQ(list.count(), 1);
    EXPECT_EQ(list.item(0)->text(), u"（なし）"_s);
    EXPECT_EQ(control<QLineEdit>(dialog, u"txtmm_F"_s).text()
                  + control<QLineEdit>(dialog, u"txtdd_F"_s).text(),
              u"0401"_s);
    EXPECT_EQ(control<QLineEdit>(dialog, u"txtmm_T"_s).text()
                  + control<QLineEdit>(dialog, u"txtdd_T"_s).text(),
              u"0430"_s);
}

TEST(PeriodDialog, proposesOneMonthFromTheLastDay)
{
    const struct
    {
        const char16_t* lastDay;
        Period proposed;
    } cases[] = {
        {u"20040131", {"20040201", "20040229"}}, {u"20030131", {"20030201", "20030228"}},
        {u"20260228", {"20260301", "20260328"}}, {u"20261231", {"20270101", "20270131"}},
        {u"20260531", {"20260601", "20260630"}}, {u"", {"20260401", "20260430"}},
        {u"nonsense", {"20260401", "20260430"}},
    };
    for (const auto& each : cases)
        EXPECT_EQ(proposedPeriod(QString::fromUtf16(each.lastDay), QDate(2026, 4, 1)), each.proposed);
    EXPECT_EQ(proposedPeriod({}, QDate(2026, 1, 31)), (Period{"20260131", "20260227"}));
}

TEST(PeriodDialog, enterMovesThroughTheBoxesToTheButton)
{
    Desk desk;
    frmRirekiFromTo dialog(desk.db, desk.clock, desk.box, desk.readLine, nullptr);
    desk.show(dialog);
    const QString chain[] = {u"txtyyyy_F"_s, u"txtmm_F"_s, u"txtdd_F"_s, u"txtyyyy_T"_s,
                             u"txtmm_T"_s,   u"txtdd_T"_s, u"CmdOK"_s};
    for (std::size_t i = 0; i + 1 < std::size(chain); ++i) {
        auto& field = control<QLineEdit>(dialog, chain[i]);
        ASSERT_TRUE(field.hasFocus()) << chain[i].toStdString();
        EXPECT_EQ(field.palette().color(QPalette::Base), cyan);
        QTest::keyClicks(&field, u"x"_s);
        EXPECT_FALSE(field.text().contains(u'x')) << "digits only";
        QTest::keyClick(&field, Qt::Key_Return);
    }
    EXPECT_TRUE(control<QPushButton>(dialog, u"CmdOK"_s).hasFocus());
}

namespace {

/// The dialog over three saved movements: a receipt on 2026/01/10 and on 2026/02/10, a shipment on
/// 2026/03/10.
struct PeriodDesk : Desk
{
    PeriodDesk()
    {
        receipt("A", "0000001", "20260110", "20260110090000");
        receipt("A", "0000001", "20260210", "20260210090000");
        shipment("A", "0000001", "20260310", "20260310090000");
    }
    /// Presses OK on a fresh dialog with these dates.
    void ask(const QString& from, const QString& to)
    {
        dialog = std::make_unique<frmRirekiFromTo>(db, clock, box, readLine, nullptr);
        show(*dialog);
        set(from, u"F"_s);
        set(to, u"T"_s);
        press(*dialog, u"CmdOK"_s);
    }
    void set(const QString& date, const QString& end)
    {
        field(u"txtyyyy_"_s + end).setText(date.left(4));
        field(u"txtmm_"_s + end).setText(date.mid(4, 2));
        field(u"txtdd_"_s + end).setText(date.mid(6));
    }
    QLineEdit& field(const QString& name) const { return control<QLineEdit>(*dialog, name); }
    void expectTaken(const std::string& from, const std::string& to)
    {
        EXPECT_TRUE(box.shown.empty());
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_EQ(dialog->DateFrom(), from);
        EXPECT_EQ(dialog->DateTo(), to);
    }
    /// The dialog is still there, ready for keys and scans.
    void expectWaiting()
    {
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_TRUE(dialog->DateFrom().empty());
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        field(u"txtdd_T"_s).setFocus();
        QTest::keyClicks(&field(u"txtdd_T"_s), u"07"_s);
        EXPECT_TRUE(eventually([&] { return field(u"txtdd_T"_s).text() == u"07"_s; }));
        scans.lines = {u"[T]"_s};
        EXPECT_TRUE(eventually([&] { return !dialog->isVisible(); }));
    }

    std::unique_ptr<frmRirekiFromTo> dialog;
};

QString filled(QString text, const QString& first, const QString& last)
{
    return text.replace(u"{first}"_s, first).replace(u"{last}"_s, last);
}

} // namespace

TEST(PeriodDialog, takesAPeriodWithReceipts_orWithShipmentsAlone_orOfOneDay)
{
    PeriodDesk desk;
    desk.ask(u"20260101"_s, u"20260131"_s);
    desk.expectTaken("20260101", "20260131");
    desk.ask(u"20260301"_s, u"20260331"_s);
    desk.expectTaken("20260301", "20260331");
    desk.ask(u"20260110"_s, u"20260110"_s);
    desk.expectTaken("20260110", "20260110");
}

TEST(PeriodDialog, padsTheDates)
{
    PeriodDesk desk;
    desk.ask(u"2026"_s, u"20260131"_s);
    desk.said();
    desk.field(u"txtmm_F"_s).setText(u"1"_s);
    desk.field(u"txtdd_F"_s).setText(u"2"_s);
    press(*desk.dialog, u"CmdOK"_s);
    desk.expectTaken("20260102", "20260131");
}

TEST(PeriodDialog, wrongDate_isTold_andHasTheFocus)
{
    PeriodDesk desk;
    desk.ask(u"20260230"_s, u"20260331"_s);
    EXPECT_EQ(desk.said().title, u"日付エラー"_s);
    EXPECT_TRUE(desk.field(u"txtdd_F"_s).hasFocus());
    desk.expectWaiting();
    desk.ask(u"20260201"_s, u"20261301"_s);
    EXPECT_EQ(desk.said().title, u"日付エラー"_s);
    EXPECT_TRUE(desk.field(u"txtmm_T"_s).hasFocus());
    desk.expectWaiting();
}

TEST(PeriodDialog, firstDayAfterTheLast_isTold)
{
    PeriodDesk desk;
    desk.ask(u"20260201"_s, u"20260131"_s);
    expectBox(
        desk.said(), u"日付エラー"_s,
        filled(
            u"「開始年月日」 が 「終了年月日」 より未来日です。　　　\r\n\r\n　{first}   >   {last}\r\n\r\n\r\n　　　 正しい 「日付」 を入力して下さい。"_s,
            u"2026/02/01"_s, u"2026/01/31"_s));
    EXPECT_TRUE(desk.field(u"txtyyyy_F"_s).hasFocus());
    desk.expectWaiting();
}

TEST(PeriodDialog, periodWithoutMovements_isTold)
{
    PeriodDesk desk;
    desk.ask(u"20260401"_s, u"20260430"_s);
    expectBox(
        desk.said(), u" 保存情報なし"_s,
        filled(
            u"入荷／出荷の情報が ありません。\r\n\r\n　　指定された 「期間」 に\r\n　　入荷／出荷の実績が ありません。　　　　　\r\n\r\n　　( {first} ～ {last} )\r\n\r\n　　「期間」 を 確認 ・ 変更した後に\r\n　 　再度、決定して下さい。"_s,
            u"2026/04/01"_s, u"2026/04/30"_s));
    EXPECT_TRUE(desk.field(u"txtyyyy_F"_s).hasFocus());
    desk.expectWaiting();
}

TEST(PeriodDialog, periodThatIsSavedAlready_isTold)
{
    PeriodDesk desk;
    desk.listPeriod("20260101", "20260131");
    desk.ask(u"20260101"_s, u"20260131"_s);
    expectBox(
        desk.said(), u" 履歴の保存済"_s,
        filled(
            u"既に 履歴が保存されています。\r\n\r\n　　指定された 「期間」 と 同一の期間で\r\n　　既に 入荷／出荷の実績が 保存されています。　　　　　\r\n\r\n　　( {first} ～ {last} )\r\n\r\n　　「履歴の読込」 を 行った後に\r\n　 　再度、「履歴の保存」 を 実行して下さい。"_s,
            u"2026/01/01"_s, u"2026/01/31"_s));
    EXPECT_TRUE(control<QPushButton>(*desk.dialog, u"CmdEnd"_s).hasFocus());
    desk.expectWaiting();
}

TEST(PeriodDialog, overlap_asks_withNoAsTheDefault)
{
    PeriodDesk desk;
    desk.listPeriod("20260105", "20260215");
    desk.ask(u"20260101"_s, u"20260131"_s);
    expectBox(
        desk.said(), u" 保存の確認"_s,
        filled(
            u"既に 一部の履歴が保存されています。\r\n\r\n　　指定された 「期間」 の 一部の期間 で\r\n　　既に 入荷／出荷の実績が 保存されています。　　　　　\r\n\r\n　　( {first} ～ {last} )\r\n\r\n　　「履歴の保存」 を 行いますか？"_s,
            u"2026/01/01"_s, u"2026/01/31"_s),
        BoxIcon::Stop, BoxButtons::YesNo, BoxAnswer::No);
    desk.expectWaiting();
    desk.box.answers = {BoxAnswer::Yes};
    desk.ask(u"20260101"_s, u"20260131"_s);
    desk.said();
    desk.expectTaken("20260101", "20260131");
}

TEST(PeriodDialog, overlapIsFound_whereverTheSavedPeriodLies_andNotWhenItMerelyTouches)
{
    const struct
    {
        const char* from;
        const char* to;
        bool overlaps;
    } saved[] = {
        {"20260110", "20260120", true},  // within
        {"20251201", "20260101", true},  // its last day is the first
        {"20251201", "20251231", false}, // ends the day before
        {"20260131", "20260228", true},  // its first day is the last
        {"20260201", "20260228", false}, // begins the day after
        {"20251201", "20260228", true},  // holds it
        {"20260101", "20260201", true},
    };
    for (const auto& each : saved) {
        PeriodDesk desk;
        desk.useExtension("hst"); // whose row overlaps nothing
        desk.listPeriod(each.from, each.to);
        desk.ask(u"20260101"_s, u"20260131"_s);
        EXPECT_EQ(desk.box.shown.size(), each.overlaps ? 1U : 0U) << each.from;
        EXPECT_NE(desk.dialog->isVisible(), !each.overlaps);
    }
}

TEST(PeriodDialog, searchThatFails_isTold)
{
    const struct
    {
        const char* table;
        QString text;
    } cases[] = {
        {"InpTB", u"入荷情報の検索に失敗しました。　　　　　\r\n\r\n　　　再度、決定して下さい。"_s},
        {"OutTB", u"出荷情報の検索に失敗しました。　　　　　\r\n\r\n　　　再度、決定して下さい。"_s},
        {"RirekiTB", u"履歴管理情報の検索に失敗しました。　　　\r\n\r\n　　　再度、決定して下さい。"_s}};
    for (const auto& each : cases) {
        PeriodDesk desk;
        {
            Sqlite engine;
            ASSERT_EQ(engine.open(desk.shop->databaseFile()), 0);
            ASSERT_EQ(engine.execute(std::string("ALTER TABLE ") + each.table + " RENAME TO Gone"), 0);
        }
        desk.ask(each.table == std::string("OutTB") ? u"20260401"_s : u"20260101"_s, u"20260430"_s);
        expectBox(desk.said(), u"データーベース エラー"_s, each.text);
        desk.expectWaiting();
    }
}

TEST(PeriodDialog, everyWayOut_withoutOk_isACancel)
{
    for (const bool escape : {true, false}) {
        PeriodDesk desk;
        frmRirekiFromTo dialog(desk.db, desk.clock, desk.box, desk.readLine, nullptr);
        desk.show(dialog);
        escape ? QTest::keyClick(&dialog, Qt::Key_Escape) : press(dialog, u"CmdEnd"_s);
        EXPECT_FALSE(dialog.isVisible());
        EXPECT_TRUE(dialog.DateFrom().empty() && dialog.DateTo().empty());
    }
}

// ---- frm_DirFile

namespace {

struct FileDesk : Desk
{
    FileDesk()
    {
        for (const char* name : {"RRK20260101-20260131.hst", "RRK20260201-20260228.HST",
                                 "RRK20260301-20260331.old", "other.hst"})
            QFile(folder() + u'/' + QString::fromUtf8(name)).open(QIODevice::WriteOnly);
        QDir(shop->base()).mkpath(u"empty"_s);
        ini.setLastHistoryFolder(folder());
    }
    void open(bool saveMode)
    {
        PlaceQuestion question;
        question.saveMode = saveMode;
        question.caption = u"場所"_s;
        question.pattern = historyFilePattern(u"hst"_s);
        question.fileName = saveMode ? u"RRK20260401-20260430.hst"_s : QString();
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

const QString confirmation = u"「決定」 します。　よろしいですか？　　　　"_s;

} // namespace

TEST(FileDialog, offersTheFilesOfTheExtensionAlone_inTheFolderOfLastTime)
{
    FileDesk desk;
    desk.open(false);
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
    desk.open(true);
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
    expectBox(desk.said(), u"決定の確認"_s, confirmation, BoxIcon::Question, BoxButtons::YesNo);
    EXPECT_EQ(desk.dialog->Folder(), desk.folder());
    EXPECT_EQ(desk.dialog->FileName(), u"RRK20260401-20260430.hst"_s);
    EXPECT_EQ(desk.dialog->FullPath(), desk.folder() + u"/RRK20260401-20260430.hst"_s);
}

TEST(FileDialog, clickOnAFile_choosesIt_andDoubleClickDecides)
{
    FileDesk desk;
    desk.open(false);
    const QPoint place = desk.files().visualItemRect(desk.files().item(1)).center();
    QTest::mouseClick(desk.files().viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(desk.name().text(), u"RRK20260201-20260228"_s);
    desk.box.answers = {BoxAnswer::Yes};
    QTest::mouseDClick(desk.files().viewport(), Qt::LeftButton, {}, place);
    EXPECT_FALSE(desk.dialog->isVisible());
    EXPECT_EQ(desk.dialog->FullPath(), desk.folder() + u"/RRK20260201-20260228.HST"_s);
    EXPECT_EQ(desk.dialog->FileName(), u"RRK20260201-20260228"_s);
}

TEST(FileDialog, isWorkedByKeys)
{
    FileDesk desk;
    desk.open(false);
    ASSERT_TRUE(desk.files().hasFocus());
    QTest::keyClick(&desk.files(), Qt::Key_Down);
    EXPECT_EQ(desk.name().text(), u"RRK20260201-20260228"_s);
    QTest::keyClick(&desk.files(), Qt::Key_Up);
    EXPECT_EQ(desk.name().text(), u"RRK20260101-20260131"_s);
    desk.box.answers = {BoxAnswer::Yes};
    QTest::keyClick(&desk.files(), Qt::Key_Return);
    EXPECT_EQ(desk.dialog->FileName(), u"RRK20260101-20260131"_s);
}

TEST(FileDialog, enterOnTheFileThatIsMarked_takesIt)
{
    FileDesk desk;
    desk.open(false);
    desk.box.answers = {BoxAnswer::Yes};
    QTest::keyClick(&desk.files(), Qt::Key_Return);
    EXPECT_EQ(desk.dialog->FileName(), u"RRK20260101-20260131"_s);
}

TEST(FileDialog, withoutAFile_isTold)
{
    FileDesk desk;
    desk.open(false);
    press(*desk.dialog, u"CmdOK"_s);
    expectBox(
        desk.said(), u"ファイル名 未指定エラー"_s,
        u"「ファイル名」 が指定されていません。\r\n\r\nファイル名を指定した後に、再度、決定して下さい。　　　"_s);
    EXPECT_TRUE(desk.dialog->isVisible());
    desk.scans.lines = {u"[T]"_s};
    EXPECT_TRUE(eventually([&] { return !desk.dialog->isVisible(); }));
    desk.expectNothingTaken();
}

TEST(FileDialog, nameWithAForbiddenCharacter_isTold)
{
    FileDesk desk;
    QFile(desk.folder() + u"/RRK20260501-20260531;.hst"_s).open(QIODevice::WriteOnly);
    desk.open(false);
    desk.files().setCurrentRow(2);
    press(*desk.dialog, u"CmdOK"_s);
    expectBox(
        desk.said(), u"ファイル名 使用文字エラー"_s,
        u"「ファイル名」 には次の半角文字は使えません。\r\n\r\n　　　　　　 \\ / : , ; * ? \" < > |\r\n\r\nファイル名を修正した後に、再度、決定して下さい。　　　"_s);
    EXPECT_TRUE(desk.dialog->isVisible());
}

TEST(FileDialog, nameThatIsThereAlready_isRefusedBeforeAnythingIsDone)
{
    FileDesk desk;
    QFile(desk.folder() + u"/RRK20260401-20260430.hst"_s).open(QIODevice::WriteOnly);
    desk.open(true);
    press(*desk.dialog, u"CmdOK"_s);
    expectBox(
        desk.said(), u"ファイル 既存エラー"_s,
        u"同じファイル名のファイルが既に存在します。　　　\r\n\r\n　保存先の 「フォルダ （ディレクトリ）」 を変更した後に　　　\r\n　再度、決定して下さい。"_s);
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
    desk.open(true);
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
    desk.open(false);
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
    desk.open(true);
    EXPECT_TRUE(desk.box.shown.empty());
    EXPECT_EQ(control<QLabel>(*desk.dialog, u"lblFolder"_s).text(), QDir::currentPath());
}

TEST(FileDialog, folderThatCannotBeReached_isTold_andTheOneBeforeStays)
{
    FileDesk desk;
    desk.open(false);
    auto& tree = control<QTreeView>(*desk.dialog, u"DirList"_s);
    const QModelIndex shown = tree.currentIndex();
    const QModelIndex gone = shown.siblingAtRow(shown.row() == 0 ? 1 : 0);
    ASSERT_TRUE(gone.isValid());
    const QString path = desk.shop->base() + u'/' + gone.data().toString();
    ASSERT_TRUE(QDir(path).removeRecursively());
    tree.setCurrentIndex(gone);
    const Box box = desk.said();
    EXPECT_TRUE(box.text.startsWith(path));
    EXPECT_EQ(control<QLabel>(*desk.dialog, u"lblFolder"_s).text(), desk.folder());
    EXPECT_TRUE(eventually([&] { return tree.currentIndex().data().toString() == u"old"_s; }));
}

TEST(FileDialog, showsTheUsersFolders_whereTheyAre)
{
    FileDesk desk;
    desk.open(true);
    for (const auto& [button, folder] : {std::pair(u"cmdMyDoc"_s, desk.env.MyDocFolder()),
                                         std::pair(u"cmdDeskTop"_s, desk.env.DeskTopFolder())}) {
        auto& place = control<QPushButton>(*desk.dialog, button);
        ASSERT_EQ(place.isVisible(), !folder.isEmpty());
        if (folder.isEmpty())
            continue;
        place.click();
        EXPECT_EQ(control<QLabel>(*desk.dialog, u"lblFolder"_s).text(), folder);
    }
}

TEST(FileDialog, cancel_handsBackNothing)
{
    FileDesk desk;
    desk.open(false);
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

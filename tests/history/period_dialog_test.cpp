// The period to save: what is proposed, what is refused, what is asked.
#include "history/frmRirekiFromTo.h"

#include <QLineEdit>
#include <QListWidget>

#include "tests/history/DialogDesk.h"
#include "tests/support/Eventually.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

const QColor cyan(0, 255, 255);

} // namespace

TEST(PeriodDialog, listsTheSavedPeriods_newestFirst)
{
    DialogDesk desk;
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
    DialogDesk desk;
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
    DialogDesk desk;
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
struct PeriodDesk : DialogDesk
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
    /// The period is answered by a box whose text names its days in place of {first} and {last}.
    void expectTold(const QString& from, const QString& to, const QString& title, QString text,
                    BoxButtons buttons = BoxButtons::Ok, BoxAnswer defaultButton = BoxAnswer::None)
    {
        const auto slashed = [](const QString& day) {
            return day.left(4) + u'/' + day.mid(4, 2) + u'/' + day.mid(6);
        };
        ask(from, to);
        text.replace(u"{first}"_s, slashed(from)).replace(u"{last}"_s, slashed(to));
        expectBox(said(), {title, text, BoxIcon::Stop, buttons, defaultButton});
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

TEST(PeriodDialog, wrongDate_isReported_andHasTheFocus)
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

TEST(PeriodDialog, firstDayAfterTheLast_isReported)
{
    PeriodDesk desk;
    desk.expectTold(
        u"20260201"_s, u"20260131"_s, u"日付エラー"_s,
        u"「開始年月日」 が 「終了年月日」 より未来日です。　　　\r\n\r\n　{first}   >   {last}\r\n\r\n\r\n　　　 正しい 「日付」 を入力して下さい。"_s);
    EXPECT_TRUE(desk.field(u"txtyyyy_F"_s).hasFocus());
    desk.expectWaiting();
}

TEST(PeriodDialog, periodWithoutMovements_isReported)
{
    PeriodDesk desk;
    desk.expectTold(
        u"20260401"_s, u"20260430"_s, u" 保存情報なし"_s,
        u"入荷／出荷の情報が ありません。\r\n\r\n　　指定された 「期間」 に\r\n　　入荷／出荷の実績が ありません。　　　　　\r\n\r\n　　( {first} ～ {last} )\r\n\r\n　　「期間」 を 確認 ・ 変更した後に\r\n　 　再度、決定して下さい。"_s);
    EXPECT_TRUE(desk.field(u"txtyyyy_F"_s).hasFocus());
    desk.expectWaiting();
}

TEST(PeriodDialog, periodThatIsSavedAlready_isReported)
{
    PeriodDesk desk;
    desk.listPeriod("20260101", "20260131");
    desk.expectTold(
        u"20260101"_s, u"20260131"_s, u" 履歴の保存済"_s,
        u"既に 履歴が保存されています。\r\n\r\n　　指定された 「期間」 と 同一の期間で\r\n　　既に 入荷／出荷の実績が 保存されています。　　　　　\r\n\r\n　　( {first} ～ {last} )\r\n\r\n　　「履歴の読込」 を 行った後に\r\n　 　再度、「履歴の保存」 を 実行して下さい。"_s);
    EXPECT_TRUE(control<QPushButton>(*desk.dialog, u"CmdEnd"_s).hasFocus());
    desk.expectWaiting();
}

TEST(PeriodDialog, overlap_asks_withNoAsTheDefault)
{
    PeriodDesk desk;
    desk.listPeriod("20260105", "20260215");
    desk.expectTold(
        u"20260101"_s, u"20260131"_s, u" 保存の確認"_s,
        u"既に 一部の履歴が保存されています。\r\n\r\n　　指定された 「期間」 の 一部の期間 で\r\n　　既に 入荷／出荷の実績が 保存されています。　　　　　\r\n\r\n　　( {first} ～ {last} )\r\n\r\n　　「履歴の保存」 を 行いますか？"_s,
        BoxButtons::YesNo, BoxAnswer::No);
    desk.expectWaiting();
    desk.box.answers = {BoxAnswer::Yes};
    desk.ask(u"20260101"_s, u"20260131"_s);
    desk.said();
    desk.expectTaken("20260101", "20260131");
}

TEST(PeriodDialog, overlapIsFound_whereverItIs_andNotWherePeriodsOnlyTouch)
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

TEST(PeriodDialog, searchThatFails_isReported)
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
        expectBox(desk.said(), {u"データーベース エラー"_s, each.text});
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

} // namespace suisui::test

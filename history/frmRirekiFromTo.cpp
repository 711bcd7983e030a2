#include "history/frmRirekiFromTo.h"

#include "platform/core/Clock.h"
#include "platform/core/FillIn.h"
#include "platform/widgets/Hourglass.h"
#include "platform/core/MsgBox.h"
#include "store/AppDB.h"
#include "store/Stamps.h"
#include "store/Side.h"
#include "ui_frmRirekiFromTo.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

const QString databaseError = u"データーベース エラー"_s;

std::string stored(const QDate& date)
{
    return date.toString(u"yyyyMMdd"_s).toStdString();
}

QString withSlashes(const std::string& date)
{
    return QString::fromStdString(screenDate(date));
}

SqlText within(Side side, const Period& period)
{
    return whereDated(movementTable(side), period.from, period.to);
}

} // namespace

Period proposedPeriod(const QString& lastDay, const QDate& today)
{
    const QDate last = QDate::fromString(lastDay, u"yyyyMMdd"_s);
    if (last.isValid())
        return {stored(last.addDays(1)), stored(last.addMonths(1))};
    return {stored(today), stored(today.addMonths(1).addDays(-1))};
}

frmRirekiFromTo::frmRirekiFromTo(AppDB& db, const Clock& clock, MsgBox& msgBox, DialogScan::ReadLine readLine,
                                 QWidget* parent)
    : HistoryDialog(msgBox, std::move(readLine), parent), m_db(db),
      m_ui(std::make_unique<Ui::frmRirekiFromTo>()), m_gate(this)
{
    m_ui->setupUi(this);
    m_boxes = {{m_ui->txtyyyy_F, m_ui->txtmm_F, m_ui->txtdd_F},
               {m_ui->txtyyyy_T, m_ui->txtmm_T, m_ui->txtdd_T}};
    wirePeriod(m_boxes, m_ui->CmdOK);
    propose(clock);
    constexpr int interval = 2;
    wire(*m_ui->CmdOK, *m_ui->CmdEnd, interval);
    m_ui->txtyyyy_F->setFocus();
}

frmRirekiFromTo::~frmRirekiFromTo() = default;

void frmRirekiFromTo::propose(const Clock& clock)
{
    RirekiRec& saved = m_db.RirekiTbl();
    saved.Select("Where DateFrom <> 'Trn' And DateTo <> 'Vik'   And FileSize <> '00000000' AND FileUpdate <> "
                 "'00000000000000'  ORDER BY DateFrom DESC");
    QString lastDay;
    for (int row = 1; row <= saved.Count(); ++row) {
        const std::string_view from = saved.get(row, RirekiCol::DateFrom);
        const std::string_view to = saved.get(row, RirekiCol::DateTo);
        m_ui->lstRirekiList->addItem(QString::fromStdString(spokenDate(from) + " ～ " + spokenDate(to)));
        if (row == 1)
            lastDay = QString::fromUtf8(to);
    }
    saved.Clear();
    if (m_ui->lstRirekiList->count() == 0)
        m_ui->lstRirekiList->addItem(u"（なし）"_s);
    const Period period = proposedPeriod(lastDay, clock.now().date());
    m_boxes.from.setDate(QString::fromStdString(period.from));
    m_boxes.to.setDate(QString::fromStdString(period.to));
}

void frmRirekiFromTo::CmdOK_Click()
{
    m_gate.setEnabled(false);
    stopTimer();
    if (!datesAreGood()) {
        restartTimer();
        return;
    }
    const PointerShape waiting(hourglass());
    const Period period{m_boxes.from.stored().toStdString(), m_boxes.to.stored().toStdString()};
    if (!hasMovements(period) || !isNew(period) || !overlapIsMeant(period))
        return;
    m_dateFrom = period.from;
    m_dateTo = period.to;
    unload();
}

void frmRirekiFromTo::CmdEnd_Click()
{
    m_dateFrom.clear();
    m_dateTo.clear();
    unload();
}

bool frmRirekiFromTo::datesAreGood()
{
    const auto enable = [this] { m_gate.setEnabled(true); };
    if (!DateCheck(m_boxes.from, enable, m_msgBox) || !DateCheck(m_boxes.to, enable, m_msgBox))
        return false;
    const QString first = withSlashes(m_boxes.from.stored().toStdString());
    const QString last = withSlashes(m_boxes.to.stored().toStdString());
    return first <= last || refuseDate(laterThan(first, last), m_boxes.from.year, enable, m_msgBox);
}

bool frmRirekiFromTo::hasMovements(const Period& period)
{
    const int receipts = m_db.InpList().CountRows(within(Side::Receipt, period));
    m_db.InpList().Clear();
    if (receipts < 0)
        return countFailed(u"入荷情報の検索に失敗しました。　　　　　\r\n\r\n　　　再度、決定して下さい。"_s);
    if (receipts > 0)
        return true;
    const int shipments = m_db.OutList().CountRows(within(Side::Shipment, period));
    m_db.OutList().Clear();
    if (shipments < 0)
        return countFailed(u"出荷情報の検索に失敗しました。　　　　　\r\n\r\n　　　再度、決定して下さい。"_s);
    if (shipments > 0)
        return true;
    m_msgBox.show(
        {u" 保存情報なし"_s,
         fillIn(u"入荷／出荷の情報が ありません。\r\n\r\n　　指定された 「期間」 "
                u"に\r\n　　入荷／出荷の実績が ありません。　　　　　\r\n\r\n　　( {first} ～ {last} "
                u")\r\n\r\n　　「期間」 を 確認 ・ 変更した後に\r\n　 　再度、決定して下さい。",
                {{u"first", withSlashes(period.from)}, {u"last", withSlashes(period.to)}}),
         BoxIcon::Stop});
    stay(m_boxes.from.year);
    return false;
}

bool frmRirekiFromTo::isNew(const Period& period)
{
    const int saved = m_db.RirekiTbl().CountRows("Where DateFrom = " + bound(period.from)
                                                 + " And DateTo = " + bound(period.to));
    if (saved < 0)
        return countFailed(u"履歴管理情報の検索に失敗しました。　　　\r\n\r\n　　　再度、決定して下さい。"_s);
    if (saved == 0)
        return true;
    m_msgBox.show(
        {u" 履歴の保存済"_s,
         fillIn(u"既に 履歴が保存されています。\r\n\r\n　　指定された 「期間」 と 同一の期間で\r\n　　既に "
                u"入荷／出荷の実績が 保存されています。　　　　　\r\n\r\n　　( {first} ～ {last} "
                u")\r\n\r\n　　「履歴の読込」 を 行った後に\r\n　 　再度、「履歴の保存」 を 実行して下さい。",
                {{u"first", withSlashes(period.from)}, {u"last", withSlashes(period.to)}}),
         BoxIcon::Stop});
    stay(m_ui->CmdEnd);
    return false;
}

/// A period that was saved in part may be saved on purpose: only what is still in the tables goes into the
/// file.
bool frmRirekiFromTo::overlapIsMeant(const Period& period)
{
    const SqlText first = bound(period.from);
    const SqlText last = bound(period.to);
    const int saved = m_db.RirekiTbl().CountRows(
        "Where (DateFrom >= " + first + " And DateFrom <= " + last + ")   Or (DateTo   >= " + first
        + " And DateTo   <= " + last + ")    Or (DateFrom <= " + first + " And DateTo   >= " + last + ")");
    if (saved < 0)
        return countFailed(u"履歴管理情報の検索に失敗しました。　　　\r\n\r\n　　　再度、決定して下さい。"_s);
    if (saved == 0)
        return true;
    const BoxAnswer answer = m_msgBox.show(
        {u" 保存の確認"_s,
         fillIn(u"既に 一部の履歴が保存されています。\r\n\r\n　　指定された 「期間」 の 一部の期間 "
                u"で\r\n　　既に 入荷／出荷の実績が 保存されています。　　　　　\r\n\r\n　　( {first} ～ "
                u"{last} )\r\n\r\n　　「履歴の保存」 を 行いますか？",
                {{u"first", withSlashes(period.from)}, {u"last", withSlashes(period.to)}}),
         BoxIcon::Stop, BoxButtons::YesNo, BoxAnswer::No});
    if (answer == BoxAnswer::Yes)
        return true;
    stay();
    return false;
}

bool frmRirekiFromTo::countFailed(const QString& text)
{
    m_msgBox.show({databaseError, text, BoxIcon::Stop});
    stay();
    return false;
}

/// The dialog goes on waiting.
void frmRirekiFromTo::stay(QWidget* focus)
{
    m_gate.setEnabled(true);
    restartTimer();
    if (focus != nullptr)
        focus->setFocus();
}

} // namespace suisui

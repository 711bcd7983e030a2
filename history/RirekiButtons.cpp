#include "history/RirekiButtons.h"

#include <QWidget>

#include "frame/support/Busy.h"
#include "history/Sentinel.h"
#include "platform/core/FillIn.h"
#include "store/AppDB.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

struct RirekiButtons::Words
{
    QString doneTitle;
    QString failedTitle;
    QString failedText;
};

RirekiButtons::RirekiButtons(const Services& services, HistoryPrompts& prompts, RirekiDB& history,
                             Controls controls)
    : m_services(services), m_prompts(prompts), m_history(history), m_controls(std::move(controls))
{
}

void RirekiButtons::cmdRirekiOut_Click()
{
    static const Words words{
        u"保存の完了"_s, u"保存の失敗"_s,
        u"「 履歴の保存 」 に 失敗しました。　　　　　\r\n\r\n　　　再度、実行して下さい。"_s};
    Busy busy(m_services.frame);
    if (!editsAreSettled() || !sentinelIsThere()) {
        busy.end();
        m_controls.cmdRirekiOut.setFocus();
        return;
    }
    takeExtension();
    const RirekiDB::Result result = m_history.save();
    busy.end();
    report(result, words,
           fillIn(u"「 履歴の保存 」 が 完了しました。\r\n\r\n　（ 履歴ファイル ： \r\n　　 RRK "
                  u"{DateFrom}-{DateTo} . {KakuTyo} ）　　　",
                  {{u"DateFrom", QString::fromStdString(m_history.period().from)},
                   {u"DateTo", QString::fromStdString(m_history.period().to)},
                   {u"KakuTyo", m_history.HistoryExt()}}));
    m_controls.cmdRirekiOut.setFocus();
}

void RirekiButtons::cmdRirekiIn_Click()
{
    static const Words words{
        u"読込の完了"_s, u"読込の失敗"_s,
        u"「 履歴の読込 」 に 失敗しました。　　　　　\r\n\r\n　　　再度、実行して下さい。"_s};
    Busy busy(m_services.frame);
    if (!editsAreSettled() || !somethingIsSaved()) {
        busy.end();
        m_controls.cmdRirekiIn.setFocus();
        return;
    }
    takeExtension();
    const RirekiDB::Result result = m_history.load();
    busy.end();
    report(result, words, u"「 履歴の読込 」 が 完了しました。　　　"_s);
    m_controls.cmdRirekiIn.setFocus();
}

/// False when the operator keeps unsaved edits.
bool RirekiButtons::editsAreSettled()
{
    return m_services.frame.EditGuard(m_services.frame.currentTab()) != BoxAnswer::Cancel;
}

/// The first save of a database asks for the extension of its history files. Where the selection or the
/// insert fails the store has shown why, and nothing goes on: a second extension would make files that no
/// load offers.
bool RirekiButtons::sentinelIsThere()
{
    const SentinelRow found = findSentinel(m_services.db);
    if (found != SentinelRow::Missing)
        return found == SentinelRow::Found;
    const QString extension = m_prompts.askExtension();
    if (extension.isEmpty())
        return false;
    const bool added = addSentinel(m_services.db, extension.toStdString()) == DbStatus::Good;
    if (!added)
        m_services.db.Rollback(); // a unit that was opened for the row would hold the file
    return added;
}

/// False when there is nothing to load, which is shown, or when the list cannot be read, which the store has
/// shown.
bool RirekiButtons::somethingIsSaved()
{
    const int rows = m_services.db.RirekiTbl().CountRows({});
    if (rows < 0)
        return false;
    const SentinelRow found = rows < 2 ? SentinelRow::Missing : findSentinel(m_services.db);
    if (found == SentinelRow::Missing)
        m_services.msgBox.show(
            {u" 履歴の未保存"_s,
             u"履歴が保存されていません。\r\n\r\n　　「履歴の保存」 を 行った後に\r\n　  「履歴の読込」 を 実行して下さい。　　　"_s,
             BoxIcon::Stop});
    return found == SentinelRow::Found;
}

void RirekiButtons::takeExtension()
{
    m_history.setHistoryExt(QString::fromStdString(sentinelExtension(m_services.db)));
}

/// A cancel says nothing, and leaves what is pending pending.
void RirekiButtons::report(RirekiDB::Result result, const Words& words, const QString& doneText)
{
    if (result == RirekiDB::Done) {
        for (int tab = 0; tab < static_cast<int>(Tab::Count); ++tab)
            m_services.frame.setTabLoaded(static_cast<Tab>(tab), false);
        m_controls.showFirstTab();
        m_services.msgBox.show({words.doneTitle, doneText, BoxIcon::Information});
    } else if (result == RirekiDB::Failed) {
        m_services.db.Rollback();
        m_services.msgBox.show({words.failedTitle, words.failedText, BoxIcon::Stop});
    }
}

} // namespace suisui

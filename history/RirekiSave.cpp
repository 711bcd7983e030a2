// Saving a period: out of the working tables, into a file of its own.
#include <filesystem>
#include <optional>

#include "history/RirekiJob.h"
#include "history/Sentinel.h"
#include "history/UnfinishedSave.h"
#include "platform/core/Clock.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "store/Side.h"
#include "store/Stamps.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

std::string pathIn(const QString& folder, const QString& name)
{
    return (folder.endsWith(u'/') ? folder + name : folder + u'/' + name).toStdString();
}

} // namespace

RirekiDB::Result RirekiDB::save()
{
    static const Job job{
        u"履歴保存"_s, u" 履歴の保存 エラー"_s,
        u"「 履歴の保存 」 に失敗しました。　(Err={number})　　　　　　　　　　　　　\r\n\r\n{reason}\r\n\r\n　　　準備 ・ 確認した後に、再度、実行して下さい。"_s,
        u"　　　書き込み禁止になっています。"_s};
    m_services.db.InpList().Clear();
    m_services.db.OutList().Clear();
    const std::optional<Period> period = m_prompts.askPeriod();
    if (!period)
        return Cancelled;
    m_period = *period;
    settle();
    const Place place = m_prompts.askPlace({.saveMode = true,
                                            .caption = u"履歴ファイルを保存する場所を選択して下さい。"_s,
                                            .pattern = historyFilePattern(m_historyExt),
                                            .fileName = historyFileName(m_period, m_historyExt)});
    if (place.folder.isEmpty())
        return Cancelled;
    m_unreachable.clear();
    const Result result = run(job, [&] { return fill(place); });
    if (!m_unreachable.isEmpty())
        reportUnreachable();
    return result;
}

/// The save is complete, and its file gets its name as soon as it can be reached.
void RirekiDB::reportUnreachable()
{
    m_services.msgBox.show(
        {u" 履歴ファイルの確認"_s,
         m_unreachable
             + u"\r\n\r\n履歴は 保存されましたが、保存先に 接続できなくなりました。　　　\r\n\r\n　　保存先を 接続した後に、【すいすいＴＡＧ】を\r\n　　起動し直して下さい。　履歴ファイルは 消さないで下さい。"_s,
         BoxIcon::Exclamation});
}

RirekiDB::Result RirekiDB::fill(const Place& place)
{
    FileInTheMaking file(pathIn(place.folder, place.fileName));
    awayFromLoop([&] {
        // What the list has under the hidden name is not an old half of this save.
        nameListedFiles(m_services.db, place.folder, m_historyExt);
        // Where the note cannot be taken, the load dialog still finds what is listed.
        (void)m_services.ini.setSaveInTheMaking(QString::fromStdString(file.path()));
        file.copyFrom(m_emptyDatabase);
    });
    advance();
    const Result result = moveOut(file);
    if (result != Done) {
        giveUp(file);
        return result;
    }
    file.keep();
    advance();
    conclude(place, file);
    advance();
    return Done;
}

/// Gives up a save. A commit that reported a failure may have succeeded; then only the file has the rows, and
/// it is kept.
void RirekiDB::giveUp(FileInTheMaking& file)
{
    rollBack();
    closeHistory();
    if (away([&] { return listingOf(m_services.db, file.aside(), file.path()); }) != Listing::NotListed)
        file.keep();
}

/// What is left to do once the rows live in the file.
void RirekiDB::conclude(const Place& place, const FileInTheMaking& file)
{
    const bool named = away([&] {
        const bool given = giveName(file.aside(), file.path());
        (void)m_services.ini.setLastSave(place.folder, QString::fromStdString(m_period.to),
                                         given ? QString() : QString::fromStdString(file.path()));
        return given;
    });
    if (!named) // a stick that was pulled out in this moment
        m_unreachable = QString::fromStdString(file.path());
}

/// Everything up to the commit that makes it permanent.
RirekiDB::Result RirekiDB::moveOut(FileInTheMaking& file)
{
    Result result = openHistory(file.aside(), true);
    clearRows();
    advance();
    for (const Side side : sides)
        if (result == Done)
            result = moveOut(side);
    if (result == Done)
        result = finish(file);
    if (result == Done)
        result = carry();
    if (result == Done)
        result = listPeriod(file.aside());
    return result == Done ? commit(m_services.db) : result;
}

RirekiDB::Result RirekiDB::moveOut(Side side)
{
    const MovementTable& table = movementTable(side);
    const std::string name(table.table.name);
    const SqlText where = " " + whereDated(table, m_period.from, m_period.to);
    AppDB& db = m_services.db;
    if (away([&] { return db.OpenRecordset("SELECT * From " + name + where); }) != DbStatus::Good)
        return Failed;
    advance();
    std::int64_t copied = 0;
    if (away([&] { return m_history->copyRows(db, table.table, copied); }) != DbStatus::Good)
        return Failed;
    clearRows();
    if (commit(*m_history) != Done)
        return Failed;
    advance();
    awayFromLoop([&] { db.Execute("DELETE From " + name + where); });
    // A row that left the table without being in the file would be lost.
    if (db.LastStatus() != DbStatus::Good || db.RowsChanged() != copied)
        return Failed;
    if (side == Side::Receipt)
        advance();
    return Done;
}

/// The history file is whole and on the disk, and nothing has the name that it will get.
RirekiDB::Result RirekiDB::finish(const FileInTheMaking& file)
{
    advance();
    m_stamp = stampOf(m_services.clock.now());
    const bool stored = away([&] {
        const bool filled = m_history->FinishFilling(historyMark(m_stamp)) == DbStatus::Good;
        m_history->Rollback();
        m_history->CloseFile();
        return filled && m_history->CloseAfterSave() == DbStatus::Good && file.isStored();
    });
    closeHistory();
    return stored ? Done : Failed;
}

RirekiDB::Result RirekiDB::listPeriod(const std::string& file)
{
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error)
        return Failed;
    // Without the row of the extension nobody would find the way back to the files.
    const std::string extension = m_historyExt.toStdString();
    const SentinelRow sentinel = findSentinel(m_services.db);
    if (sentinel == SentinelRow::Unreadable
        || (sentinel == SentinelRow::Missing && addSentinel(m_services.db, extension) != DbStatus::Good))
        return Failed;
    RirekiRec& rows = m_services.db.RirekiTbl();
    rows.Clear();
    rows.NewRows(1);
    rows.set(1, RirekiCol::DateFrom, m_period.from);
    rows.set(1, RirekiCol::DateTo, m_period.to);
    rows.set(1, RirekiCol::KakuTyo, extension);
    rows.set(1, RirekiCol::FileSize, std::to_string(size));
    rows.set(1, RirekiCol::FileUpdate, m_stamp);
    return away([&rows] { return rows.InsertRow(1); }) == DbStatus::Good ? Done : Failed;
}

} // namespace suisui

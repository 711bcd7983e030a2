// Loading a period back: out of its file, into the working tables.
#include "history/RirekiJob.h"
#include "history/UnfinishedSave.h"
#include "platform/core/Files.h"
#include "platform/core/FillIn.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "store/SqlText.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

RirekiDB::Result RirekiDB::load()
{
    static const Job job{
        u"履歴読込"_s, u" 履歴の読込 エラー"_s,
        u"「 履歴の読込 」 に失敗しました。　(Err={number})　　　　　　　　　　　　　\r\n\r\n{reason}\r\n\r\n　　　準備 ・ 確認した後に、再度、実行して下さい。"_s,
        deviceNotReady};
    m_services.db.InpList().Clear();
    m_services.db.OutList().Clear();
    settle();
    const auto nameListed = [this](const QString& folder) {
        nameListedFiles(m_services.db, folder, m_historyExt);
    };
    const Place place = m_prompts.askPlace({.saveMode = false,
                                            .caption = u"読み込む履歴ファイルを選択して下さい。"_s,
                                            .pattern = historyFilePattern(m_historyExt),
                                            .fileName = {},
                                            .beforeListing = nameListed});
    if (place.folder.isEmpty() || !isManaged(place))
        return Cancelled;
    bool fits = true;
    const Result loaded = run(job, [&] {
        Result result = openSound(place.fullPath.toStdString(), fits);
        if (result == Done)
            result = bringBack();
        if (result != Done) {
            rollBack();
            return result;
        }
        // What goes wrong from here on cannot be helped, and nothing is lost by it.
        awayFromLoop([&] { removeFile(place.fullPath.toStdString()); });
        advance();
        awayFromLoop([&] { m_services.ini.setLastHistoryFolder(place.folder); });
        advance();
        return Done;
    });
    if (fits)
        return loaded;
    refuse(place);
    return Cancelled;
}

/// Whether the file is the one that was saved from this database, and no other of the same period. Its row
/// stays in RirekiTbl. A file that cannot be read is left to the load to fail at.
bool RirekiDB::isManaged(const Place& place)
{
    const Period period = periodOf(place.fileName);
    const int count = m_services.db.RirekiTbl().Select(
        "Where DateFrom = " + bound(period.from) + "  And DateTo = " + bound(period.to)
        + "  And KakuTyo = " + bound(m_historyExt.toStdString()));
    const RirekiRec& rows = m_services.db.RirekiTbl();
    if (count >= 1 && away([&] { return fitOf(rows, 1, place.fullPath.toStdString()); }) != FileFit::Differs)
        return true;
    refuse(place);
    return false;
}

void RirekiDB::refuse(const Place& place)
{
    m_services.msgBox.show(
        {u" 履歴ファイル 管理不整合エラー"_s,
         fillIn(u"現在使用している情報では\r\n指定された履歴ファイルを管理していません。\r\n\r\n　　指定され"
                u"た 「 {file name} . {HistoryExt} 」 は\r\n　　現在使用している情報から "
                u"保存された履歴ファイルではありません。　　　\r\n\r\n【基本情報 登録】 の "
                u"「ファイル管理」で\r\n「履歴の保存」 を行った情報 を 読込んだ後に、再度、実行して下さい。",
                {{u"file name", place.fileName}, {u"HistoryExt", m_historyExt}}),
         BoxIcon::Stop});
}

/// Opens the file and looks through it, before anything of it goes anywhere. \a fits is false
/// for a file that can never be loaded, and true for one that cannot be read now.
RirekiDB::Result RirekiDB::openSound(const std::string& path, bool& fits)
{
    Result result = openHistory(path, false);
    if (result == Done && !away([this] { return m_history->IsSound(); }))
        result = Failed;
    fits = !m_history->LastFileWasUnfit();
    return result;
}

/// Everything up to the commit that makes it permanent.
RirekiDB::Result RirekiDB::bringBack()
{
    Result result = Done;
    clearRows();
    advance();
    for (const Side side : sides)
        if (result == Done)
            result = bringBack(side);
    if (result == Done)
        result = carry();
    closeHistory();
    if (result == Done)
        result = strikePeriod();
    return result == Done ? commit(m_services.db) : result;
}

RirekiDB::Result RirekiDB::bringBack(Side side)
{
    const MovementTable& table = movementTable(side);
    if (away([&] { return m_history->OpenRecordset("SELECT * From " + std::string(table.table.name)); })
        != DbStatus::Good)
        return Failed;
    advance();
    std::int64_t copied = 0;
    if (away([&] { return m_services.db.copyRows(*m_history, table.table, copied); }) != DbStatus::Good)
        return Failed;
    clearRows();
    advance();
    return Done;
}

/// Takes the period off the list.
RirekiDB::Result RirekiDB::strikePeriod()
{
    RirekiRec& rows = m_services.db.RirekiTbl();
    rows.PrepareDelete(1);
    return away([&rows] { return rows.DeleteRow(1); }) == DbStatus::Good ? Done : Failed;
}

} // namespace suisui

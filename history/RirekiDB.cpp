#include "history/RirekiDB.h"

#include <filesystem>
#include <new>
#include <optional>

#include "history/CarryForward.h"
#include "history/Sentinel.h"
#include "platform/core/AwayFromLoop.h"
#include "platform/core/Clock.h"
#include "platform/core/Files.h"
#include "platform/core/FillIn.h"
#include "platform/core/RunTimeError.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "store/Stamps.h"
#include "store/Where.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

/// A save or a load, as far as the operator sees a difference.
struct RirekiDB::Job
{
    QString waitTag;
    QString errorTitle;
    QString errorText;
    QString writeRefused; ///< reason where the file system takes no write
};

namespace {

constexpr int looksForASecond = 20;
constexpr Side sides[] = {Side::Receipt, Side::Shipment};

const QString deviceNotReady = u"　　　デバイス（ドライブ）の準備ができていません。"_s;

/// "Where NyuDate >= '20260101'  AND NyuDate <= '20260131'".
std::string inPeriod(const MovementTable& table, const Period& period)
{
    const std::string date(table.table.columns[static_cast<std::size_t>(table.columns.date)]);
    return " Where " + date + " >= " + inQuotes(period.from) + "  AND " + date + " <= " + inQuotes(period.to);
}

/// Result of \a work, done away from the loop.
template <typename Work> auto away(Work work)
{
    decltype(work()) result{};
    awayFromLoop([&] { result = work(); });
    return result;
}

std::string pathIn(const QString& folder, const QString& name)
{
    return (folder.endsWith(u'/') ? folder + name : folder + u'/' + name).toStdString();
}

} // namespace

RirekiDB::RirekiDB(const Services& services, HistoryPrompts& prompts, std::string emptyDatabase)
    : m_services(services), m_prompts(prompts), m_emptyDatabase(std::move(emptyDatabase))
{
}

RirekiDB::~RirekiDB() = default;

// ---- save

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
    const Place place = m_prompts.askPlace({.saveMode = true,
                                            .caption = u"履歴ファイルを保存する場所を選択して下さい。"_s,
                                            .pattern = historyFilePattern(m_historyExt),
                                            .fileName = historyFileName(m_period, m_historyExt)});
    if (place.folder.isEmpty())
        return Cancelled;
    return run(job, [&] { return fill(place); });
}

RirekiDB::Result RirekiDB::fill(const Place& place)
{
    FileInTheMaking file(pathIn(place.folder, place.fileName));
    awayFromLoop([&] { file.copyFrom(m_emptyDatabase); });
    advance();
    const Result result = moveOut(file);
    if (result != Done) {
        rollBack();
        closeHistory();
        return result;
    }
    file.keep();
    advance();
    awayFromLoop([&] {
        m_services.ini.setLastHistoryFolder(place.folder);
        m_services.ini.setLastHistoryTo(QString::fromStdString(m_period.to));
    });
    advance();
    return Done;
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
        result = listPeriod(file.path());
    return result == Done ? commit(m_services.db) : result;
}

RirekiDB::Result RirekiDB::moveOut(Side side)
{
    const MovementTable& table = movementTable(side);
    const std::string name(table.table.name);
    const std::string where = inPeriod(table, m_period);
    AppDB& db = m_services.db;
    if (away([&] { return db.OpenRecordset("SELECT * From " + name + where); }) != 0)
        return Failed;
    advance();
    std::int64_t copied = 0;
    if (away([&] { return m_history->copyRows(db, table.table, copied); }) != 0)
        return Failed;
    clearRows();
    if (commit(*m_history) != Done)
        return Failed;
    advance();
    awayFromLoop([&] { db.Execute("DELETE From " + name + where); });
    // A row that left the table without being in the file would be lost.
    if (db.LastStatus() != 0 || db.RowsChanged() != copied)
        return Failed;
    if (side == Side::Receipt)
        advance();
    return Done;
}

/// The history file is whole, on the disk, and has its name.
RirekiDB::Result RirekiDB::finish(FileInTheMaking& file)
{
    advance();
    const bool stored = away([&] {
        const bool filled = m_history->FinishFilling() == 0;
        m_history->Rollback();
        m_history->CloseFile();
        return filled && m_history->CloseAfterSave() == 0 && file.putInPlace();
    });
    closeHistory();
    return stored ? Done : Failed;
}

RirekiDB::Result RirekiDB::listPeriod(const std::string& path)
{
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    // Without the row of the extension nobody would find the way back to the files.
    const std::string extension = m_historyExt.toStdString();
    const SentinelRow sentinel = findSentinel(m_services.db);
    if (sentinel == SentinelRow::Unreadable
        || (sentinel == SentinelRow::Missing && addSentinel(m_services.db, extension) != 0))
        return Failed;
    RirekiRec& rows = m_services.db.RirekiTbl();
    rows.Clear();
    rows.NewRows(1);
    rows.set(1, RirekiCol::DateFrom, m_period.from);
    rows.set(1, RirekiCol::DateTo, m_period.to);
    rows.set(1, RirekiCol::KakuTyo, extension);
    rows.set(1, RirekiCol::FileSize, error ? "0" : std::to_string(size));
    rows.set(1, RirekiCol::FileUpdate, stampOf(m_services.clock.now()));
    return away([&rows] { return rows.InsertRow(1); }) == 0 ? Done : Failed;
}

// ---- load

RirekiDB::Result RirekiDB::load()
{
    static const Job job{
        u"履歴読込"_s, u" 履歴の読込 エラー"_s,
        u"「 履歴の読込 」 に失敗しました。　(Err={number})　　　　　　　　　　　　　\r\n\r\n{reason}\r\n\r\n　　　準備 ・ 確認した後に、再度、実行して下さい。"_s,
        deviceNotReady};
    m_services.db.InpList().Clear();
    m_services.db.OutList().Clear();
    const Place place = m_prompts.askPlace({.saveMode = false,
                                            .caption = u"読み込む履歴ファイルを選択して下さい。"_s,
                                            .pattern = historyFilePattern(m_historyExt),
                                            .fileName = {}});
    if (place.folder.isEmpty() || !isManaged(place))
        return Cancelled;
    return run(job, [&] {
        const Result result = bringBack(place.fullPath.toStdString());
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
}

/// Whether the file was saved from this database. Its row stays in RirekiTbl.
bool RirekiDB::isManaged(const Place& place)
{
    const Period period = periodOf(place.fileName);
    const int count = m_services.db.RirekiTbl().Select(
        "Where DateFrom = " + inQuotes(period.from) + "  And DateTo = " + inQuotes(period.to)
        + "  And KakuTyo = " + inQuotes(m_historyExt.toStdString()));
    if (count >= 1)
        return true;
    m_services.msgBox.show(
        {u" 履歴ファイル 管理不整合エラー"_s,
         fillIn(u"現在使用している情報では\r\n指定された履歴ファイルを管理していません。\r\n\r\n　　指定され"
                u"た 「 {file name} . {HistoryExt} 」 は\r\n　　現在使用している情報から "
                u"保存された履歴ファイルではありません。　　　\r\n\r\n【基本情報 登録】 の "
                u"「ファイル管理」で\r\n「履歴の保存」 を行った情報 を 読込んだ後に、再度、実行して下さい。",
                {{u"file name", place.fileName}, {u"HistoryExt", m_historyExt}}),
         BoxIcon::Stop});
    return false;
}

/// Everything up to the commit that makes it permanent.
RirekiDB::Result RirekiDB::bringBack(const std::string& path)
{
    Result result = openHistory(path, false);
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
    if (away([&] { return m_history->OpenRecordset("SELECT * From " + std::string(table.table.name)); }) != 0)
        return Failed;
    advance();
    std::int64_t copied = 0;
    if (away([&] { return m_services.db.copyRows(*m_history, table.table, copied); }) != 0)
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
    return away([&rows] { return rows.DeleteRow(1); }) == 0 ? Done : Failed;
}

// ---- both

/// Runs \a work behind the wait window. An error of the run time is told to the operator and leaves the
/// result as it stands; what it may have left half done is taken back.
RirekiDB::Result RirekiDB::run(const Job& job, const std::function<Result()>& work)
{
    m_progress = 0;
    m_services.frame.showWait(job.waitTag, 0);
    Result result = Done;
    std::optional<int> error;
    try {
        result = work();
    } catch (const RunTimeError& caught) {
        error = caught.number();
    } catch (const std::bad_alloc&) {
        error = RunTimeError::OutOfMemory;
    }
    if (error && m_progress > 0) // rows may be on their way
        rollBack();
    closeHistory();
    m_services.frame.unloadWait();
    if (error)
        report(job, *error);
    return result;
}

void RirekiDB::report(const Job& job, int number)
{
    const std::pair<int, QString> reasons[] = {
        {RunTimeError::OutOfMemory, u"　　　メモリ不足です。　他のアプリケーションを終了して下さい。"_s},
        {RunTimeError::DeviceNotReady, deviceNotReady},
        {RunTimeError::DiskFull, u"　　　空き容量が不足しています。"_s},
        {RunTimeError::PermissionDenied, job.writeRefused},
        {RunTimeError::PathAccessError, job.writeRefused},
        {RunTimeError::PathNotFound, job.writeRefused},
    };
    QString text = job.errorText;
    QString reason;
    for (const auto& [listed, words] : reasons)
        if (listed == number)
            reason = words;
    if (reason.isEmpty())
        text.remove(u"{reason}\r\n\r\n"_s);
    m_services.msgBox.show({job.errorTitle,
                            fillIn(text, {{u"number", QString::number(number)}, {u"reason", reason}}),
                            BoxIcon::Stop});
}

RirekiDB::Result RirekiDB::openHistory(const std::string& path, bool toFill)
{
    m_history = std::make_unique<AppDB>(folderOf(path));
    const int status = away([&] { return toFill ? m_history->OpenForFilling(path) : m_history->Open(path); });
    return status == 0 ? Done : Failed;
}

void RirekiDB::rollBack()
{
    awayFromLoop([this] { m_services.db.Rollback(); });
}

void RirekiDB::closeHistory()
{
    if (!m_history)
        return;
    awayFromLoop([this] {
        m_history->Rollback();
        m_history->CloseFile();
        m_history->Release();
    });
    m_history.reset();
}

/// Nothing that a list holds may stand in the way of the moving rows.
void RirekiDB::clearRows()
{
    AppDB& db = m_services.db;
    for (RowSet* rows :
         std::initializer_list<RowSet*>{&db.InpTbl(), &db.OutTbl(), &db.InpList(), &db.OutList()})
        rows->Clear();
    if (!m_history)
        return;
    m_history->InpList().Clear();
    m_history->OutList().Clear();
}

RirekiDB::Result RirekiDB::carry()
{
    const std::string stamp = freshStamp();
    const auto stepDone = [this] { inLoop([this] { advance(); }); };
    return away([&] { return carryForward(m_services.db, stamp, stepDone); }) == 0 ? Done : Failed;
}

/// Now, or the next second when a stock row carries this one: it would be taken for a row that the
/// computation has been at already.
std::string RirekiDB::freshStamp()
{
    std::string stamp = stampOf(m_services.clock.now());
    for (int look = 0; look < looksForASecond; ++look) {
        if (m_services.db.ZaikoTbl().CountRows("Where UpdDate = " + inQuotes(stamp)) <= 0)
            break;
        m_services.clock.letPass(std::chrono::milliseconds(1000 / looksForASecond));
        stamp = stampOf(m_services.clock.now());
    }
    return stamp;
}

RirekiDB::Result RirekiDB::commit(AppDB& db)
{
    awayFromLoop([&db] { db.Commit(); });
    return db.LastStatus() == 0 ? Done : Failed;
}

void RirekiDB::advance()
{
    m_services.frame.setWaitProgress(++m_progress);
}

} // namespace suisui

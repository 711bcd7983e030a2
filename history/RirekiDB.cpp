#include "history/RirekiDB.h"

#include <new>
#include <optional>

#include "history/RirekiJob.h"
#include "history/UnfinishedSave.h"
#include "platform/core/Clock.h"
#include "platform/core/Files.h"
#include "platform/core/FillIn.h"
#include "platform/core/RunTimeError.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "booking/CarryForward.h"
#include "store/Stamps.h"
#include "store/SqlText.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int looksForASecond = 20;

} // namespace

RirekiDB::RirekiDB(const Services& services, HistoryPrompts& prompts, std::string emptyDatabase)
    : m_services(services), m_prompts(prompts), m_emptyDatabase(std::move(emptyDatabase))
{
}

RirekiDB::~RirekiDB() = default;

void RirekiDB::settle()
{
    if (!m_services.ini.SaveInTheMaking().isEmpty())
        awayFromLoop([this] { settleUnfinishedSave(m_services.db, m_services.ini); });
}

/// Runs \a work under the wait window. A run-time error is reported to the operator and leaves the result
/// as it is; what it may have left half done is taken back.
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
    const DbStatus status =
        away([&] { return toFill ? m_history->OpenForFilling(path) : m_history->Open(path); });
    return status == DbStatus::Good ? Done : Failed;
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

/// Nothing that a list holds may get in the way of the moving rows.
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
    return away([&] { return carryForward(m_services.db, stamp, stepDone); }) == DbStatus::Good ? Done
                                                                                                : Failed;
}

/// Now, or the next second when a stock row carries this one: it would be taken for a row that the
/// computation has been at already.
std::string RirekiDB::freshStamp()
{
    std::string stamp = stampOf(m_services.clock.now());
    for (int look = 0; look < looksForASecond; ++look) {
        if (m_services.db.ZaikoTbl().CountRows("Where UpdDate = " + bound(stamp)) <= 0)
            break;
        m_services.clock.letPass(std::chrono::milliseconds(1000 / looksForASecond));
        stamp = stampOf(m_services.clock.now());
    }
    return stamp;
}

RirekiDB::Result RirekiDB::commit(AppDB& db)
{
    awayFromLoop([&db] { db.Commit(); });
    return db.LastStatus() == DbStatus::Good ? Done : Failed;
}

void RirekiDB::advance()
{
    m_services.frame.setWaitProgress(++m_progress);
}

} // namespace suisui

#include "store/AppDB.h"

#include <array>
#include <filesystem>

#include "platform/core/Files.h"

namespace suisui {

namespace {

// Codes of the engine.
constexpr int noError = 0;
constexpr int ownFailure = 1; // found by this layer and not by the engine

/// Statements that upgrade a file of an older layout by one version; step i upgrades version i + 1.
constexpr std::array<std::span<const std::string_view>, schemaVersion - 1> upgradeSteps{};

struct Advice
{
    DbStatus failure;
    const char* text;
};

constexpr const char* cannotBeOpened =
    "データベースを開けません。　　　\r\n\r\nデータファイルを確認して下さい。";

constexpr Advice advices[] = {
    {DbStatus::Busy,
     "他のプログラムが "
     "データベースを使用中です。　　　\r\n\r\n他のプログラムを終了してから、再度、操作して下さい。"},
    {DbStatus::Full,
     "ディスクの空き容量が足りません。　　　\r\n\r\n不要なファイルを削除してから、再度、操作して下さい。"},
    {DbStatus::ReadOnly,
     "データベースに書き込めません。　　　\r\n\r\nファイルとフォルダの 書き込み許可を確認して下さい。"},
    {DbStatus::Damaged, "データベースが壊れています。　　　\r\n\r\nバックアップから 復元して下さい。"},
    {DbStatus::NoDatabase, cannotBeOpened},
    {DbStatus::NotADatabase, cannotBeOpened},
};

/// Makes all tables in the empty file \a path. Empty on success, else what the engine says.
std::string makeTables(const std::string& path)
{
    Sqlite engine;
    int status = engine.open(path);
    const auto run = [&](std::string_view sql) {
        if (status == noError)
            status = engine.execute(sql);
    };
    run("BEGIN IMMEDIATE");
    for (const TableDef* table : allTables())
        for (const std::string& statement : createStatements(*table))
            run(statement);
    run("PRAGMA user_version=" + std::to_string(schemaVersion));
    run("COMMIT");
    return status == noError ? std::string() : engine.errorText();
}

} // namespace

AppDB::AppDB(std::string databaseFolder, ErrorSink showError)
    : m_databaseFolder(std::move(databaseFolder)), m_showError(std::move(showError)),
      m_inpTbl(*this, inpTable), m_outTbl(*this, outTable), m_masterTbl(*this, masterTable),
      m_kokyakuAll(*this, kokyakuTable), m_kokyakuNyu(*this, kokyakuTable), m_kokyakuSyu(*this, kokyakuTable),
      m_tantouTbl(*this, tantouTable), m_nyuSumTbl(*this, nyuSumQuery), m_syuSumTbl(*this, syuSumQuery),
      m_zaikoViewTbl(*this, zaikoViewQuery), m_nyuViewTbl(*this, nyuViewQuery),
      m_syuViewTbl(*this, syuViewQuery), m_inpList(*this, inpTable), m_outList(*this, outTable),
      m_zaikoTbl(*this, zaikoTable), m_masterSyu(*this, masterTable), m_masterPost(*this, masterTable),
      m_hseihinTbl(*this, hseihinTable), m_kokyakuSlip(*this, kokyakuTable), m_rirekiTbl(*this, rirekiTable)
{
}

AppDB::~AppDB()
{
    CloseFile();
}

DbStatus AppDB::Open(std::string_view file)
{
    CloseFile();
    const std::string path = file.find('/') == std::string_view::npos
                                 ? m_databaseFolder + "/" + std::string(file)
                                 : std::string(file);
    m_path = path;
    int code = m_engine.open(path);
    m_unfit = isDamage(code);
    std::string_view own; // faults that are none for the engine
    // A file that cannot be written is of no use to a shop: better to report it at the start than at the
    // first scan.
    if (code == noError && m_engine.isReadOnly()) {
        code = ownFailure;
        own = "it cannot be written to";
    }
    if (code == noError) {
        code = m_engine.execute("BEGIN IMMEDIATE");
        m_unfit = isDamage(code);
    }
    if (code == noError) {
        const bool ours = isOurs() && isWhole(path);
        code = m_engine.execute(ours ? "COMMIT" : "ROLLBACK");
        if (!ours) {
            m_unfit = true;
            code = ownFailure;
            own = "this is not a whole database of the program, or is one of a newer version";
        }
    }
    if (code == noError)
        code = m_engine.useOwnJournal();
    if (code != noError) {
        rememberFailure(code);
        if (!own.empty())
            m_lastErrText = own;
        report(m_lastFailure);
        m_engine.close();
        m_lastStatus = m_lastFailure;
        return m_lastStatus;
    }
    return succeed();
}

/// Whether the open file is a database of this program. Upgrades an older layout. Runs inside a transaction.
bool AppDB::isOurs()
{
    std::int64_t version = 0;
    if (m_engine.selectNumber("PRAGMA user_version", version) != noError || version < 1
        || version > schemaVersion)
        return false;
    for (auto step = static_cast<std::size_t>(version) - 1; step < upgradeSteps.size(); ++step)
        for (const std::string_view statement : upgradeSteps[step])
            if (m_engine.execute(statement) != noError)
                return false;
    for (const TableDef* table : allTables()) {
        std::string columns;
        const int code =
            m_engine.select("SELECT cid, name FROM pragma_table_info(" + bound(table->name) + ")",
                            [&columns](std::int64_t, std::span<const std::string_view> texts) {
                                columns += texts[0];
                                columns += ',';
                            });
        std::string expected;
        for (const std::string_view column : table->columns) {
            expected += column;
            expected += ',';
        }
        if (code != noError || columns != expected)
            return false;
    }
    return version == schemaVersion
           || m_engine.execute("PRAGMA user_version=" + std::to_string(schemaVersion)) == noError;
}

/// Whether the file is as long as its header says. The engine accepts a last page that is cut short.
bool AppDB::isWhole(const std::string& path)
{
    std::int64_t pages = 0;
    std::int64_t pageSize = 0;
    std::error_code code;
    const std::uintmax_t length = std::filesystem::file_size(path, code);
    return !code && m_engine.selectNumber("PRAGMA page_count", pages) == noError
           && m_engine.selectNumber("PRAGMA page_size", pageSize) == noError
           && length >= static_cast<std::uintmax_t>(pages * pageSize);
}

bool AppDB::isDamage(int engineCode)
{
    const DbStatus kind = Sqlite::statusOf(engineCode);
    return kind == DbStatus::Damaged || kind == DbStatus::NotADatabase;
}

bool AppDB::IsSound()
{
    bool sound = false;
    const int code = m_engine.checkPages(sound);
    if (code != noError)
        failRead(code);
    m_unfit = code == noError ? !sound : isDamage(code);
    return sound;
}

std::optional<std::uint32_t> AppDB::MarkOf(const std::string& path)
{
    return Sqlite::headerNumber(path);
}

DbStatus AppDB::beginWrite()
{
    if (m_inUnit) {
        if (m_engine.inTransaction())
            return DbStatus::Good;
        // The engine has ended the unit by itself, as it does on a full disk. What was written before is
        // gone, so what follows must not be stored alone. Each further attempt reports the cause again.
        m_lastStatus = DbStatus::Failed;
        report(m_lastFailure);
        return m_lastStatus;
    }
    const int code = m_engine.execute("BEGIN IMMEDIATE");
    if (code != noError)
        return fail(code);
    m_inUnit = true;
    return DbStatus::Good;
}

/// What LastFailure, LastErrNo and LastErrText say from here on.
void AppDB::rememberFailure(int engineCode)
{
    m_lastFailure = Sqlite::statusOf(engineCode);
    m_lastErrNo = std::to_string(m_lastFailure == DbStatus::DuplicateKey ? static_cast<int>(m_lastFailure)
                                                                         : engineCode);
    m_lastErrText = m_engine.errorText();
}

DbStatus AppDB::fail(int engineCode)
{
    rememberFailure(engineCode);
    m_lastStatus = m_lastFailure;
    report(m_lastFailure);
    return m_lastStatus;
}

DbStatus AppDB::succeed()
{
    m_lastStatus = DbStatus::Good;
    return m_lastStatus;
}

DbStatus AppDB::refuse()
{
    m_lastFailure = DbStatus::RowChanged;
    m_lastErrNo.clear();
    m_lastErrText = "the row was changed or deleted meanwhile";
    m_lastStatus = m_lastFailure;
    return m_lastStatus;
}

DbStatus AppDB::failRead(int engineCode)
{
    rememberFailure(engineCode);
    report(m_lastFailure);
    return m_lastFailure;
}

DbStatus AppDB::failOwn(std::string why)
{
    m_lastFailure = DbStatus::Failed;
    m_lastErrNo = std::to_string(ownFailure);
    m_lastErrText = std::move(why);
    m_lastStatus = m_lastFailure;
    return m_lastStatus;
}

/// Shows a failure to the operator; only a duplicate key is left to the caller.
void AppDB::report(DbStatus failure)
{
    if (m_showErrors && m_showError && failure != DbStatus::DuplicateKey)
        m_showError(adviceFor(failure));
}

std::string AppDB::adviceFor(DbStatus failure) const
{
    for (const Advice& advice : advices)
        if (advice.failure == failure)
            return advice.text;
    return "データベースの処理に失敗しました。　　　\r\n\r\n　（ " + m_lastErrNo + " : " + m_lastErrText
           + " ）";
}

void AppDB::Commit()
{
    m_lastStatus = DbStatus::Good;
    if (!m_inUnit)
        return;
    if (!m_engine.inTransaction()) {
        m_lastStatus = DbStatus::Failed;
        return; // ended by the engine; the caller rolls back
    }
    const int code = m_engine.execute("COMMIT");
    if (code != noError) {
        fail(code);
        return;
    }
    m_inUnit = false;
    for (RowSet* rows : m_rowSets)
        rows->unitCommitted();
}

void AppDB::Rollback()
{
    if (!m_inUnit)
        return;
    if (m_engine.inTransaction())
        (void)m_engine.execute("ROLLBACK");
    m_inUnit = false;
    for (RowSet* rows : m_rowSets)
        rows->unitRolledBack();
}

DbStatus AppDB::CloseAfterSave()
{
    return syncToDisk(m_path) ? DbStatus::Good : DbStatus::Failed;
}

void AppDB::CloseFile()
{
    CloseRecordset();
    Rollback();
    m_engine.close();
}

DbStatus AppDB::OpenRecordset(const SqlText& sql)
{
    CloseRecordset();
    Sqlite::Cursor cursor;
    const int code = m_engine.openCursor(sql, cursor);
    if (code != noError)
        return failRead(code);
    const int first = m_recordset.start(std::move(cursor));
    if (first != noError) {
        const DbStatus status = failRead(first);
        m_recordset.close();
        return status;
    }
    return DbStatus::Good;
}

void AppDB::CloseRecordset()
{
    m_recordset.close();
}

void AppDB::Execute(const SqlText& sql)
{
    if (beginWrite() != DbStatus::Good)
        return;
    const int code = m_engine.execute(sql);
    if (code != noError)
        fail(code);
    else
        succeed();
}

void AppDB::Release()
{
    CloseFile();
    for (RowSet* rows : m_rowSets)
        rows->Clear();
}

DbStatus AppDB::Create(const std::string& path, std::string* error)
{
    namespace fs = std::filesystem;
    const fs::path target(path);
    const fs::path aside = target.string() + ".new";
    std::error_code code;
    const auto give = [error](const std::string& why) {
        if (error != nullptr)
            *error = why;
        return DbStatus::Failed;
    };
    if (fs::exists(target, code))
        return give("already there: " + path);
    fs::remove(aside, code);
    // The engine opens existing files only; an empty file is a database without tables.
    if (!makeEmptyFile(aside))
        return give("cannot write " + aside.string());
    if (const std::string why = makeTables(aside); !why.empty()) {
        fs::remove(aside, code);
        return give(why);
    }
    if (!storeAs(aside, target)) {
        fs::remove(aside, code);
        return give("cannot write " + path);
    }
    return DbStatus::Good;
}

} // namespace suisui

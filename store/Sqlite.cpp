#include "store/Sqlite.h"

#include <array>
#include <fstream>
#include <vector>

#include <sqlite3.h>

#include "store/Dialect.h"

namespace suisui {

namespace {

constexpr int busyMilliseconds = 500; // another program's write is short; a longer one is a lock to report
constexpr const char* nulCharacter = "the statement holds a NUL character";
constexpr int widestTable = 32; // columns of a row that are passed on without a heap block

std::string_view columnText(sqlite3_stmt* statement, int column)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    if (text == nullptr)
        return {};
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

/// Resets a kept statement at the end of its scope: one left half done would hold a lock.
struct InUse
{
    explicit InUse(sqlite3_stmt* kept) : statement(kept) {}
    ~InUse()
    {
        sqlite3_reset(statement);
        sqlite3_clear_bindings(statement);
    }
    InUse(const InUse&) = delete;
    InUse& operator=(const InUse&) = delete;
    sqlite3_stmt* statement;
};

/// Settings of a connection that the rules rely on.
constexpr const char* setUp[] = {
    "PRAGMA synchronous=FULL",
    "PRAGMA trusted_schema=OFF",
};

// With a journal that is deleted, a commit is the removal of a directory entry, for which the engine does not
// flush the folder: a power cut brings the journal back, and it undoes the commit. A journal that is cut to
// length 0 is flushed like any file (sqlite.org/pragma.html, journal_mode and synchronous).
constexpr std::string_view ownJournal = "truncate";
constexpr const char* noJournalFile = "PRAGMA journal_mode=DELETE";

// sqlite.org/fileformat.html, the database header
constexpr std::string_view headerMagic("SQLite format 3\0", 16);
constexpr std::size_t headerLength = 100;
constexpr std::size_t applicationNumberAt = 68;

} // namespace

void Sqlite::Finalize::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

Sqlite::Sqlite() = default;

Sqlite::~Sqlite()
{
    close();
}

int Sqlite::open(const std::string& path)
{
    close();
    m_ownError.clear();
    // One thread uses the connection, so no call of the engine needs to take a lock.
    constexpr int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX;
    int code = sqlite3_open_v2(path.c_str(), &m_db, flags, nullptr);
    if (code == SQLITE_OK)
        code = registerDialect(m_db);
    if (code == SQLITE_OK) {
        sqlite3_busy_timeout(m_db, busyMilliseconds);
        // A misspelt column must be an error, never a text; and no statement may reach another file.
        sqlite3_db_config(m_db, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
        sqlite3_db_config(m_db, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
        sqlite3_db_config(m_db, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
        sqlite3_limit(m_db, SQLITE_LIMIT_ATTACHED, 0);
        for (const char* statement : setUp)
            if (code == SQLITE_OK)
                code = execute(statement);
    }
    if (code != SQLITE_OK) {
        std::string why = errorText(); // close() would lose it
        close();
        m_ownError = std::move(why);
    }
    return code;
}

void Sqlite::close()
{
    m_kept.clear();
    if (m_ownJournal && !inTransaction())
        (void)execute(noJournalFile); // nothing is left beside the database
    m_ownJournal = false;
    if (m_db != nullptr)
        sqlite3_close_v2(m_db);
    m_db = nullptr;
}

int Sqlite::useOwnJournal()
{
    if (pragmaText("PRAGMA journal_mode=" + std::string(ownJournal)) == ownJournal) {
        m_ownJournal = true;
        return SQLITE_OK;
    }
    const int code = m_db == nullptr ? SQLITE_MISUSE : sqlite3_extended_errcode(m_db);
    return code == SQLITE_OK || code == SQLITE_ROW || code == SQLITE_DONE ? SQLITE_BUSY : code;
}

int Sqlite::checkPages(bool& sound)
{
    Cursor cursor;
    int code = openCursor("PRAGMA quick_check(1)", cursor);
    if (code == SQLITE_OK)
        code = cursor.next();
    sound = code == SQLITE_OK && cursor.text(0) == "ok";
    return code;
}

std::optional<std::uint32_t> Sqlite::headerNumber(const std::string& path)
{
    std::array<char, headerLength> header{};
    std::ifstream file(path, std::ios::binary);
    if (!file.read(header.data(), header.size())
        || std::string_view(header.data(), headerMagic.size()) != headerMagic)
        return std::nullopt;
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < sizeof number; ++i)
        number = number << 8 | static_cast<unsigned char>(header[applicationNumberAt + i]);
    return number;
}

int Sqlite::setHeaderNumber(std::uint32_t number)
{
    // The engine takes a signed number of the same 32 bits.
    return execute("PRAGMA application_id=" + std::to_string(static_cast<std::int32_t>(number)));
}

std::string Sqlite::pragmaText(std::string_view pragma)
{
    Cursor cursor;
    const bool answered = openCursor(pragma, cursor) == SQLITE_OK && cursor.next() == SQLITE_OK;
    return answered ? std::string(cursor.text(0)) : std::string();
}

bool Sqlite::isReadOnly() const
{
    return m_db == nullptr || sqlite3_db_readonly(m_db, "main") != 0;
}

int Sqlite::prepare(std::string_view sql, unsigned flags, sqlite3_stmt** statement)
{
    m_ownError.clear();
    *statement = nullptr;
    if (m_db == nullptr) {
        m_ownError = "no database is open";
        return SQLITE_MISUSE;
    }
    if (sql.find('\0') != std::string_view::npos) {
        m_ownError = nulCharacter;
        return SQLITE_ERROR;
    }
    const char* tail = nullptr;
    int code = sqlite3_prepare_v3(m_db, sql.data(), static_cast<int>(sql.size()), flags, statement, &tail);
    if (code != SQLITE_OK)
        return code;
    const std::string_view rest(tail, static_cast<std::size_t>(sql.data() + sql.size() - tail));
    if (*statement == nullptr || rest.find_first_not_of(" \t\r\n") != std::string_view::npos) {
        sqlite3_finalize(*statement);
        *statement = nullptr;
        m_ownError = "not exactly one statement";
        code = SQLITE_ERROR;
    }
    return code;
}

int Sqlite::kept(const std::string& sql, sqlite3_stmt** statement)
{
    m_ownError.clear();
    const auto found = m_kept.find(sql);
    if (found != m_kept.end()) {
        *statement = found->second.get();
        return SQLITE_OK;
    }
    const int code = prepare(sql, SQLITE_PREPARE_PERSISTENT, statement);
    if (code == SQLITE_OK)
        m_kept.emplace(sql, Statement(*statement));
    return code;
}

/// The texts are copied, so that a cursor may outlive the statement that it was opened with.
int Sqlite::bindTexts(sqlite3_stmt* statement, const std::vector<std::string>& values)
{
    if (values.size() != static_cast<std::size_t>(sqlite3_bind_parameter_count(statement))) {
        m_ownError = "not as many texts as question marks";
        return SQLITE_RANGE;
    }
    int code = SQLITE_OK;
    for (std::size_t i = 0; i < values.size() && code == SQLITE_OK; ++i) {
        if (values[i].find('\0') != std::string::npos) {
            m_ownError = nulCharacter;
            return SQLITE_ERROR;
        }
        code = sqlite3_bind_text64(statement, static_cast<int>(i) + 1, values[i].data(), values[i].size(),
                                   SQLITE_TRANSIENT, SQLITE_UTF8);
    }
    return code;
}

int Sqlite::prepareBound(const SqlText& sql, Statement& statement)
{
    sqlite3_stmt* raw = nullptr;
    const int code = prepare(sql.text(), 0, &raw);
    statement.reset(raw);
    return code == SQLITE_OK ? bindTexts(raw, sql.values()) : code;
}

int Sqlite::execute(const SqlText& sql)
{
    Statement statement;
    int code = prepareBound(sql, statement);
    if (code != SQLITE_OK)
        return code;
    while ((code = sqlite3_step(statement.get())) == SQLITE_ROW) {
    }
    return code == SQLITE_DONE ? SQLITE_OK : code;
}

int Sqlite::executeBound(const std::string& sql, std::span<const std::string_view> values, std::int64_t rowId)
{
    sqlite3_stmt* statement = nullptr;
    int code = kept(sql, &statement);
    if (code != SQLITE_OK)
        return code;
    const InUse inUse{statement};
    int parameter = 0;
    for (const std::string_view value : values) {
        // The pointer of an empty view may be null, which would bind a Null.
        const char* text = value.data() == nullptr ? "" : value.data();
        code = sqlite3_bind_text64(statement, ++parameter, text, value.size(), SQLITE_STATIC, SQLITE_UTF8);
        if (code != SQLITE_OK)
            break;
    }
    if (code == SQLITE_OK && parameter < sqlite3_bind_parameter_count(statement))
        code = sqlite3_bind_int64(statement, ++parameter, rowId);
    if (code == SQLITE_OK) {
        code = sqlite3_step(statement);
        if (code == SQLITE_DONE || code == SQLITE_ROW)
            code = SQLITE_OK;
    }
    return code;
}

int Sqlite::select(const SqlText& sql, const RowHandler& handler)
{
    sqlite3_stmt* statement = nullptr;
    int code = kept(sql.text(), &statement);
    if (code != SQLITE_OK)
        return code;
    const InUse inUse{statement};
    code = bindTexts(statement, sql.values());
    const int count = sqlite3_column_count(statement) - 1;
    std::array<std::string_view, widestTable> few;
    std::vector<std::string_view> many(count > widestTable ? static_cast<std::size_t>(count) : 0);
    const std::span<std::string_view> texts =
        many.empty() ? std::span(few).first(static_cast<std::size_t>(count)) : std::span(many);
    if (code == SQLITE_OK) {
        while ((code = sqlite3_step(statement)) == SQLITE_ROW) {
            for (int i = 0; i < count; ++i)
                texts[static_cast<std::size_t>(i)] = columnText(statement, i + 1);
            handler(sqlite3_column_int64(statement, 0), texts);
        }
    }
    return code == SQLITE_DONE ? SQLITE_OK : code;
}

int Sqlite::selectNumber(const SqlText& sql, std::int64_t& number)
{
    Statement statement;
    int code = prepareBound(sql, statement);
    if (code != SQLITE_OK)
        return code;
    number = 0;
    code = sqlite3_step(statement.get());
    if (code == SQLITE_ROW) {
        number = sqlite3_column_int64(statement.get(), 0);
        return SQLITE_OK;
    }
    return code == SQLITE_DONE ? SQLITE_OK : code;
}

int Sqlite::selectNumberBound(const std::string& sql, std::int64_t rowId, std::int64_t& number)
{
    sqlite3_stmt* statement = nullptr;
    int code = kept(sql, &statement);
    if (code != SQLITE_OK)
        return code;
    const InUse inUse{statement};
    number = 0;
    code = sqlite3_bind_int64(statement, 1, rowId);
    if (code == SQLITE_OK)
        code = sqlite3_step(statement);
    if (code == SQLITE_ROW)
        number = sqlite3_column_int64(statement, 0);
    return code == SQLITE_ROW || code == SQLITE_DONE ? SQLITE_OK : code;
}

int Sqlite::changes() const
{
    return m_db == nullptr ? 0 : sqlite3_changes(m_db);
}

std::int64_t Sqlite::lastRowId() const
{
    return m_db == nullptr ? 0 : sqlite3_last_insert_rowid(m_db);
}

bool Sqlite::inTransaction() const
{
    return m_db != nullptr && sqlite3_get_autocommit(m_db) == 0;
}

int Sqlite::copyTo(const std::string& path)
{
    Sqlite target;
    int code = target.open(path);
    // An unfinished copy is thrown away, so it needs neither a journal nor flushing.
    for (const char* statement : {"PRAGMA journal_mode=MEMORY", "PRAGMA synchronous=OFF"})
        if (code == SQLITE_OK)
            code = target.execute(statement);
    if (code == SQLITE_OK) {
        sqlite3_backup* copy = sqlite3_backup_init(target.m_db, "main", m_db, "main");
        if (copy != nullptr) {
            // All pages in one step: between two steps another program could change what was copied.
            const int step = sqlite3_backup_step(copy, -1);
            const int finish = sqlite3_backup_finish(copy);
            code = step == SQLITE_DONE ? finish : step;
        } else {
            code = sqlite3_extended_errcode(target.m_db);
        }
    }
    if (code != SQLITE_OK)
        m_ownError = "copy: " + (target.isOpen() ? target.errorText() : std::string(sqlite3_errstr(code)));
    return code;
}

DbStatus Sqlite::statusOf(int code)
{
    if (code == SQLITE_OK)
        return DbStatus::Good;
    if (code == SQLITE_CONSTRAINT_UNIQUE || code == SQLITE_CONSTRAINT_PRIMARYKEY)
        return DbStatus::DuplicateKey;
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return DbStatus::Busy;
    case SQLITE_FULL:
        return DbStatus::Full;
    case SQLITE_IOERR: // a quota or a limit on the file's size appears as a failed write
        return code == SQLITE_IOERR_WRITE ? DbStatus::Full : DbStatus::Failed;
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return DbStatus::ReadOnly;
    case SQLITE_CORRUPT:
        return DbStatus::Damaged;
    case SQLITE_NOTADB:
        return DbStatus::NotADatabase;
    case SQLITE_CANTOPEN:
        return DbStatus::NoDatabase;
    default:
        return DbStatus::Failed;
    }
}

std::string Sqlite::errorText() const
{
    if (!m_ownError.empty())
        return m_ownError;
    return m_db == nullptr ? "no database is open" : sqlite3_errmsg(m_db);
}

Sqlite::Cursor::Cursor(sqlite3_stmt* statement) : m_statement(statement) {}

int Sqlite::Cursor::next()
{
    const int code = sqlite3_step(m_statement.get());
    if (code == SQLITE_ROW)
        return SQLITE_OK;
    return code == SQLITE_DONE ? endOfRows : code;
}

int Sqlite::Cursor::columnCount() const
{
    return sqlite3_column_count(m_statement.get());
}

std::string_view Sqlite::Cursor::columnName(int column) const
{
    return sqlite3_column_name(m_statement.get(), column);
}

std::string_view Sqlite::Cursor::text(int column) const
{
    return columnText(m_statement.get(), column);
}

int Sqlite::openCursor(const SqlText& sql, Cursor& cursor)
{
    Statement statement;
    const int code = prepareBound(sql, statement);
    if (code == SQLITE_OK)
        cursor = Cursor(statement.release());
    return code;
}

} // namespace suisui

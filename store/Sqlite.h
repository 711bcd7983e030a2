// The database engine under AppDB. With Dialect and ArrivingRows it is the only code that uses SQLite, so
// another engine would replace these three. Results are engine codes: 0 is success.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/DbStatus.h"
#include "store/SqlText.h"

struct sqlite3;
struct sqlite3_stmt;

namespace suisui {

class ArrivingRows;

class Sqlite
{
    struct Finalize
    {
        void operator()(sqlite3_stmt* statement) const;
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

public:
    /// Columns of one row as the engine has them; the views live until the next row.
    using RowHandler = std::function<void(std::int64_t rowId, std::span<const std::string_view> columns)>;

    Sqlite();
    ~Sqlite();
    Sqlite(const Sqlite&) = delete;
    Sqlite& operator=(const Sqlite&) = delete;

    /// Opens an existing file for reading and writing. Never creates one.
    [[nodiscard]] int open(const std::string& path);
    void close();
    /// From here on a commit that has returned survives a power cut, whichever journal mode the file had. The
    /// source says how. Nonzero when another process is in the way.
    [[nodiscard]] int useOwnJournal();
    [[nodiscard]] bool isOpen() const { return m_db != nullptr; }
    [[nodiscard]] bool isReadOnly() const;

    // A statement with trailing text, a NUL byte, or not as many bound texts as question marks is an error.

    /// Runs one statement without a result.
    [[nodiscard]] int execute(const SqlText& sql);
    /// Runs a statement with \a values bound as texts in order; the statement is prepared once and kept.
    [[nodiscard]] int executeBound(const std::string& sql, std::span<const std::string_view> values,
                                   std::int64_t rowId = 0);
    /// Runs a SELECT whose first column is the row id and hands each row's other columns to \a handler, which
    /// must not select with the same statement itself. The statement is prepared once and kept.
    [[nodiscard]] int select(const SqlText& sql, const RowHandler& handler);
    /// First column of the first row as a number.
    [[nodiscard]] int selectNumber(const SqlText& sql, std::int64_t& number);
    /// As selectNumber, for a kept statement with \a rowId bound.
    [[nodiscard]] int selectNumberBound(const std::string& sql, std::int64_t rowId, std::int64_t& number);

    /// Runs \a insert, an "INSERT INTO table (columns)", with a SELECT of all \a rows appended. changes() is
    /// then the number of rows added.
    [[nodiscard]] int insertArriving(std::string_view insert, ArrivingRows& rows);

    /// Number of rows that the last INSERT, UPDATE or DELETE changed.
    [[nodiscard]] int changes() const;
    [[nodiscard]] std::int64_t lastRowId() const;
    /// True while a transaction is open in the engine, which may have ended it by itself on a full disk.
    [[nodiscard]] bool inTransaction() const;

    /// Checks all pages and rows. An engine code, or 0 with the outcome in \a sound.
    [[nodiscard]] int checkPages(bool& sound);
    /// The application's number in the header of the file \a path; none when the file cannot be read or is
    /// not a database. Takes no lock.
    [[nodiscard]] static std::optional<std::uint32_t> headerNumber(const std::string& path);
    [[nodiscard]] int setHeaderNumber(std::uint32_t number);

    /// Copies the database, as this connection sees it, to the empty file \a path. Does not flush it.
    [[nodiscard]] int copyTo(const std::string& path);

    /// What an engine code means to the layer above.
    [[nodiscard]] static DbStatus statusOf(int code);
    [[nodiscard]] std::string errorText() const;

    /// A forward cursor over a SELECT.
    class Cursor
    {
    public:
        Cursor() = default;
        explicit Cursor(sqlite3_stmt* statement);
        /// Steps to the next row: 0 when there is one, endOfRows when there is none, else an engine code.
        [[nodiscard]] int next();
        [[nodiscard]] int columnCount() const;
        [[nodiscard]] std::string_view columnName(int column) const;
        [[nodiscard]] std::string_view text(int column) const;
        [[nodiscard]] bool isOpen() const { return m_statement != nullptr; }
        void close() { m_statement.reset(); }
        static constexpr int endOfRows = -1;

    private:
        Statement m_statement;
    };
    [[nodiscard]] int openCursor(const SqlText& sql, Cursor& cursor);

private:
    /// Prepares exactly one statement.
    [[nodiscard]] int prepare(std::string_view sql, unsigned flags, sqlite3_stmt** statement);
    /// Prepares a statement for one use and binds its texts.
    [[nodiscard]] int prepareBound(const SqlText& sql, Statement& statement);
    [[nodiscard]] int bindTexts(sqlite3_stmt* statement, const std::vector<std::string>& values);
    [[nodiscard]] int kept(const std::string& sql, sqlite3_stmt** statement);

    /// The text that a pragma returns; empty when it fails.
    [[nodiscard]] std::string pragmaText(std::string_view pragma);

    sqlite3* m_db = nullptr;
    bool m_ownJournal = false;
    std::unordered_map<std::string, Statement> m_kept;
    std::string m_ownError; ///< replaces the text of the engine when it is not empty
};

} // namespace suisui

// A program folder of its own for a test, with an empty working database and room for rows.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <QDir>
#include <QTemporaryDir>

#include "store/AppDB.h"
#include "tests/support/InMemory.h"

namespace suisui::test {

/// Rows of "SELECT ..." in the database \a file as a connection of its own sees them, columns joined by "|".
[[nodiscard]] std::vector<std::string> queryFile(const std::string& file, const std::string& sql);

class TempShop
{
public:
    /// The folder is in memory where the system offers that, so that a test waits for no disk; a benchmark
    /// names a folder on one.
    explicit TempShop(const QString& where = inMemory()) : m_dir(where + QStringLiteral("/suisui-XXXXXX"))
    {
        QDir(m_dir.path()).mkpath(QStringLiteral("DB"));
        QDir(m_dir.path()).mkpath(QStringLiteral("Ini"));
        if (AppDB::Create(databaseFile()) != DbStatus::Good)
            std::abort();
    }

    [[nodiscard]] QString base() const { return m_dir.path(); }
    [[nodiscard]] std::string databaseFolder() const
    {
        return (m_dir.path() + QStringLiteral("/DB")).toStdString();
    }
    [[nodiscard]] std::string databaseFile() const { return databaseFolder() + "/trnvik.mdb"; }

    /// Puts a row of \a table into the database through a connection of its own; missing texts are empty.
    void add(const TableDef& table, const std::vector<std::string>& texts) const
    {
        AppDB db(databaseFolder());
        if (db.Open("trnvik.mdb") != DbStatus::Good)
            std::abort();
        RowSet rows(db, table);
        rows.NewRows(1);
        for (std::size_t i = 0; i < texts.size(); ++i)
            rows.set(1, static_cast<int>(i), texts[i]);
        if (rows.InsertRow(1) != DbStatus::Good)
            std::abort();
        db.Commit();
    }

    /// Somebody else's program does \a sql to the shop and stores it.
    void execute(const std::string& sql) const;

    /// Rows of "SELECT ..." as a second connection sees them, columns joined by "|".
    [[nodiscard]] std::vector<std::string> query(const std::string& sql) const
    {
        return queryFile(databaseFile(), sql);
    }

private:
    QTemporaryDir m_dir;
};

} // namespace suisui::test

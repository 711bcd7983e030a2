// A Jet 3 or Jet 4 database file, read only. Texts come as UTF-8; Null and the empty text are one.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace suisui {

class JetFile
{
public:
    struct Column
    {
        std::string name;
        bool readable = true; ///< a text or a number; not a date, a picture or the like
    };
    struct Table
    {
        std::string name;
        std::vector<Column> columns; ///< in the file's own order
        int declaredRows = 0;        ///< how many rows the file says it has
    };
    /// A row, numbered from 1. \a broken names the columns whose bytes are no text or do not fit.
    using RowHandler =
        std::function<void(int number, std::span<const std::string> texts, std::span<const int> broken)>;

    JetFile();
    ~JetFile();
    JetFile(const JetFile&) = delete;
    JetFile& operator=(const JetFile&) = delete;

    /// False, with the reason in \a why, for a file that is none of the two.
    [[nodiscard]] bool open(const std::string& path, std::string& why);
    /// The table of this name, letter case aside; false when there is none or it cannot be read.
    [[nodiscard]] bool describe(std::string_view name, Table& table);
    /// Hands every row of \a table to \a handler. Returns the number of rows, -1 when there is no reading it.
    [[nodiscard]] int read(const Table& table, const RowHandler& handler);

private:
    struct Handle;
    std::unique_ptr<Handle> m_file;
};

} // namespace suisui

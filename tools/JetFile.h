// A Jet 3 or Jet 4 database file, read only. Texts are UTF-8; Null and the empty text are the same.
//
// The file comes from elsewhere and may be damaged in any way, but the library that reads it trusts it. So a
// separate process reads the whole file (JetReader); when that crashes or does not end, the file is refused.
#pragma once

#include <cstdint>
#include <functional>
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
    struct Row
    {
        int number = 0; ///< counted from 1
        std::vector<std::string> texts;
        std::vector<int> broken; ///< columns whose bytes are not text or do not fit
        bool cutOff = false;     ///< the file ends before the row does, so nothing of it counts
    };
    using RowHandler = std::function<void(const Row& row)>;

    /// Reads \a tables of the file. False, with the reason in \a why, for a file that is of neither format or
    /// damaged. Tables that it does not have are not an error.
    [[nodiscard]] bool open(const std::string& path, std::span<const std::string_view> tables,
                            std::string& why);
    /// Gets the table of this name; false when the file has none or it cannot be read.
    [[nodiscard]] bool describe(std::string_view name, Table& table) const;
    /// Hands every row of \a table to \a handler. Returns the number of rows, -1 when there is no such table.
    [[nodiscard]] int read(const Table& table, const RowHandler& handler) const;

    /// Bytes that the file's last page lacks; 0 for a whole file.
    [[nodiscard]] std::uint32_t missingBytes() const { return m_missingBytes; }

private:
    struct Place
    {
        Table table;
        std::size_t rows; ///< offset of its rows in m_bytes
    };

    [[nodiscard]] bool index(std::string& why);
    [[nodiscard]] const Place* placeOf(std::string_view name) const;

    std::string m_bytes; ///< output of the reading process
    std::vector<Place> m_tables;
    std::uint32_t m_missingBytes = 0;
};

} // namespace suisui

// A Jet 3 or Jet 4 database file, read only. Texts come as UTF-8; Null and the empty text are one.
//
// The file comes from elsewhere and may be damaged in any way, and the library that reads it trusts it. So
// all of it is read by a process of its own (JetReader); should that crash or find no end, the file is
// refused.
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
        std::vector<int> broken; ///< columns whose bytes are no text or do not fit
        bool cutOff = false;     ///< the file ends before the row does, so nothing of it counts
    };
    using RowHandler = std::function<void(const Row& row)>;

    /// Reads \a tables of the file. False, with the reason in \a why, for a file that is none of the two or
    /// is damaged. Tables that it does not have are no error.
    [[nodiscard]] bool open(const std::string& path, std::span<const std::string_view> tables,
                            std::string& why);
    /// The table of this name; false when the file has none or it cannot be read.
    [[nodiscard]] bool describe(std::string_view name, Table& table) const;
    /// Hands every row of \a table to \a handler. Returns the number of rows, -1 when there is no such table.
    [[nodiscard]] int read(const Table& table, const RowHandler& handler) const;

    /// Bytes that the file's last page lacks; 0 for a whole file.
    [[nodiscard]] std::uint32_t missingBytes() const { return m_missingBytes; }

private:
    struct Place
    {
        Table table;
        std::size_t rows; ///< where its rows begin in m_bytes
    };

    [[nodiscard]] bool index(std::string& why);
    [[nodiscard]] const Place* placeOf(std::string_view name) const;

    std::string m_bytes; ///< what the reading process has written
    std::vector<Place> m_tables;
    std::uint32_t m_missingBytes = 0;
};

} // namespace suisui

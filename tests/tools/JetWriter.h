// Writes small Jet 3 and Jet 4 files, page by page, as far as a reader of tables looks at them: header,
// catalog, definitions of tables, usage maps and pages of rows. No indexes, no long values.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace suisui::test {

enum class Jet { Three, Four };

struct JetTable
{
    enum Type : std::uint8_t { Integer = 0x03, Long = 0x04, Date = 0x08, Text = 0x0a, Picture = 0x0b };
    struct Column
    {
        std::string name;
        Type type = Text;
    };
    /// The bytes of a text as in the file; a number's text for Long and Integer; Null.
    struct Value
    {
        std::string bytes;
        bool null = false;
    };

    std::string name;
    std::vector<Column> columns;
    std::vector<std::vector<Value>> rows;
    int declaredMore = 0; ///< rows that the definition declares although they are not there
};

/// \a utf8 as a text of \a version: code page 932, or UTF-16 little-endian.
[[nodiscard]] std::string jetText(Jet version, const std::string& utf8);

/// The bytes of a file with these tables.
[[nodiscard]] std::string jetFile(Jet version, const std::vector<JetTable>& tables);

} // namespace suisui::test

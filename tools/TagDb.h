// The commands of the data tool, which makes a program folder usable without a master-data program.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace suisui {

enum class ToolStatus { Good = 0, Found = 1, Failed = 2 };

/// Makes DB/trnvik.mdb and db/trnorg.mdb under \a base where they are missing. Failed when both were there.
[[nodiscard]] ToolStatus createShop(const std::string& base, std::ostream& out, std::ostream& err);
/// Fills an empty database with a small shop: goods, partners, staff, components.
[[nodiscard]] ToolStatus sampleShop(const std::string& base, std::ostream& out, std::ostream& err);
/// Checks the database (see checkShop); Found when there are problems.
[[nodiscard]] ToolStatus checkBooks(const std::string& base, std::ostream& out, std::ostream& err);
struct ExportOrder
{
    std::string table;
    std::string file;
    bool cp932 = false;        ///< in code page 932 instead of UTF-8
    bool replaceOther = false; ///< replaces a file that is there already
};

/// Writes a table as CSV. The file is there whole or not at all, and replaces another only when the order
/// says so; never a database, a backup or what belongs to one.
[[nodiscard]] ToolStatus exportTable(const std::string& base, const ExportOrder& order, std::ostream& out,
                                     std::ostream& err);
/// Adds the records of a CSV file to a table; all of them or, when a line is bad, none. The first record
/// names the columns, in any order; columns that it leaves out are empty. Numbers and dates are brought into
/// the format of their column. A line is bad also when that fails or when its bytes are not text.
[[nodiscard]] ToolStatus importTable(const std::string& base, std::string_view table, const std::string& file,
                                     bool cp932, std::ostream& out, std::ostream& err);

} // namespace suisui

// The part of reading a Jet database that uses the library for it. The library trusts its files: a damaged
// one may crash it or keep it busy for ever. So it runs in a separate process, which writes out what it has
// read and ends; see JetFile.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace suisui {

/// The first byte of each record, which says what follows. A number has 32 bits in the order of this machine,
/// a text is its length and its bytes.
enum class JetMark : char {
    Refused = 'W', ///< why, a text; nothing follows
    Table = 'T',   ///< name, number of rows that the file declares, number of columns, for each its name and
                   ///< whether it is readable
    Row = 'R', ///< of the preceding table: 1 when the file ends before the row does, otherwise 0; a text for
               ///< each column, number of broken columns, their positions
    CutOff = 'C', ///< number of bytes that the last page lacks; before End
    End = 'E',    ///< everything has been read
};

/// Writes those of \a tables that the file at \a path has to the descriptor \a to. False when it cannot.
[[nodiscard]] bool writeJetTables(int to, const std::string& path, std::span<const std::string_view> tables);

} // namespace suisui

// The part of reading a Jet database that works with the library for it. The library trusts its files: a
// damaged one may crash it or keep it for ever. So it runs in a process of its own, which writes down what it
// has read and ends; see JetFile.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace suisui {

/// What begins each record of the writing. Numbers are 32 bits of this machine, texts their length and bytes.
enum class JetMark : char {
    Refused = 'W', ///< why, a text; nothing follows
    Table = 'T',  ///< name, rows that the file speaks of, number of columns, for each its name and whether it
                  ///< is readable
    Row = 'R',    ///< of the table before: 1 when the file ends before the row does, otherwise 0; a text for
                  ///< each column, number of broken columns, their places
    CutOff = 'C', ///< so many bytes that the last page lacks; before the end
    End = 'E',    ///< everything has been read
};

/// Writes those of \a tables that the file at \a path has to the descriptor \a to. False when it cannot.
[[nodiscard]] bool writeJetTables(int to, const std::string& path, std::span<const std::string_view> tables);

} // namespace suisui

// Makes the working database of a shop from its existing one in Jet format.
#pragma once

#include <iosfwd>
#include <string>

#include "tools/TagDb.h"

namespace suisui {

/// Makes DB/trnvik.mdb under \a base, which must not exist (and db/trnorg.mdb, if it does not), from the
/// tables of \a file. Columns are found by name, or by position where the name differs. Every row is counted
/// and every text checked; what cannot be imported is listed by table, row and reason. When there is any of
/// that, or when the new books do not hold, the result is Found and no file is made; with \a anyway the file
/// is made of what can be imported.
///
/// What changes on the way: a Null becomes the empty text, an empty movement or stock number becomes zero,
/// and a number or date in another format (unpadded, with separators) gets the usual one. Control characters
/// become blanks; they are listed as well.
[[nodiscard]] ToolStatus importJet(const std::string& base, const std::string& file, bool anyway,
                                   std::ostream& out, std::ostream& err);

} // namespace suisui

// An existing shop's database of the Jet format into a new working database.
#pragma once

#include <iosfwd>
#include <string>

#include "tools/TagDb.h"

namespace suisui {

/// Makes DB/trnvik.mdb under \a base, which must not be there (and db/trnorg.mdb, if it is not), from the
/// tables of \a file. Columns are found by name, and by place where one has a name of its own. Every row is
/// counted and every text checked; what cannot be carried is listed by table, row and reason. Found, and no
/// file, when there is any of that or when the books made do not hold; with \a anyway the file is made all
/// the same, of what can be carried.
///
/// What changes on the way: a Null becomes the empty text, an empty movement number zero, and a number or a
/// date in another format (unpadded, with separators) gets the usual one. Control characters become blanks;
/// they are listed as well.
[[nodiscard]] ToolStatus importJet(const std::string& base, const std::string& file, bool anyway,
                                   std::ostream& out, std::ostream& err);

} // namespace suisui

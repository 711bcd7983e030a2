// Where the rows of a table may be written to: never in the place of a database or of what belongs to one.
#pragma once

#include <string>

#include "tools/TagDb.h"
#include "tools/Texts.h"

namespace suisui {

/// Puts \a text into the file of the order: written aside, flushed and renamed. Empty when it went well, else
/// why not; what was there is then as it was. A device or a pipe is written to as it is.
[[nodiscard]] Message writeExport(const std::string& base, const ExportOrder& order, const std::string& text);

} // namespace suisui

// Where an export may write the rows of a table: never over a database or what belongs to one.
#pragma once

#include <string>

#include "tools/TagDb.h"
#include "tools/Texts.h"

namespace suisui {

/// Writes \a text to the file of the order: aside first, then flushed and renamed. Empty on success, else the
/// reason; a file that was there is then unchanged. A device or a pipe is written to directly.
[[nodiscard]] Message writeExport(const std::string& base, const ExportOrder& order, const std::string& text);

} // namespace suisui

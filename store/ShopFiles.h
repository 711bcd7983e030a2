// Where a program folder keeps its two databases.
#pragma once

#include <string>

namespace suisui {

inline constexpr const char* workingFile = "trnvik.mdb"; ///< in the folder DB

/// The shop's database under the program folder \a base.
[[nodiscard]] inline std::string workingPath(const std::string& base)
{
    return base + "/DB/" + workingFile;
}

/// The empty database under \a base; each history file begins as a copy of it.
[[nodiscard]] inline std::string emptyPath(const std::string& base)
{
    return base + "/db/trnorg.mdb";
}

} // namespace suisui

// The one routine that changes stock in daily work. A movement hands it a goods code and a signed quantity,
// once for the goods item and once for each component that the movement touches. It warns, refuses a figure
// that no longer fits, and writes the row; it never commits.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace suisui {

class AppDB;
class MsgBox;

/// Outcome of a posting. After anything but Posted the caller rolls back and gives up the movement.
enum class PostResult : std::int16_t {
    Posted = 0,
    DatabaseFailure = -1,
    DigitOverflow = -999, ///< the figure would exceed stockLimit, which a box has shown
};

/// The highest stock figure that the screens have room for.
inline constexpr double stockLimit = 99999999999999.0;

/// Moves the stock of \a code by \a delta.
/// \param delta signed decimal text; exactly "0" moves and reads nothing
/// \param name  name for the messages, may be empty; overwritten with the messages' first line
/// \param stamp 14-digit stamp of the movement
/// A code that is in neither the stock nor the goods table is skipped silently.
/// Throws RunTimeError::TypeMismatch when a stored figure is not a number.
[[nodiscard]] PostResult ZaikoPost(AppDB& db, MsgBox& msgBox, std::string_view code, std::string_view delta,
                                   std::string& name, std::string_view stamp);

} // namespace suisui

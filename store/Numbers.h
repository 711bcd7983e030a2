// Numbers as texts. Every column is text and every calculation converts at the point of use; these are the
// conversions, with the rounding and the errors that the rules rely on.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace suisui {

/// A number in text: blanks around it, a sign, digits with grouping commas, a decimal point, an exponent
/// (E or D). Throws RunTimeError::TypeMismatch for any other text, the empty one included, and Overflow
/// beyond the range of a double.
[[nodiscard]] double CDbl(std::string_view text);

/// What CDbl returns; none where it throws.
[[nodiscard]] std::optional<double> toNumber(std::string_view text);

/// As CDbl, but a blank text reads as 0, as in an empty column of the master data.
[[nodiscard]] double numberOf(std::string_view text);

/// What numberOf gives; nothing where it throws.
[[nodiscard]] std::optional<double> toFigure(std::string_view text);

/// Plain decimal text of \a number, with the 15 significant digits that a double carries of any decimal text:
/// "0", "125", "-3", "0.1". Never an exponent, never "-0". Throws RunTimeError::Overflow for infinity.
[[nodiscard]] std::string CStr(double number);

/// Sum and product as on paper, to 15 significant digits. Plain binary arithmetic leaves a tail (0.3 less
/// three times 0.1 is -0.00000000000000002776), which would be shown and stored. All figures that become
/// texts or are compared are added and multiplied by these; whole numbers cost nothing extra. Beyond the
/// range the result is infinite, for which there is no text.
[[nodiscard]] double plus(double a, double b);
[[nodiscard]] double times(double a, double b);

/// 16- and 32-bit integers: halves round to the even neighbour; throws RunTimeError::Overflow outside
/// the range.
[[nodiscard]] std::int16_t CInt(double number);
[[nodiscard]] std::int32_t CLng(double number);

/// 32-bit product; throws RunTimeError::Overflow.
[[nodiscard]] std::int32_t multiply(std::int32_t a, std::int32_t b);

// Masks: "0" is a digit that is always written, "#" one that is written if there is one, "," groups by
// threes.
inline constexpr std::string_view maskMovement = "0000000";        ///< movement numbers as stored
inline constexpr std::string_view maskA = "##,###,###,###,##0";    ///< amounts
inline constexpr std::string_view maskB = "#,###,###,##0";         ///< quantities and prices in lists
inline constexpr std::string_view maskStock = "#,###,###,###,##0"; ///< stock figures
inline constexpr std::string_view maskSmall = "##,###,##0";
inline constexpr std::string_view maskPrice = "#,###,##0";

/// \a number in a whole-number mask. Rounds at 15 significant digits, halves away from zero. The sign of a
/// negative number is in front; so are digits that the mask has no place for.
[[nodiscard]] std::string Format(double number, std::string_view mask);

/// Format(numberOf(text), maskMovement).
[[nodiscard]] std::string movementNumber(std::string_view text);

} // namespace suisui

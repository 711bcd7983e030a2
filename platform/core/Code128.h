// Code 128 (ISO/IEC 15417), the symbology of every label and function code: it carries capitals, small
// letters, digits and signs, and packs digits in pairs. Encoding is libzint's; what comes out is the row of
// bars.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace suisui {

/// White modules that a reader needs on both sides of the bars.
inline constexpr int quietModules = 10;

/// A bar: modules in front of it, and its own.
struct BarSpan
{
    int start = 0;
    int width = 0;
};

struct BarCodeModules
{
    int width = 0; ///< all modules, quiet zones not counted
    std::vector<BarSpan> bars;
};

/// The bars of \a text. Nothing for an empty text, one that is not ASCII (libzint would take some of it for
/// Latin-1, and no reader could give it back), or one too long for a symbol.
[[nodiscard]] std::optional<BarCodeModules> encodeCode128(std::string_view text);

} // namespace suisui

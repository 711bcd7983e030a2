// One row of texts in one block of memory: where each column ends, then the bytes of all columns. Row buffers
// and grids hold a hundred thousand rows, and a single block for each makes reading them cheap. A copy shares
// the block; a write makes a new one, so no other copy sees it. Texts are UTF-8 and may hold any byte.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace suisui {

class PackedRow
{
public:
    PackedRow() = default;
    explicit PackedRow(int columns); ///< all texts empty
    explicit PackedRow(std::span<const std::string_view> texts);

    [[nodiscard]] int columns() const { return m_columns; }

    /// Text of column \a column, counted from 0; empty for a column that the row does not have.
    /// The view lives until the row is next written.
    [[nodiscard]] std::string_view text(int column) const;

    /// Replaces the text of \a column, which must exist. \a value may point into this row.
    void setText(int column, std::string_view value);

    friend bool operator==(const PackedRow& a, const PackedRow& b);

private:
    [[nodiscard]] const std::uint32_t* ends() const;
    void assign(std::span<const std::string_view> texts);

    std::shared_ptr<const char[]> m_block; // m_columns end offsets, then the bytes
    int m_columns = 0;
};

} // namespace suisui

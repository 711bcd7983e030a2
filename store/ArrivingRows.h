// Rows from elsewhere as a table that one INSERT .. SELECT can read: thousands of rows then go into a table
// as fast as the engine moves its own, without a statement or a copied text for each.
#pragma once

#include <string_view>

namespace suisui {

class ArrivingRows
{
public:
    ArrivingRows() = default;
    virtual ~ArrivingRows() = default;
    ArrivingRows(const ArrivingRows&) = delete;
    ArrivingRows& operator=(const ArrivingRows&) = delete;

    [[nodiscard]] virtual int columns() const = 0;
    [[nodiscard]] virtual bool atEnd() const = 0;
    /// Goes to the next row or to the end. False: the row cannot be taken, and the statement fails.
    [[nodiscard]] virtual bool advance() = 0;
    /// A text of the current row; it lives until the next advance().
    [[nodiscard]] virtual std::string_view text(int column) const = 0;
};

} // namespace suisui

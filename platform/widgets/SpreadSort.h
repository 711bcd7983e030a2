// The order of a grid's rows by several keys. Texts are folded and figures read once for each row, not at
// each comparison.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace suisui {

/// One key of a sort: the texts of a column, row by row.
class SortColumn
{
public:
    /// \a asNumbers: grouping commas are ignored, texts that are no numbers stand below all numbers.
    /// Otherwise texts compare without regard to letter case.
    SortColumn(bool ascending, bool asNumbers) : m_ascending(ascending), m_asNumbers(asNumbers) {}

    /// The text of the next row.
    void add(std::string_view text);
    /// Below 0 when row \a a stands before \a b, above 0 when behind it; rows count from 0.
    [[nodiscard]] int compare(std::size_t a, std::size_t b) const;

private:
    [[nodiscard]] std::string_view folded(std::size_t row) const
    {
        return {m_texts.data() + m_begins[row], m_begins[row + 1] - m_begins[row]};
    }

    bool m_ascending;
    bool m_asNumbers;
    std::vector<double> m_figures;
    std::string m_texts; ///< of all rows, one behind the other
    std::vector<std::size_t> m_begins{0};
};

/// The rows, from 0 to \a rows - 1, in the order of \a keys, the first before the others. Equal rows keep
/// theirs.
[[nodiscard]] std::vector<std::size_t> sortedRows(std::size_t rows, const std::vector<SortColumn>& keys);

} // namespace suisui

// The order of a grid's rows by several keys. Texts are folded and figures read once for each row, not at
// each comparison.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace suisui {

/// One key of a sort: the texts of a column, row by row.
class SortColumn
{
public:
    /// Text of a row, counted from 0. The view need not outlive the next call.
    using Texts = std::function<std::string_view(std::size_t row)>;

    /// \a asNumbers: grouping commas are ignored, texts that are not numbers come before all numbers.
    /// Otherwise texts compare without regard to letter case. Nothing is read before it is needed: a key
    /// after one that decides everything costs nothing.
    SortColumn(bool ascending, bool asNumbers, std::size_t rows, Texts texts)
        : m_ascending(ascending), m_asNumbers(asNumbers), m_rows(rows), m_read(std::move(texts))
    {
    }

    /// A number that sorts as the rows do as far as it reaches; most pairs need nothing more.
    [[nodiscard]] std::uint64_t lead(std::size_t row) const;
    /// Below 0 when row \a a comes before \a b, above 0 when after it.
    [[nodiscard]] int compare(std::size_t a, std::size_t b) const;

private:
    void fill() const;
    [[nodiscard]] std::string_view folded(std::size_t row) const
    {
        return {m_texts.data() + m_begins[row], m_begins[row + 1] - m_begins[row]};
    }

    bool m_ascending;
    bool m_asNumbers;
    std::size_t m_rows;
    Texts m_read;
    mutable bool m_filled = false;
    mutable std::vector<double> m_figures;
    mutable std::string m_texts; ///< of all rows, folded, one after another
    mutable std::vector<std::size_t> m_begins{0};
    mutable std::size_t m_common = 0; ///< characters with which all texts begin
};

/// The rows, from 0 to \a rows - 1, in the order of \a keys, the first before the others. Equal rows keep
/// theirs.
[[nodiscard]] std::vector<std::size_t> sortedRows(std::size_t rows, const std::vector<SortColumn>& keys);

} // namespace suisui

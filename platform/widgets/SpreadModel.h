// The rows of a vaSpread: one packed block of text for each row, a colour, and marks for the few cells that
// have any. While redraw is off no change is signalled to the view; switching it on signals everything at
// once.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <QAbstractTableModel>
#include <QColor>

#include "store/PackedRow.h"
#include "platform/widgets/vaSpread.h"

namespace suisui {

class SpreadModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void setColumns(std::span<const SpreadColumn> columns);
    [[nodiscard]] const SpreadColumn& column(int col) const
    {
        return m_columns[static_cast<std::size_t>(col - 1)];
    }
    [[nodiscard]] int cols() const { return static_cast<int>(m_columns.size()); }
    [[nodiscard]] int rows() const { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] bool holds(int col, int row) const
    {
        return col >= 1 && col <= cols() && row >= 1 && row <= rows();
    }

    [[nodiscard]] std::string_view text(int col, int row) const;
    void setText(int col, int row, std::string_view text);
    void setRowTexts(int row, std::span<const std::string_view> texts);
    void setRowMaker(vaSpread::RowMaker maker) { m_maker = std::move(maker); }
    void setRowSource(int row, const PackedRow& source, int number);
    [[nodiscard]] int pendingNumber(int row) const
    {
        return row >= 1 && row <= rows() ? m_rows[static_cast<std::size_t>(row - 1)].pending : 0;
    }
    void renumberPending(int row, int number)
    {
        if (pendingNumber(row) != 0)
            m_rows[static_cast<std::size_t>(row - 1)].pending = number;
    }
    void setRows(int count);
    void insert(int row, int count);
    void remove(int row, int count);
    /// Many at once, for a view that is notified afterwards: redraw must be off.
    void insertAt(std::span<const int> rows);
    void removeWhere(const std::function<bool(int row)>& gone);
    void sortRows(std::span<const vaSpread::SortKey> keys);

    void setRedraw(bool on);
    [[nodiscard]] bool redraw() const { return m_redraw; }

    void setBackColor(int row, const QColor& color);
    [[nodiscard]] QColor backColor(int row) const;
    void setForeColor(int col, int row, const QColor& color);
    [[nodiscard]] QColor foreColor(int col, int row) const;
    void setBold(int col, int row, bool bold);
    [[nodiscard]] bool bold(int col, int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Mark
    {
        QColor fore;
        bool bold = false;
    };
    struct Row
    {
        PackedRow texts; ///< or the source that they are still to be made of
        int pending = 0; ///< number to make the row with; 0: it is made
        QRgb back = 0;   ///< 0: the grid's own
        std::unique_ptr<std::map<int, Mark>> marks;
    };

    [[nodiscard]] std::string_view normalised(int col, std::string_view text) const;
    /// Row \a row with its texts made.
    Row& made(int row) const;
    [[nodiscard]] PackedRow packed(std::span<const std::string_view> texts) const;
    [[nodiscard]] const Mark* mark(int col, int row) const;
    Mark& markFor(int col, int row);
    void cellChanged(int col, int row, const QList<int>& roles);

    std::vector<SpreadColumn> m_columns;
    std::vector<std::string> m_headings;
    vaSpread::RowMaker m_maker;
    mutable std::vector<Row> m_rows; ///< looking at a row may make it
    mutable std::vector<std::string_view> m_scratchViews;
    mutable std::vector<std::string> m_made;
    mutable std::vector<std::string> m_scratch; ///< negative numbers without their zeros, one place a column
    PackedRow m_empty;
    int m_shown = 0; ///< rows that the view knows of
    bool m_redraw = true;
};

} // namespace suisui

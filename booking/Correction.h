// Correcting and deleting the stored movements of an entry tab. Corrections go into the row set of the tab
// and stay there until update, which writes them all in one unit of work and posts only the differences;
// erase takes a movement back at once. Hidden cells of the grid keep what was last posted of each row.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <QString>

#include "booking/Books.h"
#include "booking/Deltas.h"
#include "store/Side.h"

namespace suisui {

/// The grid of an entry tab, as far as corrections see it. Rows from 1, the newest movement first.
class EntryRows
{
public:
    EntryRows() = default;
    EntryRows(const EntryRows&) = delete;
    EntryRows& operator=(const EntryRows&) = delete;
    virtual ~EntryRows() = default;

    [[nodiscard]] virtual int count() const = 0;
    /// The row of the tab's row set that \a row shows.
    [[nodiscard]] virtual int bufferIndex(int row) const = 0;
    [[nodiscard]] virtual std::string code(int row) const = 0;
    /// What the row shows now, and what of it was last posted to stock.
    [[nodiscard]] virtual Figures shown(int row) const = 0;
    [[nodiscard]] virtual Figures posted(int row) const = 0;
    virtual void setPosted(int row, const Figures& figures) = 0;
    /// The stock cannot take the figures of \a row: they go back to \a posted, and the cursor goes there.
    virtual void putBack(int row, const Figures& posted, const std::string& total) = 0;
};

/// How an update or a delete has ended. After anything but Done it has been rolled back as a whole.
enum class EditResult {
    Done,
    Refused,          ///< by a posting, which has shown why
    ConcurrentChange, ///< a row is not in the table as the tab has it: another program's work, to be shown
    Failed,           ///< by the database, which has shown why
};

/// How a cell is stored.
enum class CellForm { Text, Number, Date, Time };

class Correction
{
public:
    Correction(Side side, const Books& books, EntryRows& view);

    /// Selects the movements of the days \a from to \a to (YYYYMMDD) into the row set of the tab, in the
    /// order in which they were made. Their number; negative when the selection failed.
    [[nodiscard]] int search(std::string_view from, std::string_view to);
    /// The tab has searched again. Without \a shown the grid keeps the old rows, which are no longer in the
    /// row set.
    void searched(bool shown);
    /// A new movement is about to move all rows down. The figures that were put aside by row are put back.
    void beforeNewRow() { putBackPosted(); }
    /// The bottom row of the grid has been cut off.
    void bottomRowGone();
    /// Whether \a row still shows what the row set holds for it.
    [[nodiscard]] bool inStep(int row) const;

    /// Whether what was typed as a quantity is the code of goods. Nobody ships a hundred thousand pieces
    /// unasked, so a short text is always a quantity.
    [[nodiscard]] bool isCode(const QString& typed) const;
    /// Takes a corrected cell into row \a index of the row set; false when nothing has changed. A figure is
    /// compared as a text: "12" is a change where "0000012" is stored.
    [[nodiscard]] bool take(int index, int column, CellForm form, std::string_view text);
    /// (quantity less returned) times price less discount of row \a index, as a grid shows it.
    [[nodiscard]] std::string total(int index) const;

    /// Writes all corrected rows and posts what they change: components first, then the goods, then the row.
    [[nodiscard]] EditResult update();
    /// Number of rows that the last update has written, even if it was rolled back after them.
    [[nodiscard]] int rowsWritten() const { return m_rowsWritten; }
    /// Takes back the stock effect of \a row and deletes it: the goods first, then its components, then the
    /// row. The row set closes up; the grid still has the row.
    [[nodiscard]] EditResult erase(int row);

private:
    [[nodiscard]] EditResult updateRow(int row, const std::string& stamp);
    [[nodiscard]] bool postUpdate(int row, int index, const Figures& posted, const Figures& now,
                                  const std::string& stamp);
    void restorePosted(int row, int index, const Figures& posted);
    [[nodiscard]] bool writeRow(int index);
    [[nodiscard]] bool postDelete(int index, double delta, const std::string& stamp);
    [[nodiscard]] bool postGoods(int index, double delta, const std::string& stamp);
    void putBackPosted();
    [[nodiscard]] EditResult notWritten();

    const MovementTable& m_table;
    Books m_books;
    EntryRows& m_view;
    RowSet& m_rows;
    /// Posted figures of rows as they were before an update that was rolled back, by grid row.
    std::vector<std::pair<int, Figures>> m_takenBack;
    int m_rowsWritten = 0;
    /// Number of rows at the bottom of the grid that are no longer in the row set.
    int m_outOfStep = 0;
    /// A corrected row is not in the table: another program has deleted it, or it was never stored. Updates
    /// are refused until the next search.
    bool m_editLost = false;
};

} // namespace suisui

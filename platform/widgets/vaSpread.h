// The grid of all five tabs: rows and columns of text, each column with a kind that says what its cells
// may hold. Rows and columns count from 1; row 0 is the heading row. Cells keep their text as UTF-8 and
// turn into QString only when they are shown, so that a hundred thousand rows load in a blink.
//
// What the program writes raises no event. Change, LeaveCell, KeyPress and HeadingClick are what the
// operator does.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <QColor>
#include <QTableView>

#include "platform/core/NoCell.h"
#include "store/PackedRow.h"

namespace suisui {

class SpreadDelegate;
class SpreadModel;

/// What the cells of a column hold and how they are edited.
enum class CellType : std::uint8_t {
    Locked,   ///< text that the operator cannot change
    Text,     ///< free text; the input method is on
    Number,   ///< whole number with an optional minus; "0000012" is held as "12", shown grouped
    Date,     ///< "YYYY/MM/DD", only days of the calendar
    Time,     ///< "HH:MM:SS"
    CheckBox, ///< "1" or anything else; toggled by click or space
    Figure,   ///< locked, right-aligned: a figure that the program computed and formatted
};

struct SpreadColumn
{
    std::string_view heading;
    CellType type = CellType::Locked;
    int width = 100;     ///< pixels at 96 dpi
    int digits = 0;      ///< Number: digits that may be typed; Text: characters, 0 for no limit
    bool hidden = false; ///< holds data of the program, never seen
};

class vaSpread : public QTableView
{
    Q_OBJECT

public:
    explicit vaSpread(QWidget* parent = nullptr);
    ~vaSpread() override;

    /// Defines the columns and empties the grid.
    void setColumns(std::span<const SpreadColumn> columns);

    [[nodiscard]] int MaxCols() const;
    [[nodiscard]] int MaxRows() const;
    /// Cuts rows off the bottom or adds empty ones there.
    void setMaxRows(int rows);

    /// Cell text; row 0 is the heading. Empty outside the grid. The view lives until the grid is written.
    [[nodiscard]] std::string_view text(int col, int row) const;
    [[nodiscard]] QString qtext(int col, int row) const;
    /// Outside the grid nothing happens.
    void SetText(int col, int row, std::string_view text);
    void SetText(int col, int row, const QString& text);
    /// A whole row at once, the fast way of filling: \a texts has one entry a column, in order.
    void setRowTexts(int row, std::span<const std::string_view> texts);

    /// Makes the texts of a row out of a row of other data, one entry a column, in order. \a number is
    /// whatever the row was given with.
    using RowMaker = std::function<void(const PackedRow& source, int number, std::span<std::string> texts)>;
    void setRowMaker(RowMaker maker);
    /// A row that is made of \a source when somebody first looks at it. So a hundred thousand rows cost
    /// little more than their number until they are seen.
    void setRowSource(int row, const PackedRow& source, int number);
    /// The number that \a row was given with, as long as nobody has looked at the row; 0 afterwards. Whoever
    /// needs only the number of many rows does not make them all.
    [[nodiscard]] int pendingNumber(int row) const;
    /// Gives a row that nobody has looked at yet another number.
    void renumberPending(int row, int number);

    /// Puts \a count empty rows in front of \a row; the rows below move down and keep their colours, and the
    /// cursor stays with its row.
    void InsertRows(int row, int count = 1);
    void DeleteRows(int row, int count = 1);
    /// Puts an empty row in front of each of \a rows, which rise and may repeat; MaxRows() + 1 is the end.
    /// The numbers are those before the call. One pass over the grid, however many rows there are.
    void InsertRowsAt(std::span<const int> rows);
    /// Takes out every row that \a gone says so of, in one pass. The cursor of a row that goes is gone too.
    void DeleteRowsWhere(const std::function<bool(int row)>& gone);

    /// While redraw is off nothing is painted and no view is updated; switching it on shows everything
    /// at once.
    void setReDraw(bool on);
    [[nodiscard]] bool ReDraw() const;

    // Colours. An invalid colour means the grid's own.
    void setRowBackColor(int row, const QColor& color);
    [[nodiscard]] QColor rowBackColor(int row) const;
    void setCellForeColor(int col, int row, const QColor& color);
    void setCellBold(int col, int row, bool bold);
    [[nodiscard]] QColor cellForeColor(int col, int row) const;
    [[nodiscard]] bool cellBold(int col, int row) const;

    /// The cell with the cursor; 0 when there is none.
    [[nodiscard]] int ActiveCol() const;
    [[nodiscard]] int ActiveRow() const;
    /// Moves the cursor without a LeaveCell event and scrolls it into view.
    void SetActiveCell(int col, int row);

    struct SortKey
    {
        int col = 1;
        bool ascending = true;
    };
    /// Sorts all rows by \a keys, first key first; equal rows keep their order. Number and Figure columns
    /// compare as numbers (grouping commas ignored, texts that are not numbers before all numbers), the
    /// others as text without regard to letter case. Colours go with their rows.
    void Sort(std::span<const SortKey> keys);

    /// Ends an open editor: the typed text becomes the cell's, with a Change event, if the column can
    /// hold it; otherwise the old text comes back.
    void endEdit();
    [[nodiscard]] bool isEditing() const;
    /// While Change is reported: what the keys have spelled, leading zeros and characters that the column
    /// refused included; after a correction or a paste, what the editor held.
    [[nodiscard]] QString typedText() const { return m_typedText; }

    /// Called with every Enter (13), Backspace (8) or printable key that reaches the grid or its editor.
    /// Setting the key to 0 swallows it.
    using KeyPressHandler = std::function<void(int& keyAscii)>;
    void setKeyPressHandler(KeyPressHandler handler);

Q_SIGNALS:
    /// The operator has changed a cell.
    void Change(int col, int row);
    /// The cursor has left (col, row) for (newCol, newRow); newCol is -1 when there is no new cell.
    void LeaveCell(int col, int row, int newCol, int newRow);
    void GotFocus();
    void LostFocus();
    /// A click on the heading of \a col.
    void HeadingClick(int col);

protected:
    bool event(QEvent* event) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void keyboardSearch(const QString& search) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    friend class SpreadDelegate;

    /// Offers a key to the handler; true when it was swallowed.
    bool swallowed(const QKeyEvent& event);
    void spell(const QKeyEvent& event);
    /// What an editor holds becomes the cell's text, if the column can hold it.
    void commitText(const QModelIndex& index, const QString& typed);
    void toggleCheck(const QModelIndex& index);
    void copySelection() const;
    void showCursor();
    void cutCursor();
    void followInputMethod();
    [[nodiscard]] bool tabToCell(bool forward);
    void tabOutOfEditor(bool forward);
    void blankWhileOff();
    void focusMoved(const QWidget* now);

    SpreadModel* m_model;
    SpreadDelegate* m_delegate;
    KeyPressHandler m_keyPress;
    int m_activeCol = 0;
    int m_activeRow = 0;
    const QKeyEvent* m_offered = nullptr; ///< the key that the handler has seen already
    QString m_spelled;                    ///< by the keys since the editor opened
    bool m_corrected = false;             ///< by keys that type nothing
    QString m_typedText;
    bool m_quietCursor = false;
    bool m_scrollWhenShown = false;
    bool m_cursorSet = false; ///< the program has moved the cursor since redraw went off
    bool m_hasFocus = false;
};

} // namespace suisui

// What the operator has set for a print of labels: the sheet, the rows, the measures, and what follows from
// them: which fields are enabled, where the first label may be, how many pages the job needs. The label
// dialog shows it and passes on what is typed. It knows no widget.
//
// Every field holds a text, as it is typed and as it is saved in the settings; a tick is "1" or "0".
#pragma once

#include <array>
#include <cstdint>

#include <QString>

#include "barcode/label/LabelFields.h"
#include "barcode/label/LabelJob.h"
#include "barcode/label/LabelSource.h"

namespace suisui {

struct LabelSheet;

class LabelSetup
{
public:
    /// The state of a new dialog for \a source, before a sheet is chosen. \a rows are those of its grid.
    LabelSetup(const LabelSource& source, const CountedRows& rows);

    /// Sets what is typed, ticked or chosen, and updates what follows from it. The same text again changes
    /// nothing.
    void set(LabelField field, const QString& text);
    void tick(LabelField box, bool on) { set(box, on ? QStringLiteral("1") : QStringLiteral("0")); }

    [[nodiscard]] const QString& text(LabelField field) const;
    /// 0 for a text that is not a number.
    [[nodiscard]] double number(LabelField field) const;
    [[nodiscard]] bool ticked(LabelField box) const;
    /// False for a field that is disabled on the screen and not used.
    [[nodiscard]] bool enabled(LabelField field) const;
    /// Where Enter goes from \a field.
    [[nodiscard]] LabelField next(LabelField field) const;

    [[nodiscard]] int sheet() const;
    /// The figures of the chosen sheet; null for the free one.
    [[nodiscard]] const LabelSheet* fixedSheet() const;
    /// Whether the sheet can have room for the strip of function codes.
    [[nodiscard]] bool mayHoldStrip() const;
    /// The number of labels on a page, any of which may be the first; 0 before columns and rows are known.
    [[nodiscard]] int capacity() const { return m_capacity; }
    /// False for a label that the strip of function codes covers. Positions count from 0.
    [[nodiscard]] bool positionOffered(int position) const;

    /// The last row that may be printed.
    [[nodiscard]] int endRow() const { return m_source.lastRow; }
    /// The number of pages that the job needs.
    [[nodiscard]] std::int32_t pageTotal() const { return m_pageTotal; }
    /// The pages to print, as the two page fields name them.
    [[nodiscard]] LabelPageRange pages() const;
    /// The job that the fields describe. Without valid columns and rows its sheet has no labels.
    [[nodiscard]] LabelJob job() const;

    /// Text before and after the code; empty.
    QString LabelWrap;

private:
    [[nodiscard]] bool reachable(LabelField field) const;
    [[nodiscard]] Millimetres length(LabelField field) const;
    [[nodiscard]] LabelPart part(LabelField box, LabelField x, LabelField y) const;
    [[nodiscard]] Millimetres whenEnabled(LabelField field) const;
    void setPages(const QString& first, const QString& last);
    void sheetChosen();
    void writeFigures(const LabelSheet& figures);
    void gridChanged();
    void rowsChanged();
    void sourceOfRowsChanged(LabelField chosen);
    void stripChanged();
    void countPages();

    LabelSource m_source;
    const CountedRows& m_rows;
    std::array<QString, labelFieldCount> m_texts;
    std::array<bool, 2> m_pitched{true, true}; ///< more than one column, row: width, height are used
    int m_capacity = 0;
    bool m_roomForStrip = true;
    std::int32_t m_pageTotal = 0;
};

} // namespace suisui

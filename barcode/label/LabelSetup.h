// What the operator has set for a print of labels: the sheet, the rows, the measures, and what follows from
// them - which fields count, where the first label may be, how many pages the job needs. The label dialog
// shows it and hands it what is typed. It knows no widget.
//
// Every field holds a text, as it is typed and as it is kept in the settings; a tick is "1" or "0".
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
    /// A fresh dialog over \a source, before a sheet is chosen. \a rows are those of its grid.
    LabelSetup(const LabelSource& source, const CountedRows& rows);

    /// Takes what is typed, ticked or chosen, with all that follows from it. The same text again changes
    /// nothing.
    void set(LabelField field, const QString& text);
    void tick(LabelField box, bool on) { set(box, on ? QStringLiteral("1") : QStringLiteral("0")); }

    [[nodiscard]] const QString& text(LabelField field) const;
    /// 0 for a text that is not a number.
    [[nodiscard]] double number(LabelField field) const;
    [[nodiscard]] bool ticked(LabelField box) const;
    /// False for a field that is grey and does not count.
    [[nodiscard]] bool enabled(LabelField field) const;
    /// Where Enter goes from \a field.
    [[nodiscard]] LabelField next(LabelField field) const;

    [[nodiscard]] int sheet() const;
    /// Figures of the chosen sheet; null for the free one.
    [[nodiscard]] const LabelSheet* fixedSheet() const;
    /// The sheet may hold the strip of function codes.
    [[nodiscard]] bool mayHoldStrip() const;
    /// Labels of a page that the first one may be chosen of; 0 before columns and rows are known.
    [[nodiscard]] int capacity() const { return m_capacity; }
    /// False for a label that the strip of function codes covers. Positions count from 0.
    [[nodiscard]] bool positionOffered(int position) const;

    /// Last row that may be printed.
    [[nodiscard]] int endRow() const { return m_source.lastRow; }
    /// Pages that the job needs.
    [[nodiscard]] std::int32_t pageTotal() const { return m_pageTotal; }
    /// The pages to print, as the two page fields name them.
    [[nodiscard]] LabelPageRange pages() const;
    /// What the fields say now. Without good numbers of columns and rows the sheet has no labels.
    [[nodiscard]] LabelJob job() const;

    /// Text in front of the code and behind it; empty.
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
    std::array<bool, 2> m_pitched{true, true}; ///< more than one column, row: there is a width, a height
    int m_capacity = 0;
    bool m_roomForStrip = true;
    std::int32_t m_pageTotal = 0;
};

} // namespace suisui

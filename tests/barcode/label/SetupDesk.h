// What the operator sets for a print of labels, with rows from here instead of a grid. Needs no display.
#pragma once

#include <string>
#include <vector>

#include "barcode/label/LabelSetup.h"

namespace suisui::test {

/// How the number of labels for a row comes about.
struct LabelNumber
{
    bool byQuantity = true;    ///< from the row; otherwise it is the same for each
    bool asksForNumber = true; ///< the operator may set it
};

/// Rows, each given by its number of labels; a negative number is a row without a mark.
class RowsOfLabels final : public CountedRows
{
public:
    RowsOfLabels(std::vector<std::int64_t> labels, const LabelNumber& number)
        : m_labels(std::move(labels)), m_byQuantity(number.byQuantity)
    {
    }
    [[nodiscard]] int count() const { return static_cast<int>(m_labels.size()); }
    [[nodiscard]] bool marked(std::int64_t row) const override { return at(row) >= 0; }
    [[nodiscard]] std::int64_t labelsCounted(std::int64_t row, std::int64_t eachRow) const override
    {
        return m_byQuantity ? std::abs(at(row)) : eachRow;
    }

private:
    [[nodiscard]] std::int64_t at(std::int64_t row) const
    {
        return m_labels.at(static_cast<std::size_t>(row - 1));
    }

    std::vector<std::int64_t> m_labels;
    bool m_byQuantity;
};

struct SetupDesk
{
    explicit SetupDesk(std::vector<std::int64_t> labels = {1, 1, 1}, const LabelNumber& number = {})
        : rows(std::move(labels), number), setup(source(rows.count(), number), rows)
    {
        sheet(0);
    }

    static LabelSource source(int lastRow, const LabelNumber& number)
    {
        LabelSource of;
        of.mode = LabelMode::Receipts;
        of.lastRow = lastRow;
        of.asksForNumber = number.asksForNumber;
        return of;
    }

    void sheet(int index) { setup.set(LabelField::sheet, QString::number(index)); }
    void set(LabelField field, const char16_t* text) { setup.set(field, QString::fromUtf16(text)); }
    /// The free sheet with every box ticked, so that every field is enabled.
    void useEverything()
    {
        sheet(4);
        for (const LabelField box : {LabelField::name, LabelField::code, LabelField::screenCodes,
                                     LabelField::searchCodes, LabelField::rowRange})
            setup.tick(box, true);
    }
    [[nodiscard]] std::string text(LabelField field) const { return setup.text(field).toStdString(); }
    [[nodiscard]] std::string pages() const
    {
        return text(LabelField::firstPage) + "-" + text(LabelField::lastPage);
    }

    RowsOfLabels rows;
    LabelSetup setup;
};

} // namespace suisui::test

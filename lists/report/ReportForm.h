// One page of a list report while it is filled: the lines and labels of the template with their current texts
// and visibility.
#pragma once

#include <vector>

#include <QString>

#include "lists/report/ReportTemplate.h"

namespace suisui {

class vaSpread;

class ReportForm
{
public:
    explicit ReportForm(const ReportTemplate& report);

    /// Sets the fixed texts named \a name to \a text.
    void setText(std::u16string_view name, const QString& text);
    /// Shows or hides the titles of the columns that not every view fills.
    void showOptionalTitles(bool shown);

    /// Row \a n of the form takes \a gridRow of \a grid; when there is no such row it is hidden.
    void fillRow(int n, const vaSpread& grid, int gridRow);
    /// Empties all rows and shows their lines and bands again.
    void clearRows();

    /// Draws the page: head, titles, frame, then the bands of all rows, then their texts and lines. Each band
    /// reaches up to the line of the row above, which it would cover.
    void draw(const Printer_Properties& paper) const;

private:
    struct Row
    {
        FormLabel band;
        std::vector<FormLabel> cells;
        FormLine line;
    };

    void addTexts(std::span<const FixedText> texts);
    void addRow(int n);
    [[nodiscard]] TwipBox insideFrame(TwipBox box) const;

    const ReportTemplate& m_report;
    FormLabel m_titleBand;
    std::vector<FormLabel> m_texts;
    std::vector<const FixedText*> m_textData; ///< what m_texts were made from
    std::vector<FormLine> m_lines;
    std::vector<Row> m_rows;
};

} // namespace suisui

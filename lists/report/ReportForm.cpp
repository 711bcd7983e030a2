#include "lists/report/ReportForm.h"

#include <algorithm>

#include "platform/widgets/AppFont.h"
#include "platform/widgets/vaSpread.h"

namespace suisui {

namespace {

// Light enough for black text on a monochrome printer.
constexpr QRgb bandColour = qRgb(255, 248, 190);
constexpr QRgb titleColour = qRgb(226, 230, 238);

FormLabel labelOf(const TwipBox& box, Twips down = {})
{
    FormLabel label;
    label.left = inches(box.left);
    label.top = inches(box.top + down);
    label.width = inches(box.width);
    label.height = inches(box.height);
    label.font.name = fontFamily();
    return label;
}

FormLine lineOf(const FixedLine& line, Twips down = {})
{
    return {.x1 = inches(line.at.x1),
            .y1 = inches(line.at.y1 + down),
            .x2 = inches(line.at.x2),
            .y2 = inches(line.at.y2 + down),
            .borderWidth = line.borderWidth};
}

} // namespace

ReportForm::ReportForm(const ReportTemplate& report)
    : m_report(report), m_titleBand(labelOf(report.titleBand))
{
    m_titleBand.backColor = QColor::fromRgb(titleColour);
    for (const std::span<const FixedText> texts : report.texts)
        addTexts(texts);
    for (const FixedLine& line : report.lines)
        m_lines.push_back(lineOf(line));
    for (int n = 0; n < report.rowsPerPage; ++n)
        addRow(n);
}

void ReportForm::addTexts(std::span<const FixedText> texts)
{
    for (const FixedText& text : texts) {
        FormLabel label = labelOf(text.box);
        label.caption = QStringView(text.text).toString();
        label.alignment = text.alignment;
        label.font.size = text.size;
        label.font.bold = text.bold;
        m_texts.push_back(label);
        m_textData.push_back(&text);
    }
}

/// \a box, cut at the right side of the frame so that no text crosses it.
TwipBox ReportForm::insideFrame(TwipBox box) const
{
    constexpr Twips gap = 45_tw;
    const Twips right = m_report.titleBand.left + m_report.titleBand.width - gap;
    box.width = std::min(box.width, right - box.left);
    return box;
}

void ReportForm::addRow(int n)
{
    const Twips down = m_report.pitch * n;
    Row row{labelOf(m_report.rowBand, down), {}, lineOf(m_report.rowLine, down)};
    row.band.backColor = QColor::fromRgb(bandColour);
    for (const RowElement& element : m_report.cells) {
        row.cells.push_back(labelOf(insideFrame(element.box), down));
        row.cells.back().alignment = element.alignment;
    }
    m_rows.push_back(std::move(row));
}

void ReportForm::setText(std::u16string_view name, const QString& text)
{
    for (std::size_t i = 0; i < m_texts.size(); ++i)
        if (m_textData[i]->name == name)
            m_texts[i].caption = text;
}

void ReportForm::showOptionalTitles(bool shown)
{
    for (std::size_t i = 0; i < m_texts.size(); ++i)
        if (m_textData[i]->optional)
            m_texts[i].visible = shown;
    for (std::size_t i = 0; i < m_lines.size(); ++i)
        if (m_report.lines[i].optional)
            m_lines[i].visible = shown;
}

void ReportForm::fillRow(int n, const vaSpread& grid, int gridRow)
{
    Row& row = m_rows.at(static_cast<std::size_t>(n));
    const bool there = gridRow >= 1 && gridRow <= grid.MaxRows();
    row.line.visible = there;
    row.band.visible = there && n % m_report.rowsPerBand == 0;
    for (std::size_t i = 0; i < row.cells.size(); ++i)
        row.cells[i].caption = there ? grid.qtext(m_report.cells[i].column, gridRow) : QString();
}

void ReportForm::clearRows()
{
    for (std::size_t n = 0; n < m_rows.size(); ++n) {
        m_rows[n].line.visible = true;
        m_rows[n].band.visible = static_cast<int>(n) % m_report.rowsPerBand == 0;
        for (FormLabel& cell : m_rows[n].cells)
            cell.caption.clear();
    }
}

void ReportForm::draw(const Printer_Properties& paper) const
{
    paper.PrintBack(m_titleBand);
    for (const FormLabel& text : m_texts)
        paper.PrintLabel(text, true);
    for (const FormLine& line : m_lines)
        paper.PrintLine(line);
    for (const Row& row : m_rows)
        paper.PrintBack(row.band);
    for (const Row& row : m_rows) {
        for (const FormLabel& cell : row.cells)
            paper.PrintLabel(cell, true);
        paper.PrintLine(row.line);
    }
}

} // namespace suisui

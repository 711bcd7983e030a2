#include "lists/report/ListReport.h"

#include <cmath>
#include <optional>

#include "lists/report/ReportForm.h"
#include "platform/core/RunTimeError.h"
#include "platform/widgets/vaSpread.h"
#include "store/Numbers.h"

namespace suisui {

namespace {

/// The page that \a text means; 0 when it is not a number, or not one that any report has.
int pageNumber(const QString& text)
{
    constexpr double farthestPage = 1e9;
    const std::optional<double> number = toNumber(text.toStdString());
    return number && std::abs(*number) < farthestPage ? CLng(*number) : 0;
}

} // namespace

PageRange pageRange(const QString& first, const QString& last, int pages)
{
    PageRange range{pageNumber(first), pageNumber(last)};
    if (range.first > pages || range.first < 1)
        range.first = 1;
    if (range.last < range.first || range.last > pages)
        range.last = pages;
    return range;
}

void ListReport::fillPage(ReportForm& form, int page) const
{
    form.setText(u"LbPage", QString::number(page));
    for (int n = 0; n < m_report.rowsPerPage; ++n)
        form.fillRow(n, m_grid, (page - 1) * m_report.rowsPerPage + n + 1);
}

ReportStatus ListReport::printPages(const Printer_Properties& paper, ReportForm& form, PageRange range,
                                    const PageDone& pageDone) const
{
    Printer& printer = paper.printer();
    const int copies = printer.copies();
    const int all = copies * (range.last - range.first + 1);
    int done = 0;
    for (int copy = 1; copy <= copies; ++copy)
        for (int page = range.first; page <= range.last; ++page) {
            fillPage(form, page);
            if (printer.StartPage() != PrintStatus::Good)
                return ReportStatus::DrawingFailed;
            form.draw(paper);
            form.clearRows();
            if (pageDone)
                pageDone(++done, all);
        }
    return ReportStatus::Printed;
}

ReportStatus ListReport::print(const Printer_Properties& paper, const ReportHead& head, PageRange range,
                               int pages, const PageDone& pageDone) const
{
    ReportForm form(m_report);
    for (const auto& [name, text] : head.texts)
        form.setText(name, text);
    form.setText(u"LbSPage", QString::number(pages));
    form.showOptionalTitles(head.optionalTitles);
    Printer& printer = paper.printer();
    printer.StartDoc();
    try {
        const ReportStatus status = printPages(paper, form, range, pageDone);
        if (status == ReportStatus::Printed)
            return printer.EndDoc() == PrintStatus::Good ? ReportStatus::Printed : ReportStatus::Failed;
        printer.Abort();
        return status;
    } catch (const RunTimeError&) {
        printer.Abort();
        return ReportStatus::DrawingFailed;
    }
}

} // namespace suisui

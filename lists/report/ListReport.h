// The engine of the three list reports: fills a template page by page with the texts of a grid and prints it.
// It reads nothing but the grid, so the paper shows what the screen shows, subtotal rows and the order of a
// heading sort included.
#pragma once

#include <functional>
#include <map>
#include <string_view>

#include <QString>

#include "lists/report/ReportTemplate.h"

namespace suisui {

class ReportForm;
class vaSpread;

/// Pages to print, from 1.
struct PageRange
{
    int first = 1;
    int last = 1;

    bool operator==(const PageRange&) const = default;
};

/// What the two page fields mean when the report has \a pages pages. A first page that is not a number or out
/// of range becomes 1; a last page that is not a number, out of range or before the first becomes \a pages.
[[nodiscard]] PageRange pageRange(const QString& first, const QString& last, int pages);

/// What a tab gives its report at print time.
struct ReportHead
{
    std::map<std::u16string_view, QString> texts; ///< by the name of the label
    bool optionalTitles = true;                   ///< the view fills every column
};

enum class ReportStatus {
    Printed,
    DrawingFailed, ///< a page could not be put on paper
    Failed,        ///< the printer did not take the document
};

class ListReport
{
public:
    /// Runs after each page, with the number of pages done and of all pages.
    using PageDone = std::function<void(int done, int all)>;

    ListReport(const ReportTemplate& report, const vaSpread& grid) : m_report(report), m_grid(grid) {}

    /// Prints \a range of a report that has \a pages pages as one document, once for each copy that the
    /// operator asked for. The document is closed even when something fails.
    [[nodiscard]] ReportStatus print(const Printer_Properties& paper, const ReportHead& head, PageRange range,
                                     int pages, const PageDone& pageDone = {}) const;

private:
    void fillPage(ReportForm& form, int page) const;
    [[nodiscard]] ReportStatus printPages(const Printer_Properties& paper, ReportForm& form, PageRange range,
                                          const PageDone& pageDone) const;

    const ReportTemplate& m_report;
    const vaSpread& m_grid;
};

} // namespace suisui

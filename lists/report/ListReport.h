// The engine of the three list reports: fills a template page by page with the texts of a grid and puts it on
// paper. It reads the grid as it stands and nothing else, so what is on the screen is what is printed,
// subtotal rows and the order of a heading sort included.
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

/// What two page fields mean when the report has \a pages pages. What is no number, or lies outside, is
/// mended without a word: the first page becomes 1, the last one the number of pages.
[[nodiscard]] PageRange pageRange(const QString& first, const QString& last, int pages);

/// What a tab tells its report at print time.
struct ReportHead
{
    std::map<std::u16string_view, QString> texts; ///< by the name of the label
    bool optionalTitles = true;                   ///< the view fills every column
};

enum class ReportStatus {
    Printed,
    DrawingFailed, ///< a page could not be put on paper
    Failed,        ///< the document did not arrive
};

class ListReport
{
public:
    /// Runs after each page, with the pages done and the pages to do.
    using PageDone = std::function<void(int done, int all)>;

    ListReport(const ReportTemplate& report, const vaSpread& grid) : m_report(report), m_grid(grid) {}

    /// Prints \a range of a report that has \a pages pages, as often as the chosen printer was asked for
    /// copies, as one document. Whatever goes wrong, the document is closed.
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

// A printer for tests: the dialog shows nothing and turns the printer into a PDF of given dots and paper.
#pragma once

#include <memory>

#include <QMarginsF>
#include <QPageLayout>

#include "platform/widgets/Printer.h"

namespace suisui::test {

struct PdfSetup
{
    QString file;
    int dpi = 600;
    QMarginsF margins{}; ///< points that cannot be printed, of the page as it is read
    QPageSize paper{QPageSize::A4};
    int copies = 1;
    bool cancelled = false;
    int timesAsked = 0;
};

/// A dialog that answers with \a setup, as it is then.
inline Printer::Dialog pdfDialog(std::shared_ptr<PdfSetup> setup)
{
    return [setup](QPrinter& printer, QWidget*) {
        ++setup->timesAsked;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(setup->file);
        printer.setResolution(setup->dpi);
        printer.setCopyCount(setup->copies);
        QPageLayout layout = printer.pageLayout();
        layout.setPageSize(setup->paper);
        const QMarginsF& page = setup->margins;
        layout.setMinimumMargins(layout.orientation() == QPageLayout::Portrait
                                     ? page
                                     : QMarginsF(page.top(), page.right(), page.bottom(), page.left()));
        printer.setPageLayout(layout);
        return !setup->cancelled;
    };
}

} // namespace suisui::test

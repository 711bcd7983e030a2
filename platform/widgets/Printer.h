// The printer that the program prints on: chosen by the operator in the platform's own dialog, or the PDF
// file that is there when no printer is. One object for the run; what was chosen stays for the next print.
//
// The unit is the dot of the chosen printer. A document's painter has its origin where the printer can begin
// to print, which is left and top margin inside the corner of the paper. So a place counted from the corner
// of the paper is reached by taking the margin off it, as a printer's own dots are counted.
//
//     printer.setOrientation(PaperOrientation::Portrait);
//     printer.setDocumentName(u"バーコード"_s);
//     if (printer.choose(form) == PrinterChoice::Cancelled)
//         return;                          // all as it was
//     printer.StartDoc();
//     for (each page) {
//         if (printer.StartPage() != PrintStatus::Good) …  // no paper, no file: printer.Abort()
//         printer.painter().fillRect(…);   // dots
//     }
//     if (printer.EndDoc() != PrintStatus::Good) …     // the document did not arrive
#pragma once

#include <functional>
#include <memory>

#include <QPainter>
#include <QPrinter>
#include <QString>

#include "platform/widgets/PrintStatus.h"

class QWidget;

namespace suisui {

/// What a printer and its paper measure, in dots.
struct PrinterGeometry
{
    double dpiX = 0; ///< dots per inch, across
    double dpiY = 0;
    double offsetX = 0; ///< margin on the left that cannot be printed
    double offsetY = 0; ///< the same, at the top
    double width = 0;   ///< of the whole paper
    double height = 0;
};

class Printer
{
public:
    /// Lets the operator change \a printer; false when cancelled. Tests hand in one that shows nothing.
    using Dialog = std::function<bool(QPrinter& printer, QWidget* parent)>;

    /// The system's default printer, or a PDF file where there is none.
    explicit Printer(Dialog dialog = platformDialog);
    ~Printer();
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;

    void setOrientation(PaperOrientation orientation);
    [[nodiscard]] PaperOrientation orientation() const;
    /// Name of the job, and of the PDF file that the dialog proposes.
    void setDocumentName(const QString& name) { m_documentName = name; }

    /// Shows the dialog. Cancelled leaves the printer as it was. Paper is whatever the operator picks.
    [[nodiscard]] PrinterChoice choose(QWidget* parent);

    [[nodiscard]] PrinterGeometry geometry() const;
    /// Copies asked for in the dialog, at least 1. The caller prints them; the device is asked for one.
    [[nodiscard]] int copies() const { return m_copies; }
    /// Name of the printer; empty for a PDF file.
    [[nodiscard]] QString deviceName() const;
    /// The PDF file; empty for a printer.
    [[nodiscard]] QString fileName() const;

    /// Opens a document. A document that gets no page prints nothing.
    void StartDoc();
    /// Opens the next page, the first one too.
    [[nodiscard]] PrintStatus StartPage();
    /// Draws on the open page.
    [[nodiscard]] QPainter& painter() { return m_painter; }
    /// Closes the document. Failed when it did not reach the printer or the file whole.
    [[nodiscard]] PrintStatus EndDoc();
    /// Closes the document as far as it is, without looking at what became of it.
    void Abort();

    /// The print dialog of the platform. It asks for no pages: what is printed is the caller's to ask.
    static bool platformDialog(QPrinter& printer, QWidget* parent);

private:
    [[nodiscard]] QPrinter& device() const;
    [[nodiscard]] bool present() const;
    [[nodiscard]] bool arrivedWhole() const;
    void proposeFile(QPrinter& printer) const;

    Dialog m_dialog;
    mutable std::unique_ptr<QPrinter> m_printer;
    QPainter m_painter;
    QString m_documentName;
    int m_copies = 1;
    int m_pages = 0;
};

/// Dots per inch to work with on a printer that offers \a supported: 600 if it can or does not say, otherwise
/// the finest it has.
[[nodiscard]] int workingResolution(const QList<int>& supported);

} // namespace suisui

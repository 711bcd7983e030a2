// A PDF read back by poppler: its words and where they are, in points from the corner of the page, and its
// pages as pictures.
#pragma once

#include <vector>

#include <QImage>
#include <QRectF>
#include <QString>

namespace suisui::test {

struct PdfWord
{
    int page = 0; ///< from 1
    QRectF box;   ///< points
    QString text;
};

/// Number of pages of \a file; 0 when it is not a PDF.
[[nodiscard]] int pdfPages(const QString& file);

/// All words of \a file, page after page.
[[nodiscard]] std::vector<PdfWord> pdfWords(const QString& file);

enum class Edges { Smoothed, Exact };

/// A page as a grey picture of \a dpi dots per inch; with exact edges every dot is black or white.
[[nodiscard]] QImage pdfPicture(const QString& file, int page, int dpi, Edges edges = Edges::Smoothed);

/// Those of \a words that are on \a page and touch \a box (points), left to right, joined by nothing.
[[nodiscard]] QString textIn(const std::vector<PdfWord>& words, int page, const QRectF& box);

} // namespace suisui::test

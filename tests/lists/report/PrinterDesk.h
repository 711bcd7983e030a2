// A PDF printer with the values that were chosen for it, and a label to print on it.
#pragma once

#include <memory>

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "lists/report/Printer_Properties.h"
#include "platform/widgets/AppFont.h"
#include "tests/support/PdfPrinter.h"
#include "tests/support/PdfText.h"

namespace suisui::test {

using namespace Qt::Literals::StringLiterals;

struct PrinterTest : ::testing::Test
{
    QTemporaryDir folder;
    std::shared_ptr<PdfSetup> setup = std::make_shared<PdfSetup>();
    Printer printer{pdfDialog(setup)};
    Printer_Properties properties{printer};

    PrinterTest() { setup->file = folder.filePath(u"out.pdf"_s); }

    void select(int dpi, const QMarginsF& margins = {})
    {
        setup->dpi = dpi;
        setup->margins = margins;
        printer.setOrientation(PaperOrientation::Landscape);
        ASSERT_EQ(properties.PrinterSelect(nullptr), PrinterChoice::GoOn);
    }

    /// Draws one page with \a draw and gives it back as a picture of a pixel for each dot.
    template <typename Draw> QImage drawn(Draw draw)
    {
        printer.StartDoc();
        EXPECT_EQ(printer.StartPage(), PrintStatus::Good);
        draw();
        EXPECT_EQ(printer.EndDoc(), PrintStatus::Good);
        return pdfPicture(setup->file, 1, setup->dpi, Edges::Exact);
    }
};

inline FormLabel label(const QString& caption, FormAlign alignment)
{
    return {.left = 1,
            .top = 2,
            .width = 1.5,
            .height = 0.25,
            .caption = caption,
            .alignment = alignment,
            .font = {.name = fontFamily(), .size = 9}};
}

} // namespace suisui::test

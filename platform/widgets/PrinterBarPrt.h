// The labels' printing object on the program's printer.
#pragma once

#include <functional>

#include "platform/widgets/PaintedBarPrt.h"

namespace suisui {

class Printer;

class PrinterBarPrt final : public PaintedBarPrt
{
public:
    /// \a printer lives longer than this object. \a failed is called when a document did not arrive whole.
    PrinterBarPrt(Printer& printer, std::function<void()> failed);
    /// A document that is still open is given up.
    ~PrinterBarPrt() override;

    void setOrientation(PaperOrientation orientation) override;
    [[nodiscard]] PaperOrientation orientation() const override;
    [[nodiscard]] std::int32_t copies() const override;
    [[nodiscard]] std::int32_t dotsPerInchX() const override;
    [[nodiscard]] std::int32_t dotsPerInchY() const override;
    [[nodiscard]] std::int32_t physicalOffsetX() const override;
    [[nodiscard]] std::int32_t physicalOffsetY() const override;

    [[nodiscard]] PrinterChoice choosePrinter(QWidget* form) override;
    void startDocument() override;
    void endDocument() override;
    void startPage() override;
    void endPage() override { m_pageOpen = false; }

protected:
    [[nodiscard]] QPainter* painter() override;

private:
    Printer& m_printer;
    std::function<void()> m_failed;
    bool m_documentOpen = false;
    bool m_pageOpen = false;
    bool m_pageFailed = false;
};

} // namespace suisui

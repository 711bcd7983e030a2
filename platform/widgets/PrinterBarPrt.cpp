#include "platform/widgets/PrinterBarPrt.h"

#include <cmath>

#include "platform/widgets/Printer.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

std::int32_t whole(double dots)
{
    return static_cast<std::int32_t>(std::lround(dots));
}

} // namespace

PrinterBarPrt::PrinterBarPrt(Printer& printer, std::function<void()> failed)
    : m_printer(printer), m_failed(std::move(failed))
{
}

PrinterBarPrt::~PrinterBarPrt()
{
    if (m_documentOpen)
        m_printer.Abort();
}

void PrinterBarPrt::setOrientation(PaperOrientation orientation)
{
    m_printer.setOrientation(orientation);
}

PaperOrientation PrinterBarPrt::orientation() const
{
    return m_printer.orientation();
}

std::int32_t PrinterBarPrt::copies() const
{
    return m_printer.copies();
}

std::int32_t PrinterBarPrt::dotsPerInchX() const
{
    return whole(m_printer.geometry().dpiX);
}

std::int32_t PrinterBarPrt::dotsPerInchY() const
{
    return whole(m_printer.geometry().dpiY);
}

std::int32_t PrinterBarPrt::physicalOffsetX() const
{
    return whole(m_printer.geometry().offsetX);
}

std::int32_t PrinterBarPrt::physicalOffsetY() const
{
    return whole(m_printer.geometry().offsetY);
}

PrinterChoice PrinterBarPrt::choosePrinter(QWidget* form)
{
    m_printer.setDocumentName(u"バーコード"_s);
    return m_printer.choose(form);
}

void PrinterBarPrt::startDocument()
{
    m_pageFailed = false;
    m_pageOpen = false;
    m_documentOpen = true;
    m_printer.StartDoc();
}

void PrinterBarPrt::endDocument()
{
    m_pageOpen = false;
    m_documentOpen = false;
    if (m_pageFailed)
        m_printer.Abort();
    if (m_pageFailed || m_printer.EndDoc() != PrintStatus::Good)
        m_failed();
}

void PrinterBarPrt::startPage()
{
    m_pageOpen = !m_pageFailed && m_printer.StartPage() == PrintStatus::Good;
    m_pageFailed = !m_pageOpen;
    if (m_pageOpen)
        m_printer.painter().setRenderHint(QPainter::Antialiasing, false);
}

QPainter* PrinterBarPrt::painter()
{
    return m_pageOpen ? &m_printer.painter() : nullptr;
}

} // namespace suisui

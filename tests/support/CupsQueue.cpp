#include "tests/support/CupsQueue.h"

#include <QFile>
#include <QFileInfo>

#include "tests/support/Eventually.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

// The device: keeps the document and the ticket of each job. Both are whole when they have their names.
constexpr auto backend = R"(#!/bin/sh
[ $# -eq 0 ] && { echo 'direct keep "Unknown" "Keeps what it is sent"'; exit 0; }
folder="${DEVICE_URI#keep:}"
printf '%s\n' "$*" > "$folder/job-$1.txt"
cat ${6:+"$6"} > "$folder/part" && mv "$folder/part" "$folder/job-$1.pdf"
)";

constexpr auto printerDescription = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "LASER.PPD"
*Manufacturer: "Test"
*Product: "(Laser)"
*ModelName: "Test Laser"
*ShortNickName: "Test Laser"
*NickName: "Test Laser"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: False
*DefaultColorSpace: Gray
*FileSystem: False
*cupsVersion: 2.3
*cupsFilter2: "application/pdf application/pdf 0 -"
*OpenUI *PageSize/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*PageSize A5/A5: "<</PageSize[420 595]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*PageRegion A5/A5: "<</PageSize[420 595]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "12 24 559 794"
*ImageableArea A5/A5: "12 24 384 547"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*PaperDimension A5/A5: "420 595"
*OpenUI *Resolution/Resolution: PickOne
*OrderDependency: 20 AnySetup *Resolution
*DefaultResolution: 300dpi
*Resolution 300dpi/300 dpi: "<</HWResolution[300 300]>>setpagedevice"
*CloseUI: *Resolution
)ppd";

} // namespace

CupsQueue::CupsQueue() : m_missing(m_server.missing())
{
    if (!m_missing.isEmpty())
        return;
    if (m_server.addDevice(u"keep"_s, backend) && m_server.write(u"laser.ppd"_s, printerDescription))
        addPrinter();
    else
        m_missing = u"the print server's folder cannot be written"_s;
}

void CupsQueue::addPrinter()
{
    const bool added = m_server.lpadmin({u"-p"_s, QString::fromUtf8(name), u"-E"_s, u"-v"_s,
                                         u"keep:"_s + m_server.filePath(u"out"_s), u"-P"_s,
                                         m_server.filePath(u"laser.ppd"_s)});
    if (!added)
        m_missing = u"lpadmin cannot add a printer"_s;
}

void CupsQueue::removePrinter()
{
    if (!m_server.lpadmin({u"-x"_s, QString::fromUtf8(name)}))
        m_missing = u"lpadmin cannot remove the printer"_s;
}

QString CupsQueue::job(int number) const
{
    const QString file = m_server.filePath(u"out/job-%1.pdf"_s.arg(number));
    return eventually([&file] { return QFileInfo::exists(file); }) ? file : QString();
}

QString CupsQueue::jobTicket(int number) const
{
    QFile file(m_server.filePath(u"out/job-%1.txt"_s.arg(number)));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
}

} // namespace suisui::test

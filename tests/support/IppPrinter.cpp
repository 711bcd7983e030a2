#include "tests/support/IppPrinter.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <QStandardPaths>

#include "tests/support/Eventually.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

constexpr auto printerDescription = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "OFFICE.PPD"
*Manufacturer: "Test"
*Product: "(Office)"
*ModelName: "Test Office"
*ShortNickName: "Test Office"
*NickName: "Test Office"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: False
*DefaultColorSpace: Gray
*FileSystem: False
*OpenUI *PageSize/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595.276 841.890]>>setpagedevice"
*PageSize Letter/Letter: "<</PageSize[612 792]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595.276 841.890]>>setpagedevice"
*PageRegion Letter/Letter: "<</PageSize[612 792]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "12 24 559.276 793.890"
*ImageableArea Letter/Letter: "12 24 576 744"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595.276 841.890"
*PaperDimension Letter/Letter: "612 792"
*OpenUI *Resolution/Resolution: PickOne
*OrderDependency: 20 AnySetup *Resolution
*DefaultResolution: 300dpi
*Resolution 300dpi/300 dpi: "<</HWResolution[300 300]>>setpagedevice"
*CloseUI: *Resolution
)ppd";

// What the printer does with a document: keeps it, and what was asked for. Both are whole when the document
// has its name.
constexpr auto keep = R"(#!/bin/sh
folder=$(dirname "$0")/out
env | grep '^IPP_' > "$folder/job-$IPP_JOB_ID.txt"
cat "$1" > "$folder/part" && mv "$folder/part" "$folder/job-$IPP_JOB_ID.pdf"
)";

/// A port that nobody listens on.
int freePort()
{
    const int descriptor = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof(address);
    const bool bound = bind(descriptor, reinterpret_cast<const sockaddr*>(&address), length) == 0
                       && getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &length) == 0;
    close(descriptor);
    return bound ? ntohs(address.sin_port) : 0;
}

void end(QProcess& process)
{
    if (process.state() == QProcess::NotRunning)
        return;
    process.terminate();
    if (!process.waitForFinished(5000))
        process.kill();
    process.waitForFinished(5000);
}

} // namespace

IppPrinter::IppPrinter() : m_missing(m_server.missing())
{
    if (!m_missing.isEmpty())
        return;
    const bool written =
        m_server.write(u"office.ppd"_s, printerDescription) && m_server.write(u"keep"_s, keep, true);
    if (!written)
        m_missing = u"the print server's folder cannot be written"_s;
    else if (!startBus())
        m_missing = u"dbus-daemon does not run here"_s;
    else
        startPrinter();
}

IppPrinter::~IppPrinter()
{
    end(m_printer);
    end(m_bus);
}

/// The printer announces itself on the network over a message bus and does not start without one. On an empty
/// bus there is nobody to announce it to.
bool IppPrinter::startBus()
{
    const QString address = m_server.filePath(u"bus"_s);
    m_bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--address=unix:path="_s + address});
    return m_bus.waitForStarted()
           && eventually([&] { return QFileInfo::exists(address) || m_bus.state() == QProcess::NotRunning; })
           && m_bus.state() == QProcess::Running;
}

void IppPrinter::startPrinter()
{
    const QString program =
        QStandardPaths::findExecutable(u"ippeveprinter"_s, {u"/usr/bin"_s, u"/usr/sbin"_s});
    if (program.isEmpty()) {
        m_missing = u"ippeveprinter is not installed"_s;
        return;
    }
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, u"unix:path="_s + m_server.filePath(u"bus"_s));
    m_printer.setProcessEnvironment(environment);
    m_printer.setStandardOutputFile(QProcess::nullDevice());
    m_printer.setStandardErrorFile(m_server.filePath(u"printer_log"_s));
    const QString port = QString::number(freePort());
    m_printer.start(program, {u"-r"_s, u"off"_s, u"-n"_s, u"localhost"_s, u"-p"_s, port, u"-P"_s,
                              m_server.filePath(u"office.ppd"_s), u"-c"_s, m_server.filePath(u"keep"_s),
                              u"-d"_s, m_server.filePath(u"spool/tmp"_s), QString::fromUtf8(name)});
    // The queue is made from what the printer says of itself, so that has to listen first.
    const bool added = eventually([&] {
        return m_printer.state() == QProcess::NotRunning
               || m_server.lpadmin({u"-p"_s, QString::fromUtf8(name), u"-E"_s, u"-v"_s,
                                    u"ipp://localhost:%1/ipp/print"_s.arg(port), u"-m"_s, u"everywhere"_s});
    });
    if (!added || m_printer.state() == QProcess::NotRunning)
        m_missing = u"no queue for the printer"_s;
}

QString IppPrinter::job(int number) const
{
    const QString file = m_server.filePath(u"out/job-%1.pdf"_s.arg(number));
    return eventually([&file] { return QFileInfo::exists(file); }) ? file : QString();
}

QString IppPrinter::asked(int number, const QString& attribute) const
{
    QFile file(m_server.filePath(u"out/job-%1.txt"_s.arg(number)));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    for (const QString& line : lines)
        if (line.startsWith(attribute + u'='))
            return line.mid(attribute.size() + 1);
    return {};
}

} // namespace suisui::test

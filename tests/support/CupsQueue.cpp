#include "tests/support/CupsQueue.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "tests/support/Eventually.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

constexpr auto serverSettings = R"(LogLevel warn
Listen %1/socket
Browsing Off
WebInterface No
DefaultAuthType None
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
)";

constexpr auto fileSettings = R"(ServerRoot %1/root
ServerBin %1/bin
DocumentRoot %1/root
RequestRoot %1/spool
TempDir %1/spool/tmp
CacheDir %1/cache
StateDir %1/state
AccessLog %1/access_log
ErrorLog %1/error_log
PageLog %1/page_log
)";

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

QByteArray filled(const char* text, const QString& folder)
{
    return QString::fromUtf8(text).replace(u"%1"_s, folder).toUtf8();
}

/// cupsd lies where ordinary users do not look.
QString serverProgram()
{
    return QStandardPaths::findExecutable(u"cupsd"_s, {u"/usr/sbin"_s, u"/usr/local/sbin"_s});
}

} // namespace

CupsQueue::CupsQueue()
{
    if (serverProgram().isEmpty())
        m_missing = u"cupsd is not installed"_s;
    else
        start();
}

CupsQueue::~CupsQueue()
{
    if (m_server.state() == QProcess::NotRunning)
        return;
    m_server.terminate();
    if (!m_server.waitForFinished(5000))
        m_server.kill();
    m_server.waitForFinished(5000);
}

void CupsQueue::start()
{
    const QString folder = m_folder.path();
    for (const auto* sub : {"root/ppd", "bin/backend", "bin/filter", "spool/tmp", "cache", "state", "out"})
        QDir(folder).mkpath(QString::fromUtf8(sub));
    // The server's own helpers stay where they are; only the devices are the test's.
    const bool written = QFile::link(u"/usr/lib/cups/daemon"_s, folder + u"/bin/daemon"_s)
                         && write(u"cupsd.conf"_s, filled(serverSettings, folder))
                         && write(u"cups-files.conf"_s, filled(fileSettings, folder))
                         && write(u"laser.ppd"_s, printerDescription)
                         && write(u"bin/backend/keep"_s, backend, true);
    if (!written) {
        m_missing = u"the print server's folder cannot be written"_s;
        return;
    }
    qputenv("CUPS_SERVER", (folder + u"/socket"_s).toUtf8());
    m_server.setProcessChannelMode(QProcess::MergedChannels);
    m_server.start(serverProgram(),
                   {u"-f"_s, u"-c"_s, folder + u"/cupsd.conf"_s, u"-s"_s, folder + u"/cups-files.conf"_s});
    const bool listening = eventually([this, &folder] {
        return QFileInfo::exists(folder + u"/socket"_s) || m_server.state() == QProcess::NotRunning;
    });
    if (!listening || m_server.state() == QProcess::NotRunning)
        m_missing = u"cupsd does not run here: "_s + QString::fromUtf8(m_server.readAll()).trimmed();
    else
        addPrinter();
}

bool CupsQueue::write(const QString& to, const QByteArray& text, bool program) const
{
    QFile file(m_folder.filePath(to));
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size()
           && (!program || file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

bool CupsQueue::lpadmin(const QStringList& arguments)
{
    QProcess process;
    process.start(u"/usr/sbin/lpadmin"_s, arguments);
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit
           && process.exitCode() == 0;
}

void CupsQueue::addPrinter()
{
    const bool added =
        lpadmin({u"-p"_s, QString::fromUtf8(name), u"-E"_s, u"-v"_s, u"keep:"_s + m_folder.filePath(u"out"_s),
                 u"-P"_s, m_folder.filePath(u"laser.ppd"_s)});
    if (!added)
        m_missing = u"lpadmin cannot add a printer"_s;
}

void CupsQueue::removePrinter()
{
    if (!lpadmin({u"-x"_s, QString::fromUtf8(name)}))
        m_missing = u"lpadmin cannot remove the printer"_s;
}

QString CupsQueue::job(int number) const
{
    const QString file = m_folder.filePath(u"out/job-%1.pdf"_s.arg(number));
    return eventually([&file] { return QFileInfo::exists(file); }) ? file : QString();
}

QString CupsQueue::jobTicket(int number) const
{
    QFile file(m_folder.filePath(u"out/job-%1.txt"_s.arg(number)));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
}

} // namespace suisui::test

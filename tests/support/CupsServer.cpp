#include "tests/support/CupsServer.h"

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

QByteArray filled(const char* text, const QString& folder)
{
    return QString::fromUtf8(text).replace(u"%1"_s, folder).toUtf8();
}

/// cupsd is in a folder that ordinary users do not have in their path.
QString serverProgram()
{
    return QStandardPaths::findExecutable(u"cupsd"_s, {u"/usr/sbin"_s, u"/usr/local/sbin"_s});
}

} // namespace

CupsServer::CupsServer(Devices devices)
{
    if (serverProgram().isEmpty())
        m_missing = u"cupsd is not installed"_s;
    else
        start(devices);
}

CupsServer::~CupsServer()
{
    if (m_server.state() == QProcess::NotRunning)
        return;
    m_server.terminate();
    if (!m_server.waitForFinished(5000))
        m_server.kill();
    m_server.waitForFinished(5000);
}

void CupsServer::start(Devices devices)
{
    const QString folder = m_folder.path();
    const bool written = makeFolders(devices) && write(u"cupsd.conf"_s, filled(serverSettings, folder))
                         && write(u"cups-files.conf"_s, filled(fileSettings, folder));
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
}

/// The server's own helpers stay where they are; devices and filters are links to the machine's, or the
/// test's.
bool CupsServer::makeFolders(Devices devices) const
{
    const QDir folder(m_folder.path());
    bool made = true;
    for (const auto& sub : {u"root/ppd"_s, u"bin"_s, u"spool/tmp"_s, u"cache"_s, u"state"_s, u"out"_s})
        made = made && folder.mkpath(sub);
    made = made && QFile::link(u"/usr/lib/cups/daemon"_s, folder.filePath(u"bin/daemon"_s));
    for (const auto& sub : {u"backend"_s, u"filter"_s})
        made = made
               && (devices == Devices::Own
                       ? folder.mkpath(u"bin/"_s + sub)
                       : QFile::link(u"/usr/lib/cups/"_s + sub, folder.filePath(u"bin/"_s + sub)));
    // The machine's filters run as a user of few rights, who has to reach them through this folder.
    const QFile::Permissions all = QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
    QFile self(m_folder.path());
    return made && (devices == Devices::Own || self.setPermissions(self.permissions() | all));
}

bool CupsServer::addDevice(const QString& name, const QByteArray& script) const
{
    return write(u"bin/backend/"_s + name, script, true);
}

bool CupsServer::write(const QString& to, const QByteArray& text, bool program) const
{
    QFile file(m_folder.filePath(to));
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size()
           && (!program || file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

bool CupsServer::lpadmin(const QStringList& arguments) const
{
    QProcess process;
    process.start(u"/usr/sbin/lpadmin"_s, arguments);
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit
           && process.exitCode() == 0;
}

} // namespace suisui::test

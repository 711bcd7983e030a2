#include "store/AppEnv.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "store/IniFile.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

QString existingPlace(QStandardPaths::StandardLocation location)
{
    const QString place = QStandardPaths::writableLocation(location);
    return QFileInfo(place).isDir() ? place : QString();
}

} // namespace

AppEnv::AppEnv(const QString& baseFolder) : m_baseFolder(QDir::cleanPath(baseFolder)) {}

QString AppEnv::MyDocFolder() const
{
    return existingPlace(QStandardPaths::DocumentsLocation);
}

QString AppEnv::DeskTopFolder() const
{
    return existingPlace(QStandardPaths::DesktopLocation);
}

IniFile AppEnv::file() const
{
    IniFile file;
    file.load(m_baseFolder + u"/Ini/AppEnv.ini"_s);
    return file;
}

QString AppEnv::LastUseDate() const
{
    return file().value(u"Use", u"LastUseDate").value_or(QString());
}

bool AppEnv::setLastUseDate(const QString& date)
{
    QDir(m_baseFolder).mkpath(u"Ini"_s);
    return file().setValue(u"Use"_s, u"LastUseDate"_s, date);
}

ReaderSettings AppEnv::readerSettings() const
{
    const IniFile ini = file();
    const auto item = [&ini](QStringView key) { return ini.value(u"Reader", key).value_or(QString()); };
    return {item(u"CommKind"),   item(u"CommPortNo"),  item(u"CommBaud"),
            item(u"CommParity"), item(u"CommDataBit"), item(u"CommStopBit")};
}

bool AppEnv::typedScans() const
{
    return file().value(u"Reader", u"TypedScan").value_or(QString()) != u"0";
}

QString AppEnv::portDevice(int number) const
{
    const QString mapped = file().value(u"Ports", QString::number(number)).value_or(QString());
    return mapped.isEmpty() ? u"/dev/ttyS%1"_s.arg(number - 1) : mapped;
}

QString AppEnv::programFolder(const QString& executable)
{
    const QDir folder = QFileInfo(executable).absoluteDir();
    if (folder.exists(u"DB"_s) || folder.exists(u"Ini"_s))
        return folder.absolutePath();
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/suisuitag"_s;
}

} // namespace suisui

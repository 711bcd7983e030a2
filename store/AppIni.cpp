#include "store/AppIni.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "store/ShippedWording.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

const QString saveInTheMaking = u"SaveInTheMaking"_s;

QString sectionOf(LabelMode mode)
{
    return u"Label%1"_s.arg(static_cast<int>(mode));
}

} // namespace

AppIni::AppIni()
{
    m_shipped.parse(QString::fromUtf8(shippedAppIni.data(), static_cast<qsizetype>(shippedAppIni.size())));
}

void AppIni::setIniFolder(const QString& folder)
{
    m_file.load(folder + u"/AppIni.ini"_s);
}

QString AppIni::word(QStringView section, int index) const
{
    const QString key = QString::number(index);
    if (const auto own = m_file.value(section, key))
        return *own;
    return m_shipped.value(section, key).value_or(QString());
}

QString AppIni::LastHistoryFolder() const
{
    return m_file.value(u"Folder", u"LastHistory").value_or(QString());
}

bool AppIni::setLastHistoryFolder(const QString& folder)
{
    return m_file.setValue(u"Folder"_s, u"LastHistory"_s, folder);
}

QString AppIni::LastBackupFolder() const
{
    return m_file.value(u"Folder", u"LastBackup").value_or(QString());
}

QString AppIni::SaveInTheMaking() const
{
    return m_file.value(u"Folder", saveInTheMaking).value_or(QString());
}

bool AppIni::setSaveInTheMaking(const QString& path)
{
    return m_file.setValue(u"Folder"_s, saveInTheMaking, path);
}

bool AppIni::setLastSave(const QString& folder, const QString& lastDay, const QString& inTheMaking)
{
    return m_file.setValues(
        u"Folder"_s,
        {{u"LastHistory"_s, folder}, {u"LastHistoryTo"_s, lastDay}, {saveInTheMaking, inTheMaking}});
}

QString AppIni::labelSetting(LabelMode mode, const QString& name) const
{
    return m_file.value(sectionOf(mode), name).value_or(QString());
}

bool AppIni::setLabelSetting(LabelMode mode, const QString& name, const QString& value)
{
    return m_file.setValue(sectionOf(mode), name, value);
}

bool AppIni::setLabelSettings(LabelMode mode, const std::vector<std::pair<QString, QString>>& settings)
{
    return m_file.setValues(sectionOf(mode), settings);
}

} // namespace suisui

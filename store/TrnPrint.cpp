#include "store/TrnPrint.h"

#include "store/IniFile.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

QString OffSetIchran(const QString& baseFolder)
{
    constexpr int length = 4;
    IniFile file;
    file.load(baseFolder + u"/Ini/TrnPrint.ini"_s);
    return file.value(u"FileName", u"OffSetIchran").value_or(QString()).left(length);
}

} // namespace suisui

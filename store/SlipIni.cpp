#include "store/SlipIni.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

bool SlipIni::setPersonName(const QString& name)
{
    const QString section = u"Slip"_s;
    std::vector<std::pair<QString, QString>> values{{u"CustomerCode"_s, m_customerCode},
                                                    {u"CustomerName"_s, m_customerName}};
    for (std::size_t i = 0; i < m_details.size(); ++i)
        values.emplace_back(u"CustomerDetail%1"_s.arg(i + 1), m_details[i]);
    values.emplace_back(u"PersonName"_s, name);
    return m_file.setValues(section, values);
}

} // namespace suisui

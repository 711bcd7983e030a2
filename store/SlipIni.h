// What the slip printer is told beside the exchange file: for which customer the slip is, and who made it.
// Kept in SlipIni.ini under the folder Ini, shared with the slip program.
#pragma once

#include <array>

#include <QString>

#include "store/IniFile.h"

namespace suisui {

class SlipIni
{
public:
    /// Further columns of the customer that go with the slip.
    static constexpr int customerDetails = 4;

    void setIniFolder(const QString& folder) { m_file.load(folder + QStringLiteral("/SlipIni.ini")); }

    /// Begins a hand-over: what the slip before had of its customer is gone, so that a customer who is no
    /// longer in the master data gets nobody else's name.
    void setCustomerCode(const QString& code)
    {
        m_customerCode = code;
        m_customerName.clear();
        m_details.fill({});
    }
    void setCustomerName(const QString& name) { m_customerName = name; }
    /// \a detail counts from 0.
    void setCustomerDetail(int detail, const QString& text)
    {
        m_details.at(static_cast<std::size_t>(detail)) = text;
    }
    /// The person's name is the last step: it stores everything. False when it could not be written.
    bool setPersonName(const QString& name);

private:
    IniFile m_file;
    QString m_customerCode;
    QString m_customerName;
    std::array<QString, customerDetails> m_details;
};

} // namespace suisui

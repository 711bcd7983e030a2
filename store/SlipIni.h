// What the slip program gets besides the exchange file: the customer whom the slip is for, and who made it.
// Kept in SlipIni.ini in the folder Ini, which the slip program shares.
#pragma once

#include <array>

#include <QString>

#include "store/IniFile.h"

namespace suisui {

class SlipIni
{
public:
    /// Number of further columns of the customer that go with the slip.
    static constexpr int customerDetails = 4;

    void setIniFolder(const QString& folder) { m_file.load(folder + QStringLiteral("/SlipIni.ini")); }

    /// Begins a slip. The customer of the previous slip is cleared, so that a customer who is no longer in
    /// the master data does not get another one's name.
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
    /// Sets the person's name as the last step and stores everything. False when it could not be written.
    bool setPersonName(const QString& name);

private:
    IniFile m_file;
    QString m_customerCode;
    QString m_customerName;
    std::array<QString, customerDetails> m_details;
};

} // namespace suisui

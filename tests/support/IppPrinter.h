// A printer as shops have it: on the network, spoken to by the Internet Printing Protocol, with margins of
// its own that it reports itself; and a queue for it on a print server of the test's own, made from what it
// reports. A job goes through the print server's filters and over the wire, and what arrives is kept.
#pragma once

#include <QMarginsF>
#include <QProcess>
#include <QString>

#include "tests/support/CupsServer.h"

namespace suisui::test {

class IppPrinter
{
public:
    static constexpr auto name = "Office";
    static constexpr int dpi = 300;
    /// Of the sheet as it is fed, in points: left, top, right, bottom. The same for A4 and Letter.
    static constexpr QMarginsF margins{12, 48, 36, 24};

    IppPrinter();
    ~IppPrinter();
    IppPrinter(const IppPrinter&) = delete;
    IppPrinter& operator=(const IppPrinter&) = delete;

    /// Why there is no printer; empty when there is one.
    [[nodiscard]] QString missing() const { return m_missing; }
    /// The document of job \a number, counted from 1, once it has arrived. Empty when it does not come.
    [[nodiscard]] QString job(int number) const;
    /// What the printer was asked for with it, as "IPP_COPIES=1": empty when it was not said.
    [[nodiscard]] QString asked(int number, const QString& attribute) const;

private:
    [[nodiscard]] bool startBus();
    void startPrinter();

    CupsServer m_server{CupsServer::Devices::System};
    QProcess m_bus;
    QProcess m_printer;
    QString m_missing;
};

} // namespace suisui::test

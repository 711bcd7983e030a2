// A print server of a test's own, with one queue whose printer keeps the jobs that it is sent.
#pragma once

#include <QString>

#include "tests/support/CupsServer.h"

namespace suisui::test {

class CupsQueue
{
public:
    /// The queue's printer: 300 dots per inch, A4 and A5, upright margins of 12, 48, 36 and 24 points (left,
    /// top, right, bottom).
    static constexpr auto name = "Laser";

    CupsQueue();

    /// Why there is no queue; empty when there is one.
    [[nodiscard]] QString missing() const { return m_missing; }
    /// The file that job \a number brought, once it is there. Empty when it does not come.
    [[nodiscard]] QString job(int number) const;
    /// What the printer got with it: number, user, title, copies, options.
    [[nodiscard]] QString jobTicket(int number) const;

    void addPrinter();
    void removePrinter();

private:
    CupsServer m_server{CupsServer::Devices::Own};
    QString m_missing;
};

} // namespace suisui::test

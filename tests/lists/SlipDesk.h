// A shipment list with a folder for its slips, and the slip program that reads them.
#pragma once

#include <gtest/gtest.h>

#include <QFile>

#include "store/SlipIni.h"
#include "tests/lists/ListDesk.h"
#include "tests/support/Eventually.h"

namespace suisui::test {

using Lines = std::vector<std::string>;

/// Reads as the slip program would, with no code of this program: bytes, the C library's conversion, and a
/// splitter.
[[nodiscard]] std::vector<Lines> readBack(const QString& path);

struct Slip : testing::Test
{
    Slip();

    /// A slip program that records where it was started.
    void installProgram() const;
    [[nodiscard]] bool started() const
    {
        return eventually(
            [this] { return QFile::exists(desk.shop.base() + QStringLiteral("/exe/started")); });
    }
    /// How often the slip program has been started so far.
    [[nodiscard]] qint64 starts() const;
    [[nodiscard]] QString csv() const { return desk.shop.base() + QStringLiteral("/exe/FileCsv.csv"); }
    [[nodiscard]] QString program() const { return desk.shop.base() + QStringLiteral("/exe/PrintRpt.exe"); }
    /// A setting for the slip program; "-" when there is none.
    [[nodiscard]] QString handedOver(const QString& key) const;
    void choosePartner(int index)
    {
        desk.control<QComboBox>(QStringLiteral("cmbXLSaki")).setCurrentIndex(index);
    }
    void press() const { desk.control<QPushButton>(QStringLiteral("cmdPrintRptExe")).click(); }
    /// What must hold after any attempt: the screen takes input and no write is pending.
    void expectUsable() const
    {
        EXPECT_TRUE(desk.frame.enabled);
        EXPECT_FALSE(desk.db.inUnit());
    }

    ListDesk desk{Side::Shipment};
    SlipIni slipIni;
};

} // namespace suisui::test

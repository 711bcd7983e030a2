// A bar-code reader on a serial line, and the link of the program to it.
#pragma once

#include <string>
#include <vector>

#include <QStringList>

#include "barcode/Barcode.h"
#include "platform/core/MSComm.h"
#include "tests/support/Eventually.h"
#include "tests/support/Pty.h"
#include "tests/support/ScriptedMsgBox.h"

namespace suisui::test {

struct ReaderDesk
{
    /// Bytes arrive in the port, not yet in the link.
    void send(QByteArrayView bytes)
    {
        const qint64 before = comm.inBufferCount();
        reader.write(bytes);
        if (!eventually([&] { return comm.inBufferCount() >= before + bytes.size(); }))
            throw std::runtime_error("the bytes do not arrive");
    }

    /// Every line that is there now.
    QStringList lines()
    {
        QStringList all;
        while (barcode.hasLine()) {
            const QString line = barcode.line();
            if (!line.isEmpty())
                all += line;
        }
        return all;
    }

    Pty reader;
    QString device = reader.device();
    MSComm comm{[this](int port) {
        asked = port;
        return device;
    }};
    int asked = 0; ///< number of the port whose device was asked for
    ReaderSettings settings{QStringLiteral("1"), QStringLiteral("3"), QStringLiteral("9600"),
                            QStringLiteral("N"), QStringLiteral("8"), QStringLiteral("1")};
    std::vector<std::string> happened; ///< "unload" and "box", in order
    ScriptedMsgBox box;
    Barcode barcode{[this] { return settings; }, box, [this] { happened.emplace_back("unload"); }};
};

} // namespace suisui::test

// The serial bar-code reader. Whoever asks gets the next complete scanned line, or an empty text; nothing is
// pushed and nothing waits. A reader that works as a keyboard needs none of this.
//
// One scan is one frame: its characters, then CR LF. A lone CR or LF is part of the frame.
#pragma once

#include <cstdint>
#include <functional>

#include <QByteArray>
#include <QString>

#include "store/AppEnv.h"

namespace suisui {

class MSComm;
class MsgBox;

class Barcode
{
public:
    /// \a settings returns the reader's settings; \a unloadShortWait closes the short wait window, which
    /// would hide a message.
    Barcode(std::function<ReaderSettings()> settings, MsgBox& msgBox, std::function<void()> unloadShortWait);
    /// Closes the port if it is open.
    ~Barcode();
    Barcode(const Barcode&) = delete;
    Barcode& operator=(const Barcode&) = delete;

    /// Takes \a port, which must outlive this object, and opens it. Returns CommInit's result.
    bool BarCodeInit(MSComm* port);
    /// Reads the settings and opens the port. Any failure is shown to the operator, and the reader is then
    /// off for the rest of the run. Always false.
    bool CommInit();
    /// Sets up and opens the port. Throws RunTimeError.
    void CommOpen();
    /// The Barcode property, read: the next complete line without its end, or an empty text. The reader sends
    /// code page 932.
    [[nodiscard]] QString line();
    /// The Barcode property, written.
    void write(const QString& text) { CommWrite(text); }
    /// The bytes that are waiting in the port.
    [[nodiscard]] QByteArray CommRead();
    /// Sends \a text; a failure is ignored. Always false.
    bool CommWrite(const QString& text);
    void CommClose();

    /// True when line() may have something to return, so that the main loop must not sleep.
    [[nodiscard]] bool hasLine() const;

private:
    [[nodiscard]] qsizetype findEnd();

    MSComm* m_commCtl = nullptr;
    std::int16_t m_commKind = 0; ///< read from the settings but not used
    std::int16_t m_commPortNo = 0;
    QString m_commBaud;
    QString m_commParity;
    QString m_commDataBit;
    QString m_commStopBit;
    bool m_commReady = false;
    QByteArray m_recvBuffer;
    qsizetype m_searched = 0; ///< no line ends before this position of the buffer

    std::function<ReaderSettings()> m_settings;
    MsgBox& m_msgBox;
    std::function<void()> m_unloadShortWait;
};

} // namespace suisui

// The link to the serial bar-code reader. It hands out the next complete scanned line, or an empty text; it
// pushes nothing and never waits. A reader that works as a keyboard needs none of this.
//
// One scan is one frame: its characters, then CR LF. A lone CR or LF belongs to the frame.
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
    /// \a settings gives the reader's settings; \a unloadShortWait takes the short wait window away, so that
    /// a message is not hidden behind it.
    Barcode(std::function<ReaderSettings()> settings, MsgBox& msgBox, std::function<void()> unloadShortWait);
    /// Closes the port if it is open.
    ~Barcode();
    Barcode(const Barcode&) = delete;
    Barcode& operator=(const Barcode&) = delete;

    /// Takes \a port, which must outlive this object, and opens it. Returns CommInit's result.
    bool BarCodeInit(MSComm* port);
    /// Reads the settings and opens the port. Any failure is told to the operator, and the reader is then
    /// dead for the rest of the run. Always false.
    bool CommInit();
    /// Programs and opens the port. Throws RunTimeError.
    void CommOpen();
    /// The Barcode property, read: the next complete line without its end, or an empty text. One line a
    /// call. Text is code page 932.
    [[nodiscard]] QString line();
    /// The Barcode property, written.
    void write(const QString& text) { CommWrite(text); }
    /// What is waiting in the port.
    [[nodiscard]] QByteArray CommRead();
    /// Sends \a text, whatever comes of it. Always false.
    bool CommWrite(const QString& text);
    void CommClose();

    /// True when a call of line() may find something to do, so that nobody sleeps over it.
    [[nodiscard]] bool hasLine() const;

private:
    [[nodiscard]] qsizetype findEnd();

    MSComm* m_commCtl = nullptr;
    std::int16_t m_commKind = 0; ///< read and kept; nothing looks at it
    std::int16_t m_commPortNo = 0;
    QString m_commBaud;
    QString m_commParity;
    QString m_commDataBit;
    QString m_commStopBit;
    bool m_commReady = false;
    QByteArray m_recvBuffer;
    qsizetype m_searched = 0; ///< no end of a line before this place of the buffer

    std::function<ReaderSettings()> m_settings;
    MsgBox& m_msgBox;
    std::function<void()> m_unloadShortWait;
};

} // namespace suisui

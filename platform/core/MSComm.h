// The serial port of a bar-code reader: settings as one text, opening, and reading what is waiting.
// Reads never wait. When the device goes away while the port is open, the port closes itself; what had come
// in before is still read once, and every later read is empty.
#pragma once

#include <functional>
#include <memory>

#include <QByteArray>
#include <QObject>
#include <QString>

class QSerialPort;
class QSocketNotifier;

namespace suisui {

class MSComm : public QObject
{
    Q_OBJECT

public:
    /// \a deviceOf gives the device of a port number, as "/dev/ttyS0" for port 1.
    explicit MSComm(std::function<QString(int)> deviceOf, QObject* parent = nullptr);
    ~MSComm() override;

    /// Throws RunTimeError: InvalidPortNumber outside 1 to 16384, PortAlreadyOpen while open.
    void setCommPort(int port);
    [[nodiscard]] int commPort() const { return m_commPort; }

    /// "{baud},{parity},{databits},{stopbits}" as "9600,N,8,1"; parity N, E, O, M or S, data bits 5 to 8,
    /// stop bits 1, 1.5 or 2. Throws RunTimeError::InvalidPropertyValue for anything else.
    void setSettings(const QString& settings);
    [[nodiscard]] QString settings() const { return m_settings; }

    /// Opening throws RunTimeError::DeviceError when the device is missing, in use or refuses the
    /// settings. Closing a closed port throws PortNotOpen, unless the device went away by itself.
    void setPortOpen(bool open);
    [[nodiscard]] bool portOpen() const;

    /// Bytes waiting.
    [[nodiscard]] qint64 inBufferCount() const;
    /// Setting the count to 0 drops what is waiting.
    void clearInBuffer();
    /// Takes everything that is waiting.
    [[nodiscard]] QByteArray input();
    /// Sends \a bytes. Throws RunTimeError::PortNotOpen when the port is closed.
    void output(const QByteArray& bytes);

Q_SIGNALS:
    /// The device went away while the port was open.
    void deviceLost();

private:
    void watchForLoss();
    void devicePulled();
    void endWatch();

    std::function<QString(int)> m_deviceOf;
    std::unique_ptr<QSerialPort> m_port;
    std::unique_ptr<QSocketNotifier> m_watch; ///< sees the device hang up
    int m_commPort = 1;
    QString m_settings;
    bool m_lost = false;
    QByteArray m_left; ///< what was waiting when the device went away
};

} // namespace suisui

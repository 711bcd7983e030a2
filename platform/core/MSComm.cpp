#include "platform/core/MSComm.h"

#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <QSerialPort>
#include <QSocketNotifier>
#include <QStringList>

#include "platform/core/RunTimeError.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int highestPort = 16384;

template <typename Value> struct Word
{
    QLatin1StringView word;
    Value value;
};

constexpr Word<QSerialPort::Parity> parities[] = {
    {"N"_L1, QSerialPort::NoParity},   {"E"_L1, QSerialPort::EvenParity},  {"O"_L1, QSerialPort::OddParity},
    {"M"_L1, QSerialPort::MarkParity}, {"S"_L1, QSerialPort::SpaceParity},
};
constexpr Word<QSerialPort::DataBits> dataBits[] = {
    {"5"_L1, QSerialPort::Data5},
    {"6"_L1, QSerialPort::Data6},
    {"7"_L1, QSerialPort::Data7},
    {"8"_L1, QSerialPort::Data8},
};
constexpr Word<QSerialPort::StopBits> stopBits[] = {
    {"1"_L1, QSerialPort::OneStop},
    {"1.5"_L1, QSerialPort::OneAndHalfStop},
    {"2"_L1, QSerialPort::TwoStop},
};

template <typename Table> auto valueOf(const Table& table, QStringView word)
{
    for (const auto& entry : table)
        if (word.compare(entry.word, Qt::CaseInsensitive) == 0)
            return entry.value;
    throw RunTimeError(RunTimeError::InvalidPropertyValue, "port setting " + word.toString().toStdString());
}

struct LineSettings
{
    qint32 baud;
    QSerialPort::Parity parity;
    QSerialPort::DataBits data;
    QSerialPort::StopBits stop;
};

LineSettings parse(const QString& settings)
{
    const QStringList items = settings.split(u',');
    bool isNumber = false;
    const qint32 baud = items.first().trimmed().toInt(&isNumber);
    if (items.size() != 4 || !isNumber || baud <= 0)
        throw RunTimeError(RunTimeError::InvalidPropertyValue, "port settings " + settings.toStdString());
    return {baud, valueOf(parities, QStringView(items[1]).trimmed()),
            valueOf(dataBits, QStringView(items[2]).trimmed()),
            valueOf(stopBits, QStringView(items[3]).trimmed())};
}

/// Whether the device of \a descriptor has gone. A terminal that has hung up stays so.
bool hungUp(int descriptor)
{
    pollfd look{.fd = descriptor, .events = 0, .revents = 0};
    return poll(&look, 1, 0) > 0 && (look.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

} // namespace

MSComm::MSComm(std::function<QString(int)> deviceOf, QObject* parent)
    : QObject(parent), m_deviceOf(std::move(deviceOf)), m_settings(u"9600,N,8,1"_s)
{
}

MSComm::~MSComm()
{
    endWatch();
}

void MSComm::setCommPort(int port)
{
    if (portOpen())
        throw RunTimeError(RunTimeError::PortAlreadyOpen, "the port is open");
    if (port < 1 || port > highestPort)
        throw RunTimeError(RunTimeError::InvalidPortNumber, "port number " + std::to_string(port));
    m_commPort = port;
}

void MSComm::setSettings(const QString& settings)
{
    (void)parse(settings);
    m_settings = settings;
}

bool MSComm::portOpen() const
{
    return m_port && m_port->isOpen();
}

void MSComm::setPortOpen(bool open)
{
    if (!open) {
        if (!portOpen() && !m_lost)
            throw RunTimeError(RunTimeError::PortNotOpen, "the port is not open");
        endWatch();
        m_port.reset();
        m_lost = false;
        m_left.clear();
        return;
    }
    if (portOpen())
        throw RunTimeError(RunTimeError::PortAlreadyOpen, "the port is open");
    const LineSettings line = parse(m_settings);
    auto port = std::make_unique<QSerialPort>();
    port->setPortName(m_deviceOf(m_commPort));
    // Before opening: some devices refuse parity and data bits afterwards.
    port->setBaudRate(line.baud);
    port->setParity(line.parity);
    port->setDataBits(line.data);
    port->setStopBits(line.stop);
    port->setFlowControl(QSerialPort::NoFlowControl);
    if (!port->open(QIODevice::ReadWrite))
        throw RunTimeError(RunTimeError::DeviceError,
                           (port->portName() + u": "_s + port->errorString()).toStdString());
    m_lost = false;
    m_port = std::move(port);
    // A dead device reports its error again and again; the first one is enough.
    connect(m_port.get(), &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError error) {
        if (error == QSerialPort::ResourceError || error == QSerialPort::DeviceNotFoundError
            || error == QSerialPort::PermissionError || error == QSerialPort::ReadError)
            devicePulled();
    });
    watchForLoss();
}

/// A lost device can always be read, and gives nothing. Qt 6.4 reports that as an error; later releases take
/// it for a pause and ask again for ever. So the hang-up is looked for here, on a second descriptor, because
/// Qt allows one notifier for each.
void MSComm::watchForLoss()
{
    const int descriptor = fcntl(m_port->handle(), F_DUPFD_CLOEXEC, 0);
    if (descriptor < 0)
        return; // the port's own report is left
    m_watch = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    connect(m_watch.get(), &QSocketNotifier::activated, this, [this, descriptor] {
        if (hungUp(descriptor))
            devicePulled();
    });
}

/// May be called from the notifier itself.
void MSComm::endWatch()
{
    if (!m_watch)
        return;
    m_watch->setEnabled(false);
    ::close(static_cast<int>(m_watch->socket()));
    m_watch.release()->deleteLater();
}

void MSComm::devicePulled()
{
    m_lost = true;
    endWatch();
    m_port->disconnect(this);
    m_left = m_port->readAll(); // closing drops it, and a scan is never dropped
    m_port->close();
    Q_EMIT deviceLost();
}

qint64 MSComm::inBufferCount() const
{
    return portOpen() ? m_port->bytesAvailable() : m_left.size();
}

void MSComm::clearInBuffer()
{
    if (!portOpen())
        throw RunTimeError(RunTimeError::PortNotOpen, "the port is not open");
    m_port->clear(QSerialPort::Input);
    (void)m_port->readAll();
}

QByteArray MSComm::input()
{
    return portOpen() ? m_port->readAll() : std::exchange(m_left, {});
}

void MSComm::output(const QByteArray& bytes)
{
    if (!portOpen())
        throw RunTimeError(RunTimeError::PortNotOpen, "the port is not open");
    m_port->write(bytes);
}

} // namespace suisui

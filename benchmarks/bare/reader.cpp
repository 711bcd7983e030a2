// The least code from a frame of the reader to its row: a serial port, its lines, and the statements of a
// scan on bare SQLite. The baseline of a scan's way through the program. Arguments: device, database.
#include <QCoreApplication>
#include <QSerialPort>

#include "benchmarks/BareScan.h"

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 3)
        return 2;
    suisui::bench::BareScan scan(argv[2]);
    QSerialPort port(QString::fromLocal8Bit(argv[1]));
    port.setBaudRate(QSerialPort::Baud9600);
    if (!port.open(QIODevice::ReadWrite))
        return 1;
    int number = 0;
    QObject::connect(&port, &QSerialPort::readyRead, &port, [&] {
        while (port.canReadLine())
            scan.run(port.readLine().trimmed().toStdString(), ++number);
    });
    return QCoreApplication::exec();
}

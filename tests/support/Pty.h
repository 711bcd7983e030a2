// A real pseudo-terminal: the program opens its device as a serial port, the test is the reader at the other
// end.
#pragma once

#include <QByteArray>
#include <QString>

namespace suisui::test {

class Pty
{
public:
    Pty();
    ~Pty();
    Pty(const Pty&) = delete;
    Pty& operator=(const Pty&) = delete;

    /// The device that the program opens.
    [[nodiscard]] QString device() const { return m_device; }

    /// Sends \a bytes to the program. Events run while the line is full.
    void write(QByteArrayView bytes);

    /// What the program has sent so far.
    [[nodiscard]] QByteArray read();

    /// The reader is unplugged.
    void hangUp();

private:
    int m_master = -1;
    QString m_device;
};

} // namespace suisui::test

#include "tests/support/Pty.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <stdexcept>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include "tests/support/Eventually.h"

namespace suisui::test {

namespace {

/// Bytes pass as they are, with nothing added, joined or echoed, also before the program has opened its end.
void setRaw(int terminal)
{
    termios settings{};
    if (tcgetattr(terminal, &settings) != 0)
        throw std::runtime_error("the pseudo-terminal has no settings");
    cfmakeraw(&settings);
    if (tcsetattr(terminal, TCSANOW, &settings) != 0)
        throw std::runtime_error("the pseudo-terminal keeps its settings");
}

} // namespace

Pty::Pty() : m_master(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC))
{
    std::array<char, 64> name{};
    if (m_master < 0 || grantpt(m_master) != 0 || unlockpt(m_master) != 0
        || ptsname_r(m_master, name.data(), name.size()) != 0)
        throw std::runtime_error("no pseudo-terminal");
    setRaw(m_master);
    m_device = QString::fromLatin1(name.data());
}

Pty::~Pty()
{
    hangUp();
}

void Pty::write(QByteArrayView bytes)
{
    const auto send = [this, &bytes] {
        while (!bytes.isEmpty()) {
            const ssize_t sent = ::write(m_master, bytes.data(), static_cast<std::size_t>(bytes.size()));
            if (sent < 0 && errno == EAGAIN)
                return false;
            if (sent < 0)
                throw std::runtime_error("the pseudo-terminal takes no bytes");
            bytes = bytes.sliced(sent);
        }
        return true;
    };
    if (!eventually(send))
        throw std::runtime_error("nobody reads the pseudo-terminal");
}

QByteArray Pty::read()
{
    std::array<char, 4096> buffer{};
    QByteArray bytes;
    for (ssize_t got = 0; (got = ::read(m_master, buffer.data(), buffer.size())) > 0;)
        bytes.append(buffer.data(), got);
    return bytes;
}

void Pty::hangUp()
{
    if (m_master >= 0)
        ::close(m_master);
    m_master = -1;
}

} // namespace suisui::test

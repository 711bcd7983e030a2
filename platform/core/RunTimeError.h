// An error that the rules of the business do not foresee: a text that is not a number, an index outside
// its list, an overflow. A routine with an error target of its own catches it there; everywhere else it
// ends the program in one place (see frame/shell/Main), after a rollback and with a report to the operator.
#pragma once

#include <exception>
#include <string>

namespace suisui {

class RunTimeError : public std::exception
{
public:
    // The numbers that operators' manuals have listed for these errors for decades.
    enum Number {
        InvalidCall = 5,
        Overflow = 6,
        OutOfMemory = 7,
        SubscriptOutOfRange = 9,
        TypeMismatch = 13,
        InternalError = 51,
        DeviceNotReady = 52,
        FileNotFound = 53,
        FileAlreadyExists = 58,
        DiskFull = 61,
        PermissionDenied = 70,
        PathAccessError = 75,
        PathNotFound = 76,
        InvalidPropertyValue = 380,
        InvalidPortNumber = 8002,
        PortAlreadyOpen = 8005,
        DeviceError = 8010,
        PortNotOpen = 8018,
    };

    RunTimeError(Number number, std::string what) : m_number(number), m_what(std::move(what)) {}

    [[nodiscard]] Number number() const { return m_number; }
    [[nodiscard]] const char* what() const noexcept override { return m_what.c_str(); }

private:
    Number m_number;
    std::string m_what;
};

} // namespace suisui

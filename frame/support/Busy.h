// The window is busy while this lives: BusyOn at its beginning, BusyOff at its end.
#pragma once

#include <exception>

#include "frame/support/Frame.h"

namespace suisui {

class Busy
{
public:
    explicit Busy(BusyState& window) : m_window(window) { m_window.BusyOn(); }
    /// BusyOff lets events run. A run-time error on its way to its report must not meet any, so it leaves the
    /// window as it is: nothing goes on after it.
    ~Busy() noexcept(false)
    {
        if (m_on && std::uncaught_exceptions() == m_errors)
            end();
    }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

    /// Ends it before its scope does, where the focus is to go to a control that must be enabled by then.
    void end()
    {
        m_on = false;
        m_window.BusyOff();
    }

private:
    BusyState& m_window;
    int m_errors = std::uncaught_exceptions();
    bool m_on = true;
};

} // namespace suisui

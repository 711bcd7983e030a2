// The window takes no input while this lives. Unlike Busy it lets no events run for that.
#pragma once

#include <exception>

#include "frame/support/Frame.h"

namespace suisui {

class FormDisabled
{
public:
    explicit FormDisabled(BusyState& window) : m_window(window) { m_window.setFormEnabled(false); }
    /// A run-time error on its way to its report leaves the window as it is: nothing goes on after it.
    ~FormDisabled() noexcept(false)
    {
        if (std::uncaught_exceptions() == m_errors)
            m_window.setFormEnabled(true);
    }
    FormDisabled(const FormDisabled&) = delete;
    FormDisabled& operator=(const FormDisabled&) = delete;

private:
    BusyState& m_window;
    int m_errors = std::uncaught_exceptions();
};

} // namespace suisui
